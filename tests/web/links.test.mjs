// A program in the address.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { deflateRawSync } from 'node:zlib';

import { setting } from './support/setting.mjs';
import { typeRow } from './support/typist.mjs';
import { sample, Workbench } from './support/workbench.mjs';

const here = setting();
const packed = (text) => deflateRawSync(Buffer.from(text, 'latin1')).toString('base64url');

test('a link brings a sample, or a text, and its name is no markup', async () => {
    const bench = await Workbench.open(here, { at: '#file=samples/f1_lid.cnc' });
    await bench.until(() => window.told.named('frmMain').p.Caption.includes('f1_lid'));
    assert.equal(await bench.get('mnuSave', 'Enabled'), false);
    await bench.close();
    const name = encodeURIComponent('<img src=x onerror=alert(1)>.cnc');
    const other = await Workbench.open(here, { at: `#program=${packed(sample('mk2_knob.cnc'))}&name=${name}` });
    await other.until(() => window.told.named('frmMain').p.Caption.includes('img src'));
    assert.equal(await other.evaluate(() => document.querySelectorAll('img[src=x]').length), 0);
    await other.close();
    // A name that is too long is cut, and not within a character.
    const long = await Workbench.open(here, { at: `#program=${packed(sample('mk2_knob.cnc'))}&name=${'a'.repeat(79)}%F0%9F%94%A9.cnc` });
    await long.until(() => window.told.named('frmMain').p.Caption.includes('aaa'));
    await long.close();
});

test('a link that comes while work is unsaved asks first', async () => {
    const bench = await Workbench.open(here);
    await typeRow(bench, ['', ' 00', ' 00 ', '1500', '', '100', '', '', '', '', '', '', '', '', '', '', '', '', 'mine']);
    await bench.evaluate(() => (location.hash = '#file=samples/mk4_bolt.cnc'));
    const asked = await bench.untilBox();
    await bench.answer(asked.buttons.at(-1));
    await bench.settled();
    while (await bench.box()) await bench.answer(0);
    const rows = await bench.rows();
    assert.ok(asked.buttons.at(-1) === 'No' || rows[0].at(-1) === 'mine', JSON.stringify(asked));
    await bench.close();
});

test('what is no program is told, and nothing is lost', async () => {
    for (const at of ['#program=!!!', '#file=../../etc/passwd', '#program=' + packed(sample('mk4_bolt.cnc') + '\r\n'.repeat(2_000_000)), '#file=samples/none.cnc']) {
        const bench = await Workbench.open(here, { at });
        await bench.settled(200);
        while (await bench.box()) await bench.answer(0);
        assert.equal(await bench.get('lblPPLines', 'Caption'), '0', at);
        await typeRow(bench, ['', ' 00', ' 00 ', '1500', '', '100', '', '', '', '', '', '', '', '', '', '', '', '', 'mine']);
        assert.equal(await bench.get('lblPPLines', 'Caption'), '1', at);
        await bench.close();
    }
});
