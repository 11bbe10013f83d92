// The tests in C++ of pictures, in WebGL 2.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { emptyPage, launch, serve } from './Browser.mjs';

// There are no external textures, and places far outside the output are rounded coarsely.
const LEFT_OUT =
    'ExtPicture.TheSourceMatrix*:Picture.TheViewZooms*:Sticker.TheViewMovesThemWithThePicture';

test('pictures are those of the desktop', { timeout: 120_000 }, async () => {
    const origin = await serve({ '/': 'build/web/tests/web' });
    const browser = await launch();
    const page = await emptyPage(browser, origin);
    const lines = [];
    page.on('console', (message) => lines.push(message.text()));
    const status = await page.evaluate(async (leftOut) => {
        const { default: createModule } = await import('./browser_test.mjs');
        const module = await createModule();
        return module.callMain([`--gtest_filter=-${leftOut}`]);
    }, LEFT_OUT);
    await browser.close();
    assert.equal(status, 0, lines.filter((line) => !/ OK |RUN/.test(line)).join('\n'));
    assert.match(lines.join('\n'), /\[ {2}PASSED {2}\] \d\d tests/);
    console.log(lines.find((line) => line.includes('PASSED')));
});
