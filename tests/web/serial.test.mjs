// The serial link against a port that is played: settings, pace, reopening, unplugging, choosing; a browser without one;
// the played machine.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { sample, Workbench } from './support/workbench.mjs';

const here = setting();
const port = (bench, what) => bench.evaluate((name) => window.port[name], what);
const open = (...play) => Workbench.open(here, { play });
const machineButton = async (bench) => (await bench.page.$('[data-text="machine"]')).click();

// The lines of a program as they go over the line through the filter.
function wire(text) {
    const lines = text.slice(text.indexOf('%')).split('\r\n').slice(0, -1);
    return lines.map((line) => `${line.slice(0, 30)}\r\n`).join('');
}
const shortLines = ['%', '    N` G`   X `    Z `  F`  H ', '    00 92  2000    500'.padEnd(30), '    01M30'.padEnd(30), '   M'];
const short = shortLines.map((line) => `${line}\r\n`).join('');

async function answerAll(bench) {
    const texts = [];
    while (await bench.box()) texts.push((await bench.answer(0)).text);
    return texts;
}

test('a program is sent at the pace of the line, with its settings', async () => {
    const bench = await open('playSerial');
    await bench.open('mk4_lesson_knob.cnc');
    const before = (await port(bench, 'opens')).length;
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length > 2);
    const [options] = await port(bench, 'opens');
    assert.deepEqual([options.baudRate, options.dataBits, options.stopBits, options.parity], [300, 8, 1, 'none']);
    assert.ok(options.bufferSize > 255);
    // 300 baud are 30 characters a second: no line goes before the one in front of it has had its time.
    await bench.until(() => window.port.written.length > 5);
    const written = await port(bench, 'written');
    for (let i = 1; i < 5; ++i) {
        const had = written[i + 1].at - written[i].at;
        const needs = written[i].text.length / 30 * 1000;
        assert.ok(had > needs * 0.8 && had < needs * 1.5 + 200, `line ${i}: ${had} ms for ${needs} ms`);
    }
    // Stop in the middle: the units mark ends it in order.
    await bench.click('cmdStop');
    await bench.until(() => !window.told.named('frTransmit').p.Visible);
    await answerAll(bench);
    const all = await port(bench, 'written');
    assert.equal(all.at(-1).text, 'M\r\n');
    assert.ok(all.length < 10);
    assert.equal((await port(bench, 'opens')).length, before, 'not opened anew');
    await bench.close();
});

test('every setting of the page COM reaches the port, and only one that is another opens it anew', async () => {
    const bench = await open('playSerial');
    await bench.open('short.cnc', short);
    const closes = await port(bench, 'closes');
    const choices = [
        ['optBaudTX(6)', 'baudRate', 9600], ['optParityTX(1)', 'parity', 'even'], ['optParityTX(2)', 'parity', 'odd'],
        ['optDataBitsTX(0)', 'dataBits', 7], ['optStopBitsTX(1)', 'stopBits', 2], ['chkTXxonxoff', 'flowControl', 'none'],
        ['chkTXrtscts', 'flowControl', 'none'], ['chkTXdtrdsr', 'flowControl', 'none'],
    ];
    let opens = (await port(bench, 'opens')).length;
    let sent = 0;
    for (const [name, member, value] of choices) {
        await bench.choose('mnuCOM');
        await bench.click(name);
        await bench.click(name.startsWith('opt') ? name : 'optBaudTX(6)');
        const before = opens;
        await bench.choose('mnuTX');
        sent += 5;
        await bench.until((n) => window.port.written.length === n && !window.told.named('frTransmit').p.Visible, sent);
        const all = await port(bench, 'opens');
        assert.equal(all.at(-1)[member], value, name);
        opens = all.length;
        assert.equal(opens - before, name.startsWith('opt') ? 1 : 0, name);
    }
    assert.equal((await port(bench, 'closes')) - closes, 5);
    // A device that cannot do it goes on with what it had.
    await bench.evaluate(() => (window.port.without = ({ dataBits, parity }) => dataBits === 8 && parity === 'odd'));
    await bench.choose('mnuCOM');
    await bench.click('optDataBitsTX(1)');
    await bench.choose('mnuTX');
    await bench.untilBox();
    assert.match((await answerAll(bench))[0], /does not take the settings 9600,O,8,2/);
    assert.equal((await port(bench, 'written')).length, sent + 5);
    assert.equal((await port(bench, 'opens')).at(-1).dataBits, 7);
    await bench.close();
});

