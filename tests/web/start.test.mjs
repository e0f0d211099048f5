// The page starts in both builds, and a program of each machine typed from an empty page is saved to its sample's bytes.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { stateOf, typeProgram } from './support/typist.mjs';
import { root, sample, Workbench } from './support/workbench.mjs';

const here = setting();

for (const play of [[], ['withoutStackSwitching']]) {
    test(`starts and opens a program ${play}`, async () => {
        const bench = await Workbench.open(here, { play });
        assert.equal(await bench.box(), null);
        assert.equal(await bench.focus(), 'txtGMcode');
        await bench.open('mk4_bolt.cnc');
        assert.equal(await bench.get('lblPPLines', 'Caption'), '45');
        assert.deepEqual((await bench.rows())[0].slice(1, 6), ['00', '92', '4000', '', '1000']);
        const outside = bench.requests.filter((one) => !one.startsWith(here.site.address) && !/^(data|blob):/.test(one));
        assert.deepEqual(outside, []);
        const fast = await bench.evaluate(() => 'Suspending' in WebAssembly);
        assert.ok(here.site.asked.includes(`/program/kvt_web${fast ? '_fast' : ''}.wasm`));
        assert.equal(fast, play.length === 0 && !process.env.KVT_WEB_PLAY);
        await bench.close();
    });
}

for (const play of [[], ['withoutStackSwitching']]) {
    test(`a program that breaks down says so ${play}`, async () => {
        const bench = await Workbench.open(here, { play });
        await bench.evaluate(() => {
            JSON.parse = () => {
                throw new WebAssembly.RuntimeError('played');
            };
        });
        await bench.type('1');
        await bench.until(() => document.querySelector('.cover[role=alert] button'));
        await bench.context.close();
    });
}

const machines = [
    ['mk4_lesson_knob.cnc', null, []],
    ['mk2_stud.cnc', 'optSettingsMK2', ['withoutStackSwitching']],
    ['f1_lid.cnc', 'optSettingsF1CNC', []],
];
for (const [name, machine, play] of machines) {
    test(`typed from an empty page: ${name} ${play}`, async () => {
        const bench = await Workbench.open(here, { play });
        if (machine) {
            await bench.choose('mnuMachine');
            await bench.click(machine);
            await bench.choose('mnuMachine');
        }
        await typeProgram(bench, stateOf(`${root}/samples/${name}`));
        await bench.picks(name);
        await bench.press('Ctrl+S');
        await bench.until((n) => window.told.named('lblPath')?.p.Caption?.endsWith(n), name);
        await bench.settled();
        assert.equal(await bench.read(name), sample(name));
        await bench.close();
    });
}
