// Loads the program into the page: the build that the browser is fastest with.

import { beside } from './beside.js';
import { Rewinding } from './rewinding.js';

// One that has none of it at all says so at the start.
const { Suspending, promising } = globalThis.WebAssembly ?? {};
const switchesStacks = Boolean(Suspending && promising);
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
const wasm = compiled(beside(`program/${name}.wasm`));
const script = import(beside(`program/${name}.js`));
for (const part of [wasm, script]) part.catch(() => {}); // told when it is waited for

// Where the browser switches stacks itself, the one function that waits may give a promise, and main is one too.
const switching = {
    pause: (waits) => new Promise(waits),
    imports: (imports) => ({ ...imports, env: { ...imports.env, kvt_next: new Suspending(imports.env.kvt_next) } }),
    use(exports) {
        this.main = promising(exports.main);
    },
    run() {
        return { end: this.main(0, 0) };
    },
};

// Starts the program on a link. Gives { end }, a promise that is kept when the program has ended, by itself or by a fault:
// without a switch of stacks nobody tells that.
export async function startProgram(link) {
    await wasm;
    const { default: createProgram } = await script;
    const way = switchesStacks ? switching : new Rewinding();
    const instantiateWasm = (imports, receive) => {
        (async () => {
            const instance = await WebAssembly.instantiate(await wasm, way.imports?.(imports) ?? imports);
            way.use(instance.exports);
            receive(instance);
        })();
        return {};
    };
    await createProgram({ link, pause: (waits) => way.pause(waits), instantiateWasm });
    return way.run();
}
