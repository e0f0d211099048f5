// The steps of the stories by what a user of the page does: keys, clicks, the windows' own buttons, the wheel.
import assert from 'node:assert/strict';

import { behind, nameOf, noWay, textOf, wordsOf } from './story.mjs';
import { clickControl, chooseMenu, focusControl, rowInSight, uncover } from './story_hands.mjs';
import { mouseSteps } from './story_mouse.mjs';
import { brought } from './workbench.mjs';

// What is queued for later, or stands around the program.
export const queues = new Set(['answer', 'file', 'write', 'colour', 'printer', 'delete', 'clipboard', 'portfails', 'fails', 'during']);

// The name and the content of a file that comes with the program.
function broughtFile(argument) {
    const [, folder, name] = /^"?(samples|languages)\/([^"]+)"?$/.exec(argument.trim()) ?? [];
    return name && [name, brought(folder, name)];
}
const inFolder = (name) => /[/$]/.test(name);

// As a file that is opened from the folder of the desktop.
async function openFirst(story, name) {
    if (inFolder(name)) noWay('a folder of the user');
    await story.bench.picks(name);
    await story.bench.press('Ctrl+O');
    await story.settle();
    // The axes of another machine lie over the list at first.
    if ((await story.control('cmdReturn')).shown) await story.bench.click('cmdReturn');
    // Menus and buttons follow the state of the work twice a second.
    await story.bench.evaluate(() => window.clock.advance(1000));
    await story.settle();
}

async function clickTitle(story, name, button, wanted) {
    const one = await story.control(name);
    if (name === 'frmMain') {
        if (wanted === 'larger') return; // The page is as large as the browser's window in any case.
        noWay('the browser has the size of the main window');
    }
    const form = await story.bench.element(name);
    const filling = await form.evaluate((element) => element.classList.contains('filling'));
    if (!one.shown || (wanted === 'larger' && filling) || (wanted === 'smaller' && !filling)) return;
    await (await form.$(button)).click();
}

// What the browser itself does at a key comes only by its name.
async function pasteNotes({ bench }, text) {
    const { keyboard } = bench.page;
    await bench.click('txtFileNotes');
    await keyboard.down('Control');
    await keyboard.press('Home', { commands: ['MoveToBeginningOfDocument'] });
    await keyboard.down('Shift');
    await keyboard.press('End', { commands: ['MoveToEndOfDocumentAndModifySelection'] });
    await keyboard.up('Shift');
    await bench.evaluate((one) => window.clock.rest().then(() => navigator.clipboard.writeText(one)), text);
    if (text) await keyboard.press('v', { commands: ['Paste'] });
    await keyboard.up('Control');
    if (!text) await keyboard.press('Delete');
}

