// The serial link against a port that is played: settings, pace, reopening, unplugging; and a browser without one.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { sample, Workbench } from './support/workbench.mjs';

const here = setting();
const port = (bench, what) => bench.evaluate((name) => window.port[name], what);

test('a program is sent at the pace of the line, with its settings', async () => {
    const bench = await Workbench.open(here, { play: ['playSerial'] });
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
    await bench.click('cmdStop');
    await bench.until(() => !window.told.named('cmdStop').p.Visible || document.querySelector('dialog[open]'));
    while (await bench.box()) await bench.answer(0);
    assert.equal((await port(bench, 'opens')).length, before, 'not opened anew');
    await bench.close();
});

test('the line unplugged in mid-line is told, and the work goes on', async () => {
    const bench = await Workbench.open(here, { play: ['playSerial'] });
    await bench.open('mk4_lesson_knob.cnc');
    await bench.choose('mnuTX');
    await bench.until(() => window.port.written.length > 1);
    await bench.evaluate(() => window.port.unplug());
    await bench.untilBox();
    while (await bench.box()) await bench.answer(0);
    await bench.clickRow(2);
    assert.equal(await bench.get('lblPPLines', 'Caption'), '23');
    await bench.close();
});

test('what arrives is received, whatever its pieces are', async () => {
    const bench = await Workbench.open(here, { play: ['playSerial'] });
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

test('a browser without serial ports says which have one', async () => {
    const bench = await Workbench.open(here, { play: ['withoutSerial'] });
    await bench.open('mk4_bolt.cnc');
    assert.match(await bench.evaluate(() => document.body.textContent), /Chrome, Edge and Opera|no serial port/);
    await bench.close();
});
