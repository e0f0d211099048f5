// Runs a story of tests/scripts against the page, each step by the keys and clicks of a user. The first step that has no
// such way ends the story; an expectation of what no page shows is left out. Both are counted.
import assert from 'node:assert/strict';
import * as fs from 'node:fs';

import { shownOf } from './story_state.mjs';
import { sample, Workbench } from './workbench.mjs';

export class NoWay extends Error {}
const noWay = (why) => {
    throw new NoWay(why);
};

const escapes = { r: '\r', n: '\n', t: '\t', 0: '\0', '\\': '\\' };
function textOf(argument) {
    const text = argument.trimEnd().replace(/^"(.*)"$/s, '$1');
    return text.replace(/\\([rnt0\\])/g, (_, one) => escapes[one])
        .replaceAll('${TMP}/', '').replace(/\bsamples\/(\w+\.cnc)/g, '$1').replaceAll('${SETTINGS}', '/data/EMCO/KVT_100/Settings')
        .replaceAll('${DATA}', '/data/EMCO/KVT_100');
}
// A file of the user's, by the name that the browser knows it by.
export const nameOf = (argument) => textOf(argument);
const wordsOf = (text) => text.trim().split(/\s+/);

export class Story {
    done = 0; // steps of a user
    checked = 0; // expectations
    leftOut = new Map(); // expectations that no page shows, by what they ask for

    constructor(here, file, play) {
        this.here = here;
        this.lines = fs.readFileSync(file, 'utf8').split('\n');
        this.play = play;
        this.answers = [];
        this.boxes = [];
        this.colors = [];
        this.queued = [];
        this.files = [];
        this.kept = [];
        this.sent = 0;
    }

    // Gives the place and the reason where it ends before its end, at the latest at one that is given.
    async run(last) {
        this.context = await this.here.browser.createBrowserContext();
        try {
            for (const [at, line] of this.lines.entries()) {
                const [, word, rest] = /^(\w*)\s?(.*)$/s.exec(line);
                const surroundings = /^# options: .*(--no-printer|--screen|--ports [2-4])/.exec(line);
                if (surroundings) return { line: at + 1, why: surroundings[1] };
                if (!word) continue;
                this.at = at + 1;
                if (this.at === last?.line) return last;
                try {
                    await this.step(word, rest);
                } catch (fault) {
                    if (fault instanceof NoWay) return { line: this.at, why: fault.message };
                    fault.message = `line ${this.at}: ${line.slice(0, 100)}: ${fault.message}`;
                    throw fault;
                }
            }
            if (this.bench) assert.deepEqual(this.bench.faults, []);
            return null;
        } finally {
            await this.context.close();
        }
    }

    async step(word, rest) {
        if (word === 'expect') return this.expect(rest);
        const step = this.steps[word];
        if (!step) noWay(`${word} ${wordsOf(rest)[0]}`.trim());
        await step.call(this, rest);
        ++this.done;
        if (this.bench && !queues.has(word)) await this.answerBoxes();
        return undefined;
    }

    // A box takes its queued answer, or its first button.
    async answerBoxes() {
        await this.bench.settled();
        for (let box = await this.bench.box(); box; box = await this.bench.box()) {
            if (await this.answerColor()) continue;
            if (box.text === '') noWay('a dialog of the page');
            this.boxes.push(box);
            const wanted = this.answers.shift();
            const names = { yes: 'Yes', no: 'No', cancel: 'Cancel', ok: 'OK' };
            await this.bench.answer(wanted ? names[wanted] : 0);
        }
    }

    async answerColor() {
        const input = await this.bench.page.$('dialog[open] input[type=color]');
        if (!input) return false;
        const wanted = this.colors.shift() ?? 'cancel';
        if (wanted === 'cancel') {
            await this.bench.answer(1);
            return true;
        }
        const number = Number(wanted.replace('&H', '0x'));
        const hex = [0, 8, 16].map((shift) => ((number >> shift) & 255).toString(16).padStart(2, '0')).join('');
        await input.evaluate((one, value) => {
            one.value = value;
            one.dispatchEvent(new Event('input'));
        }, `#${hex}`);
        await this.bench.answer(0);
        return true;
    }

    // A file of the user, in the folder of the played dialogs.
    async putFile(name, text) {
        if (this.bench) await this.bench.put(name, text);
        else this.files.push([name, text]);
    }

