// A WebAssembly module in the text format of wasm-dis, which has one operator or leaf a line, indented by its depth.

const typeOf = (params, result) => `${params}->${result ?? ''}`;
const declared = /^ \(type (\S+) \(func(?: \(param ([^)]*)\))?(?: \(result (\S+?)\))?\)\)$/;
const imported = /^ \(import "(\w+)" "(\w+)" \(func (\$[^\s)]+)/;
const exported = /^ \(export "(\w+)" \(func (\$[^\s)]+)/;
const begun = /^ \(func (\$\S+?)((?: \(param \S+ \S+\))*)(?: \(result (\S+)\))?\)?$/;
const tabled = /^ \(elem (?:\$\S+ )?\(i32\.const (\d+)\) ([^)]*)\)$/;
const placed = /^ \(data (?:\$\S+ )?\(i32\.const (\d+)\) "(.*)"\)$/;

// The bytes of a string of the text format.
export function bytesOf(text) {
    const short = { n: 10, t: 9, r: 13, '"': 34, "'": 39, '\\': 92 };
    const bytes = [];
    for (let i = 0; i < text.length; ++i) {
        if (text[i] !== '\\') bytes.push(text.charCodeAt(i));
        else if (text[i + 1] in short) bytes.push(short[text[++i]]);
        else bytes.push(parseInt(text.slice(i + 1, (i += 2) + 1), 16));
    }
    return bytes;
}

export class ModuleText {
    constructor(text) {
        this.lines = text.split('\n');
        this.types = new Map(); // by their names
        this.imports = new Map(); // "invoke_vi" by the name within
        this.exports = new Map(); // names of functions by those without
        this.functions = new Map(); // { name, type, params, first, last }: lines
        this.table = []; // names by their places in it
        this.data = Buffer.alloc(0); // the memory that it begins with
        this.lines.forEach((line, i) => line[1] === '(' && this.#take(line, i));
    }

    #take(line, i) {
        let match;
        if ((match = declared.exec(line))) this.types.set(match[1], typeOf(match[2] ?? '', match[3]));
        else if ((match = imported.exec(line))) this.imports.set(match[3], match[2]);
        else if ((match = tabled.exec(line))) match[2].split(' ').forEach((name, at) => (this.table[Number(match[1]) + at] = name));
        else if ((match = exported.exec(line))) this.exports.set(match[1], match[2]);
        else if ((match = placed.exec(line))) this.#place(Number(match[1]), bytesOf(match[2]));
        else if ((match = begun.exec(line))) {
            const params = [...match[2].matchAll(/\(param \S+ (\S+?)\)/g)].map((one) => one[1]);
            const last = this.lines.indexOf(' )', i);
            this.functions.set(match[1], { name: match[1], type: typeOf(params.join(' '), match[3]), params: params.length, first: i + 1, last });
        }
    }
    #place(address, bytes) {
        const end = (address + bytes.length + 4) & ~3;
        if (this.data.length < end) this.data = Buffer.concat([this.data], end);
        this.data.set(bytes, address);
    }
    word(address) {
        return address >= 0 && address + 4 <= this.data.length ? this.data.readInt32LE(address) : 0;
    }

    // What stands in a line: "i32.load", "call", with the rest behind it.
    at(i) {
        const [, name, rest] = /^\s*\(([\w.]+)\s?(.*?)\)*$/.exec(this.lines[i]) ?? [, '', ''];
        return { name, rest };
    }
    depth(i) {
        return this.lines[i].search(/[^ ]/);
    }
    // The lines of the operands of an operator.
    operands(i) {
        const depth = this.depth(i);
        const lines = [];
        if (this.lines[i].endsWith(')') && this.depth(i + 1) <= depth) return lines;
        for (let at = i + 1; this.depth(at) > depth; ++at) {
            if (this.depth(at) === depth + 1 && this.lines[at][depth + 1] === '(') lines.push(at);
        }
        return lines;
    }
}
