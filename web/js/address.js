// A program in the address: #file= names a sample of the page, #program= has its text. What is in an address is text,
// never markup; the program asks before it takes the place of unsaved work.

import { write } from './clipboard.js';
import { ask } from './boxes.js';
import { bytesOf, textOf } from './files.js';
import { notice } from './notices.js';
import { make } from './views/view.js';

const longest = 8192;
const longestProgram = 1024 * 1024; // bytes: a short address can be packed from any number of them

// The bytes behind a stream; what is too long is given up before it is there.
async function throughStream(bytes, stream) {
    const parts = [];
    let size = 0;
    const reader = new Blob([bytes]).stream().pipeThrough(stream).getReader();
    for (let part = await reader.read(); !part.done; part = await reader.read()) {
        size += part.value.length;
        parts.push(part.value);
        if (size <= longestProgram) continue;
        await reader.cancel();
        throw new Error('too long');
    }
    return new Uint8Array(await new Blob(parts).arrayBuffer());
}

const base64 = (bytes) => btoa(textOf(bytes)).replace(/\+/g, '-').replace(/\//g, '_').replace(/=+$/, '');
const fromBase64 = (text) => bytesOf(atob(text.replace(/-/g, '+').replace(/_/g, '/')));

export async function linkTo(name, content) {
    const packed = await throughStream(bytesOf(content), new CompressionStream('deflate-raw'));
    const page = location.href.replace(/#.*$/, '');
    return `${page}#program=${base64(packed)}&name=${encodeURIComponent(name)}`;
}

// What an address brings: { name, file } or { name, content }; null where it brings nothing, 'unreadable' for what
// cannot be read. share has the files of the page.
export async function broughtBy(hash, share) {
    const parts = new URLSearchParams(hash.replace(/^#/, '').replace(/\+/g, '%2B'));
    if (parts.get('file')) {
        const file = `/share/${parts.get('file')}`;
        return /^\/share\/samples\/[^/]+$/.test(file) && share[file] ? { name: file.split('/').pop(), file } : 'unreadable';
    }
    const packed = parts.get('program');
    if (!packed) return null;
    const plain = (parts.get('name') ?? '').replace(/[\\/:*?"<>|\u0000-\u001f\u202a-\u202e\u2066-\u2069]/g, '');
    const name = [...plain].slice(0, 80).join('') || 'link.cnc';
    try {
        if (packed.length > longest * 2) throw new Error('too long');
        const stream = new DecompressionStream('deflate-raw');
        const content = await throughStream(fromBase64(packed), stream);
        return { name, content: textOf(content) };
    } catch {
        return 'unreadable';
    }
}

// The program has given its text: the link to it goes into the clipboard.
export async function copyLink(stage, { name, content }) {
    if (!content) return notice(stage, 'linkEmpty');
    const link = content.length <= longestProgram ? await linkTo(name || 'program.cnc', content) : '';
    if (link === '' || link.length > longest) return notice(stage, 'linkTooLong');
    if (await write(link)) return notice(stage, 'linkCopied');
    return ask(stage, {
        title: stage.text('copyLink'),
        cancel: null,
        fill(box) {
            const label = make('label', '', box);
            label.textContent = stage.text('showLink');
            const field = make('input', '', label);
            field.type = 'text';
            field.readOnly = true;
            field.value = link;
            return [['close', null, { usual: true }]];
        },
    });
}
