// Which functions of a module can be on the stack while the program waits, and which calls in them never come to a wait.
//
// A call by the table may reach whatever has its type. That is narrowed by what is known of C++: a virtual function is
// only reached through a virtual table, by its slot. Where the slot of a call is not plain to see, it may be any.

const slotSize = 4;
const anySlot = '*';
const noSlot = 'address'; // of a function whose address is taken

// The types that a function table of C++ is known by: words, of which the first is the offset to the whole object, the
// second the type, and the rest functions.
const headWords = 2;
const deepest = 4096;
const mostSteps = 16; // from an address back to what it is reckoned from

// The functions' numbers begin behind those of filler: no other number of the program is among them.
export class Functions {
    // first: the first number that is none of filler.
    constructor(module, first) {
        this.module = module;
        this.first = first;
        this.slots = new Map(); // of the virtual ones, by their numbers
        this.taken = new Set(); // numbers of those that are called by their address
        this.#findTables();
        this.#findTaken();
    }

    isNumber(value) {
        return value >= this.first && value < this.module.table.length;
    }

    // A type is told by its own virtual table, which has functions, and by its name.
    #isType(address) {
        const { module } = this;
        const name = module.word(address + 4);
        if (!this.isNumber(module.word(module.word(address)))) return false;
        return /^[*\w]$/.test(String.fromCharCode(module.data[name] ?? 0));
    }

    #findTables() {
        const { module } = this;
        const named = this.#addresses();
        this.inTables = new Set();
        for (let at = 0; at + 12 <= module.data.length; at += 4) {
            const toWhole = module.word(at);
            if (toWhole > 0 || toWhole < -deepest || !this.#isType(module.word(at + 4))) continue;
            const start = at + headWords * 4;
            // What else the program knows by its address begins a table of another kind.
            for (let place = start; this.isNumber(module.word(place)) && (place === start || !named.has(place)); place += slotSize) {
                const number = module.word(place);
                this.slots.set(number, (this.slots.get(number) ?? new Set()).add(place - start));
                this.inTables.add(place);
            }
        }
    }

    // All numbers in the code and in the data that may be addresses.
    #addresses() {
        const { module } = this;
        const found = new Set();
        for (let at = 0; at + 4 <= module.data.length; at += 4) found.add(module.word(at));
        for (const line of module.lines) {
            const [, constant, offset] = /i32\.const (-?\d+)|offset=(\d+)/.exec(line) ?? [];
            if (constant ?? offset) found.add(Number(constant ?? offset));
        }
        return found;
    }

    #findTaken() {
        const { module } = this;
        for (let at = 0; at + 4 <= module.data.length; at += 4) {
            const number = module.word(at);
            if (this.isNumber(number) && !this.inTables.has(at)) this.taken.add(number);
        }
        for (let i = 0; i < module.lines.length; ++i) {
            const { name, rest } = module.at(i);
            if (name !== 'i32.const' || !this.isNumber(Number(rest))) continue;
            if (!this.#isCalled(i) && !this.#isAdded(i)) this.taken.add(Number(rest));
        }
    }
    #isCalled(i) {
        const { name, rest } = this.module.at(i - 1);
        return name === 'call' && isInvoke(this.module, rest);
    }
    // To the address of an object, whose member it then is: no sum is the address of a function.
    #isAdded(i) {
        const { module } = this;
        const depth = module.depth(i);
        let at = i - 1;
        while (module.depth(at) >= depth) --at;
        return module.at(at).name === 'i32.add';
    }
}

export const isInvoke = (module, name) => (module.imports.get(name) ?? '').startsWith('invoke_');
const letters = { v: '', i: 'i32', j: 'i64', f: 'f32', d: 'f64' };

// The type of what an invoke calls, by its name: "invoke_vii".
function invokedType(module, name) {
    const [result, ...params] = module.imports.get(name).slice('invoke_'.length);
    return `${params.map((one) => letters[one]).join(' ')}->${letters[result]}`;
}

