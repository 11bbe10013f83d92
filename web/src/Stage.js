// Draws with VornRenderer, and puts the result in front of a background.

import { VornRenderer } from '../vornrenderer/VornRenderer.js';

const VERTEX_SHADER = `#version 300 es
out vec2 place;
void main() {
    place = vec2(gl_VertexID & 1, gl_VertexID >> 1) * 2.0;
    gl_Position = vec4(place * 2.0 - 1.0, 0, 1);
    place.y = 1.0 - place.y;
}`;

// The small levels of the whole picture, which the masked one leaves alone, are its blur.
const FRAGMENT_SHADER = `#version 300 es
precision highp float;
uniform sampler2D picture;
uniform sampler2D backdrop;
uniform vec2 cover;
uniform vec3 color;
uniform int kind;
in vec2 place;
out vec4 result;
vec3 blurred() {
    vec3 sum = vec3(0);
    for (int i = 0; i < 16; ++i) {
        vec2 step = vec2(i & 3, i >> 2) - 1.5;
        sum += textureLod(picture, place + step * 0.02, 4.0).rgb;
    }
    return sum / 16.0;
}
void main() {
    vec4 front = textureLod(picture, place, 0.0);
    vec3 behind = kind == 1 ? blurred()
                : kind == 2 ? texture(backdrop, (place - 0.5) * cover + 0.5).rgb
                : color;
    // Little confidence would show as haze.
    result = vec4(mix(behind, front.rgb, smoothstep(0.4, 0.9, front.a)), 1);
}`;

const KINDS = { none: 0, blur: 1, picture: 2, color: 3 };
const DARK = [0.04, 0.05, 0.047];

export class Stage {
    /** 'none', 'blur', 'color' or 'picture' */
    background = 'none';
    color = DARK;
    #gl;
    #renderer;
    #program;
    #sampler;
    #backdrop = null;
    #backdropShape = 1;

    /** Throws VornError. */
    static async open(canvas) {
        const gl = canvas.getContext('webgl2', { antialias: false, depth: false, alpha: false });
        const renderer = await VornRenderer.create(gl ?? canvas, {
            background: [0, 0, 0, 0],
            keepState: false,
        });
        return new Stage(gl, renderer);
    }

    constructor(gl, renderer) {
        this.#gl = gl;
        this.#renderer = renderer;
        this.#program = link(gl);
        this.#sampler = gl.createSampler();
        gl.samplerParameteri(this.#sampler, gl.TEXTURE_MIN_FILTER, gl.LINEAR_MIPMAP_NEAREST);
        gl.samplerParameteri(this.#sampler, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);
        gl.samplerParameteri(this.#sampler, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);
    }

    get renderer() {
        return this.#renderer;
    }

    get size() {
        return [this.#renderer.width, this.#renderer.height];
    }

    resize(width, height) {
        const canvas = this.#gl.canvas;
        if (canvas.width !== width || canvas.height !== height || this.size.join() !== [width, height].join()) {
            Object.assign(canvas, { width, height });
            this.#renderer.resize(width, height);
        }
    }

    /** @param {TexImageSource} image covers what is behind the person */
    setBackdrop(image) {
        const gl = this.#gl;
        this.#backdrop ??= gl.createTexture();
        this.#backdropShape = image.width / image.height;
        gl.bindTexture(gl.TEXTURE_2D, this.#backdrop);
        gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, image);
        gl.generateMipmap(gl.TEXTURE_2D);
        gl.bindTexture(gl.TEXTURE_2D, null);
    }

    /**
     * Draws a frame. @param source null for the last one
     * @param newMask null before there is one
     * @returns whether there was a picture
     */
    draw(source, { mirrored, newMask, masked }) {
        const keyed = masked && this.background !== 'none';
        if (keyed && this.background === 'blur') {
            if (!this.#renderer.draw(source, { mirrored, mask: null })) {
                return false;
            }
            this.#makeBlur();
            source = null;
        }
        const mask = keyed ? newMask : null;
        if (!this.#renderer.draw(source, { mirrored, mask })) {
            return false;
        }
        this.#compose(keyed ? this.background : 'none');
        return true;
    }

    #makeBlur() {
        const gl = this.#gl;
        gl.bindTexture(gl.TEXTURE_2D, this.#renderer.output);
        gl.generateMipmap(gl.TEXTURE_2D);
        gl.bindTexture(gl.TEXTURE_2D, null);
    }

    #compose(background) {
        const gl = this.#gl;
        const { width, height } = gl.canvas;
        const shape = width / height / this.#backdropShape;
        const at = (name) => gl.getUniformLocation(this.#program, name);
        gl.viewport(0, 0, width, height);
        gl.useProgram(this.#program);
        gl.activeTexture(gl.TEXTURE1);
        gl.bindTexture(gl.TEXTURE_2D, this.#backdrop);
        gl.activeTexture(gl.TEXTURE0);
        gl.bindTexture(gl.TEXTURE_2D, this.#renderer.output);
        gl.bindSampler(0, background === 'blur' ? this.#sampler : null);
        gl.uniform1i(at('backdrop'), 1);
        gl.uniform1i(at('kind'), KINDS[background]);
        gl.uniform3fv(at('color'), background === 'color' ? this.color : DARK);
        gl.uniform2f(at('cover'), Math.min(shape, 1), Math.min(1 / shape, 1));
        gl.drawArrays(gl.TRIANGLES, 0, 3);
        gl.bindSampler(0, null);
        gl.bindTexture(gl.TEXTURE_2D, null);
    }
}

function link(gl) {
    const program = gl.createProgram();
    for (const [stage, text] of [
        [gl.VERTEX_SHADER, VERTEX_SHADER],
        [gl.FRAGMENT_SHADER, FRAGMENT_SHADER],
    ]) {
        const shader = gl.createShader(stage);
        gl.shaderSource(shader, text);
        gl.compileShader(shader);
        gl.attachShader(program, shader);
        gl.deleteShader(shader);
    }
    gl.linkProgram(program);
    return program;
}
