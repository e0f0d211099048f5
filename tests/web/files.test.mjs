// Files and boxes: by the browser's file access and without it.
import assert from 'node:assert/strict';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { root, sample, Workbench } from './support/workbench.mjs';

const here = setting();

test('saving goes back into the opened file, and New asks for unsaved work', async () => {
    const bench = await Workbench.open(here);
    await bench.open('mk4_bolt.cnc');
    await bench.clickRow(1);
    await bench.click('cmdDelete');
    await bench.answer('Yes');
    await bench.untilIs('lblPPLines', 'Caption', '44');
    await bench.choose('mnuNew');
    assert.deepEqual((await bench.untilBox()).buttons, ['Yes', 'No']);
    // Neither Escape, however often, nor a key of the program behind it answers a box.
    for (const key of ['Esc', 'Esc', 'Esc', 'F5']) await bench.press(key);
    assert.equal(await bench.get('frmDraw', 'Visible'), false);
    await bench.answer('No');
    await bench.untilEnabled('mnuSave');
    await bench.press('Ctrl+S');
    await bench.until(() => !window.told.named('mnuSave').p.Enabled);
    const saved = await bench.read('mk4_bolt.cnc');
    assert.ok(saved.includes('00M06') && !saved.includes('10 mm off the face'), saved);
    await bench.close();
});

test('two files of one name stay two', async () => {
    const bench = await Workbench.open(here);
    await bench.evaluate(() => {
        const fileIn = async (place, text) => {
            const folder = await (await navigator.storage.getDirectory()).getDirectoryHandle(place, { create: true });
            const handle = await folder.getFileHandle('part.cnc', { create: true });
            if (text === undefined) return handle;
            const stream = await handle.createWritable();
            await stream.write(text);
            await stream.close();
            return handle;
        };
        const places = ['one', 'other'];
        window.fileIn = fileIn;
        window.showOpenFilePicker = async () => [await fileIn(places.shift())];
    });
    const [one, other] = [sample('mk4_bolt.cnc'), sample('mk4_pawn.cnc')];
    await bench.evaluate((a, b) => Promise.all([window.fileIn('one', a), window.fileIn('other', b)]), one, other);
    await bench.press('Ctrl+O');
    await bench.untilIs('lblPPLines', 'Caption', '45');
    await bench.clickRow(1);
    await bench.click('cmdDelete');
    await bench.answer('Yes');
    // The first is saved where it came from, though the second has been chosen.
    await bench.press('Ctrl+O');
    await bench.answer('Yes');
    await bench.until(() => window.told.named('lblPath').p.Caption.endsWith('part (2).cnc'));
    await bench.settled();
    const kept = (place) => bench.evaluate(async (name) => (await (await window.fileIn(name)).getFile()).text(), place);
    assert.equal(await kept('other'), other);
    assert.ok((await kept('one')).length < one.length);
    await bench.close();
});

test('a browser without file access opens by choosing and saves by downloading', async () => {
    const downloads = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-downloads-'));
    const bench = await Workbench.open(here, { play: ['withoutFileAccess'] });
    const session = await bench.page.createCDPSession();
    await session.send('Browser.setDownloadBehavior', {
        behavior: 'allow', downloadPath: downloads, browserContextId: bench.context.id,
    });
    const [chooser] = await Promise.all([bench.page.waitForFileChooser(), bench.press('Ctrl+O')]);
    await chooser.accept([path.join(root, 'samples/f1_lid.cnc')]);
    await bench.untilIs('lblPPLines', 'Caption', String(sample('f1_lid.cnc').trimEnd().split('\r\n').length - 10));
    await bench.untilEnabled('mnuSaveAs');
    await bench.press('Ctrl+Shift+S');
    await bench.until(() => document.querySelector('dialog[open] input'));
    await bench.page.click('dialog[open] input', { count: 3 });
    await bench.type('lid.cnc\r');
    const target = path.join(downloads, 'lid.cnc');
    for (let i = 0; i < 200 && !fs.existsSync(target); ++i) await bench.pause(50);
    // Notes that were loaded gain a line end.
    assert.equal(fs.readFileSync(target, 'latin1'), sample('f1_lid.cnc').replace('\r\n%\r\n', '\r\n\r\n%\r\n'));
    fs.rmSync(downloads, { recursive: true });
    await bench.close();
});

