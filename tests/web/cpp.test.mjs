// The tests in C++ of pictures and meshes, in WebGL 2.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { emptyPage, launch, serve } from './Browser.mjs';

// There are no external textures and no threads, and places far outside the output are rounded coarsely.
const LEFT_OUT =
    'String.SharedTextsAreUsedByManyThreads:ExtPicture.TheSourceMatrix*:Picture.TheViewZooms*:Sticker.TheViewMovesThemWithThePicture';

test('pictures and meshes are those of the desktop', { timeout: 120_000 }, async (t) => {
    const origin = await serve({ '/': 'build/web/tests/web' });
    const browser = await launch();
    t.after(() => browser.close());
    const page = await emptyPage(browser, origin);
    const lines = [];
    page.on('console', (message) => lines.push(message.text()));
    const status = await page.evaluate(async (leftOut) => {
        const { default: createModule } = await import('./browser_test.mjs');
        const module = await createModule();
        return module.callMain([`--gtest_filter=-${leftOut}`]);
    }, LEFT_OUT);
    assert.equal(status, 0, lines.filter((line) => !/ OK |RUN/.test(line)).join('\n'));
    assert.match(lines.join('\n'), /\[ {2}PASSED {2}\] \d+ tests/);
    console.log(lines.find((line) => line.includes('PASSED')));
});
