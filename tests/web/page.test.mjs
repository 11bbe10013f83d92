// The page in a browser, with a camera that shows a portrait.
// VORN_PLAY_SECONDS: how long the heap must stay flat.
// VORN_KEEP_PICTURES: if set, the screenshots of docs/web.md are made again.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdirSync, readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import { launch, serve } from './Browser.mjs';

const OUT = 'build/web/tests/page';
const PICTURES = process.env.VORN_KEEP_PICTURES ? 'docs/images/web' : OUT;
const PLAY_SECONDS = Number(process.env.VORN_PLAY_SECONDS ?? 60);
const PLACE = 'scale=1400:1400,crop=1280:720:60:60'; // The portrait in the camera's picture.
const OVERLAP = 0.9;
const PATIENCE = 120_000; // Milliseconds for each step, for slow machines.
const GREEN = '#00ff00';
const axe = readFileSync('tests/web/node_modules/axe-core/axe.min.js', 'utf8');
let origin;
let browser;

const ffmpeg = (...args) => execFileSync('ffmpeg', ['-loglevel', 'error', '-y', ...args]);

before(async () => {
    mkdirSync(OUT, { recursive: true });
    ffmpeg('-loop', '1', '-r', '15', '-i', 'web/assets/astronaut.jpg', '-frames:v', '4', '-vf', PLACE, '-pix_fmt', 'yuv420p',
        `${OUT}/camera.y4m`);
    ffmpeg('-i', 'tests/web/data/person.png', '-vf', PLACE, `${OUT}/person.png`);
    origin = await serve({ '/any/folder/': 'build/web/page' });
    browser = await launch(['--use-fake-device-for-media-stream', `--use-file-for-fake-video-capture=${OUT}/camera.y4m`]);
});
after(() => browser.close());

/** The page, once it shows pictures. `problems` are violations, errors and requests to elsewhere. */
async function openPage({ width = 1280, height = 800, colorScheme = 'light', permissions = ['camera'] } = {}) {
    const context = await browser.newContext({ viewport: { width, height }, colorScheme, permissions });
    context.setDefaultTimeout(PATIENCE);
    const page = await context.newPage();
    const problems = [];
    page.on('pageerror', (error) => problems.push(String(error)));
    page.on('console', (line) => {
        if (line.type() === 'error' || /Content Security|INVALID/.test(line.text())) {
            problems.push(line.text());
        }
    });
    page.on('request', (request) => {
        if (!/^(blob:)?http:\/\/localhost/.test(request.url())) {
            problems.push(request.url());
        }
    });
    await page.addInitScript(() => {
        window.shift = 0;
        window.shifted = [];
        const add = (list) => list.getEntries().forEach((entry) => {
            window.shift += entry.value;
            window.shifted.push(...entry.sources.map(({ node }) => (node?.parentElement ?? node)?.outerHTML));
        });
        new PerformanceObserver(add).observe({ type: 'layout-shift', buffered: true });
    });
    await page.goto(`${origin}/any/folder/`);
    await page.waitForFunction(() => Number(document.getElementById('fps').textContent) > 0 &&
        performance.getEntriesByName('first-frame').length > 0);
    return { page, problems, close: () => context.close() };
}

const background = (page, value) => page.click(`.choice:has([value=${value}])`);
const isKeyed = (page) => page.waitForSelector('#stage[data-keyed=true]');
const isPressed = (page, id) => page.getAttribute(`#${id}`, 'aria-pressed');
const problemText = (page) => page.innerText('#problem p');

async function savedPicture(page) {
    const [download] = await Promise.all([page.waitForEvent('download'), page.click('#save')]);
    return readFileSync(await download.path());
}