test('what arrives under a transmission does not change the line, and opens it anew behind it', async () => {
    const bench = await open('playSerial');
    await bench.open('short.cnc', short);
    await bench.choose('mnuCOM');
    await bench.click('optBaudRX(5)');
    const opens = (await port(bench, 'opens')).length;
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length === 3);
    await bench.evaluate(() => window.port.arrives('N'));
    await bench.until(() => window.port.written.length === 5);
    assert.equal((await port(bench, 'opens')).length, opens);
    await bench.until(() => !window.told.named('frTransmit').p.Visible);
    await bench.evaluate(() => window.port.arrives('0'));
    await bench.until((n) => window.port.opens.length === n && window.port.isOpen, opens + 1);
    assert.equal((await port(bench, 'opens')).at(-1).baudRate, 4800);
    await bench.evaluate(() => window.port.arrives('1'));
    await bench.until(() => document.querySelector('[data-name="txtRX"]').value === 'N01');
    await bench.close();
});

test('the line unplugged in mid-line is told, and the work goes on', async () => {
    const bench = await open('playSerial');
    await bench.open('mk4_lesson_knob.cnc');
    await bench.clickRow(2);
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length > 3);
    await bench.evaluate(() => window.port.unplug());
    await bench.untilBox();
    const told = await answerAll(bench);
    const last = (await port(bench, 'written')).at(-1).text;
    assert.equal(told.length, 1);
    assert.ok(told[0].includes('has gone') && told[0].trimEnd().endsWith(last.trimEnd()), told[0]);
    assert.equal(await bench.get('lblPPLines', 'Caption'), '23');
    assert.equal(await bench.get('chkEnableCom', 'Value'), false);
    assert.equal(await bench.get('frTransmit', 'Visible'), false);
    assert.equal(await bench.evaluate(() => window.told.named('lvCncProgram').rows.selected), 2);
    // Connected again it works again.
    await bench.evaluate(() => window.port.plug());
    await bench.choose('mnuCOM');
    await bench.click('chkEnableCom');
    const before = (await port(bench, 'written')).length;
    await bench.choose('mnuTX');
    await bench.until((n) => window.port.written.length > n + 1, before);
    await bench.click('cmdStop');
    await bench.until(() => !window.told.named('frTransmit').p.Visible);
    await bench.close();
});

test('a device that takes nothing ends the transmission as one that has gone', async () => {
    const bench = await open('playSerial');
    await bench.open('mk4_lesson_knob.cnc');
    await bench.evaluate(() => (window.port.takesNothing = true));
    const from = performance.now();
    await bench.choose('mnuTX');
    await bench.untilBox();
    assert.ok(performance.now() - from > 5000);
    const written = (await port(bench, 'written')).length;
    assert.match((await answerAll(bench))[0], /has gone/);
    assert.ok(written < 4, `${written} lines`);
    assert.equal(await bench.get('frTransmit', 'Visible'), false);
    assert.equal(await bench.get('chkEnableCom', 'Value'), false);
    assert.equal(await bench.get('lblPPLines', 'Caption'), '23');
    await bench.close();
});

test('what arrives is received, whatever its pieces are', async () => {
    const bench = await open('playSerial');
    await bench.choose('mnuRX');
    await bench.settled();
    const text = sample('mk4_bolt.cnc');
    for (let at = 0; at < text.length; at += 700)
        await bench.evaluate((piece) => window.port.arrives(piece), text.slice(at, at + 700));
    await bench.until((n) => (window.told.named('txtRX').p.Text ?? '').length + document.querySelector('[data-name="txtRX"]').value.length > n, text.length / 2);
    await bench.click('cmdReceiveImport');
    await bench.untilIs('lblPPLines', 'Caption', '45');
    await bench.close();
});

test('a port that is still to be chosen is asked for in the click that needs it', async () => {
    const bench = await open('playSerial', 'withoutGrant');
    await bench.open('short.cnc', short);
    assert.equal(await port(bench, 'asked'), 0);
    await bench.evaluate(() => (window.port.noneChosen = true));
    for (const [at, entry] of ['mnuRX', 'mnuTX'].entries()) {
        await bench.choose(entry);
        assert.match((await bench.answer(0)).text, /No serial port was chosen/);
        assert.equal(await port(bench, 'asked'), at + 1);
        assert.equal(await bench.get('lblPPLines', 'Caption'), '2');
        assert.notEqual(await bench.get('frRXcode', 'Visible'), true);
    }
    await bench.evaluate(() => (window.port.noneChosen = false));
    await bench.choose('mnuRX');
    await bench.untilIs('frRXcode', 'Visible', true);
    await bench.evaluate(() => window.port.arrives('N'));
    await bench.until(() => document.querySelector('[data-name="txtRX"]').value === 'N');
    await bench.press('Esc');
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length === 5);
    assert.equal(await port(bench, 'asked'), 3);
    assert.match(await bench.get('optPortTX(0)', 'ToolTip'), /^USB 0403:6001$/);
    await bench.close();
});

