// Makes a module able to wait where the browser does not switch stacks, by Asyncify, which is only put where it is needed.
// Usage: node asyncify.mjs IN OUT WAITING FILLED STEADY...
//   WAITING  the import that waits
//   FILLED   how many functions of filler the table begins with
//   STEADY   exports that never come to a wait, though what they call by the table does not show it
import { execFileSync } from 'node:child_process';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';

import { ModuleText } from './module_text.mjs';
import { madeSteady, renamedBack, withoutFiller } from './transform.mjs';
import { findWaits, Functions } from './waits.mjs';

const [from, to, waiting, filled, ...steady] = process.argv.slice(2);
const count = Number(filled);
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-asyncify-'));
const at = (name) => path.join(folder, name);
const optimise = (...options) => execFileSync('wasm-opt', [...options, '--mvp-features'], { stdio: ['ignore', 'inherit', 'ignore'] });
const read = (name) => fs.readFileSync(at(name), 'latin1');

optimise(from, '--ssa', '-S', '-o', at('plain.wat'));
const module = new ModuleText(read('plain.wat'));
const found = findWaits(module, new Functions(module, count + 1), waiting, steady);
const { text, leave } = madeSteady(module, found);
fs.writeFileSync(at('steady.wat'), withoutFiller(module, text, count), 'latin1');
fs.writeFileSync(at('leave'), leave.join(','));
optimise(at('steady.wat'), '-O1', '--asyncify', `--pass-arg=asyncify-imports@env.${waiting},env.invoke_*`,
         `--pass-arg=asyncify-removelist@@${at('leave')}`, '-S', '-o', at('waits.wat'));
fs.writeFileSync(at('renamed.wat'), renamedBack(read('waits.wat')), 'latin1');
optimise(at('renamed.wat'), '-Os', '--low-memory-unused', '--zero-filled-memory', '--strip-producers', '-o', to);
console.log(`${found.waits.size} of ${module.functions.size} functions wait`);
fs.rmSync(folder, { recursive: true });
