// A phone: fingers, its keypads, and a page that is smaller than the windows.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { Workbench } from './support/workbench.mjs';

const here = setting();
const lying = { width: 844, height: 390, isMobile: true, hasTouch: true };
const standing = { ...lying, width: 390, height: 844 };
const tap = async (bench, name) => {
    await (await bench.element(name)).tap();
    await bench.settled();
};

test('a menu that is higher than the page opens by a tap, and none of its entries is chosen by it', async () => {
    const bench = await Workbench.open(here, { size: lying });
    await bench.open('mk4_bolt.cnc');
    await tap(bench, 'frmMain.mnuFile');
    const popup = await bench.page.$('.popup:not([hidden])');
    const { y, height } = await popup.boundingBox();
    assert.ok(y > 20 && y + height <= lying.height, `${y} ${height}`);
    await tap(bench, 'mnuDraw');
    // A window that the page has no room for fills it.
    assert.equal(await bench.get('frmDraw', 'WindowState'), 'Maximised');
    await bench.close();
});

test('numeric fields have a keypad, and the page the keys that it lacks', async () => {
    const bench = await Workbench.open(here, { size: standing });
    const modes = ['txtGMcode', 'txtXI', 'txtFeedA', 'txtComment'].map(async (name) => (await bench.element(name)).evaluate((one) => one.inputMode));
    assert.deepEqual(await Promise.all(modes), ['decimal', 'decimal', 'decimal', '']);
    const keys = await bench.page.$$('.touch-keys button');
    assert.equal(keys.length, 5);
    await keys[3].tap();
    await bench.untilIs('lblGMcode', 'Caption', 'M');
    await bench.type('30');
    await keys[4].tap();
    await keys[4].tap();
    await bench.untilIs('lblPPLines', 'Caption', '1');
    // What the program has at its lower edge lies above them.
    const frame = await (await bench.element('frEntry')).boundingBox();
    assert.ok(frame.y + frame.height <= (await keys[0].boundingBox()).y);
    await bench.close();
});

test('a finger that rests on a button has its tip, on a line its menu, and presses neither', async () => {
    const bench = await Workbench.open(here, { size: standing });
    await bench.open('mk4_bolt.cnc');
    const session = await bench.page.createCDPSession();
    const rest = async (element) => {
        const { x, y, width, height } = await element.boundingBox();
        const touchPoints = [{ x: x + width / 2, y: y + height / 2 }];
        await session.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints });
        await bench.pause(1200);
        const tip = await bench.evaluate(() => [...document.querySelectorAll('.tip:not([hidden])')].map((one) => one.textContent).join());
        await session.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] });
        await bench.settled();
        return tip;
    };
    assert.ok(await rest(await bench.element('cmdTopButtons(4)')));
    assert.notEqual(await bench.get('tabSettings', 'Visible'), true);
    await rest(await (await bench.element('lvCncProgram')).$('[data-row="3"] .cell'));
    assert.ok(await bench.page.$('.popup:not([hidden])'));
    await bench.close();
});

test('the last code of each list can be scrolled into sight on a low page, and is on top there', async () => {
    const bench = await Workbench.open(here, { size: lying });
    for (const [program, lists] of [['mk4_bolt.cnc', ['lstMK4Gcodes', 'lstMK4Mcodes']], ['f1_lid.cnc', ['lstF1Gcodes', 'lstF1Mcodes']]]) {
        await bench.open(program);
        for (const name of lists) {
            const reached = await (await bench.element(name)).evaluate((list) => {
                const last = list.querySelector('.entries').lastElementChild;
                last.scrollIntoView();
                const { left, top, width, height } = last.getBoundingClientRect();
                return last.contains(document.elementFromPoint(left + width / 2, top + height / 2));
            });
            assert.ok(reached, name);
        }
    }
    await bench.close();
});
