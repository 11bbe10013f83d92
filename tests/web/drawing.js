// Draws with the package and returns what is wrong.

import { VornError, VornRenderer, ZOOM_FIT } from './node_modules/vornrenderer/src/VornRenderer.js';

const SIZE = 12;
const KEYED = [169, 210, 216, 0];
const CLEAR = [255, 0, 0, 255];

/** A picture of opaque noise. */
function noise(seed, alpha = 255) {
    const image = new ImageData(SIZE, SIZE);
    let state = seed;
    for (let i = 0; i < image.data.length; ++i) {
        state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
        image.data[i] = i % 4 === 3 ? alpha : (state >>> 24) | 1;
    }
    return image;
}

function pixel(image, x, y) {
    return [...image.data.subarray(4 * (y * image.width + x), 4 * (y * image.width + x) + 4)];
}

function newContext() {
    return new OffscreenCanvas(SIZE, SIZE).getContext('webgl2', { antialias: false });
}

function readOutput({ gl, renderer }) {
    const data = new Uint8ClampedArray(4 * SIZE * SIZE);
    const framebuffer = gl.createFramebuffer();
    gl.bindFramebuffer(gl.FRAMEBUFFER, framebuffer);
    gl.framebufferTexture2D(gl.FRAMEBUFFER, gl.COLOR_ATTACHMENT0, gl.TEXTURE_2D, renderer.output, 0);
    gl.readPixels(0, 0, SIZE, SIZE, gl.RGBA, gl.UNSIGNED_BYTE, data);
    gl.deleteFramebuffer(framebuffer);
    return new ImageData(data, SIZE, SIZE);
}

async function open(gl = newContext()) {
    return { gl, renderer: await VornRenderer.create(gl, { background: [1, 0, 0, 1] }) };
}

/** Names the pixels that are not what a function of x and y says. */
function differences(name, image, expected) {
    const wrong = [];
    for (let y = 0; y < SIZE; ++y) {
        for (let x = 0; x < SIZE; ++x) {
            const want = expected(x, y);
            const got = pixel(image, x, y);
            if (want && got.join() !== want.join()) {
                wrong.push(`${name} (${x}, ${y}): ${got}, expected ${want}`);
            }
        }
    }
    return wrong.slice(0, 3);
}

/** The model: where a pixel of the output comes from. */
function model(picture, { mirrored, rotation = 0, scale = 1, mask } = {}) {
    const last = SIZE - 1;
    const turned = {
        0: (x, y) => [x, y],
        90: (x, y) => [y, last - x],
        180: (x, y) => [last - x, last - y],
        270: (x, y) => [last - y, x],
    }[rotation];
    return (x, y) => {
        const at = (v) => Math.round((v - last / 2) / scale + last / 2);
        const [px, py] = [at(x), at(y)];
        if (px < 0 || py < 0 || px > last || py > last) {
            return CLEAR;
        }
        const color = pixel(picture, ...turned(mirrored ? last - px : px, py));
        const key = mask && pixel(mask, px, py);
        return !key ? color : key[0] + key[1] + key[2] === 0 ? KEYED : [...color.slice(0, 3), key[3]];
    };
}

export async function pictures() {
    const scene = await open();
    const picture = noise(1);
    const mask = noise(2, 90);
    mask.data.fill(0, 40, 200);
    const wrong = [];
    for (const options of [{}, { mirrored: true }, { rotation: 90 }, { rotation: 180, mirrored: true },
        { rotation: 270 }, { mask }, { mask, mirrored: true, rotation: 90 }]) {
        scene.renderer.draw(picture, { mask: null, ...options });
        wrong.push(...differences(Object.keys(options).join(), readOutput(scene), model(picture, options)));
    }
    scene.renderer.draw(null);
    wrong.push(...differences('last mask', readOutput(scene), model(picture, { mask })));
    scene.renderer.setView({ zoom: 6 - 2 * (3 - ZOOM_FIT / 2) * 3 }); // A third of the size.
    scene.renderer.draw(null, { mask: null });
    wrong.push(...differences('view', readOutput(scene), (x, y) => {
        const inside = [x, y].every((v) => v >= 4 && v < 8);
        return inside ? pixel(picture, 3 * x - 11, 3 * y - 11) : CLEAR;
    }));
    scene.renderer.close();
    return wrong;
}

