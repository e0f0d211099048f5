// The page on servers: an update of the site, and an address that begins with http, where browsers leave out what they call
// powerful.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';
import { test } from 'node:test';

import { pageFolder, setting } from './support/setting.mjs';
import { serve } from './support/site.mjs';
import { typeRow } from './support/typist.mjs';
import { launch, Workbench } from './support/workbench.mjs';

const here = setting();

// The page of another version: its scripts tell that, each for itself. Gives { worker, script, program }, the files that a
// server is to be given for it.
function nextVersion(folder) {
    const digestOf = (content) => createHash('sha256').update(content).digest('hex').slice(0, 16);
    const read = (name) => fs.readFileSync(path.join(folder, name), 'utf8');
    const changed = {};
    let worker = read('sw.js');
    const change = (name, text) => {
        worker = worker.replaceAll(digestOf(read(name)), digestOf(text));
        changed[name] = text;
    };
    const version = /[0-9a-f]{16}/.exec(read('index.html'))[0];
    const next = 'f'.repeat(16);
    change('index.html', read('index.html').replaceAll(version, next));
    change('js/main.js', `${read('js/main.js')}\nglobalThis.newScript = true;`);
    for (const name of ['program/kvt_web.js', 'program/kvt_web_fast.js']) change(name, `${read(name)}\nglobalThis.newProgram = true;`);
    changed['sw.js'] = worker.replaceAll(version, next);
    return changed;
}

test('a new version of the site takes over whole, when the last page of the old one has gone', async () => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-site-'));
    fs.cpSync(pageFolder, folder, { recursive: true });
    const site = await serve(folder);
    const context = await here.browser.createBrowserContext();
    const visit = async (at = '') => {
        const bench = await Workbench.open({ browser: here.browser, site }, { context, at });
        const parts = await bench.evaluate(() => [Boolean(globalThis.newScript), Boolean(globalThis.newProgram)]);
        // The worker has looked for another version, and taken it or not.
        await bench.evaluate(async () => {
            const { active, installing } = await (await navigator.serviceWorker.ready).update().catch(() => ({}));
            await new Promise((done) => {
                const over = () => /installed|activated|redundant/.test(installing?.state ?? active?.state ?? 'redundant') && done();
                installing?.addEventListener('statechange', over);
                over();
            });
        });
        // A new one takes over when nobody has the old one any more, and that is at rest, as the driver lets it never be.
        const session = await bench.page.createCDPSession();
        for (const what of ['enable', 'stopAllWorkers']) await session.send(`ServiceWorker.${what}`);
        await bench.page.close();
        await bench.pause(300);
        return parts;
    };
    const files = nextVersion(folder);
    const put = (...names) => names.forEach((name) => fs.writeFileSync(path.join(folder, name), files[name]));
    assert.deepEqual(await visit(), [false, false]);
    // The half of it that is there by now is not taken.
    put('sw.js', 'index.html', 'js/main.js');
    for (let i = 0; i < 3; ++i) assert.deepEqual(await visit(), [false, false]);
    // All of it is, when the last page of the old one has gone.
    const stays = await Workbench.open({ browser: here.browser, site }, { context });
    put(...Object.keys(files));
    for (const at of ['', 'index.html', '']) assert.deepEqual(await visit(at), [false, false]);
    await stays.page.close();
    await visit();
    assert.deepEqual(await visit(), [true, true]);
    await context.close();
    await site.close();
    fs.rmSync(folder, { recursive: true });
});

test('at an address that begins with http the reason is told, and what is typed is kept', async () => {
    const { browser, end } = await launch('--host-resolver-rules=MAP plain.test 127.0.0.1');
    const address = here.site.address.replace('127.0.0.1', 'plain.test');
    const context = await browser.createBrowserContext();
    const open = () => Workbench.open({ browser, site: here.site }, { context, address });
    const texts = (bench) => bench.evaluate(() => document.body.innerText);
    const line = (comment) => ['', ' 00', ' 00 ', '1500', '', '100', '', '', '', '', '', '', '', '', '', '', '', '', comment];
    const bench = await open();
    assert.match(await texts(bench), /begins with http: open it by https/);
    await typeRow(bench, line('first'));
    await bench.pause(1000);
    const second = await open();
    assert.match(await texts(second), /open in another tab/);
    await second.page.close();
    // Loaded anew, and after it has broken down, it has its storage again.
    await bench.page.bringToFront();
    await bench.page.reload();
    await bench.answer('Yes');
    await bench.untilIs('lblPPLines', 'Caption', '1');
    assert.doesNotMatch(await texts(bench), /open in another tab/);
    const session = await bench.page.createCDPSession();
    session.send('Page.crash').catch(() => {});
    await bench.pause(300);
    await bench.page.close();
    const again = await open();
    assert.doesNotMatch(await texts(again), /open in another tab/);
    await again.answer('Yes');
    await again.untilIs('lblPPLines', 'Caption', '1');
    // One that stood still while another one has begun writes over nothing of that.
    const kept = () => again.evaluate(() => Object.entries(localStorage).filter(([key]) => key.startsWith('kvt:') && key.includes('Recovery')));
    await again.evaluate(() => localStorage.setItem('kvt-beat', `${Date.now()} 0.5`));
    await again.until(() => /open in another tab/.test(document.body.innerText));
    const before = await kept();
    assert.ok(before.length > 0);
    await typeRow(again, line('second'));
    await again.pause(1000);
    assert.deepEqual(await kept(), before);
    await again.close();
    await end();
});