/** Pixels of a PNG, decoded by a page. */
async function pixelsOf(page, png) {
    const pixels = await page.evaluate(async (base64) => {
        const bytes = Uint8Array.from(atob(base64), (char) => char.charCodeAt(0));
        const image = await createImageBitmap(new Blob([bytes]));
        const context = new OffscreenCanvas(image.width, image.height).getContext('2d');
        context.drawImage(image, 0, 0);
        let text = '';
        context.getImageData(0, 0, image.width, image.height).data.forEach((byte) => (text += String.fromCharCode(byte)));
        return { width: image.width, height: image.height, text: btoa(text) };
    }, png.toString('base64'));
    return { ...pixels, data: Buffer.from(pixels.text, 'base64') };
}

test('opens at once, within its policy, for everyone', { timeout: 600_000 }, async () => {
    for (const [width, height, colorScheme] of [[360, 740, 'light'], [1920, 1080, 'dark'], [1280, 800, 'light']]) {
        const { page, problems, close } = await openPage({ width, height, colorScheme });
        await isKeyed(page);
        await page.waitForTimeout(1000);
        await page.screenshot({ path: `${width === 1280 ? OUT : PICTURES}/page-${width}.png` });
        assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), 'too wide');
        assert.ok(await page.evaluate(() => document.documentElement.scrollHeight <= innerHeight), 'more than a screen');
        const [shift, shifted] = await page.evaluate(() => [window.shift, window.shifted]);
        assert.ok(shift < 0.01, `the layout shifts: ${shifted}`);
        await page.evaluate(axe);
        const findings = await page.evaluate(async () => (await window.axe.run()).violations.map(({ id, nodes }) => [id, nodes[0].html]));
        assert.deepEqual(findings, []);
        assert.deepEqual(problems, []);
        await close();
    }
});

test('shows its first frame soon', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    const ms = await page.evaluate(() => performance.getEntriesByName('first-frame')[0].startTime);
    console.log(`first frame ${ms.toFixed(0)} ms after navigation`);
    await close();
});

test('keys the person in front of the camera', { timeout: 600_000 }, async () => {
    const { page, problems, close } = await openPage();
    await page.click('#camera');
    await page.fill('#color', GREEN);
    await page.waitForFunction(() => document.getElementById('size').textContent.startsWith('1280'));
    await isKeyed(page);
    await page.waitForTimeout(500);
    const picture = await pixelsOf(page, await savedPicture(page));
    const mask = await pixelsOf(page, readFileSync(`${OUT}/person.png`));
    assert.deepEqual([picture.width, picture.height], [mask.width, mask.height]);
    let [both, either] = [0, 0];
    for (let i = 0; i < mask.data.length; i += 4) {
        const [red, green, blue] = picture.data.subarray(i, i + 3);
        const shown = !(green > 150 && red < 100 && blue < 100);
        const person = mask.data[i] > 127;
        both += shown && person;
        either += shown || person;
    }
    console.log(`the person overlaps the mask by ${((100 * both) / either).toFixed(1)} %`);
    await page.screenshot({ path: `${OUT}/camera.png` });
    assert.ok(both / either >= OVERLAP);
    assert.deepEqual(problems, []);
    await close();
});

test('says what to do when the camera is refused, and without WebGL 2', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage({ permissions: [] });
    await page.click('#camera');
    await page.waitForSelector('#problem:not([hidden])');
    assert.match(await problemText(page), /camera was refused\. Allow it/);
    assert.equal(await isPressed(page, 'clip'), 'true');
    await page.addInitScript(() => (HTMLCanvasElement.prototype.getContext = () => null));
    await page.reload();
    await page.click('#clip');
    await page.waitForFunction(() => document.getElementById('clip').ariaPressed === 'true');
    assert.match(await problemText(page), /no WebGL 2\. Switch hardware acceleration on/);
    await close();
});

test('records', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    await background(page, 'none');
    await page.click('#record');
    await page.waitForTimeout(3000);
    const [download] = await Promise.all([page.waitForEvent('download'), page.click('#record')]);
    const frames = execFileSync('ffprobe', ['-loglevel', 'error', '-count_frames', '-show_entries',
        'stream=width,height,nb_read_frames', '-of', 'csv=p=0', await download.path()], { encoding: 'utf8' });
    assert.match(frames, /^960,540,[1-9]/);
    await close();
});

