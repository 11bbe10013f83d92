/** The state of a WebGL context that drawing and uploading change. */
export class GlState {
    #gl;
    /** @type {(() => void)[]} */
    #restore = [];

    /** @param {WebGL2RenderingContext} gl */
    constructor(gl) {
        this.#gl = gl;
    }

    /** Remembers the state, and pauses transform feedback. */
    save() {
        this.#saveFeedback();
        this.#saveBindings();
        this.#saveUnits();
        this.#saveSwitches();
        this.#saveUnpacking();
    }

    /** Puts back what was remembered, the last first. */
    restore() {
        for (const restore of this.#restore.splice(0).reverse()) {
            restore();
        }
    }

    #saveFeedback() {
        const gl = this.#gl;
        const running =
            gl.getParameter(gl.TRANSFORM_FEEDBACK_ACTIVE) &&
            !gl.getParameter(gl.TRANSFORM_FEEDBACK_PAUSED);
        if (running) {
            gl.pauseTransformFeedback();
            this.#restore.push(() => gl.resumeTransformFeedback());
        }
    }

    #saveBindings() {
        const gl = this.#gl;
        const viewport = gl.getParameter(gl.VIEWPORT);
        const clear = gl.getParameter(gl.COLOR_CLEAR_VALUE);
        const mask = gl.getParameter(gl.COLOR_WRITEMASK);
        const program = gl.getParameter(gl.CURRENT_PROGRAM);
        const vertexArray = gl.getParameter(gl.VERTEX_ARRAY_BINDING);
        const arrayBuffer = gl.getParameter(gl.ARRAY_BUFFER_BINDING);
        const drawFramebuffer = gl.getParameter(gl.DRAW_FRAMEBUFFER_BINDING);
        const readFramebuffer = gl.getParameter(gl.READ_FRAMEBUFFER_BINDING);
        this.#restore.push(() => {
            gl.viewport(viewport[0], viewport[1], viewport[2], viewport[3]);
            gl.clearColor(clear[0], clear[1], clear[2], clear[3]);
            gl.colorMask(mask[0], mask[1], mask[2], mask[3]);
            gl.useProgram(program);
            gl.bindVertexArray(vertexArray);
            gl.bindBuffer(gl.ARRAY_BUFFER, arrayBuffer);
            gl.bindFramebuffer(gl.DRAW_FRAMEBUFFER, drawFramebuffer);
            gl.bindFramebuffer(gl.READ_FRAMEBUFFER, readFramebuffer);
        });
    }

    #saveUnits() {
        const gl = this.#gl;
        const active = gl.getParameter(gl.ACTIVE_TEXTURE);
        this.#restore.push(() => gl.activeTexture(active));
        for (const unit of [0, 1]) {
            gl.activeTexture(gl.TEXTURE0 + unit);
            const texture = gl.getParameter(gl.TEXTURE_BINDING_2D);
            const sampler = gl.getParameter(gl.SAMPLER_BINDING);
            this.#restore.push(() => {
                gl.activeTexture(gl.TEXTURE0 + unit);
                gl.bindTexture(gl.TEXTURE_2D, texture);
                gl.bindSampler(unit, sampler);
            });
        }
    }

    #saveSwitches() {
        const gl = this.#gl;
        for (const name of [gl.BLEND, gl.SCISSOR_TEST, gl.CULL_FACE, gl.RASTERIZER_DISCARD]) {
            const on = gl.isEnabled(name);
            this.#restore.push(() => (on ? gl.enable(name) : gl.disable(name)));
        }
    }

    #saveUnpacking() {
        const gl = this.#gl;
        const buffer = gl.getParameter(gl.PIXEL_UNPACK_BUFFER_BINDING);
        this.#restore.push(() => gl.bindBuffer(gl.PIXEL_UNPACK_BUFFER, buffer));
        for (const name of unpackParameters(gl)) {
            const value = gl.getParameter(name);
            this.#restore.push(() => gl.pixelStorei(name, value));
        }
    }
}

/**
 * Sets what an upload needs, whatever the application has set.
 * @param {WebGL2RenderingContext} gl
 */
export function setUploadState(gl) {
    gl.activeTexture(gl.TEXTURE0);
    gl.bindBuffer(gl.PIXEL_UNPACK_BUFFER, null);
    for (const name of unpackParameters(gl)) {
        gl.pixelStorei(name, name === gl.UNPACK_ALIGNMENT ? 1 : 0);
    }
}

/** @param {WebGL2RenderingContext} gl */
function unpackParameters(gl) {
    return [
        gl.UNPACK_ROW_LENGTH,
        gl.UNPACK_SKIP_ROWS,
        gl.UNPACK_SKIP_PIXELS,
        gl.UNPACK_FLIP_Y_WEBGL,
        gl.UNPACK_PREMULTIPLY_ALPHA_WEBGL,
        gl.UNPACK_COLORSPACE_CONVERSION_WEBGL,
        gl.UNPACK_ALIGNMENT,
    ];
}
