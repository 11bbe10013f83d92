// The npm package, installed into an empty project: its size, its types, and what it draws.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { copyFileSync, mkdtempSync, readFileSync, readdirSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { after, before, test } from 'node:test';
import { gzipSync } from 'node:zlib';
import { emptyPage, launch, serve } from './Browser.mjs';

const SIZE_LIMIT = 200 * 1024;
const project = mkdtempSync(join(tmpdir(), 'vornrenderer-'));
const installed = join(project, 'node_modules/vornrenderer');
const run = (program, ...args) =>
    execFileSync(program, args, { cwd: project, encoding: 'utf8', stdio: 'pipe' });
let browser;
let page;

before(async () => {
    writeFileSync(join(project, 'package.json'), '{ "private": true, "type": "module" }');
    run('npm', 'install', '--offline', '--no-audit', '--no-fund', resolve('build/web/vornrenderer-0.1.0.tgz'));
    copyFileSync('tests/web/drawing.js', join(project, 'drawing.js'));
    const origin = await serve({ '/': project });
    browser = await launch();
    page = await emptyPage(browser, origin);
});
after(() => browser.close());

test('has no dependency and is small', () => {
    assert.deepEqual(readdirSync(join(project, 'node_modules')).filter((name) => name[0] !== '.'), ['vornrenderer']);
    const parts = readdirSync(join(installed, 'src')).filter((name) => /\.(js|mjs|wasm)$/.test(name));
    const sizes = parts.map((name) => gzipSync(readFileSync(join(installed, 'src', name)), { level: 9 }).length);
    const total = sizes.reduce((sum, size) => sum + size);
    console.log(`package: ${total} bytes of wasm and JS compressed`);
    assert.ok(total <= SIZE_LIMIT);
});

test('has types for strict programs', () => {
    writeFileSync(
        join(project, 'use.ts'),
        `import { VornRenderer, VornError, ZOOM_FIT, type DrawOptions } from 'vornrenderer';
        const options: DrawOptions = { mirrored: true, rotation: 90, mask: null };
        export async function use(canvas: HTMLCanvasElement, video: HTMLVideoElement): Promise<string> {
            const renderer = await VornRenderer.create(canvas, { background: [0, 0, 0, 0] });
            renderer.setView({ zoom: ZOOM_FIT });
            renderer.setStickers(new ImageData(1, 1), [{ x: 1, y: 2 }]);
            const drawn: boolean = renderer.draw(video, options);
            // @ts-expect-error A picture turns by right angles.
            renderer.draw(video, { rotation: 45 });
            renderer[Symbol.dispose]();
            return drawn ? 'drawn' : new VornError('closed', '').code;
        }`,
    );
    run(resolve('web/node_modules/.bin/tsc'), '--strict', '--noEmit', '--target', 'es2022', '--module', 'nodenext',
        '--moduleResolution', 'nodenext', '--lib', 'es2022,dom', 'use.ts');
});

for (const name of ['pictures', 'sources', 'stickers', 'keptState', 'ownCanvas', 'worker', 'errors', 'contextLost']) {
    test(`draws: ${name}`, { timeout: 600_000 }, async () => {
        assert.deepEqual(await page.evaluate(async (part) => (await import('./drawing.js'))[part](), name), []);
    });
}

test('costs', { timeout: 600_000 }, async () => {
    const { library, shown, bare } = await page.evaluate(async () => (await import('./drawing.js')).cost());
    console.log(`cost of a frame of 1280 x 720: upload and quad alone ${bare.toFixed(2)} ms; ` +
        `into a texture ${(library / bare).toFixed(2)} times, onto a canvas ${(shown / bare).toFixed(2)} times as much`);
});
