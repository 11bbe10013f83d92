/// <reference lib="esnext.disposable" />
import { GlState } from './GlState.js';
import { PictureTexture } from './PictureTexture.js';
import { VornError, requireArgument } from './VornError.js';
import { Wasm } from './Wasm.js';

export { VornError };

/** @typedef {import('./PictureTexture.js').PictureSource} PictureSource */
/** @typedef {import('./VornError.js').VornErrorCode} VornErrorCode */

/**
 * The camera's place in front of the picture.
 *
 * @typedef {object} View
 * @property {number} [x] in halves of the picture; positive moves the picture to the left. 0.
 * @property {number} [y] likewise; positive moves the picture up. 0.
 * @property {number} [zoom] less than 6; {@link ZOOM_FIT}, the usual one, fits the output.
 */

/**
 * @typedef {object} CreateOptions
 * @property {number} [width] of the output in pixels; the canvas's. A canvas is given this size.
 * @property {number} [height] likewise.
 * @property {[number, number, number, number]} [background] around the picture: red, green, blue
 *     and alpha from 0 to 1. Black, opaque.
 * @property {boolean} [keepState] false leaves the state of an application's context changed, which is
 *     faster. True.
 * @property {string | URL} [wasmUrl] where vornrenderer-wasm.wasm is; beside this module. The first
 *     renderer of a page decides.
 */

/**
 * @typedef {object} DrawOptions
 * @property {PictureSource | null} [mask] decides about the picture's pixels at the same place:
 *     black ones disappear, the others have the mask's alpha. Without one the last mask stays; null
 *     draws the whole picture this time.
 * @property {boolean} [mirrored] swaps left and right of the picture, and of each sticker in
 *     itself. False.
 * @property {0 | 90 | 180 | 270} [rotation] of the picture, clockwise. 0.
 */

/** The zoom at which the picture's edges meet the output's. */
export const ZOOM_FIT = 1.40031481;

const CREATE = Symbol('create');

/**
 * Draws pictures onto a canvas, or into a texture of an application's own context, {@link output}.
 *
 * All functions throw {@link VornError}. A renderer belongs to the thread that created it, which may
 * be a worker with an OffscreenCanvas.
 *
 *     const renderer = await VornRenderer.create(canvas);
 *     renderer.draw(video, { mirrored: true });
 *     renderer.close();
 */
