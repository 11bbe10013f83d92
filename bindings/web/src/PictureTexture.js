import { setUploadState } from './GlState.js';
import { requireArgument } from './VornError.js';

/**
 * What a picture, a mask or a sticker can come from. A texture belongs to the renderer's context;
 * its first row is the first row of the picture.
 *
 * @typedef {VideoFrame | HTMLVideoElement | ImageBitmap | ImageData | HTMLImageElement |
 *           HTMLCanvasElement | OffscreenCanvas | WebGLTexture} PictureSource
 */

/** A texture with the pixels of what the browser shows. */
export class PictureTexture {
    #gl;
    #texture;
    #width = 0;
    #height = 0;

    /** @param {WebGL2RenderingContext} gl */
    constructor(gl) {
        this.#gl = gl;
        this.#texture = /** @type {WebGLTexture} */ (gl.createTexture());
    }

    /**
     * The texture of a source, uploaded unless it is one already. Null while a video has no picture.
     * @param {PictureSource} source
     * @param {boolean} [lastRowFirst]
     * @returns {WebGLTexture | null}
     */
    of(source, lastRowFirst = false) {
        if (source instanceof WebGLTexture) {
            return source;
        }
        const [width, height] = sizeOf(source);
        if (width === 0 || height === 0) {
            return null;
        }
        this.#upload(lastRowFirst ? upright(source, width, height) : source, width, height, lastRowFirst);
        return this.#texture;
    }

    /**
     * @param {TexImageSource} source
     * @param {number} width
     * @param {number} height
     * @param {boolean} flip
     */
    #upload(source, width, height, flip) {
        const gl = this.#gl;
        setUploadState(gl);
        gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, flip);
        gl.bindTexture(gl.TEXTURE_2D, this.#texture);
        if (width === this.#width && height === this.#height) {
            gl.texSubImage2D(gl.TEXTURE_2D, 0, 0, 0, gl.RGBA, gl.UNSIGNED_BYTE, source);
        } else {
            gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, source);
            gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);
            gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, gl.LINEAR);
            gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);
            gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);
            this.#width = width;
            this.#height = height;
        }
        gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, false);
        gl.bindTexture(gl.TEXTURE_2D, null);
    }

    delete() {
        this.#gl.deleteTexture(this.#texture);
    }
}

/**
 * The size of a picture, [0, 0] while a video has none.
 * @param {TexImageSource} source
 * @returns {[number, number]}
 */
function sizeOf(source) {
    const { videoWidth, displayWidth, naturalWidth } = /** @type {any} */ (source);
    if (videoWidth !== undefined) {
        const video = /** @type {HTMLVideoElement} */ (source);
        const ready = video.readyState >= video.HAVE_CURRENT_DATA;
        return ready ? [video.videoWidth, video.videoHeight] : [0, 0];
    }
    if (displayWidth !== undefined) {
        const frame = /** @type {VideoFrame} */ (source);
        return [frame.displayWidth, frame.displayHeight];
    }
    if (naturalWidth !== undefined) {
        const image = /** @type {HTMLImageElement} */ (source);
        return [image.naturalWidth, image.naturalHeight];
    }
    const { width, height } = /** @type {ImageBitmap} */ (source);
    requireArgument(width >= 0 && height >= 0, 'source is neither a picture nor a texture');
    return [width, height];
}

/**
 * WebGL does not flip an ImageBitmap: it takes the way over a canvas.
 * @param {TexImageSource} source
 * @param {number} width
 * @param {number} height
 */
function upright(source, width, height) {
    if (!(source instanceof ImageBitmap)) {
        return source;
    }
    const canvas = new OffscreenCanvas(width, height);
    /** @type {OffscreenCanvasRenderingContext2D} */ (canvas.getContext('2d')).drawImage(source, 0, 0);
    return canvas;
}
