// The tests in C++ of pictures, meshes and programs, in WebGL 2.

import assert from 'node:assert/strict';
import { readdirSync } from 'node:fs';
import { test } from 'node:test';
import { emptyPage, launch, serve } from './Browser.mjs';

const PICTURES = 'docs/images/kernel';
// There are no external textures and no threads, and places far outside the output are rounded coarsely.
const LEFT_OUT =
    'String.SharedTextsAreUsedByManyThreads:ExtPicture.TheSourceMatrix*:Picture.TheViewZooms*:Sticker.TheViewMovesThemWithThePicture';

/** Runs the program, with the gallery's pictures decoded for its ReadPng. @returns its status */
async function runTests({ leftOut, pictures }) {
    const { default: createModule } = await import('./browser_test.mjs');
    const { FS, callMain } = await createModule();
    FS.mkdir('/kernel');
    for (const name of pictures) {
        const image = await createImageBitmap(await (await fetch(`kernel/${name}`)).blob());
        const { width, height } = image;
        const context = new OffscreenCanvas(width, height).getContext('2d');
        context.drawImage(image, 0, 0);
        const { buffer } = context.getImageData(0, 0, width, height).data;
        FS.writeFile(`/kernel/${name}`, new Uint8Array([...new Uint8Array(Int32Array.of(width, height).buffer), ...new Uint8Array(buffer)]));
    }
    return callMain([`--gtest_filter=-${leftOut}`]);
}

test('pictures, meshes and programs are those of the desktop', { timeout: 600_000 }, async (t) => {
    const origin = await serve({ '/kernel/': PICTURES, '/': 'build/web/tests/web' });
    const browser = await launch();
    t.after(() => browser.close());
    const page = await emptyPage(browser, origin);
    const lines = [];
    page.on('console', (message) => lines.push(message.text()));
    const status = await page.evaluate(runTests, { leftOut: LEFT_OUT, pictures: readdirSync(PICTURES) });
    assert.equal(status, 0, lines.filter((line) => !/ OK |RUN/.test(line)).join('\n'));
    assert.match(lines.join('\n'), /\[ {2}PASSED {2}\] \d+ tests/);
    console.log(lines.find((line) => line.includes('PASSED')));
});