export const steps = {
    async start(rest) {
        await this.closePage();
        const [name, content] = broughtFile(rest) ?? [nameOf(rest)];
        if (content) this.files.push([name, content]);
        await this.openPage();
        await this.settle();
        if (name) await openFirst(this, name);
        // A start takes no time of its own.
        this.clock -= await this.bench.evaluate(() => window.clock.now);
    },
    // What Enter or the Tab key begins comes to its end before the next letter.
    async type(rest) {
        const parts = textOf(rest).split(/(?<=[\r\t])/);
        for (const [i, part] of parts.entries()) {
            await this.bench.type(part);
            if (i + 1 < parts.length) await this.settle();
        }
    },
    async press(rest) {
        await this.bench.press(rest.trim());
    },
    async focus(rest) {
        await focusControl(this, rest.trim());
    },
    async click(rest) {
        const [name, index] = wordsOf(rest);
        const whole = index === undefined ? name : `${name}(${index})`;
        const one = await this.control(whole);
        if (one.kind === 'Menu') await chooseMenu(this, whole);
        else await clickControl(this, whole, one);
    },
    // By the keys of the list, which select and do no more; the keys go back to where they were.
    async row(rest) {
        const wanted = Number(rest);
        const before = await this.bench.evaluate(() => window.told.controls.get(window.told.focus));
        await focusControl(this, 'frmMain.lvCncProgram');
        const selected = () => this.bench.evaluate(() => window.told.named('lvCncProgram').rows.selected);
        for (let at = await selected(); at !== wanted; ) {
            await this.bench.press(at < wanted ? 'Down' : 'Up');
            await this.bench.evaluate(() => window.clock.rest());
            const now = await selected();
            assert.notEqual(now, at, 'the keys move in the list');
            at = now;
        }
        if (before && before.name !== 'lvCncProgram') await focusControl(this, await this.nameOfControl(before));
    },
    async clickrow(rest) {
        await rowInSight(this, Number(rest));
        await this.bench.clickRow(Number(rest));
    },
    async rightclickrow(rest) {
        await rowInSight(this, Number(rest));
        await this.bench.clickRow(Number(rest), { button: 'right' });
    },
    async clickheader(rest) {
        const list = await this.bench.element('lvCncProgram');
        const head = await list.$(`.head[data-column="${Number(rest) - 1}"]`);
        if (head) await head.click();
    },
    async set(rest) {
        const [name] = wordsOf(rest);
        if (!(await this.control(name)).shown) return undefined;
        if (name === 'txtFileNotes') return pasteNotes(this, textOf(behind(rest)));
        await uncover(this, name);
        await (await this.bench.element(name)).click();
        await this.bench.evaluate(() => window.clock.rest());
        await this.bench.press('Home');
        await this.bench.press('Shift+End');
        return this.bench.type(textOf(behind(rest)) || '\b');
    },
    notes(rest) {
        return pasteNotes(this, textOf(rest));
    },
    async pick(rest) {
        const [name, index] = wordsOf(rest);
        const one = await this.control(name);
        if (!one.shown) return;
        await uncover(this, name);
        const list = await this.bench.element(name);
        if (one.kind === 'ListBox') return (await list.$$('.entry'))[Number(index)].click();
        // The list of a box of choice is the system's, which no test sees: its choice is played.
        const text = await list.evaluate((element, at) => element.options[at]?.textContent, Number(index));
        if (text !== undefined) await list.select(text);
        return undefined;
    },
    async resize(rest) {
        const [name, width, height] = wordsOf(rest);
        const pixels = (twips) => Math.round(Number(twips) / 15);
        if (name === 'frmMain') return this.bench.page.setViewport({ width: pixels(width), height: pixels(height) });
        const form = await this.bench.element(name);
        const grip = await (await form.$('.grip')).boundingBox();
        const had = await this.bench.evaluate((n) => window.told.named(n).p, name);
        const { mouse } = this.bench.page;
        const [x, y] = [grip.x + grip.width / 2, grip.y + grip.height / 2];
        await mouse.move(x, y);
        await mouse.down();
        await mouse.move(x + pixels(width - had.Width), y + pixels(height - had.Height), { steps: 3 });
        return mouse.up();
    },
    maximise(rest) {
        return clickTitle(this, rest.trim(), '.larger', 'larger');
    },
    restore(rest) {
        return clickTitle(this, rest.trim(), '.larger', 'smaller');
    },
    minimise() {
        noWay('a page has no minimised window');
    },
    async close(rest) {
        if (rest.trim() === 'frmMain') return chooseMenu(this, 'mnuExit');
        const one = await this.control(rest.trim());
        if (!one.shown) return undefined;
        return (await (await this.bench.element(rest.trim())).$('.close')).click();
    },
    async advance(rest) {
        for (let left = Number(rest); left > 0; ) {
            left = await this.bench.evaluate((milliseconds) => window.clock.advance(milliseconds), left);
            await this.settle();
        }
    },
    async drop(rest) {
        const [name, content] = broughtFile(rest) ?? [nameOf(rest), await this.bench.read(nameOf(rest))];
        await this.bench.drop(name, content);
    },
    async receive(rest) {
        await this.bench.evaluate((text) => window.ports.find((one) => one.isOpen)?.arrives(text), textOf(rest));
    },
    ...mouseSteps,

    answer(rest) {
        this.answers.push(rest.trim());
    },
    async file(rest) {
        const [name, content] = broughtFile(rest) ?? [rest.trim() === 'cancel' ? null : nameOf(rest)];
        if (inFolder(name ?? '')) noWay('a folder of the user');
        if (content) await this.putFile(name, content);
        if (this.bench) await this.bench.picks(name);
        else this.queued.push(name);
    },
    async write(rest) {
        const [name] = wordsOf(rest);
        const path = textOf(name);
        const text = textOf(behind(rest));
        if (path.startsWith('/data/')) this.kept.push([`kvt:${path}`, text]);
        else if (inFolder(nameOf(name))) noWay('a folder of the user');
        else await this.putFile(nameOf(name), text);
    },
    // What the page keeps by itself, before its next start.
    async delete(rest) {
        const path = textOf(rest);
        if (this.bench && !(await this.bench.evaluate(() => window.told.ended))) noWay('a file that goes away while the page has it');
        if (path.startsWith('/data/')) this.gone.push(`kvt:${path}`);
        else await this.bench.evaluate(async (name) => (await navigator.storage.getDirectory()).removeEntry(name), path);
    },
    async fails(rest) {
        const [service] = wordsOf(rest);
        if (service !== 'file' && service !== 'clipboard') noWay(`a ${service} that fails`);
        await this.bench.evaluate((which) => (window.refusals[which] = 1), service);
    },
    colour(rest) {
        this.colors.push(rest.trim());
    },
    printer(rest) {
        this.printers.push(rest.trim() === 'cancel' ? 0 : rest.trim());
    },
    async clipboard(rest) {
        await this.bench.evaluate((text) => navigator.clipboard.writeText(text), textOf(rest));
    },
    async portfails() {
        assert.ok(this.ports, 'there are ports');
        await this.bench.evaluate(() => window.ports.forEach((one) => (one.refuses = true)));
    },
};