// The button of the page chooses one beforehand; one that another program holds does not open, and that is told.
test('a port is chosen by its button, and one that is taken is told', async () => {
    const bench = await open('playSerial', 'withoutGrant');
    await bench.open('short.cnc', short);
    await (await bench.page.$('[data-text="serialPort"]')).click();
    await bench.settled();
    assert.equal(await port(bench, 'asked'), 1);
    await bench.evaluate(() => (window.port.taken = true));
    await bench.choose('mnuTX');
    assert.match((await bench.answer(0)).text, /^8005 {2}/);
    assert.equal(await bench.get('chkEnableCom', 'Value'), false);
    await bench.evaluate(() => (window.port.taken = false));
    await bench.choose('mnuCOM');
    await bench.click('chkEnableCom');
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length === 5);
    assert.equal(await port(bench, 'asked'), 1);
    await bench.close();
});

for (const play of ['playSerial', 'withoutSerial']) {
    test(`a program goes to the played machine and comes back: ${play}`, async () => {
        const bench = await open(play);
        if (play === 'withoutSerial')
            assert.match(await bench.evaluate(() => document.body.textContent), /Chrome, Edge and Opera|no serial port/);
        else await machineButton(bench);
        await bench.open('short.cnc', short);
        await bench.choose('mnuTX');
        assert.equal(await bench.get('frTransmit', 'Visible'), true);
        assert.match(await bench.get('lblTransmitLeft', 'Caption'), /^0:0\d left at 300 baud$/);
        const state = () => bench.evaluate(() => document.querySelector('.panel .state').textContent);
        await bench.until(() => /2 lines for MK4/.test(document.querySelector('.panel .state').textContent));
        assert.equal(await bench.evaluate(() => document.querySelector('.came').textContent), wire(short).replaceAll('\r', ''));
        await bench.page.select('.panel select', '9600');
        const send = await bench.page.$('.panel .row button');
        await send.click();
        await bench.until((n) => new RegExp(`Sent: ${n} char`).test(document.querySelector('.panel .state').textContent), wire(short).length);
        await bench.until((text) => document.querySelector('[data-name="txtRX"]').value === text, wire(short).replaceAll('\r', ''));
        await bench.settled();
        await bench.click('cmdReceiveImport');
        // The program that was sent has as many lines.
        await bench.until(() => document.querySelector('[data-name="cmdReceiveImport"]').getClientRects().length === 0);
        await bench.untilIs('lblPPLines', 'Caption', '2');
        await bench.picks('back.cnc');
        await bench.untilEnabled('mnuSave');
        await bench.press('Ctrl+S');
        await bench.until(() => window.told.named('lblPath').p.Caption.endsWith('back.cnc'));
        assert.equal(wire(await bench.read('back.cnc')), wire(short));
        assert.equal(await bench.evaluate(() => window.port?.written.length ?? 0), 0);
        // In the page's other language the panel keeps what it shows.
        await bench.page.click('.panel .hide');
        await bench.until(() => !document.querySelector('.panel'));
        await machineButton(bench);
        await bench.until(() => document.querySelector('.came')?.textContent.startsWith('%'));
        assert.match(await state(), /Sent/);
        await bench.close();
    });
}

test('in a hidden tab a line keeps its pace, to the played machine too', async () => {
    const bench = await open('playSerial');
    await machineButton(bench);
    await bench.open('mk4_bolt.cnc');
    await bench.choose('mnuTX');
    const other = await bench.context.newPage();
    await other.bringToFront();
    const now = () => bench.evaluate(() => [document.visibilityState, document.querySelector('.came').textContent.replaceAll('\n', '\r\n').length, performance.now()]);
    const [hidden, before, from] = await now();
    await bench.pause(5000);
    const [, after, to] = await now();
    assert.equal(hidden, 'hidden');
    const rate = (after - before) / (to - from) * 1000;
    assert.ok(rate > 26 && rate < 34, `${rate} characters a second`);
    await other.close();
    await bench.page.bringToFront();
    await bench.click('cmdStop');
    // The units mark ends the reception at the control.
    await bench.until(() => /lines for MK4/.test(document.querySelector('.panel .state').textContent));
    assert.match(await bench.evaluate(() => document.querySelector('.came').textContent), /\nM\n$/);
    await bench.close();
});