// Where in virtual tables a function is taken from that stands in a line. Every local has one meaning (wasm-opt --ssa).
class SlotFinder {
    constructor(module, body) {
        this.module = module;
        this.body = body;
        this.locals = new Map(); // lines of what is put into a local
        for (let i = body.first; i < body.last; ++i) {
            const { name, rest } = module.at(i);
            if (name !== 'local.set' && name !== 'local.tee') continue;
            this.locals.set(rest, [...(this.locals.get(rest) ?? []), module.operands(i)[0]]);
        }
    }

    // Every value of a local, by find(line); null where one of them is not known.
    #ofLocal(local, above, find) {
        const values = this.locals.get(local);
        if (this.#isParameter(local) || !values || above.includes(local)) return null;
        const found = values.map((line) => find(line, [...above, local]));
        return found.includes(null) ? null : [...new Set(found.flat())];
    }
    #isParameter(local) {
        return Number(local.slice(1)) < this.body.params;
    }

    #isGiven(name, rest) {
        return name === 'local.get' && this.#isParameter(rest) && !this.locals.has(rest);
    }

    // Slots, or null for any. What a function is given is neither a virtual table nor a function of one.
    slots(line, above = []) {
        const { name, rest } = this.module.at(line);
        const [operand] = this.module.operands(line);
        if (this.#isGiven(name, rest)) return [];
        if (name === 'local.get') return this.#ofLocal(rest, above, (one, seen) => this.slots(one, seen));
        if (name === 'local.tee') return this.slots(operand, above);
        if (name !== 'i32.load') return null;
        return this.#distances(operand, [])?.map((one) => one + offsetOf(rest)) ?? null;
    }

    // How far behind the start of a virtual table an address lies: what has been loaded points to the start.
    #distances(line, above) {
        const { name, rest } = this.module.at(line);
        const operands = this.module.operands(line);
        if (name === 'i32.load') return [0];
        if (this.#isGiven(name, rest)) return [];
        if (name === 'local.tee') return this.#distances(operands[0], above);
        if (name === 'local.get') return this.#ofLocal(rest, above, (one, seen) => this.#distances(one, seen));
        if (name !== 'i32.add') return null;
        const starts = this.#distances(operands[0], above);
        const further = starts && this.#constants(operands[1], []);
        return further && starts.flatMap((start) => further.map((one) => start + one));
    }

    // The numbers that a value may be.
    #constants(line, above) {
        const { name, rest } = this.module.at(line);
        const operands = this.module.operands(line);
        if (name === 'i32.const') return [Number(rest)];
        if (name === 'local.tee') return this.#constants(operands[0], above);
        if (name === 'local.get') return this.#ofLocal(rest, above, (one, seen) => this.#constants(one, seen));
        if (name === 'i32.shl') {
            const by = this.#constants(operands[1], above)?.[0];
            return this.#constants(operands[0], above)?.map((one) => one << by) ?? null;
        }
        if (name !== 'select') return null;
        const found = operands.slice(0, 2).map((one) => this.#constants(one, above));
        return found.includes(null) ? null : found.flat();
    }

    // Whether a function is taken out of the very object that it is called for: a virtual call.
    isVirtual(called, object) {
        const taken = this.#followed(called);
        if (this.module.at(taken).name !== 'i32.load') return false;
        let table = this.#followed(this.module.operands(taken)[0]);
        if (this.module.at(table).name === 'i32.add') table = this.#followed(this.module.operands(table)[0]);
        if (this.module.at(table).name !== 'i32.load') return false;
        const place = this.#place(this.module.operands(table)[0]);
        place.offset += offsetOf(this.module.at(table).rest);
        const given = this.#place(object);
        return given.from === place.from && given.offset === place.offset;
    }
    // Behind locals that have one value.
    #followed(line, steps = 0) {
        if (steps === mostSteps) return line;
        const { name, rest } = this.module.at(line);
        if (name === 'local.tee') return this.#followed(this.module.operands(line)[0], steps + 1);
        const values = name === 'local.get' && !this.#isParameter(rest) ? this.locals.get(rest) : undefined;
        return values?.length === 1 ? this.#followed(values[0], steps + 1) : line;
    }
    // An address as a distance from what it is reckoned from.
    #place(line, steps = 0) {
        if (steps === mostSteps) return { from: line, offset: 0 };
        const at = this.#followed(line);
        const { name, rest } = this.module.at(at);
        const operands = this.module.operands(at);
        if (name === 'i32.add' && this.module.at(operands[1]).name === 'i32.const') {
            const { from, offset } = this.#place(operands[0], steps + 1);
            return { from, offset: offset + Number(this.module.at(operands[1]).rest) };
        }
        const from = name === 'local.get' ? rest : `${name} ${rest} ${operands.map((one) => JSON.stringify(this.#place(one, steps + 1)))}`;
        return { from, offset: 0 };
    }
}
const offsetOf = (rest) => Number(/offset=(\d+)/.exec(rest)?.[1] ?? 0);

