// Keys as keyboards send them: the numeric block, other alphabets, composed letters, and those that are the browser's.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { Workbench } from './support/workbench.mjs';

const here = setting();

// Keys of the numeric block with its lock on.
const signs = { '-': ['Subtract', 109], '+': ['Add', 107], '*': ['Multiply', 106], ',': ['Decimal', 110], '.': ['Decimal', 110], '\r': ['Enter', 13] };
function ofBlock(one) {
    const [name, number] = /\d/.test(one) ? [one, 96 + Number(one)] : signs[one];
    return { key: one === '\r' ? 'Enter' : one, code: `Numpad${name}`, windowsVirtualKeyCode: number, text: one, isKeypad: true };
}
async function press(session, key) {
    await session.send('Input.dispatchKeyEvent', { type: key.text ? 'keyDown' : 'rawKeyDown', ...key });
    await session.send('Input.dispatchKeyEvent', { type: 'keyUp', ...key, text: undefined });
}
async function openWithSession() {
    const bench = await Workbench.open(here);
    return { bench, session: await bench.page.createCDPSession() };
}

test('a line is typed on the numeric block alone', async () => {
    const { bench, session } = await openWithSession();
    // The sign of mode, there and back; a sum; either sign of the block for a decimal ends a field.
    for (const one of '--01\r500+7*2\r-100,50.\r') await press(session, ofBlock(one));
    await bench.untilIs('lblPPLines', 'Caption', '1');
    assert.deepEqual((await bench.rows())[0].slice(2, 7), ['01', '1014', '', '-  100', '50']);
    await bench.close();
});

test('letters of other alphabets, third characters and composed letters', async () => {
    const { bench, session } = await openWithSession();
    const compose = async (text, more) => {
        await session.send('Input.imeSetComposition', { text, selectionStart: text.length, selectionEnd: text.length, ...more });
        await session.send('Input.insertText', { text });
        await bench.settled();
    };
    await bench.click('txtFileNotes');
    await bench.type('mill 10');
    // What the handlers do not let pass is not there; a word that is composed anew takes the place of the one before.
    await compose('0%\u00e9 off');
    assert.equal(await bench.get('txtFileNotes', 'Text'), 'mill 100 off');
    await compose('drill', { replacementStart: 0, replacementEnd: 4 });
    assert.equal(await bench.get('txtFileNotes', 'Text'), 'drill 100 off');
    // Ctrl with the key that is Z on other keyboards takes back, AltGr with Q writes.
    await press(session, { key: '\u044f', code: 'KeyZ', windowsVirtualKeyCode: 90, modifiers: 2 });
    await bench.settled();
    assert.notEqual(await bench.get('txtFileNotes', 'Text'), 'drill 100 off');
    await bench.press('Ctrl+End');
    await press(session, { key: '@', code: 'KeyQ', windowsVirtualKeyCode: 81, modifiers: 3, text: '@' });
    await bench.settled();
    assert.ok((await bench.get('txtFileNotes', 'Text')).endsWith('@'));
    assert.equal(await bench.evaluate(() => document.activeElement.value), await bench.get('txtFileNotes', 'Text'));
    await bench.close();
});

test('keys that no control has a use for are the browser\u2019s, those of menus never', async () => {
    const { bench } = await openWithSession();
    await bench.evaluate(() => {
        window.left = [];
        window.addEventListener('keydown', (event) => event.defaultPrevented || window.left.push(event.key));
    });
    const left = async (...keys) => {
        await bench.evaluate(() => (window.left = []));
        for (const key of keys) await bench.press(key);
        await bench.settled();
        return bench.evaluate(() => window.left.filter((one) => !['Control', 'Shift'].includes(one)));
    };
    assert.deepEqual(await left('Ctrl+Equal', 'Ctrl+Minus', 'Ctrl+0', 'Ctrl+D', 'F11', 'F12'), ['=', '-', '0', 'd', 'F11', 'F12']);
    assert.deepEqual(await left('F3', 'Ctrl+F', 'Esc', 'Ctrl+V'), ['v']);
    // Nor in the box that an empty clipboard has brought, where they would load the page anew.
    await bench.untilBox();
    assert.deepEqual(await left('F5', 'Ctrl+R', 'Ctrl+S'), []);
    await bench.answer(0);
    await bench.close();
});

test('the key of the menu brings up that of the line', async () => {
    const { bench } = await openWithSession();
    await bench.open('mk4_bolt.cnc');
    await bench.clickRow(2);
    // As the browser tells the key, which a driver's key does not have it do.
    await bench.evaluate(() => document.querySelector('[data-name="lvCncProgram"]').dispatchEvent(new PointerEvent('contextmenu', { bubbles: true, cancelable: true })));
    await bench.until(() => document.querySelector('.popup:not([hidden])'));
    await bench.close();
});
