// The page: what its controls do, and its frames.

import { listenTo } from './Gestures.js';
import { PersonMask } from './PersonMask.js';
import { textOf } from './problems.js';
import { Recorder, savePicture } from './Recorder.js';
import { Source } from './Source.js';
import { Stage } from './Stage.js';
import { Stickers, stickerImage } from './Stickers.js';
import { View } from './View.js';

const element = (id) => /** @type {any} */ (document.getElementById(id));
const canvas = element('stage');

/** @type {Stage | null} */
let stage = null;
let mirrored = false;
let background = 'picture';
/** @type {OffscreenCanvas | ImageBitmap} */
let backdrop = defaultBackdrop();
let saveNext = false;
let dragged = false;
let changed = true;
const source = new Source(element('video'));
const view = new View();
const stickers = new Stickers();
const person = new PersonMask(show);
const recorder = new Recorder();
const figures = { frames: 0, drawMs: 0, since: performance.now(), shown: false };

/** What the visitor changed shows with the next frame. */
function redraw() {
    changed = true;
}

function show(text) {
    element('problem').hidden = text === null;
    element('problem').querySelector('p').textContent = text ?? '';
}

function say(text) {
    element('status').textContent = text;
}

/** Runs what may fail, and shows why it did. */
async function attempt(action) {
    try {
        await action();
        if (stage !== null) {
            show(null); // Without graphics their problem stays.
        }
        return true;
    } catch (error) {
        show(textOf(error));
        return false;
    }
}

function press(button, on) {
    button.setAttribute('aria-pressed', String(on));
}

function isPressed(id) {
    return element(id).getAttribute('aria-pressed') === 'true';
}

// Frames

async function openStage() {
    stage = await Stage.open(canvas);
    stage.background = background;
    stage.color = colorOf(element('color').value);
    stage.setBackdrop(backdrop);
    source.forgetUse();
    person.reset();
    placeStickers();
    moveCamera();
}

function drawFrame() {
    const [width, height] = source.size;
    const isDue = changed || source.isNew || person.isNew(mirrored);
    if (stage === null || width === 0 || !isDue) {
        return;
    }
    const started = performance.now();
    if (stage.size[0] !== width || stage.size[1] !== height) {
        stage.resize(width, height);
        placeStickers();
    }
    const newMask = person.take(mirrored);
    canvas.dataset.keyed = String(background !== 'none' && person.exists);
    if (stage.draw(source.takeNew(), { mirrored, newMask, masked: person.exists })) {
        changed = false;
        if (++figures.frames === 1 && !figures.shown) {
            requestAnimationFrame(firstFrameShown);
        }
        figures.drawMs += performance.now() - started;
        if (saveNext) {
            savePicture(canvas);
            saveNext = false;
        }
        if (background !== 'none' && figures.shown) {
            person.update(source.picture, width, height);
        }
    }
}

function firstFrameShown() {
    performance.mark('first-frame');
    figures.shown = true;
}

function everyFrame() {
    try {
        drawFrame();
    } catch (error) {
        stage = null;
        show(textOf(error));
    }
    requestAnimationFrame(everyFrame);
}

setInterval(() => {
    const seconds = (performance.now() - figures.since) / 1000;
    element('fps').textContent = (figures.frames / seconds).toFixed(0);
    element('drawMs').textContent = (figures.drawMs / Math.max(figures.frames, 1)).toFixed(1);
    element('maskMs').textContent = person.ms > 0 ? person.ms.toFixed(0) : '–';
    element('size').textContent = source.size.join(' × ');
    Object.assign(figures, { frames: 0, drawMs: 0, since: performance.now() });
}, 1000);

// View and stickers

function moveCamera() {
    element('zoom').value = Math.log2(view.scale);
    stage?.renderer.setView(view.camera);
    redraw();
}

function placeStickers() {
    stage?.renderer.setStickers(stickerImage(), stickers.anchors(...stage.size));
    redraw();
}

listenTo(canvas, {
    press(place) {
        if (isPressed('stickers')) {
            dragged = stickers.take(view.pointAt(place));
            if (!dragged) {
                this.add(view.pointAt(place));
            }
        }
    },
    move(x, y) {
        if (isPressed('stickers')) {
            stickers.moveLast(x / view.scale, y / view.scale);
            placeStickers();
        } else {
            view.move(x, y);
            moveCamera();
        }
    },
    zoom(factor, place) {
        view.zoomTo(view.scale * factor, place);
        moveCamera();
    },
    reset,
    enter() {
        if (isPressed('stickers')) {
            this.add({ x: view.x, y: view.y });
        }
    },
    remove() {
        stickers.removeLast();
        placeStickers();
        say(`Stickers: ${stickers.count}`);
    },
    add(point) {
        stickers.add(point);
        placeStickers();
        say(`Stickers: ${stickers.count}`);
    },
});

