// Debian's Chromium with software GL, and a server of static files.

import { createReadStream, existsSync } from 'node:fs';
import { createServer } from 'node:http';
import { extname, join } from 'node:path';
import { chromium } from 'playwright-core';

const TYPES = {
    '.css': 'text/css',
    '.html': 'text/html',
    '.js': 'text/javascript',
    '.mp4': 'video/mp4',
    '.mjs': 'text/javascript',
    '.svg': 'image/svg+xml',
    '.wasm': 'application/wasm',
};

/** Serves folders below paths such as '/page/'. @returns the origin */
export function serve(folders) {
    const server = createServer((request, response) => {
        const { pathname } = new URL(request.url, 'http://localhost');
        const base = Object.keys(folders).find((path) => pathname.startsWith(path));
        const name = base && (pathname.slice(base.length) || 'index.html');
        const file = base && join(folders[base], name);
        const found = file && existsSync(file);
        response.writeHead(found ? 200 : 404, { 'content-type': TYPES[extname(name ?? '')] ?? '' });
        found ? createReadStream(file).pipe(response) : response.end();
    });
    server.unref();
    return new Promise((done) => {
        server.listen(0, () => done(`http://localhost:${server.address().port}`));
    });
}

/** @param {string[]} args more of Chromium's options */
export function launch(args = []) {
    return chromium.launch({
        executablePath: '/usr/bin/chromium',
        args: ['--no-sandbox', '--use-angle=swiftshader', '--enable-unsafe-swiftshader', ...args],
    });
}

/** A page without anything, for scripts of the origin's. */
export async function emptyPage(browser, origin) {
    const page = await browser.newPage();
    const empty = { contentType: 'text/html', body: '<!doctype html><link rel=icon href=data:,>' };
    await page.route('**/empty.html', (route) => route.fulfill(empty));
    await page.goto(`${origin}/empty.html`);
    return page;
}
