// What outlives a page: settings, recovery of what a lost tab had, storage that is full or forbidden, a second tab.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { typeRow } from './support/typist.mjs';
import { Workbench } from './support/workbench.mjs';

const here = setting();
const line = (x, comment) => ['', ' 00', ' 00 ', x, '', '100', '', '', '', '', '', '', '', '', '', '', '', '', comment];

test('a tab that dies in mid-edit is recovered, all but its last second', async () => {
    const context = await here.browser.createBrowserContext();
    const bench = await Workbench.open(here, { context });
    await typeRow(bench, line('1500', 'first'));
    await typeRow(bench, line('1600', 'second'));
    await bench.pause(1000);
    const session = await bench.page.createCDPSession();
    session.send('Page.crash').catch(() => {});
    await bench.pause(500);
    await bench.page.close();
    const again = await Workbench.open(here, { context });
    await again.answer('Yes');
    await again.untilIs('lblPPLines', 'Caption', '2');
    assert.equal((await again.rows())[1].at(-1), 'second');
    await again.close();
});

test('settings are kept, and a second tab keeps its own to itself', async () => {
    const context = await here.browser.createBrowserContext();
    const first = await Workbench.open(here, { context });
    await first.choose('mnuMachine');
    await first.click('optSettingsF1CNC');
    await first.choose('mnuMachine');
    const second = await Workbench.open(here, { context });
    assert.match(await second.evaluate(() => document.body.innerText), /open in another tab/);
    await second.choose('mnuMachine');
    await second.click('optSettingsMK2');
    await second.page.close();
    await first.page.bringToFront();
    await first.choose('mnuExit');
    await first.until(() => window.told.ended);
    const third = await Workbench.open(here, { context });
    assert.match(await third.get('lblPPMachine', 'Caption') ?? (await third.get('lblMachineType', 'Caption')), /F1/);
    await third.close();
});

test('the browser asks before work is left that is not saved', async () => {
    const context = await here.browser.createBrowserContext();
    const bench = await Workbench.open(here, { context, play: ['playSerial'] });
    bench.stays = true;
    const leave = async () => {
        await bench.page.close({ runBeforeUnload: true });
        await bench.pause(300);
    };
    await typeRow(bench, line('1500', 'first'));
    await leave();
    assert.deepEqual(bench.dialogs, ['beforeunload']);
    assert.equal((await bench.rows())[0].at(-1), 'first');
    await bench.picks('kept.cnc');
    await bench.press('Ctrl+S');
    await bench.until(() => !window.told.named('frmMain').p.Caption.endsWith('*'));
    await bench.choose('mnuRX');
    await leave();
    assert.equal(bench.dialogs.length, 2, 'while a program is to be received');
    await bench.press('Esc');
    await bench.settled();
    await leave();
    assert.deepEqual([bench.dialogs.length, bench.page.isClosed()], [2, true]);
    await bench.close();
});

test('a full storage is told, and the work goes on', async () => {
    const bench = await Workbench.open(here);
    await bench.evaluate(() => {
        for (let size = 1 << 22; size > 0; size >>= 1) {
            try {
                for (let i = 0; ; ++i) localStorage.setItem(`full${size}_${i}`, 'x'.repeat(size));
            } catch {
                // As much as there is room for.
            }
        }
    });
    await typeRow(bench, line('1500', 'first'));
    assert.match((await bench.untilBox()).text, /could not|cannot|full/);
    await bench.answer(0);
    await typeRow(bench, line('1600', 'second'));
    while (await bench.box()) await bench.answer(0);
    await bench.untilIs('lblPPLines', 'Caption', '2');
    await bench.close();
});

test('a forbidden storage is told in a line', async () => {
    const bench = await Workbench.open(here, { play: ['withoutStorage'] });
    assert.match(await bench.evaluate(() => document.body.innerText), /keeps nothing/);
    await bench.open('mk4_bolt.cnc');
    await bench.close();
});
