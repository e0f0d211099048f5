// Loads the program into the page: the build that the browser is fastest with.

// Where the browser switches stacks itself, the one function that waits may give a promise, and main is one too.
function withStackSwitching(wasm) {
    return (imports, receive) => {
        const env = { ...imports.env, kvt_next: new WebAssembly.Suspending(imports.env.kvt_next) };
        wasm({ ...imports, env }).then(({ instance, module }) => {
            const main = WebAssembly.promising(instance.exports.main);
            receive({ exports: { ...instance.exports, main } }, module);
        });
        return {};
    };
}

const instantiate = (address) => async (imports) => {
    const response = fetch(address);
    try {
        return await WebAssembly.instantiateStreaming(response, imports);
    } catch {
        // A server that does not know the type of the file.
        return WebAssembly.instantiate(await (await fetch(address)).arrayBuffer(), imports);
    }
};

export const switchesStacks = () => 'Suspending' in WebAssembly && 'promising' in WebAssembly;

// Starts the program on a link; gives back what it is run by, once it runs. It ends by ending its waits.
export async function startProgram(link) {
    const fast = switchesStacks();
    const name = fast ? 'kvt_web_fast' : 'kvt_web';
    const load = instantiate(new URL(`../program/${name}.wasm`, import.meta.url));
    const { default: createProgram } = await import(`../program/${name}.js`);
    const plain = (imports, receive) => {
        load(imports).then(({ instance, module }) => receive(instance, module));
        return {};
    };
    const program = await createProgram({ link, instantiateWasm: fast ? withStackSwitching(load) : plain });
    return program._main(0, 0);
}
