// Which functions are found to wait: a small program by hand, with what C++ makes of virtual and other calls.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { ModuleText } from '../../tools/asyncify/module_text.mjs';
import { madeSteady } from '../../tools/asyncify/transform.mjs';
import { findWaits, Functions } from '../../tools/asyncify/waits.mjs';

const filled = 2;
const word = (value) => [0, 8, 16, 24].map((by) => `\\${((value >> by) & 255).toString(16).padStart(2, '0')}`).join('');
// A type at 1024, which is told by its name at 1032, and its virtual table: slot 0 waits, slot 4 does not. A row of a table
// of functions at 1100.
const data = [word(1048), word(1032), '4View\\00\\00\\00', word(0), word(1024), word(3), word(4)].join('');

const body = (name, text) => ` (func $${name} (param $0 i32) (param $1 i32)\n  (local $2 i32)\n${text}\n )`;
const virtual = (slot, object = 0) => `  (call_indirect (type $t)
   (local.get $${object})
   (local.get $1)
   (i32.load offset=${slot}
    (i32.load
     (local.get $0)
    )
   )
  )`;
const invoked = (number) => `  (call $invoke
   (i32.const ${number})
   (local.get $0)
   (local.get $1)
  )`;
const functions = {
    empty: '  (nop)',
    asks: '  (drop\n   (call $next\n    (f64.const 0)\n   )\n  )',
    reckons: '  (nop)',
    row: '  (call $asks\n   (local.get $0)\n   (local.get $1)\n  )',
    callsDirectly: '  (call $asks\n   (local.get $0)\n   (local.get $1)\n  )',
    invokesWaiting: invoked(3),
    invokesSteady: invoked(4),
    callsSlotThatWaits: virtual(0),
    callsSlotThatDoesNot: virtual(4),
    callsRowOfTable: virtual(4, 1),
    callsWhatItIsGiven: '  (call_indirect (type $t)\n   (local.get $0)\n   (local.get $1)\n   (local.get $1)\n  )',
    callsUnknown: `  (call_indirect (type $t)\n   (local.get $0)\n   (local.get $1)\n   (i32.xor\n    (local.get $0)\n    (local.get $1)\n   )\n  )`,
    addsLikeANumber: '  (drop\n   (i32.add\n    (local.get $0)\n    (i32.const 6)\n   )\n  )',
};
const waiting = ['asks', 'row', 'callsDirectly', 'invokesWaiting', 'callsSlotThatWaits', 'callsRowOfTable', 'callsWhatItIsGiven', 'callsUnknown'];

function moduleOf(rows) {
    return new ModuleText(`(module
 (type $t (func (param i32 i32)))
 (import "env" "kvt_next" (func $next (param f64) (result i32)))
 (import "env" "invoke_vii" (func $invoke (param i32 i32 i32)))
 (memory $0 1)
 (data (i32.const 1024) "${data}")
${rows}
 (table $0 7 7 funcref)
 (elem (i32.const 1) $empty $empty $asks $reckons $row $callsDirectly)
${Object.entries(functions).map(([name, text]) => body(name, text)).join('\n')}
)
`);
}
const namesOf = ({ waits }) => [...waits].map((one) => one.slice(1)).filter((one) => one in functions).sort();

test('what may be on the stack in a wait', () => {
    const module = moduleOf(` (data (i32.const 1100) "${word(5)}")`);
    assert.deepEqual(namesOf(findWaits(module, new Functions(module, filled + 1), 'kvt_next')), [...waiting].sort());
});

test('a function whose address is nowhere is reached by no address', () => {
    const module = moduleOf('');
    const found = namesOf(findWaits(module, new Functions(module, filled + 1), 'kvt_next'));
    assert.deepEqual(waiting.filter((one) => !found.includes(one)).sort(), ['callsRowOfTable', 'callsWhatItIsGiven']);
});

test('what never waits is called by another name', () => {
    const module = moduleOf('');
    const found = findWaits(module, new Functions(module, filled + 1), 'kvt_next');
    found.waits.add('$invokesSteady').add('$callsSlotThatDoesNot');
    const { text, leave } = madeSteady(module, found);
    assert.match(text, /import "env" "steady_vii" \(func \$steady_invoke /);
    assert.match(text, /\(call \$steady_invoke\n {3}\(i32\.const 4\)/);
    assert.match(text, /\(call \$invoke\n {3}\(i32\.const 3\)/);
    assert.match(text, /\(func \$steady_table0 /);
    assert.ok(leave.includes('reckons') && !leave.includes('asks'));
});