export async function sources() {
    const scene = await open();
    const picture = noise(3);
    const canvas = new OffscreenCanvas(SIZE, SIZE);
    canvas.getContext('2d').putImageData(picture, 0, 0);
    const { gl } = scene;
    const texture = gl.createTexture();
    gl.bindTexture(gl.TEXTURE_2D, texture);
    gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, picture);
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.NEAREST);
    const frame = new VideoFrame(canvas, { timestamp: 0, alpha: 'discard' });
    const wrong = [];
    for (const source of [picture, canvas, texture, frame, await createImageBitmap(picture)]) {
        scene.renderer.draw(noise(4));
        const drawn = scene.renderer.draw(source);
        wrong.push(...differences(`${source.constructor.name} ${drawn}`, readOutput(scene), model(picture)));
    }
    frame.close();
    if (scene.renderer.draw(document.createElement('video'))) {
        wrong.push('a video without a picture');
    }
    scene.renderer.close();
    return wrong;
}

/** A sticker of 2 × 2 texels covers 1/20 × 1/10: here a column of less than a pixel. */
export async function stickers() {
    const gl = newContext();
    const renderer = await VornRenderer.create(gl, { width: 240, height: 120 });
    const sticker = new ImageData(new Uint8ClampedArray([255, 0, 0, 255, 0, 0, 255, 128]), 1, 2);
    renderer.draw(noise(5));
    const wrong = [];
    for (const image of [sticker, await createImageBitmap(sticker, { premultiplyAlpha: 'none' })]) {
        renderer.setStickers(image, [{ x: 120, y: 60 }, { x: -1, y: -1 }]);
        renderer.draw(null);
        gl.bindFramebuffer(gl.FRAMEBUFFER, gl.createFramebuffer());
        gl.framebufferTexture2D(gl.FRAMEBUFFER, gl.COLOR_ATTACHMENT0, gl.TEXTURE_2D, renderer.output, 0);
        const color = new Uint8Array(4);
        for (const [y, want] of [[37, [255, 0, 0, 255]], [47, [0, 0, 255, 128]]]) {
            gl.readPixels(120, y, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, color);
            if (color.join() !== want.join()) {
                wrong.push(`${image.constructor.name} row ${y}: ${color}`);
            }
        }
    }
    renderer.close();
    return wrong;
}

const STATE = ['ACTIVE_TEXTURE', 'ARRAY_BUFFER_BINDING', 'BLEND', 'COLOR_CLEAR_VALUE', 'COLOR_WRITEMASK', 'CULL_FACE',
    'CURRENT_PROGRAM', 'DRAW_FRAMEBUFFER_BINDING', 'ELEMENT_ARRAY_BUFFER_BINDING', 'PIXEL_UNPACK_BUFFER_BINDING',
    'RASTERIZER_DISCARD', 'READ_FRAMEBUFFER_BINDING', 'SAMPLER_BINDING', 'SCISSOR_TEST', 'TEXTURE_BINDING_2D',
    'UNPACK_ALIGNMENT', 'UNPACK_FLIP_Y_WEBGL', 'UNPACK_PREMULTIPLY_ALPHA_WEBGL', 'UNPACK_ROW_LENGTH',
    'UNPACK_SKIP_PIXELS', 'UNPACK_SKIP_ROWS', 'VERTEX_ARRAY_BINDING', 'VIEWPORT'];

function setHostileState(gl) {
    for (const unit of [0, 1, 2]) {
        gl.activeTexture(gl.TEXTURE0 + unit);
        gl.bindTexture(gl.TEXTURE_2D, gl.createTexture());
        gl.bindSampler(unit, gl.createSampler());
    }
    for (const [target, object] of [['ARRAY_BUFFER', gl.createBuffer()], ['PIXEL_UNPACK_BUFFER', gl.createBuffer()]]) {
        gl.bindBuffer(gl[target], object);
    }
    gl.bindVertexArray(gl.createVertexArray());
    gl.bindBuffer(gl.ELEMENT_ARRAY_BUFFER, gl.createBuffer());
    gl.bindFramebuffer(gl.DRAW_FRAMEBUFFER, gl.createFramebuffer());
    gl.bindFramebuffer(gl.READ_FRAMEBUFFER, gl.createFramebuffer());
    ['BLEND', 'CULL_FACE', 'SCISSOR_TEST', 'RASTERIZER_DISCARD'].forEach((name) => gl.enable(gl[name]));
    gl.cullFace(gl.FRONT_AND_BACK);
    gl.scissor(1, 1, 2, 2);
    gl.viewport(3, 4, 5, 6);
    gl.colorMask(false, true, false, true);
    gl.clearColor(0.25, 0.5, 0.75, 1);
    for (const [name, value] of [['ALIGNMENT', 8], ['ROW_LENGTH', 40], ['SKIP_ROWS', 2], ['SKIP_PIXELS', 3],
        ['FLIP_Y_WEBGL', true], ['PREMULTIPLY_ALPHA_WEBGL', true]]) {
        gl.pixelStorei(gl[`UNPACK_${name}`], value);
    }
}

