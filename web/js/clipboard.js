// The clipboard. What is pasted by keys comes with the browser's own event and asks for no permission.

import { bytesOf } from './files.js';
import { make } from './views/view.js';

let last = '';
let refused = false; // the browser's clipboard has not taken the last text

export async function read(stage, { ask }) {
    try {
        if (refused) throw new Error('refused');
        stage.reply(ask, { text: await navigator.clipboard.readText() });
    } catch {
        stage.reply(ask, { text: last });
    }
}

// The program clears it first: of what comes at once the last is written, so that no two writes overtake each other.
export async function write(text) {
    last = text;
    await null;
    if (last !== text) return true;
    try {
        await navigator.clipboard.writeText(text);
        refused = false;
    } catch {
        refused = !copySelected(text);
    }
    return !refused;
}

// The way of older browsers, and of pages that come from a disk.
function copySelected(text) {
    const field = make('textarea', 'probe', document.querySelector('dialog[open]') ?? document.body);
    field.value = text;
    const before = document.activeElement;
    field.select();
    const done = document.execCommand('copy');
    field.remove();
    before?.focus?.({ preventScroll: true });
    return done;
}

export function writePicture({ png }) {
    const picture = new Blob([bytesOf(png)], { type: 'image/png' });
    navigator.clipboard?.write([new ClipboardItem({ 'image/png': picture })]).catch(() => {});
}