// All calls of a function: { line, to } of a known one, { line, type, slots, isVirtual } by the table.
function callsOf(module, body) {
    const finder = new SlotFinder(module, body);
    // What is given back may be made at a place that the call is given before its object.
    const byTable = (line, type, called, given) =>
        ({ line, type, slots: finder.slots(called), isVirtual: given.slice(0, 2).some((one) => finder.isVirtual(called, one)) });
    const calls = [];
    for (let line = body.first; line < body.last; ++line) {
        const { name, rest } = module.at(line);
        if (name === 'call_indirect') {
            const operands = module.operands(line);
            const type = module.types.get(/\(type (\S+?)\)?$/.exec(rest)[1]);
            calls.push(byTable(line, type, operands.at(-1), operands.slice(0, -1)));
        } else if (name === 'call' && isInvoke(module, rest)) {
            const [called, ...given] = module.operands(line);
            const { name: kind, rest: number } = module.at(called);
            if (kind === 'i32.const') calls.push({ line, to: module.table[Number(number)] });
            else calls.push(byTable(line, invokedType(module, rest), called, given));
        } else if (name === 'call') {
            calls.push({ line, to: rest });
        }
    }
    return calls;
}

// What waits: names of functions, and the calls of each that may come to a wait.
// steady: exports of libraries that call nothing of the program's.
export function findWaits(module, functions, waiting, steady = []) {
    const left = new Set(steady.map((name) => module.exports.get(name)));
    const waits = new Set([...module.imports].filter(([, name]) => name === waiting).map(([name]) => name));
    const reached = new Set(); // "type slot" of functions by the table that wait
    const numbers = new Map();
    module.table.forEach((name, number) => numbers.set(name, [...(numbers.get(name) ?? []), number]));
    const calls = new Map([...module.functions.values()].map((one) => [one.name, callsOf(module, one)]));
    const mayWait = (call) => {
        if (call.to) return waits.has(call.to);
        const slots = call.slots ? [...call.slots, ...(call.isVirtual ? [] : [noSlot])] : [anySlot];
        return slots.some((slot) => reached.has(`${call.type} ${slot}`));
    };
    const reach = (name) => {
        const { type } = module.functions.get(name);
        for (const number of numbers.get(name) ?? []) {
            const slots = [...(functions.slots.get(number) ?? []), ...(functions.taken.has(number) ? [noSlot] : [])];
            if (slots.length > 0) for (const slot of [anySlot, ...slots]) reached.add(`${type} ${slot}`);
        }
    };
    for (let before = -1; before < waits.size; ) {
        before = waits.size;
        for (const [name, list] of calls) {
            if (waits.has(name) || left.has(name) || !list.some(mayWait)) continue;
            waits.add(name);
            reach(name);
        }
    }
    return { waits, calls, mayWait };
}