export class VornRenderer {
    #gl;
    #wasm;
    #ownContext;
    /** @type {GlState | null} */
    #state;
    #output;
    #background;
    #width = 0;
    #height = 0;
    #sources;
    /** @type {WebGLTexture | null} */
    #source = null;
    /** @type {WebGLTexture | null} */
    #mask = null;
    /** @type {WebGLTexture | null} */
    #sticker = null;
    #view = { x: 0, y: 0, zoom: ZOOM_FIT };
    #lost = false;
    #closed = false;
    #onLost = (/** @type {Event} */ event) => {
        this.#lost = true;
        if (this.#ownContext) {
            event.preventDefault(); // Asks the browser to restore it.
        }
    };

    /**
     * Creates a renderer.
     *
     * On a canvas it draws straight onto the canvas. In an application's own context it draws into
     * {@link output}, whose first row is the picture's first row, and gives back all state.
     *
     * @param {HTMLCanvasElement | OffscreenCanvas | WebGL2RenderingContext} target
     * @param {CreateOptions} [options]
     * @returns {Promise<VornRenderer>}
     */
    static async create(target, options = {}) {
        const ownContext = !(target instanceof WebGL2RenderingContext);
        const gl = ownContext ? contextOf(target) : target;
        requireContext(gl);
        const wasmUrl = options.wasmUrl ?? new URL('./vornrenderer-wasm.wasm', import.meta.url);
        const wasm = await Wasm.open(gl, wasmUrl);
        requireContext(gl);
        return new VornRenderer(CREATE, gl, wasm, ownContext, options);
    }

    /**
     * Use {@link create}.
     * @hidden
     * @param {symbol} key
     * @param {WebGL2RenderingContext} gl
     * @param {Wasm} wasm
     * @param {boolean} ownContext
     * @param {CreateOptions} options
     */
    constructor(key, gl, wasm, ownContext, options) {
        requireArgument(key === CREATE, 'VornRenderer.create makes renderers');
        this.#gl = gl;
        this.#wasm = wasm;
        this.#ownContext = ownContext;
        this.#state = ownContext || options.keepState === false ? null : new GlState(gl);
        this.#background = options.background ?? [0, 0, 0, 1];
        this.#output = ownContext ? null : gl.createTexture();
        this.#sources = {
            picture: new PictureTexture(gl),
            mask: new PictureTexture(gl),
            sticker: new PictureTexture(gl),
        };
        gl.canvas.addEventListener('webglcontextlost', this.#onLost);
        try {
            this.resize(options.width ?? gl.drawingBufferWidth, options.height ?? gl.drawingBufferHeight);
        } catch (error) {
            this.close();
            throw error;
        }
    }

    /**
     * The texture with what was drawn, straight alpha. It exists until {@link close}. Null with a
     * canvas.
     */
    get output() {
        return this.#output;
    }

    /** Width of the output in pixels. */
    get width() {
        return this.#width;
    }

    /** Height of the output in pixels. */
    get height() {
        return this.#height;
    }

    /**
     * Gives the output another size. Its contents are lost. A canvas is given this size; after a
     * canvas was given another one elsewhere, the next draw follows.
     * @param {number} width in pixels
     * @param {number} height
     */
    resize(width, height) {
        requireArgument(isSize(width) && isSize(height), 'width and height are whole and positive');
        this.#guarded(() => {
            if (this.#ownContext) {
                Object.assign(this.#gl.canvas, { width, height });
                this.#followCanvas();
            } else {
                this.#createRenderer(width, height);
            }
        });
    }

    /**
     * Draws a picture.
     *
     * @param {PictureSource | null} source is uploaded, unless it is a texture; null draws the last
     *     one again
     * @param {DrawOptions} [options]
     * @returns {boolean} false if there is no picture yet: a video has none before it plays.
     *     Nothing was drawn then.
     */
    draw(source, { mask, mirrored = false, rotation = 0 } = {}) {
        requireArgument([0, 90, 180, 270].includes(rotation), 'rotation is 0, 90, 180 or 270');
        return this.#guarded(() => {
            this.#source = source === null ? this.#source : this.#sources.picture.of(source);
            if (mask) {
                this.#mask = this.#sources.mask.of(mask);
            }
            if (this.#source === null) {
                return false;
            }
            this.#followCanvas();
            this.#drawSource(this.#source, mask === null ? null : this.#mask, mirrored, rotation);
            return true;
        });
    }

    /**
     * Moves the camera, from the next draw on.
     * @param {View} view
     */
    setView({ x = 0, y = 0, zoom = ZOOM_FIT }) {
        requireArgument([x, y, zoom].every(Number.isFinite) && zoom < 6, 'zoom is less than 6');
        this.#requireOpen();
        this.#view = { x, y, zoom };
    }

    /**
     * Sets what is drawn over the picture, from the next draw on. The view moves and scales stickers
     * together with the picture. A sticker replaces the pixels below it, alpha included.
     *
     * @param {PictureSource | null} image for all stickers; null for none. Of a texture, the first
     *     row is drawn at the bottom.
     * @param {Iterable<{ x: number, y: number }>} [places] the anchor of each sticker in pixels of
     *     the output, counted from the first row and column: a sticker is 5 % of the output wide
     *     and 10 % high, and stands 10 % of the height above its anchor.
     */
    setStickers(image, places = []) {
        const pairs = Int32Array.from([...places].flatMap(({ x, y }) => [x, y]));
        this.#guarded(() => {
            this.#sticker = image === null ? null : this.#sources.sticker.of(image, true);
            this.#wasm.setStickers(pairs);
        });
    }

    /** Deletes all that the renderer made. It may be called again, and after the context was lost. */
    close() {
        if (this.#closed) {
            return;
        }
        const lost = this.#lost || this.#gl.isContextLost();
        this.#state?.save();
        this.#wasm.close(lost);
        if (!lost) {
            this.#gl.deleteTexture(this.#output);
            Object.values(this.#sources).forEach((texture) => texture.delete());
        }
        this.#state?.restore();
        this.#gl.canvas.removeEventListener('webglcontextlost', this.#onLost);
        this.#closed = true;
    }

    /** For `using`; the same as {@link close}. */
    [Symbol.dispose]() {
        this.close();
    }

    /**
     * @param {WebGLTexture} source
     * @param {WebGLTexture | null} mask
     * @param {boolean} mirrored
     * @param {number} rotation
     */
    #drawSource(source, mask, mirrored, rotation) {
        const gl = this.#gl;
        const [red, green, blue, alpha] = this.#background;
        gl.clearColor(red, green, blue, alpha);
        this.#wasm.draw({
            source,
            mask,
            sticker: this.#sticker,
            mirrored,
            rotation,
            view: this.#view,
        });
    }

    #followCanvas() {
        const { drawingBufferWidth: width, drawingBufferHeight: height } = this.#gl;
        if (this.#ownContext && (width !== this.#width || height !== this.#height)) {
            this.#createRenderer(width, height);
        }
    }

    /**
     * @param {number} width
     * @param {number} height
     */
    #createRenderer(width, height) {
        this.#wasm.create(this.#output, width, height);
        this.#width = width;
        this.#height = height;
    }

    /**
     * Runs a function that uses GL, and gives an application's context its state back.
     * @template T
     * @param {() => T} call
     * @returns {T}
     */
    #guarded(call) {
        this.#requireOpen();
        this.#state?.save();
        try {
            return call();
        } catch (error) {
            requireContext(this.#gl); // The better reason.
            throw error;
        } finally {
            this.#state?.restore();
        }
    }

    #requireOpen() {
        if (this.#closed) {
            throw new VornError('closed', 'The renderer is closed');
        }
        if (this.#lost) {
            throw contextLost();
        }
        requireContext(this.#gl);
    }
}

/** @param {number} size */
function isSize(size) {
    return Number.isInteger(size) && size > 0;
}

/** @param {HTMLCanvasElement | OffscreenCanvas} canvas */
function contextOf(canvas) {
    const gl = /** @type {WebGL2RenderingContext | null} */ (
        canvas.getContext('webgl2', { antialias: false, depth: false, premultipliedAlpha: false })
    );
    if (gl === null) {
        throw new VornError('no-webgl2', 'This browser gives no WebGL 2 context');
    }
    return gl;
}

/** @param {WebGL2RenderingContext} gl */
function requireContext(gl) {
    if (gl.isContextLost()) {
        throw contextLost();
    }
}

function contextLost() {
    return new VornError(
        'context-lost',
        'The WebGL context was lost. Create a new renderer when it is restored',
    );
}