    // As a file that is opened from the folder of the desktop.
    async openFirst(name) {
        if (name.startsWith('samples/')) await this.bench.open(name.slice(8));
        else if (/[/$]/.test(name)) noWay('a folder of the user');
        else {
            await this.bench.picks(name);
            await this.bench.press('Ctrl+O');
        }
        // Menus and buttons follow the state of the work twice a second.
        await this.bench.pause(700);
        await this.bench.settled();
        // The axes of another machine lie over the list at first.
        if ((await this.control('cmdReturn')).shown) await this.bench.click('cmdReturn');
    }

    steps = {
        async start(rest) {
            await this.bench?.page.close();
            const { context, play } = this;
            // What the program would find in its folders.
            const kept = this.kept.splice(0);
            this.bench = await Workbench.open(this.here, { context, play, kept, size: { width: 1500, height: 900 } });
            const origin = new URL(this.here.site.address).origin;
            await context.overridePermissions(origin, ['clipboard-read', 'clipboard-write', 'clipboard-sanitized-write']);
            for (const [name, text] of this.files.splice(0)) await this.bench.put(name, text);
            const file = rest.trim().replace(/^"(.*)"$/, '$1').startsWith('samples/') ? rest.trim().replaceAll('"', '') : nameOf(rest);
            if (file) await this.openFirst(file);
            await this.bench.picks(...this.queued.splice(0));
        },
        async type(rest) {
            await this.bench.type(textOf(rest));
        },
        async press(rest) {
            await this.bench.press(rest.trim());
        },
        // By the Tab key, which selects what stands in a field.
        async focus(rest) {
            const name = rest.trim();
            for (let i = 0; i < 60 && (await this.bench.focus()) !== name; ++i) await this.bench.press('Tab');
            if ((await this.bench.focus()) !== name) noWay(`the Tab key does not lead to ${name}`);
        },
        async click(rest) {
            const [name, index] = wordsOf(rest);
            const whole = index === undefined ? name : `${name}(${index})`;
            const one = await this.control(whole);
            if (one.kind === 'Menu') await this.chooseMenu(whole, one);
            else await this.clickControl(whole, one);
        },
        async clickrow(rest) {
            await this.rowInSight(Number(rest));
            await this.bench.clickRow(Number(rest));
        },
        async rightclickrow(rest) {
            await this.rowInSight(Number(rest));
            await this.bench.clickRow(Number(rest), { button: 'right' });
        },
        async set(rest) {
            const [name] = wordsOf(rest);
            await this.bench.click(name);
            await this.bench.press('Home');
            await this.bench.press('Shift+End');
            await this.bench.type(textOf(rest.trimStart().slice(name.length + 1)) || '\b');
        },
        async notes(rest) {
            await this.bench.click('txtFileNotes');
            await this.bench.press('Ctrl+A');
            await this.bench.type(textOf(rest).replaceAll('\r\n', '\r'));
        },
        answer(rest) {
            this.answers.push(rest.trim());
        },
        async file(rest) {
            const name = rest.trim() === 'cancel' ? null : nameOf(rest);
            if (/[/$]/.test(name ?? '')) noWay('a folder of the user');
            const from = /samples\/(\w+\.cnc)/.exec(rest);
            if (from) await this.putFile(from[1], sample(from[1]));
            if (this.bench) await this.bench.picks(name);
            else this.queued.push(name);
        },
        async write(rest) {
            const [name] = wordsOf(rest);
            const text = textOf(rest.trimStart().slice(name.length + 1));
            const path = textOf(name);
            if (path.startsWith('/data/')) {
                this.kept.push([`kvt:${path}`, text]);
            } else if (/[/$]/.test(nameOf(name))) {
                noWay('a folder of the user');
            } else {
                await this.putFile(nameOf(name), text);
            }
        },
        async colour(rest) {
            this.colors.push(rest.trim());
        },
        async clipboard(rest) {
            await this.bench.evaluate((text) => navigator.clipboard.writeText(text), textOf(rest));
        },
        async receive(rest) {
            await this.bench.evaluate((text) => window.port.arrives(text), textOf(rest));
        },
        async advance(rest) {
            await this.bench.pause(Math.min(Number(rest) * 1.2, 4000));
        },
        async close(rest) {
            if (rest.trim() === 'frmMain') return this.chooseMenu('mnuExit');
            const form = await this.bench.element(rest.trim());
            return (await form.$('.close')).click();
        },
        async pick(rest) {
            const [name, index] = wordsOf(rest);
            const one = await this.control(name);
            if (one.kind !== 'ListBox') noWay('an entry of a combo box');
            const list = await this.bench.element(name);
            await (await list.$$('[role=option]'))[Number(index)].click();
        },
    };

