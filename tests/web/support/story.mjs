// Runs a story of tests/scripts against the page, each step by the keys and clicks of a user. The page's clock stands
// still but for what a step takes, as that of the console does; what a story does during a wait is done while the program
// is in it. Steps and expectations that no page has are listed in tests/web/stories.json.
import assert from 'node:assert/strict';

import { answerBox } from './story_boxes.mjs';
import { boxWants, compare } from './story_state.mjs';
import { steps, queues } from './story_steps.mjs';
import { firefox, Workbench } from './workbench.mjs';

export class NoWay extends Error {}
export const noWay = (why) => {
    throw new NoWay(why);
};

const escapes = { r: '\r', n: '\n', t: '\t', 0: '\0', '\\': '\\' };
export function textOf(argument) {
    const text = argument.trimEnd().replace(/^"(.*)"$/s, '$1');
    return text.replace(/\\([rnt0\\])/g, (_, one) => escapes[one])
        .replaceAll('${TMP}/', '').replace(/\bsamples\/(\w+\.cnc)/g, '$1').replaceAll('${SETTINGS}', '/data/EMCO/KVT_100/Settings')
        .replaceAll('${PP}', '/data/EMCO/KVT_100/Pre_Processor').replaceAll('${DATA}', '/data/EMCO/KVT_100');
}
// The files of the user have their bare names in a page.
export const nameOf = (argument) => textOf(argument);
// Words; one can stand in quotes.
export const wordsOf = (text) => (text.trim().match(/"[^"]*"|\S+/g) ?? ['']).map((one) => one.replace(/^"(.+)"$/, '$1'));
// The rest of a line behind its first word, which may stand in quotes.
export const behind = (text) => text.trimStart().replace(/^("[^"]*"|\S+)\s?/, '');

// The word that a step begins with, and what is behind it.
const partsOf = (line) => /^(\w*)\s?(.*)$/s.exec(line).slice(1);
const isAt = (line, at) => (at.endsWith('...') ? line.startsWith(at.slice(0, -3)) : line === at);

// The work area of a screen as the console has it.
const screen = [28800, 15600]; // twips
const edges = 180; // of a window there, beside its field; the page's have none
const bar = 15; // that the bar of the page is higher than title and menus there
const twipsPerPixel = 15;

export class Story {
    done = 0; // steps of a user
    checked = 0; // expectations
    leftOut = new Map(); // expectations that no page shows, by what they ask for

    // without: [{ at, lines, instead, why }]: so many lines are passed over, or others run instead. at: the first of them,
    // or how it begins ("..."); lines can be
    // "rest".
    constructor(here, name, text, without = [], play = []) {
        Object.assign(this, {
            name, here, play, without: [...without], answers: [], boxes: [], colors: [], printers: [], queued: [], files: [], kept: [], gone: [],
            waiting: [], below: [], users: 0, from: null, sent: '', clock: 0, printed: '',
        });
        this.lines = text.split('\n');
        const options = this.lines.filter((line) => line.startsWith('# options:')).join(' ');
        this.ports = /--ports (\d)/.exec(options)?.[1];
        const [, width, height] = /--screen (\d+) (\d+)/.exec(options) ?? [];
        const [, area] = /--workarea (\d+)/.exec(options) ?? [];
        const size = [width ?? screen[0], area ?? height ?? screen[1]];
        this.size = { width: Math.ceil((size[0] - edges) / twipsPerPixel), height: Math.ceil((size[1] + bar) / twipsPerPixel) };
    }

    async run() {
        this.context = await this.here.browser.createBrowserContext();
        try {
            for (let at = 0; at < this.lines.length; ++at) {
                const line = this.lines[at];
                if (!/^\w/.test(line)) continue;
                try {
                    if (this.without[0] && isAt(line, this.without[0].at)) {
                        const { lines = 1, instead = [] } = this.without.shift();
                        at += lines === 'rest' ? this.lines.length : lines - 1;
                        for (const one of instead) await this.runLine(one);
                    } else {
                        await this.runLine(line);
                    }
                } catch (fault) {
                    await this.bench?.page.screenshot({ path: `${process.env.KVT_FAULTS ?? '/tmp'}/story_${this.name}.png` }).catch(() => {});
                    fault.message = `line ${at + 1}: ${line.slice(0, 100)}: ${fault.message}`;
                    throw fault;
                }
            }
            assert.deepEqual(this.without, [], 'every listed line is there');
            if (this.bench) assert.deepEqual(this.bench.faults, []);
        } finally {
            await this.context.close();
        }
    }

    runLine(line) {
        const [word, rest] = partsOf(line);
        if (word === 'below') return this.below.push(rest);
        if (word === 'during') return this.waiting.push({ wait: Number(wordsOf(rest)[0]), line: behind(rest) });
        return this.line(word, rest);
    }

    async line(word, rest) {
        if (word === 'expect') return this.expect(rest);
        const step = steps[word];
        if (!step) noWay(`${word} ${wordsOf(rest)[0]}`.trim());
        if (this.bench && !queues.has(word)) this.from ??= await this.waits();
        await step.call(this, rest);
        ++this.done;
        if (this.bench && !queues.has(word)) await this.settle();
        return undefined;
    }

    // How many waits have begun: those that end by themselves, and users' ones.
    async waits() {
        return (await this.bench.evaluate(() => window.clock.waits)) + this.users;
    }

    // Lets all come to rest: boxes are answered, times that the program waits for pass, and what is to be done during a
    // wait is done in it. Ends where the program waits for its user or is through.
    async settle() {
        const { bench } = this;
        if (this.inWait) return bench.evaluate(() => window.clock.rest());
        for (;;) {
            await bench.evaluate(() => window.clock.rest());
            const next = Math.min(...this.waiting.map((one) => one.wait));
            const until = this.waiting.length > 0 ? this.from + next - this.users : Infinity;
            const state = await bench.evaluate((wait) => window.clock.pass(wait ?? Infinity), until);
            if (state === 'box') {
                await this.doBelow();
                await answerBox(this);
            } else if (state === 'timed') {
                await this.doWaiting(next);
            } else if (state === 'user' && this.waiting.length > 0) {
                ++this.users;
                if (!(await this.doWaiting((await this.waits()) - this.from))) return undefined;
            } else {
                assert.deepEqual(this.waiting, [], 'all waits have come');
                if (state !== 'user') this.from = null;
                return undefined;
            }
        }
    }

    // True where something of it was a user's action.
    async doWaiting(wait) {
        const due = this.waiting.filter((one) => one.wait === wait);
        this.waiting = this.waiting.filter((one) => one.wait !== wait);
        let acted = false;
        for (const { line } of due) {
            const [word, rest] = partsOf(line);
            if (word === 'expect') {
                await this.expect(rest);
                continue;
            }
            acted = true;
            await this.stepInWait(word, rest);
            ++this.done;
        }
        return acted;
    }

    async stepInWait(word, rest) {
        this.inWait = true;
        await steps[word].call(this, rest);
        await this.settle();
        this.inWait = false;
    }

    // What a user tries while a box is up, by lines "below STEP".
    async doBelow() {
        for (const line of this.below.splice(0)) {
            const [word, rest] = partsOf(line);
            await this.stepInWait(word, rest);
            assert.equal(await this.bench.evaluate(() => window.clock.state()), 'box', `the box stands: ${line}`);
        }
    }

    // The program with what it would find in its folders.
    async openPage() {
        const { context } = this;
        const kept = this.kept.splice(0);
        const gone = this.gone.splice(0);
        const play = ['playClock', 'readShown', 'playPrinter', 'playRefusals', 'keepDownloads', ...this.play, ...(this.ports ? ['playSerial'] : [])];
        this.bench = await Workbench.open(this.here, { context, play, kept, gone, ports: this.ports, size: this.size, waits: false });
        const origin = new URL(this.here.site.address).origin;
        if (!firefox) await context.overridePermissions(origin, ['clipboard-read', 'clipboard-write', 'clipboard-sanitized-write']);
        await this.bench.until(() => !document.body.classList.contains('starting') || document.querySelector('dialog[open]'));
        for (const [name, text] of this.files.splice(0)) await this.bench.put(name, text);
        await this.bench.picks(...this.queued.splice(0));
    }
    async closePage() {
        if (!this.bench) return;
        const { now, sent, printed } = await this.bench.evaluate(() => ({
            now: window.clock.now, sent: (window.written ?? []).join(''), printed: window.printed.join(''),
        }));
        assert.deepEqual(this.bench.faults, []);
        this.clock += now;
        this.sent += sent;
        this.printed += printed;
        await this.bench.page.close();
        this.bench = null;
    }

    // A file of the user, in the folder of the played dialogs.
    async putFile(name, text) {
        if (this.bench) await this.bench.put(name, text);
        else this.files.push([name, text]);
    }

    async control(name) {
        const one = await this.bench.evaluate((n) => {
            const found = window.told.named(n);
            const shown = document.querySelector(`[data-control="${found?.id}"]`)?.checkVisibility() ?? false;
            return found && { kind: found.kind, shown, id: found.id };
        }, name);
        assert.ok(one, `there is a control ${name}`);
        return one;
    }

    // As a story names it: with its form where that is not the main one.
    nameOfControl({ id }) {
        return this.bench.evaluate((number) => {
            const { name, index, form } = window.told.controls.get(number);
            return `${window.told.controls.get(form).name}.${name}${index >= 0 ? `(${index})` : ''}`;
        }, id);
    }

    leaveOut(what) {
        this.leftOut.set(what, (this.leftOut.get(what) ?? 0) + 1);
    }

    async expect(rest) {
        const [what] = wordsOf(rest);
        const text = rest.trimStart().slice(what.length).replace(/^\s/, '');
        let read = boxWants(this, what, text) ?? (await compare(this, what, text));
        // The title follows the state of the work twice a second.
        if (what === 'state.programChanged' && read.got !== read.wanted) {
            await this.bench.evaluate(() => window.clock.advance(1000));
            this.clock -= 1000;
            read = await compare(this, what, text);
        }
        if (!read) return this.leaveOut(what.replace(/^\w+(\(\d+\))?\.(\w+)$/, '.$2'));
        assert.equal(read.got, read.wanted);
        if (what === 'message') this.box = this.boxes.shift();
        ++this.checked;
        return undefined;
    }
}
