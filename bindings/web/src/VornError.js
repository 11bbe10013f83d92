/**
 * Why a call failed:
 *
 * - `closed`: the renderer was closed before.
 * - `context-lost`: the WebGL context was lost. Create a new renderer when it is restored.
 * - `no-webgl2`: the canvas gives no WebGL 2 context.
 * - `argument`: an argument makes no sense; the message names it.
 * - `load`: the WebAssembly module could not be loaded.
 * - `picture-size`: larger than the context allows.
 * - `memory`, `gl`: the browser refused memory, a shader or a texture.
 *
 * @typedef {'closed' | 'context-lost' | 'no-webgl2' | 'argument' | 'load' | 'picture-size' |
 *           'memory' | 'gl'} VornErrorCode
 */

/** What all functions of this package throw. */
export class VornError extends Error {
    /**
     * @param {VornErrorCode} code
     * @param {string} message
     * @param {ErrorOptions} [options]
     */
    constructor(code, message, options) {
        super(message, options);
        this.name = 'VornError';
        /**
         * The reason, for programs.
         * @type {VornErrorCode}
         */
        this.code = code;
    }
}

/**
 * @param {unknown} condition
 * @param {string} message
 * @returns {asserts condition}
 */
export function requireArgument(condition, message) {
    if (!condition) {
        throw new VornError('argument', message);
    }
}
