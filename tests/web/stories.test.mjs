// The stories of tests/scripts against the page, by real keys and clicks. What no user of a page can do, or what a page
// shows otherwise, is listed in stories.json: how the first line of it begins, how many lines, and why.
import assert from 'node:assert/strict';
import * as fs from 'node:fs';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { Story } from './support/story.mjs';
import { root } from './support/workbench.mjs';

const here = setting();
const folder = `${root}/tests/scripts`;
const listed = JSON.parse(fs.readFileSync(new URL('stories.json', import.meta.url)));
const all = fs.readdirSync(folder).filter((one) => one.endsWith('.kvts')).map((one) => one.slice(0, -5));
const wanted = process.env.KVT_STORY?.split(',') ?? all;
// Those with many waits run in the build for every browser too.
const elsewhere = ['notices', 'transmit_while_drawing', 'waits'].filter((name) => wanted.includes(name) && !process.env.KVT_WEB_PLAY);
const runs = [...wanted.map((name) => [name, []]), ...elsewhere.map((name) => [name, ['withoutStackSwitching']])];
const sum = { steps: 0, expectations: 0, leftOut: 0, whole: 0 };

for (const [name, play] of runs) {
    const without = listed[name] ?? [];
    test(`story ${name} ${play}`, { skip: without[0]?.at === '' && without[0].why }, async (context) => {
        const story = new Story(here, name, fs.readFileSync(`${folder}/${name}.kvts`, 'utf8'), without, play);
        try {
            await story.run();
        } finally {
            const left = [...story.leftOut.values()].reduce((total, one) => total + one, 0);
            context.diagnostic(`${story.done} steps, ${story.checked} expectations, ${left} left out: ${[...story.leftOut].map((one) => one.join(' ')).join(', ')}`);
            if (play.length === 0) {
                sum.steps += story.done;
                sum.expectations += story.checked;
                sum.leftOut += left;
            }
        }
        sum.whole += without.length === 0 && play.length === 0;
    });
}
test('every listed story is there', (context) => {
    assert.deepEqual(Object.keys(listed).filter((name) => !all.includes(name)), []);
    context.diagnostic(`${sum.whole} stories whole; ${sum.steps} steps, ${sum.expectations} expectations, ${sum.leftOut} left out`);
});
