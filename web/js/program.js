// Loads the program into the page: the build that the browser is fastest with.

const switchesStacks = 'Suspending' in WebAssembly && 'promising' in WebAssembly;
const name = switchesStacks ? 'kvt_web_fast' : 'kvt_web';

async function compiled(address) {
    try {
        return await WebAssembly.compileStreaming(fetch(address));
    } catch {
        // A server that does not know the type of the file.
        return WebAssembly.compile(await (await fetch(address)).arrayBuffer());
    }
}

// Both are on their way while the page makes itself ready.
const wasm = compiled(new URL(`../program/${name}.wasm`, import.meta.url));
const script = import(`../program/${name}.js`);
for (const part of [wasm, script]) part.catch(() => {}); // told when it is waited for

// Where the browser switches stacks itself, the one function that waits may give a promise, and main is one too.
async function withStackSwitching(imports, receive) {
    const env = { ...imports.env, kvt_next: new WebAssembly.Suspending(imports.env.kvt_next) };
    const instance = await WebAssembly.instantiate(await wasm, { ...imports, env });
    const main = WebAssembly.promising(instance.exports.main);
    receive({ exports: { ...instance.exports, main } });
}

async function plain(imports, receive) {
    receive(await WebAssembly.instantiate(await wasm, imports));
}

// Starts the program on a link. Gives { end }, a promise that is kept when the program has ended, by itself or by a fault:
// without a switch of stacks nobody tells that.
export async function startProgram(link) {
    await wasm;
    const { default: createProgram } = await script;
    const start = switchesStacks ? withStackSwitching : plain;
    const instantiateWasm = (imports, receive) => {
        start(imports, receive);
        return {};
    };
    const program = await createProgram({ link, instantiateWasm });
    const end = program._main(0, 0);
    return { end: switchesStacks ? end : new Promise(() => {}) };
}
