// Starts the program within a page that is a single file: it stands there as text, the build for every browser.

import createProgram from '../program/kvt_web.js';
import { Rewinding } from './rewinding.js';

export async function startProgram(link) {
    const text = atob(document.querySelector('#program').textContent);
    const wasm = Uint8Array.from(text, (one) => one.charCodeAt(0));
    const way = new Rewinding();
    const instantiateWasm = (imports, receive) => {
        WebAssembly.instantiate(wasm, imports).then(({ instance }) => {
            way.use(instance.exports);
            receive(instance);
        });
        return {};
    };
    await createProgram({ link, pause: (waits) => way.pause(waits), instantiateWasm });
    return way.run();
}