test('shows a picture that is dropped', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    await page.evaluate(async () => {
        const canvas = new OffscreenCanvas(300, 200);
        canvas.getContext('2d').fillRect(0, 0, 300, 200);
        const data = new DataTransfer();
        data.items.add(new File([await canvas.convertToBlob()], 'black.png', { type: 'image/png' }));
        document.body.dispatchEvent(new DragEvent('drop', { dataTransfer: data, bubbles: true, cancelable: true }));
    });
    await page.waitForFunction(() => document.getElementById('size').textContent === '300 × 200');
    await background(page, 'none');
    const { data, width } = await pixelsOf(page, await savedPicture(page));
    assert.deepEqual([width, ...data.subarray(0, 4)], [300, 0, 0, 0, 255]);
    assert.equal(await isPressed(page, 'clip'), 'false');
    await close();
});

test('puts stickers where they are clicked, and moves the view', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    await background(page, 'none');
    await page.click('#stickers');
    const box = await page.locator('#stage').boundingBox();
    await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
    assert.equal(await page.innerText('#status'), 'Stickers: 1');
    const { data, width, height } = await pixelsOf(page, await savedPicture(page));
    const center = 4 * (width * (height / 2) + width / 2);
    assert.deepEqual([...data.subarray(center, center + 3)], [255, 211, 92]);
    await page.focus('#stage');
    await page.keyboard.press('Delete');
    assert.equal(await page.innerText('#status'), 'Stickers: 0');
    await page.hover('#stage');
    await page.mouse.wheel(0, -500);
    const zoomed = Number(await page.inputValue('#zoom'));
    assert.ok(zoomed > 0.5, `zoom ${zoomed}`);
    await page.keyboard.press('0');
    assert.equal(Number(await page.inputValue('#zoom')), 0);
    await close();
});

test('can be used by keyboard', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    const reached = new Set();
    for (let i = 0; i < 24; ++i) {
        await page.keyboard.press('Tab');
        reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.value));
    }
    for (const id of ['stage', 'clip', 'camera', 'file', 'color', 'backdrop', 'mirror', 'stickers', 'zoom', 'record', 'save', 'full']) {
        assert.ok(reached.has(id), id);
    }
    await page.focus('#mirror');
    await page.keyboard.press('Space');
    assert.equal(await isPressed(page, 'mirror'), 'true');
    await close();
});

test('comes back when the context was lost', { timeout: 600_000 }, async () => {
    const { page, close } = await openPage();
    await page.evaluate(() => {
        window.lose = document.getElementById('stage').getContext('webgl2').getExtension('WEBGL_lose_context');
        window.lose.loseContext();
    });
    await page.waitForSelector('#problem:not([hidden])');
    assert.match(await problemText(page), /took the graphics away/);
    await page.evaluate(() => window.lose.restoreContext());
    await page.waitForSelector('#problem', { state: 'hidden' });
    await background(page, 'none');
    const { data } = await pixelsOf(page, await savedPicture(page));
    assert.ok(new Set(data).size > 100, 'there is a picture');
    await close();
});

test('keeps its heap', { timeout: (PLAY_SECONDS + 600) * 1000 }, async () => {
    const { page, close } = await openPage();
    await isKeyed(page);
    const session = await page.context().newCDPSession(page);
    const heap = async () => {
        await session.send('HeapProfiler.collectGarbage');
        return (await session.send('Runtime.getHeapUsage')).usedSize;
    };
    await page.waitForTimeout(PLAY_SECONDS * 200);
    const settled = await heap();
    await page.waitForTimeout(PLAY_SECONDS * 800);
    const growth = (await heap()) - settled;
    console.log(`heap: ${settled} bytes, ${growth} more after ${PLAY_SECONDS} s`);
    assert.ok(growth < 500_000);
    await close();
});
