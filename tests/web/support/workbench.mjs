// The page in a browser, worked by real keys and clicks.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

import * as played from './inside.mjs';
import { playClock } from './played_clock.mjs';
import { readShown } from './shown.mjs';

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../../..');
// The driver is installed in the build tree, not beside the tests.
const modules = process.env.KVT_WEB_MODULES ?? path.join(root, 'build/web/node');
const puppeteer = createRequire(path.join(modules, 'package.json'))('puppeteer-core');

const inside = { ...played, playClock, readShown };
const quiet = [
    '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
    '--disable-component-update', '--disable-sync',
];
const named = { '\r': 'Enter', '\b': 'Backspace', '\t': 'Tab' };
const patience = 15_000; // milliseconds
// Where Firefox is, to try the tests on it instead.
export const firefox = process.env.KVT_FIREFOX;
// For trying all tests on a browser that lacks something.
const always = process.env.KVT_WEB_PLAY?.split(',') ?? [];

const defaultViewport = { width: 1366, height: 768 };

// Firefox, whose driver lacks some of what the tests ask for.
async function launchFirefox() {
    const browser = await puppeteer.launch({
        browser: 'firefox', executablePath: firefox, headless: true, defaultViewport,
        extraPrefsFirefox: { 'dom.events.testing.asyncClipboard': true }, protocolTimeout: 60_000,
    });
    return { browser, end: () => browser.close() };
}

// Scroll bars are shown, as they are to users.
export async function launch(...more) {
    if (firefox) return launchFirefox();
    const data = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-web-'));
    const browser = await puppeteer.launch({
        executablePath: process.env.KVT_CHROMIUM ?? '/usr/bin/chromium', headless: true, userDataDir: data,
        args: [...quiet, ...more], ignoreDefaultArgs: ['--hide-scrollbars'], defaultViewport, protocolTimeout: 60_000,
    });
    const end = async () => {
        await browser.close();
        fs.rmSync(data, { recursive: true, force: true });
    };
    return { browser, end };
}

// A file that comes with the program, byte by byte.
export const brought = (folder, name) => fs.readFileSync(path.join(root, folder, name), 'latin1');
export const sample = (name) => brought('samples', name);

// What the console of this build prints.
export function kvtc(...call) {
    const bin = process.env.KVT_WEB_BIN ?? `${root}/build/web/bin`;
    try {
        return execFileSync('node', [`${bin}/kvtc.js`, ...call], { encoding: 'utf8', cwd: root, stdio: ['ignore', 'pipe', 'ignore'] });
    } catch (fault) {
        return fault.stdout;
    }
}

export class Workbench {
    // A page of its own, in a context of the browser that has kept nothing yet where none is given. play: names of
    // functions that are put into it; the recording is always there. kept: what the storage has, gone: what it has no more.
    // ports: how many the user has granted. at: what follows the address.
    static async open({ browser, site }, { play = [], kept = [], gone = [], ports, at = '', size, context, address = site.address, waits = true } = {}) {
        const own = context ?? (await browser.createBrowserContext());
        const bench = new Workbench(await own.newPage(), own);
        const { page } = bench;
        if (size) await page.setViewport(size);
        if (ports) await page.evaluateOnNewDocument((count) => (window.portCount = count), Number(ports));
        for (const name of ['recordMessages', 'playFilePickers', ...always, ...play]) await page.evaluateOnNewDocument(inside[name]);
        await page.evaluateOnNewDocument((list, old) => {
            old.forEach((key) => localStorage.removeItem(key));
            list.forEach(([key, text]) => localStorage.setItem(key, text));
        }, kept, gone);
        page.on('request', (request) => bench.requests.push(request.url()));
        page.on('pageerror', (fault) => bench.faults.push(fault.stack ?? String(fault)));
        page.on('dialog', (dialog) => {
            bench.dialogs.push(dialog.type());
            return bench.stays ? dialog.dismiss() : dialog.accept();
        });
        page.on('console', (line) => line.type() === 'error' && bench.faults.push(line.text()));
        await page.goto(address + at);
        if (waits) await bench.started();
        return bench;
    }

    constructor(page, context) {
        this.page = page;
        this.context = context;
        this.requests = [];
        this.faults = [];
        this.dialogs = []; // questions of the browser's own; stays: the user is not to leave
        this.stays = false;
    }

    async started() {
        await this.until(() => !document.body.classList.contains('starting') || document.querySelector('dialog[open]'));
        await this.settled();
    }
    // Ends the page and all others of its context; nothing may have gone wrong in it.
    async close() {
        await this.context.close();
        assert.deepEqual(this.faults, []);
    }

    evaluate(...call) {
        return this.page.evaluate(...call);
    }
    async until(condition, ...values) {
        return this.page.waitForFunction(condition, { timeout: patience, polling: 20 }, ...values);
    }
    pause(milliseconds) {
        return new Promise((then) => setTimeout(then, milliseconds));
    }

    // The program tells nothing new for a while.
    async settled(quiet = 80) {
        const now = await this.evaluate(() => performance.now());
        await this.until((time, from) => performance.now() - Math.max(window.told.at, from) > time, quiet, now);
    }

