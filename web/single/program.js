// Starts the program within a page that is a single file: it stands there as text, the build for every browser.

import createProgram from '../program/kvt_web.js';

export async function startProgram(link) {
    const text = atob(document.querySelector('#program').textContent);
    const wasmBinary = Uint8Array.from(text, (one) => one.charCodeAt(0));
    const program = await createProgram({ link, wasmBinary });
    program._main(0, 0);
    return { end: new Promise(() => {}) };
}
