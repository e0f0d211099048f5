// The text of a module made ready for Asyncify: what never comes to a wait is called by names of its own.
import { bytesOf } from './module_text.mjs';
import { isInvoke } from './waits.mjs';

const steady = 'steady_';

// A function that calls by the table; Asyncify leaves it alone, and it is joined to its callers again behind that.
function helper(name, type, types) {
    const [params, result] = types.get(type).split('->');
    const list = params ? params.split(' ') : [];
    const given = [...list, 'i32'].map((one, i) => `(param $${i} ${one})`).join(' ');
    const passed = [...list, 'i32'].map((_, i) => `  (local.get $${i})`).join('\n');
    return ` (func ${name} ${given}${result ? ` (result ${result})` : ''}\n  (call_indirect (type ${type})\n${passed}\n  )\n )`;
}

// { text, leave }: the names of functions that Asyncify may leave alone.
export function madeSteady(module, { waits, calls, mayWait }) {
    const lines = [...module.lines];
    const helpers = new Map();
    for (const [name, list] of calls) {
        if (!waits.has(name)) continue;
        for (const call of list.filter((one) => !mayWait(one))) {
            const { name: kind, rest } = module.at(call.line);
            if (kind === 'call_indirect') {
                const type = /\(type (\S+?)\)?$/.exec(rest)[1];
                const own = `$${steady}table${[...module.types.keys()].indexOf(type)}`;
                helpers.set(own, helper(own, type, module.types));
                lines[call.line] = lines[call.line].replace(/\(call_indirect \(type \S+\)/, `(call ${own}`);
            } else if (isInvoke(module, rest)) {
                lines[call.line] = lines[call.line].replace(rest, `$${steady}${rest.slice(1)}`);
            }
        }
    }
    const twins = lines.filter((line) => /^ \(import "env" "invoke_/.test(line))
        .map((line) => line.replace('"invoke_', `"${steady}`).replace('(func $', `(func $${steady}`));
    const place = lines.findIndex((line) => line.startsWith(' (import'));
    lines.splice(place, 0, ...twins);
    const end = lines.lastIndexOf(')');
    lines.splice(end, 0, ...helpers.values());
    const leave = [...module.functions.keys()].filter((name) => !waits.has(name)).concat([...helpers.keys()]);
    return { text: lines.join('\n'), leave: leave.map((name) => name.slice(1)) };
}

// The imports have their own names again.
export const renamedBack = (text) => text.replaceAll(`"${steady}`, '"invoke_');

const hex = (byte) => `\\${byte.toString(16).padStart(2, '0')}`;

// The table begins behind the filler, and the words that have named it are nothing.
export function withoutFiller(module, text, count) {
    let start = 0;
    while (start < module.data.length && !(module.word(start) === 1 && module.word(start + 4) === 2 && module.word(start + 4 * (count - 1)) === count)) start += 4;
    const end = start + 4 * count;
    return text
        .replace(/^ \(elem ((?:\$\S+ )?)\(i32\.const 1\) ([^)]*)\)$/m, (_, name, list) =>
            ` (elem ${name}(i32.const ${count + 1}) ${list.split(' ').slice(count).join(' ')})`)
        .replace(/^ \(data ((?:\$\S+ )?)\(i32\.const (\d+)\) "(.*)"\)$/gm, (line, name, address, content) => {
            const from = Number(address);
            const bytes = bytesOf(content);
            if (from >= end || from + bytes.length <= start) return line;
            const left = bytes.map((byte, i) => (from + i >= start && from + i < end ? 0 : byte));
            return ` (data ${name}(i32.const ${address}) "${left.map(hex).join('')}")`;
        });
}