    // A property of a control as the program has told it, such as ("lblPPLines", "Caption").
    get(name, property) {
        return this.evaluate((n, p) => window.told.named(n)?.p[p], name, property);
    }
    async untilIs(name, property, wanted) {
        try {
            await this.until((n, p, w) => window.told.named(n)?.p[p] === w, name, property, wanted);
        } catch {
            assert.equal(await this.get(name, property), wanted, `${name}.${property}`);
        }
        await this.settled();
    }
    focus() {
        return this.evaluate(() => window.told.controls.get(window.told.focus)?.name);
    }
    // Menus and buttons follow the state of the work twice a second.
    untilEnabled(name) {
        return this.until((n) => window.told.named(n)?.p.Enabled, name);
    }
    // The rows of a list that the page has been told, cells without their blanks.
    rows(name = 'lvCncProgram') {
        return this.evaluate((n) => window.told.named(n).rows.rows.map((row) => row.map((cell) => cell.trim())), name);
    }

    async element(name) {
        const id = await this.evaluate((n) => window.told.named(n)?.id, name);
        assert.ok(id, `there is a control ${name}`);
        return this.page.$(`[data-control="${id}"]`);
    }
    async click(name, options) {
        await this.untilEnabled(name);
        await (await this.element(name)).click(options);
    }
    // Opens the menus that an entry lies in, by the mouse, and chooses it.
    async choose(name, { enabled = true } = {}) {
        const way = await this.evaluate((n) => {
            const ids = [];
            for (let one = window.told.named(n); one?.kind === 'Menu'; one = window.told.controls.get(one.parent)) ids.unshift(one.id);
            return ids;
        }, name);
        assert.ok(way.length > 0, `there is a menu entry ${name}`);
        if (enabled) await this.untilEnabled(name);
        for (const id of way) {
            const entry = await this.page.$(`[data-control="${id}"]`);
            await entry.hover();
            await entry.click();
        }
        await this.settled();
    }
    async clickRow(number, options) {
        const list = await this.element('lvCncProgram');
        await (await list.$(`[data-row="${number}"] .cell`)).click(options);
    }

    // Every character as a key; "\r" is Enter.
    async type(text) {
        for (const one of text) {
            if (named[one]) await this.page.keyboard.press(named[one]);
            else if (one >= ' ' && one <= '~') await this.page.keyboard.press(one);
            else await this.page.keyboard.sendCharacter(one);
        }
    }
    // A key by name, with what is held: "Ctrl+Shift+Z".
    async press(name) {
        const held = name.split('+');
        const key = held.pop();
        const names = { Ctrl: 'Control', Space: ' ', Esc: 'Escape', Up: 'ArrowUp', Down: 'ArrowDown', Left: 'ArrowLeft', Right: 'ArrowRight' };
        const keys = held.map((one) => names[one] ?? one);
        for (const one of keys) await this.page.keyboard.down(one);
        await this.page.keyboard.press(names[key] ?? (/^[A-Z]$/.test(key) ? key.toLowerCase() : key));
        for (const one of keys.reverse()) await this.page.keyboard.up(one);
    }

    // The box that is up; null where there is none.
    box() {
        return this.evaluate(() => {
            const box = document.querySelector('dialog[open]');
            if (!box) return null;
            const texts = (which) => [...box.querySelectorAll(which)].map((one) => one.textContent);
            return { title: texts('.heading')[0], text: texts('.words > div')[0] ?? '', details: texts('.details')[0] ?? '', buttons: texts('.buttons button') };
        });
    }
    async untilBox() {
        await this.until(() => document.querySelector('dialog[open]'));
        return this.box();
    }
    // Presses a button of the box by its place, or by its name.
    async answer(which) {
        const box = await this.untilBox();
        const place = typeof which === 'number' ? which : box.buttons.indexOf(which);
        assert.ok(place >= 0, `${which} is one of ${box.buttons}`);
        const dialog = await this.page.$('dialog[open]');
        await (await dialog.$$('.buttons button'))[place].click();
        await this.until((one) => !one.isConnected, dialog);
        await this.settled();
        return box;
    }

    // The next dialogs of the file access are answered so.
    picks(...names) {
        return this.evaluate((list) => window.picks.push(...list), names);
    }
    put(name, text) {
        return this.evaluate((n, t) => window.writePlayed(n, t), name, text);
    }
    read(name) {
        return this.evaluate((n) => window.readPlayed(n), name);
    }
    // Drops a file on the main window, where nothing lies over it; behind a box it takes none.
    async drop(name, text) {
        const drops = await this.evaluate((n, t) => {
            const places = Array.from({ length: 100 }, (_, i) => [(i % 10) / 10, Math.floor(i / 10) / 10]);
            const under = places.map(([x, y]) => document.elementFromPoint(x * innerWidth + 9, y * innerHeight + 9)).find((one) => one?.closest('.form.main'));
            const data = new DataTransfer();
            data.items.add(new File([Uint8Array.from(t, (one) => one.charCodeAt(0))], n));
            const { drops } = window.told;
            (under ?? document.body).dispatchEvent(new DragEvent('drop', { dataTransfer: data, bubbles: true, cancelable: true }));
            return document.querySelector('dialog[open]') ? -1 : drops;
        }, name, text);
        await this.until((before) => window.told.drops > before, drops);
    }
    async open(name, text = sample(name)) {
        await this.put(name, text);
        await this.picks(name);
        await this.press('Ctrl+O');
        await this.until((n) => window.told.named('lblPath')?.p.Caption?.endsWith(n), name);
        await this.settled();
    }
}
