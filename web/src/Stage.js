// Draws with VornRenderer, and puts the result in front of a background.

import { VornRenderer } from 'vornrenderer';

const VERTEX_SHADER = `#version 300 es
out vec2 place;
void main() {
    place = vec2(gl_VertexID & 1, gl_VertexID >> 1) * 2.0;
    gl_Position = vec4(place * 2.0 - 1.0, 0, 1);
    place.y = 1.0 - place.y;
}`;

// What is behind the person. A program for each: large ones take long to compile.
const BEHIND = {
    none: 'vec3(0.04, 0.05, 0.047)',
    blur: 'blurred()',
    color: 'color',
    picture: 'texture(backdrop, (place - 0.5) * cover + 0.5).rgb',
};

// The small levels of the whole picture, which the masked one leaves alone, are its blur.
const fragmentShader = (kind) => `#version 300 es
precision highp float;
uniform sampler2D picture;
uniform sampler2D backdrop;
uniform vec2 cover;
uniform vec3 color;
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
    // Little confidence would show as haze.
    float share = smoothstep(0.4, 0.9, front.a);
    result = vec4(share == 1.0 ? front.rgb : mix(${BEHIND[kind]}, front.rgb, share), 1);
}`;

export class Stage {
    /** 'none', 'blur', 'color' or 'picture' */
    background = 'none';
    /** Red, green and blue from 0 to 1. */
    color = [0, 0, 0];
    #gl;
    #renderer;
    #programs = new Map();
    #sampler;
    #backdrop = null;
    #newBackdrop = null;
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
        this.#programOf('none');
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
        this.#newBackdrop = image;
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

    #uploadBackdrop() {
        const gl = this.#gl;
        const image = this.#newBackdrop;
        this.#newBackdrop = null;
        this.#backdrop ??= gl.createTexture();
        this.#backdropShape = image.width / image.height;
        gl.bindTexture(gl.TEXTURE_2D, this.#backdrop);
        gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, image);
        gl.generateMipmap(gl.TEXTURE_2D);
    }

    #compose(background) {
        const gl = this.#gl;
        const { width, height } = gl.canvas;
        gl.activeTexture(gl.TEXTURE1);
        if (background === 'picture' && this.#newBackdrop !== null) {
            this.#uploadBackdrop();
        }
        gl.bindTexture(gl.TEXTURE_2D, this.#backdrop);
        gl.activeTexture(gl.TEXTURE0);
        const shape = width / height / this.#backdropShape;
        const { program, at } = this.#programOf(background);
        gl.viewport(0, 0, width, height);
        gl.useProgram(program);
        gl.bindTexture(gl.TEXTURE_2D, this.#renderer.output);
        gl.bindSampler(0, background === 'blur' ? this.#sampler : null);
        gl.uniform1i(at.backdrop, 1);
        gl.uniform3fv(at.color, this.color);
        gl.uniform2f(at.cover, Math.min(shape, 1), Math.min(1 / shape, 1));
        gl.drawArrays(gl.TRIANGLES, 0, 3);
        gl.bindSampler(0, null);
        gl.bindTexture(gl.TEXTURE_2D, null);
    }

    #programOf(kind) {
        if (!this.#programs.has(kind)) {
            const program = link(this.#gl, fragmentShader(kind));
            const at = {};
            for (const name of ['backdrop', 'color', 'cover']) {
                at[name] = this.#gl.getUniformLocation(program, name);
            }
            this.#programs.set(kind, { program, at });
        }
        return this.#programs.get(kind);
    }
}

function link(gl, fragmentText) {
    const program = gl.createProgram();
    for (const [stage, text] of [
        [gl.VERTEX_SHADER, VERTEX_SHADER],
        [gl.FRAGMENT_SHADER, fragmentText],
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