export async function keptState() {
    const gl = newContext();
    setHostileState(gl);
    const state = () => STATE.map((name) => gl.getParameter(gl[name]));
    const before = state();
    const wrong = [];
    const compare = (when) => {
        state().forEach((value, i) => {
            if (value !== before[i] && String(value) !== String(before[i])) {
                wrong.push(`${STATE[i]} after ${when}`);
            }
        });
        if (gl.getError() !== 0) {
            wrong.push(`GL error after ${when}`);
        }
    };
    const scene = await open(gl);
    compare('creation');
    const picture = noise(6);
    const mask = noise(7, 40);
    scene.renderer.setStickers(noise(8), [{ x: -1, y: -1 }]);
    scene.renderer.draw(picture, { mask });
    compare('a draw');
    const output = readOutput(scene);
    wrong.push(...differences('picture', output, model(picture, { mask })));
    scene.renderer.close();
    return wrong;
}

/** What a canvas shows, read before the browser does. */
function readCanvas(canvas) {
    const gl = canvas.getContext('webgl2');
    const image = new ImageData(SIZE, SIZE);
    gl.bindFramebuffer(gl.FRAMEBUFFER, null);
    for (let y = 0; y < SIZE; ++y) {
        const row = image.data.subarray(4 * SIZE * y, 4 * SIZE * (y + 1));
        gl.readPixels(0, SIZE - 1 - y, SIZE, 1, gl.RGBA, gl.UNSIGNED_BYTE, row);
    }
    return image;
}

export async function ownCanvas() {
    const canvas = new OffscreenCanvas(SIZE, SIZE);
    const renderer = await VornRenderer.create(canvas, { width: 2 * SIZE, background: [1, 0, 0, 1] });
    const wrong = canvas.width === 2 * SIZE && renderer.output === null ? [] : ['size or output'];
    const picture = noise(9);
    const mask = noise(2, 90);
    mask.data.fill(0, 40, 200);
    for (const options of [{}, { mirrored: true }, { mask, rotation: 90 }]) {
        canvas.width = SIZE; // The next draw follows.
        renderer.draw(picture, options);
        wrong.push(...differences(`canvas ${Object.keys(options)}`, readCanvas(canvas), model(picture, options)));
    }
    renderer.close();
    return wrong;
}

export function worker() {
    const text = `import { ownCanvas } from '${new URL('drawing.js', location.href)}'; postMessage(await ownCanvas());`;
    const url = URL.createObjectURL(new Blob([text], { type: 'text/javascript' }));
    return new Promise((done) => {
        const thread = new Worker(url, { type: 'module' });
        thread.onmessage = ({ data }) => done(data);
        thread.onerror = ({ message }) => done([message]);
    });
}

/** The code that a call throws, or what happened instead. */
async function thrown(call) {
    try {
        await call();
        return 'nothing';
    } catch (error) {
        return error instanceof VornError ? error.code : String(error);
    }
}

async function expectCodes(cases) {
    const wrong = [];
    for (const [code, call] of cases) {
        const got = await thrown(call);
        if (got !== code) {
            wrong.push(`${call}: ${got}, expected ${code}`);
        }
    }
    return wrong;
}

export async function errors() {
    const { gl, renderer } = await open();
    const taken = new OffscreenCanvas(1, 1);
    taken.getContext('2d');
    const wrong = await expectCodes([
        ['argument', () => renderer.draw({})],
        ['argument', () => renderer.draw(null, { rotation: 45 })],
        ['argument', () => renderer.setView({ zoom: 6 })],
        ['argument', () => renderer.resize(0, 5)],
        ['no-webgl2', () => VornRenderer.create(taken)],
        ['picture-size', () => VornRenderer.create(gl, { width: 1e6, height: 1 })],
    ]);
    renderer.close();
    renderer.close();
    const closed = [
        ['closed', () => renderer.draw(null)],
        ['closed', () => renderer.setView({})],
        ['closed', () => renderer.resize(1, 1)],
    ];
    return [...wrong, ...(await expectCodes(closed))];
}

