// The stories of tests/scripts against the page, by real keys and clicks as far as their steps have a way there.
import assert from 'node:assert/strict';
import * as fs from 'node:fs';
import { test } from 'node:test';

import { setting } from './support/setting.mjs';
import { Story } from './support/story.mjs';
import { root } from './support/workbench.mjs';

const here = setting();
const folder = `${root}/tests/scripts`;
// Where each story ends before its end, and why; told anew with KVT_STORIES=write.
const listed = new URL('stories.json', import.meta.url);
const ends = fs.existsSync(listed) ? JSON.parse(fs.readFileSync(listed)) : {};
const found = {};
// Lines where what a page shows is rightly something else.
const others = { receive: 14, recent_files: 10, save_as: 21, undo: 6 };
const wanted = process.env.KVT_STORY ? [process.env.KVT_STORY] : fs.readdirSync(folder).filter((one) => one.endsWith('.kvts')).map((one) => one.slice(0, -5));

for (const name of wanted) {
    test(`story ${name}`, async (context) => {
        const story = new Story(here, `${folder}/${name}.kvts`, name.match(/transmit|receive|nothing_sent|notices/) ? ['playSerial'] : []);
        const end = await story.run(others[name] && { line: others[name], why: ends[name]?.why });
        const left = [...story.leftOut.values()].reduce((sum, one) => sum + one, 0);
        context.diagnostic(`${story.done} steps, ${story.checked} expectations, ${left} left out${end ? `, to line ${end.line}: ${end.why}` : ''}`);
        found[name] = end ?? 'whole';
        if (!process.env.KVT_STORIES) assert.deepEqual(end ?? 'whole', ends[name]);
    });
}
process.on('exit', () => {
    if (process.env.KVT_STORIES === 'write') fs.writeFileSync(listed, `${JSON.stringify(found, null, 4)}\n`);
});
