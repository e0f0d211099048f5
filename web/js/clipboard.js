// The clipboard. What is pasted by keys comes with the browser's own event and asks for no permission.

import { bytesOf } from './files.js';
import { notice } from './notices.js';
import { make } from './views/view.js';

const patience = 3000; // milliseconds, for which the program waits for a picture to be taken
let last = ''; // text
let turn = 0; // counts what was to be written
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
    const mine = ++turn;
    await null;
    if (turn !== mine) return true;
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

export async function writePicture(stage, { ask, png }) {
    ++turn;
    try {
        const picture = new Blob([bytesOf(png)], { type: 'image/png' });
        const taken = navigator.clipboard.write([new ClipboardItem({ 'image/png': picture })]);
        await Promise.race([taken, new Promise((_, refuse) => setTimeout(refuse, patience))]);
        stage.reply(ask, { ok: true });
    } catch {
        stage.reply(ask, {});
        notice(stage, 'pictureRefused');
    }
}