test('files that are dropped, refused and damaged', async () => {
    const bench = await Workbench.open(here);
    await bench.drop('<b>knob.cnc', sample('mk2_knob.cnc'));
    await bench.until(() => window.told.named('lblPath').p.Caption.includes('knob'));
    await bench.settled();
    // A name is text, never markup.
    assert.equal(await bench.evaluate(() => document.querySelectorAll('b').length), 0);
    for (const text of ['', '\0\0\0', 'x'.repeat(100_000), '%\r\n'.repeat(1000)]) {
        await bench.drop('damaged.cnc', text);
        await bench.settled();
        while (await bench.box()) await bench.answer(0);
    }
    // The browser refuses the writing.
    await bench.open('mk4_bolt.cnc');
    await bench.evaluate(() => {
        FileSystemFileHandle.prototype.createWritable = async () => {
            throw new DOMException('refused', 'NotAllowedError');
        };
    });
    await bench.clickRow(2);
    await bench.click('cmdDelete');
    await bench.answer('Yes');
    await bench.untilEnabled('mnuSave');
    await bench.press('Ctrl+S');
    const told = await bench.untilBox();
    assert.ok(told.text.length > 10, JSON.stringify(told));
    await bench.answer(0);
    assert.equal(await bench.get('mnuSave', 'Enabled'), true);
    await bench.close();
});

// A browser asks its user for a file of the last visit in a click only.
test('the last file is offered where its user has to agree, and asked for in the click', async () => {
    const bench = await Workbench.open(here);
    await bench.open('mk4_bolt.cnc');
    await bench.page.evaluateOnNewDocument(() => {
        window.asked = 0;
        FileSystemFileHandle.prototype.queryPermission = async () => (window.asked ? 'granted' : 'prompt');
        FileSystemFileHandle.prototype.requestPermission = async () => {
            if (!navigator.userActivation.isActive) throw new DOMException('no click', 'SecurityError');
            window.asked += 1;
            return 'granted';
        };
    });
    await bench.page.reload();
    await bench.started();
    assert.equal(await bench.evaluate(() => window.asked), 0);
    assert.equal(await bench.box(), null);
    const offer = await bench.page.waitForSelector('.notice');
    assert.match(await offer.evaluate((one) => one.textContent), /mk4_bolt\.cnc/);
    await (await offer.$('button')).click();
    await bench.untilIs('lblPath', 'Caption', 'mk4_bolt.cnc');
    assert.equal(await bench.evaluate(() => window.asked), 1);
    assert.equal(await bench.page.$('.notice'), null);
    await bench.close();
});

// The program clears the clipboard before it gives a picture: that must not come behind.
test('a picture goes into the clipboard alone, and one that the browser refuses is told', async () => {
    const bench = await Workbench.open(here);
    await bench.open('mk4_bolt.cnc');
    await bench.evaluate(() => {
        window.clips = [];
        navigator.clipboard.writeText = async (text) => window.clips.push(`text ${text}`);
        navigator.clipboard.write = async (items) => {
            window.clips.push(...items.flatMap((one) => one.types));
            if (window.clips.length > 1) throw new DOMException('refused', 'NotAllowedError');
        };
    });
    await bench.press('F5');
    await bench.settled();
    await bench.choose('frmDraw.mnuSaveClipboard');
    await bench.answer(0);
    assert.equal(await bench.page.$('.notice'), null);
    await bench.choose('frmDraw.mnuSaveClipboard');
    assert.equal(await bench.box(), null);
    assert.match(await bench.page.$eval('.notice', (one) => one.textContent), /has not taken the picture/);
    assert.deepEqual(await bench.evaluate(() => window.clips), ['image/png', 'image/png']);
    await bench.close();
});