function reset() {
    view.reset();
    moveCamera();
}

element('reset').onclick = reset;
element('zoom').oninput = ({ target }) => {
    view.zoomTo(2 ** target.value);
    moveCamera();
};
element('stickers').onclick = ({ currentTarget }) => {
    press(currentTarget, !isPressed('stickers'));
    canvas.classList.toggle('placing', isPressed('stickers'));
    say(isPressed('stickers') ? 'Click the picture to add a sticker' : '');
};
element('mirror').onclick = ({ currentTarget }) => {
    mirrored = !mirrored;
    press(currentTarget, mirrored);
    redraw();
};

// Sources

async function open(id, action) {
    if (await attempt(action)) {
        person.reset();
        redraw();
        press(element('clip'), id === 'clip');
        press(element('camera'), id === 'camera');
    }
}

element('clip').onclick = () => open('clip', () => source.openClip());
element('camera').onclick = () => open('camera', () => source.openCamera());
const openFile = (file) => file && open('file', () => source.openFile(file));
element('file').onchange = ({ target }) => {
    openFile(target.files[0]);
    target.value = '';
};

document.addEventListener('dragover', (event) => {
    event.preventDefault();
    element('frame').classList.add('dropping');
});
for (const name of ['dragleave', 'drop']) {
    document.addEventListener(name, () => element('frame').classList.remove('dropping'));
}
document.addEventListener('drop', (event) => {
    event.preventDefault();
    openFile(event.dataTransfer.files[0]);
});

// Behind the person

element('backgrounds').onchange = ({ target }) => {
    if (target.name === 'background') {
        setBackground(target.value);
    }
};

function setBackground(value) {
    background = value;
    element('backgrounds').querySelector(`[value="${value}"]`).checked = true;
    if (stage) {
        stage.background = value;
    }
    redraw();
}

function colorOf(text) {
    return [1, 3, 5].map((at) => parseInt(text.slice(at, at + 2), 16) / 255);
}

element('color').oninput = ({ target }) => {
    setBackground('color');
    if (stage) {
        stage.color = colorOf(target.value);
    }
};
element('backdrop').onchange = ({ target }) => {
    const [file] = target.files;
    target.value = '';
    return file && attempt(async () => {
        backdrop = await createImageBitmap(file);
        stage?.setBackdrop(backdrop);
        setBackground('picture');
    });
};

/** An evening sky, until the visitor chooses a picture. */
function defaultBackdrop() {
    const image = new OffscreenCanvas(640, 360);
    const context = image.getContext('2d');
    const sky = context.createLinearGradient(0, 0, 0, 360);
    ['#16295c', '#7a4d8f', '#f0876a', '#ffd9a0'].forEach((color, i) => sky.addColorStop(i / 3, color));
    context.fillStyle = sky;
    context.fillRect(0, 0, 640, 360);
    context.fillStyle = '#20183d';
    context.beginPath();
    context.moveTo(0, 360);
    for (let x = 0; x <= 640; x += 8) {
        context.lineTo(x, 300 - 26 * Math.sin(x / 90) - 14 * Math.sin(x / 31 + 1));
    }
    context.lineTo(640, 360);
    context.fill();
    return image;
}

// What the visitor keeps

element('record').onclick = ({ currentTarget }) =>
    attempt(() => {
        recorder.toggle(canvas);
        press(currentTarget, recorder.running);
        say(recorder.running ? 'Recording' : 'The recording is saved');
    });
element('save').onclick = () => {
    saveNext = true;
    redraw();
};
element('full').onclick = () =>
    attempt(() =>
        document.fullscreenElement ? document.exitFullscreen() : element('frame').requestFullscreen(),
    );
element('showFigures').onclick = ({ currentTarget }) => {
    element('figures').hidden = !element('figures').hidden;
    press(currentTarget, !element('figures').hidden);
};
element('problem').querySelector('button').onclick = () => show(null);

canvas.addEventListener('webglcontextlost', (event) => {
    event.preventDefault(); // Asks the browser to restore it.
    stage = null;
    show(textOf({ code: 'context-lost' }));
});
canvas.addEventListener('webglcontextrestored', () => attempt(openStage));

requestAnimationFrame(everyFrame);
attempt(openStage);
open('clip', () => source.openClip());