export async function contextLost() {
    const canvas = new OffscreenCanvas(SIZE, SIZE);
    const renderer = await VornRenderer.create(canvas);
    const gl = canvas.getContext('webgl2');
    const extension = gl.getExtension('WEBGL_lose_context');
    const happens = (name) => new Promise((done) => canvas.addEventListener(name, done, { once: true }));
    const lost = happens('webglcontextlost');
    extension.loseContext();
    const wrong = await expectCodes([
        ['context-lost', () => renderer.draw(noise(1))],
        ['context-lost', () => VornRenderer.create(canvas)],
    ]);
    await lost;
    await new Promise((done) => setTimeout(done)); // The event is over.
    const restored = happens('webglcontextrestored');
    extension.restoreContext();
    await restored;
    wrong.push(...(await expectCodes([['context-lost', () => renderer.draw(noise(1))]])));
    renderer.close();
    return [...wrong, ...(await drawsAgain(canvas))];
}

async function drawsAgain(canvas) {
    const renderer = await VornRenderer.create(canvas);
    renderer.draw(noise(1));
    const wrong = differences('after the loss', readCanvas(canvas), model(noise(1)));
    renderer.close();
    return wrong;
}

/** Milliseconds of a frame: into a texture, onto a canvas, and by an upload and a quad alone. */
export async function cost() {
    const [width, height] = [1280, 720];
    const source = new OffscreenCanvas(width, height);
    const paint = source.getContext('2d');
    const context = () => new OffscreenCanvas(width, height).getContext('webgl2', { antialias: false, depth: false });
    const canvas = new OffscreenCanvas(width, height);
    const shown = await VornRenderer.create(canvas);
    const [ours, bare] = [context(), context()];
    const renderer = await VornRenderer.create(ours);
    const drawBare = bareQuad(bare);
    const times = { library: [], shown: [], bare: [] };
    const measure = (name, gl, draw) => {
        const started = performance.now();
        draw();
        gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, new Uint8Array(4));
        times[name].push(performance.now() - started);
    };
    for (let i = 0; i < 40; ++i) {
        paint.fillStyle = `hsl(${i * 9} 80% 50%)`;
        paint.fillRect(0, 0, width, height);
        const picture = paint.getImageData(0, 0, width, height);
        measure('library', ours, () => renderer.draw(picture));
        measure('shown', canvas.getContext('webgl2'), () => shown.draw(picture));
        measure('bare', bare, () => drawBare(picture));
    }
    renderer.close();
    shown.close();
    // What other programs disturb little.
    const quartile = (list) => list.sort((a, b) => a - b)[list.length >> 2];
    return Object.fromEntries(Object.entries(times).map(([name, list]) => [name, quartile(list)]));
}

function bareQuad(gl) {
    const program = gl.createProgram();
    for (const [stage, text] of [
        [gl.VERTEX_SHADER, 'attribute vec2 v; varying vec2 p; void main() { p = v; gl_Position = vec4(v * 2.0 - 1.0, 0, 1); }'],
        [gl.FRAGMENT_SHADER, 'precision highp float; uniform sampler2D s; varying vec2 p; void main() { gl_FragColor = texture2D(s, vec2(p.x, 1.0 - p.y)); }'],
    ]) {
        const shader = gl.createShader(stage);
        gl.shaderSource(shader, text);
        gl.compileShader(shader);
        gl.attachShader(program, shader);
    }
    gl.linkProgram(program);
    gl.useProgram(program);
    gl.bindBuffer(gl.ARRAY_BUFFER, gl.createBuffer());
    gl.bufferData(gl.ARRAY_BUFFER, new Float32Array([0, 0, 1, 0, 0, 1, 1, 1]), gl.STATIC_DRAW);
    gl.enableVertexAttribArray(0);
    gl.vertexAttribPointer(0, 2, gl.FLOAT, false, 0, 0);
    gl.bindTexture(gl.TEXTURE_2D, gl.createTexture());
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);
    let first = true;
    return (picture) => {
        if (first) {
            gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, picture);
        } else {
            gl.texSubImage2D(gl.TEXTURE_2D, 0, 0, 0, gl.RGBA, gl.UNSIGNED_BYTE, picture);
        }
        first = false;
        gl.drawArrays(gl.TRIANGLE_STRIP, 0, 4);
    };
}