    async control(name) {
        const one = await this.bench.evaluate((n) => {
            const found = window.told.named(n);
            return found && { kind: found.kind, shown: document.querySelector(`[data-control="${found.id}"]`)?.checkVisibility() ?? false };
        }, name);
        assert.ok(one, `there is a control ${name}`);
        return one;
    }

    async chooseMenu(name) {
        const popup = await this.bench.evaluate((n) => {
            let one = window.told.named(n);
            while (window.told.controls.get(one.parent)?.kind === 'Menu') one = window.told.controls.get(one.parent);
            return one.name === 'mnuRightClick' || !one.p.Visible;
        }, name);
        if (popup) return this.chooseAtPointer(name);
        await this.uncover(name);
        // A grey entry is chosen too: the program says why it is grey.
        await this.bench.pause(600);
        return this.bench.choose(name, { enabled: false });
    }
    async chooseAtPointer(name) {
        const entry = await this.bench.element(name);
        if (!entry || !(await entry.isVisible())) {
            const row = await this.bench.evaluate(() => window.told.named('lvCncProgram').rows.selected);
            await this.steps.rightclickrow.call(this, row);
            await this.bench.settled();
        }
        await (await this.bench.element(name)).click();
    }

    // What cannot be seen is not clicked.
    async clickControl(name, one) {
        if (!one.shown) return;
        await this.uncover(name);
        await (await this.bench.element(name)).click();
    }

    // A window that lies over what is to be clicked is drawn aside by its title.
    async uncover(name) {
        const bar = await this.bench.evaluate((n) => {
            let one = window.told.named(n);
            while (window.told.controls.get(one.parent)?.kind === 'Menu') one = window.told.controls.get(one.parent);
            const box = document.querySelector(`[data-control="${one.id}"]`).getBoundingClientRect();
            const over = document.elementFromPoint(box.left + box.width / 2, box.top + box.height / 2)?.closest('.window');
            const own = document.querySelector(`[data-control="${one.form}"]`);
            if (!over || over === own) return null;
            const title = over.querySelector('.title').getBoundingClientRect();
            return { x: title.left + 40, y: title.top + title.height / 2, filling: over.classList.contains('filling') };
        }, name);
        if (!bar) return;
        if (bar.filling) noWay('what lies below a maximised window');
        const { mouse } = this.bench.page;
        await mouse.move(bar.x, bar.y);
        await mouse.down();
        await mouse.move(1490, 880, { steps: 3 });
        await mouse.up();
        await this.bench.settled();
    }

    async rowInSight(number) {
        await this.bench.evaluate((n) => {
            const list = document.querySelector('[data-name="lvCncProgram"]');
            if (!list.querySelector(`[data-row="${n}"]`)) list.scrollTop = (n - 5) * 17;
        }, number);
        await this.bench.until((n) => document.querySelector(`[data-name="lvCncProgram"] [data-row="${n}"]`), number);
    }

    leaveOut(what) {
        this.leftOut.set(what, (this.leftOut.get(what) ?? 0) + 1);
    }

    async expect(rest) {
        const [what] = wordsOf(rest);
        const text = rest.trimStart().slice(what.length).replace(/^\s/, '');
        // What follows the state of the work does so twice a second.
        const until = Date.now() + patience;
        for (;;) {
            const read = await this.read(what, text);
            if (!read) return this.leaveOut(what.replace(/^\w+(\(\d+\))?\.(left|top|width|height|tag)$/, '.$2'));
            if (read.got === read.wanted) break;
            if (Date.now() > until) assert.equal(read.got, read.wanted);
            await this.bench.pause(100);
            await this.answerBoxes();
        }
        if (what === 'message') this.box = this.boxes.shift();
        ++this.checked;
        return undefined;
    }

    // { got, wanted }; null for what no page shows.
    async read(what, text) {
        const lines = (one) => one?.replaceAll('\r\n', '\n').replaceAll('\r', '\n');
        if (what === 'nomessage') return { got: this.boxes.map((box) => box.text).join(), wanted: '' };
        if (what === 'message') return { got: lines(this.boxes[0]?.text), wanted: lines(textOf(text)) };
        if (what === 'title' || what === 'details') return { got: lines(this.box?.[what]), wanted: lines(textOf(text)) };
        return shownOf(this, what, text, textOf);
    }
}

const patience = 2500; // milliseconds
// What is queued for later, or stands around the program.
const queues = new Set(['answer', 'file', 'write']);
