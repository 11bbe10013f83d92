import { VornError } from './VornError.js';
import createModule from './vornrenderer-wasm.mjs';

/** @type {Record<number, import('./VornError.js').VornErrorCode>} */
const CODES = { [-1]: 'argument', [-4]: 'memory', [-9]: 'picture-size' };

/** @type {Promise<any> | undefined} */
let loading;

/**
 * The module, which all renderers share.
 * @param {string | URL} url
 */
async function load(url) {
    try {
        loading ??= createModule({ locateFile: () => String(url) });
        return await loading;
    } catch (error) {
        loading = undefined;
        throw new VornError('load', `Cannot load ${url}: ${error}`, { cause: error });
    }
}

/** One renderer of the WebAssembly module. */
export class Wasm {
    #module;
    #context;
    #renderer = 0;
    /** Names of this renderer's textures inside the module. @type {Map<string, number>} */
    #names = new Map();
    #view;
    #stickers = 0;
    #stickerCount = 0;

    /**
     * @param {WebGL2RenderingContext} gl
     * @param {string | URL} url
     */
    static async open(gl, url) {
        return new Wasm(await load(url), gl);
    }

    /**
     * @param {any} module
     * @param {WebGL2RenderingContext} gl
     */
    constructor(module, gl) {
        this.#module = module;
        this.#context = module.GL.registerContext(gl, {
            majorVersion: 2,
            enableExtensionsByDefault: false,
        });
        this.#view = module._malloc(12);
    }

    /**
     * Creates the renderer, or creates it again with another size.
     * @param {WebGLTexture | null} output null for the canvas
     * @param {number} width
     * @param {number} height
     */
    create(output, width, height) {
        this.#closeRenderer(false);
        const { GL, HEAP32, _VornCreate } = this.#module;
        GL.makeContextCurrent(this.#context);
        const resultAt = this.#view;
        this.#renderer = _VornCreate(this.#name('output', output), width, height, resultAt);
        this.#check(HEAP32[resultAt >> 2]);
    }

    /**
     * @param {{ source: WebGLTexture, mask: WebGLTexture | null, sticker: WebGLTexture | null,
     *           mirrored: boolean, rotation: number,
     *           view: { x: number, y: number, zoom: number } }} what
     */
    draw({ source, mask, sticker, mirrored, rotation, view }) {
        const module = this.#module;
        module.GL.makeContextCurrent(this.#context);
        module.HEAPF32.set([view.x, view.y, view.zoom], this.#view >> 2);
        this.#check(
            module._VornDraw(
                this.#renderer,
                this.#name('source', source),
                this.#name('mask', mask),
                mirrored,
                rotation,
                this.#view,
                this.#name('sticker', sticker),
                this.#stickers,
                this.#stickerCount,
            ),
        );
    }

    /** @param {Int32Array} pairs x, y of each sticker */
    setStickers(pairs) {
        this.#module._free(this.#stickers);
        this.#stickers = this.#module._malloc(pairs.byteLength);
        this.#stickerCount = pairs.length / 2;
        this.#module.HEAP32.set(pairs, this.#stickers >> 2);
    }

    /** @param {boolean} contextLost */
    close(contextLost) {
        const { GL, _free } = this.#module;
        this.#closeRenderer(contextLost);
        for (const name of this.#names.values()) {
            GL.textures[name] = null;
        }
        _free(this.#view);
        _free(this.#stickers);
        GL.deleteContext(this.#context);
        GL.makeContextCurrent(0);
    }

    /** @param {boolean} contextLost */
    #closeRenderer(contextLost) {
        if (this.#renderer !== 0) {
            this.#module.GL.makeContextCurrent(this.#context);
            this.#module._VornClose(this.#renderer, contextLost);
            this.#renderer = 0;
        }
    }

    /**
     * The number by which the module knows a texture, 0 for none.
     * @param {string} role
     * @param {WebGLTexture | null} texture
     */
    #name(role, texture) {
        if (texture === null) {
            return 0;
        }
        const { GL } = this.#module;
        const name = this.#names.get(role) ?? GL.getNewId(GL.textures);
        this.#names.set(role, name);
        GL.textures[name] = texture;
        return name;
    }

    /** @param {number} result */
    #check(result) {
        if (result < 0) {
            const { UTF8ToString, _VornResultText } = this.#module;
            throw new VornError(CODES[result] ?? 'gl', UTF8ToString(_VornResultText(result)));
        }
    }
}
