// The page starts, and a program of each machine typed from an empty page is saved to the bytes of its sample.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { serve } from './support/site.mjs';
import { launch, root, sample, Workbench } from './support/workbench.mjs';

let site;
let chromium;
before(async () => {
    site = await serve(process.env.KVT_PAGE ?? `${root}/build/web/page`);
    chromium = await launch();
});
after(async () => {
    await chromium.end();
    await site.close();
});

const builds = [['stack switching', []], ['every browser', ['withoutStackSwitching']]];

for (const [build, play] of builds) {
    test(`starts and opens a program: ${build}`, async () => {
        const bench = await Workbench.open(chromium.browser, site.address, { play: ['playFilePickers', ...play] });
        assert.equal(await bench.box(), null);
        assert.equal(await bench.focus(), 'txtGMcode');
        await bench.open('mk4_bolt.cnc');
        await bench.untilIs('lblPPLines', 'Caption', '45');
        assert.deepEqual((await bench.rows())[1].slice(0, 5), ['00', '92', '4000', '1000', '']);
        assert.ok(bench.requests.every((one) => one.startsWith(site.address) || /^(data|blob):/.test(one)), String(bench.requests));
        await bench.close();
    });
}
