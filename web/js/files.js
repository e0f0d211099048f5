// The user's files: by the browser's file access where it has it, so that saving goes back into the opened file;
// otherwise by choosing and downloading. Contents are bytes, as texts of the characters 0 to 255.

import { ask } from './boxes.js';
import { notice } from './notices.js';
import { handles } from './storage.js';
import { make } from './views/view.js';

const folder = '/files/';
const chunk = 0x8000;
const largest = 64 * 1024 * 1024;
const open = new Map(); // handles by key

export function textOf(bytes) {
    const parts = [];
    for (let at = 0; at < bytes.length; at += chunk)
        parts.push(String.fromCharCode(...bytes.subarray(at, at + chunk)));
    return parts.join('');
}
export function bytesOf(text) {
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
    return bytes;
}

async function contentOf(file) {
    if (file.size > largest) throw new Error('too large');
    return textOf(new Uint8Array(await file.arrayBuffer()));
}

// "name|*.a;*.b|..." as the file access has it; "*.*" is any file.
function typesOf(filter) {
    const parts = (filter ?? '').split('|');
    const types = [];
    for (let i = 0; i + 1 < parts.length; i += 2) {
        const endings = parts[i + 1].split(';').map((one) => one.trim().replace(/^\*/, ''))
            .filter((one) => /^\.[A-Za-z0-9]{1,12}$/.test(one));
        if (endings.length > 0)
            types.push({ description: parts[i].split('(')[0].trim(), accept: { 'text/plain': endings } });
    }
    return types;
}

// What the program knows a file by: its name, in a folder with a number where another file of the name is there already,
// which must not be written in its place. fits(handle) tells whether the one with a key will do; null for none.
async function placeOf(name, fits) {
    for (let place = 1; ; ++place) {
        const known = await handleOf(keyOf(name, place));
        if (!known || (await fits(known))) return place;
    }
}
const keyOf = (name, place) => (place > 1 ? `${place}/${name}` : name);
const handleOf = async (key) => open.get(key) ?? handles.get(key);
const placed = (name, place) => (place > 1 ? { name, folder: place } : { name });

// Gives what names the file to the program.
async function remember(handle) {
    const { name } = handle;
    const place = await placeOf(name, (known) => known.isSameEntry(handle).catch(() => false));
    open.set(keyOf(name, place), handle);
    await handles.put(keyOf(name, place), handle);
    return placed(name, place);
}
const withoutHandle = async ({ name }) => placed(name, await placeOf(name, () => false));

// The keys of the files that can be opened again.
export const rememberedNames = () => handles.names();

async function allowed(handle, mode) {
    if ((await handle.queryPermission?.({ mode })) === 'granted') return true;
    return (await handle.requestPermission?.({ mode })) === 'granted';
}

function fromInput(filter) {
    return new Promise((resolve) => {
        const input = make('input');
        input.type = 'file';
        input.accept = typesOf(filter).flatMap((type) => type.accept['text/plain']).join(',');
        input.addEventListener('change', () => resolve(input.files[0] ?? null));
        input.addEventListener('cancel', () => resolve(null));
        input.click();
    });
}

// Gives the file and what names it.
async function choose(filter) {
    if (!window.showOpenFilePicker) {
        const file = await fromInput(filter);
        return file && { file, named: await withoutHandle(file) };
    }
    const types = typesOf(filter);
    const [handle] = await window.showOpenFilePicker(types.length > 0 ? { types } : {});
    const file = await handle.getFile();
    return { file, named: await remember(handle) };
}

// A browser lets a page ask for files only in a click of its user: where there was none, a button asks for it.
async function inClick(stage, title, act) {
    if (navigator.userActivation?.isActive ?? true) return act();
    return ask(stage, {
        title,
        cancel: null,
        fill: (content, close) => {
            const button = make('button', '', content);
            button.type = 'button';
            button.textContent = stage.text('chooseButton');
            button.addEventListener('click', () => act().then(close, () => close(null)));
            return [['cancel', null]];
        },
    });
}

export async function openFile(stage, { ask: number, filter }) {
    let answer = { cancelled: true };
    try {
        const chosen = await inClick(stage, stage.text('chooseFile'), () => choose(filter));
        if (chosen) answer = { ...chosen.named, content: await contentOf(chosen.file) };
    } catch (fault) {
        if (fault.name !== 'AbortError') notice(stage, stage.text('unreadable'));
    }
    stage.reply(number, answer);
}

export async function saveFileAs(stage, { ask: number, filter, name }) {
    let chosen = null;
    try {
        if (window.showSaveFilePicker) {
            const types = typesOf(filter);
            const options = { suggestedName: name || undefined, ...(types.length > 0 ? { types } : {}) };
            const handle = await inClick(stage, stage.text('save'), () => window.showSaveFilePicker(options));
            chosen = handle && (await remember(handle));
        } else {
            const asked = await askName(stage, filter, name);
            chosen = asked && { name: asked };
        }
    } catch {
        chosen = null;
    }
    stage.reply(number, chosen ?? { cancelled: true });
}

function askName(stage, filter, name) {
    return ask(stage, {
        title: stage.text('save'),
        cancel: null,
        fill(content, close) {
            const side = make('div', '', content);
            const label = make('label', '', side);
            label.textContent = stage.text('fileName');
            const field = make('input', '', label);
            field.type = 'text';
            field.value = name || `program${typesOf(filter)[0]?.accept['text/plain'][0] ?? '.cnc'}`;
            field.autofocus = true;
            make('div', '', side).textContent = stage.text('saveHint');
            const value = () => field.value.replace(/[\\/:*?"<>|]/g, '').trim() || null;
            field.addEventListener('keydown', (event) => event.key === 'Enter' && !event.isComposing && close(value()));
            return [['save', value], ['cancel', null]];
        },
    });
}

function download(name, content) {
    const link = make('a');
    link.href = URL.createObjectURL(new Blob([bytesOf(content)], { type: 'application/octet-stream' }));
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}

// Writes into the file that was opened under that name; one without a handle is downloaded.
export async function writeFile(stage, { ask: number, path, content }) {
    const key = path.slice(folder.length);
    let ok = true;
    try {
        const handle = await handleOf(key);
        if (content === null) {
            open.delete(key);
            await handles.remove(key);
        } else if (handle?.createWritable) {
            if (!(await allowed(handle, 'readwrite'))) throw new Error('refused');
            const stream = await handle.createWritable();
            await stream.write(bytesOf(content));
            await stream.close();
            open.set(key, handle);
        } else {
            download(key.split('/').pop(), content);
        }
    } catch {
        ok = false;
    }
    stage.reply(number, { ok });
}

// A file of an earlier visit.
export async function readFile(stage, { ask: number, path }) {
    const key = path.slice(folder.length);
    try {
        const handle = await handleOf(key);
        if (!handle || !(await allowed(handle, 'read'))) throw new Error('refused');
        open.set(key, handle);
        stage.reply(number, { content: await contentOf(await handle.getFile()) });
    } catch {
        stage.reply(number, {});
    }
}

// Files that are dropped on the page, and those that the system opens with it where it is installed.
export function followDrops(stage) {
    document.addEventListener('dragover', (event) => {
        if (event.dataTransfer.types.includes('Files')) event.preventDefault();
    });
    document.addEventListener('drop', async (event) => {
        if (!event.dataTransfer.types.includes('Files')) return;
        event.preventDefault();
        if (stage.asking) return;
        const form = stage.viewOf(event.target)?.form ?? stage.front;
        const [item] = [...event.dataTransfer.items].filter((one) => one.kind === 'file');
        const file = item?.getAsFile();
        const handle = await item?.getAsFileSystemHandle?.().catch(() => null);
        if (file && form && handle?.kind !== 'directory') await bring(stage, file, handle, form.id);
    });
    window.launchQueue?.setConsumer(async ({ files: [handle] = [] }) => {
        if (handle) await bring(stage, await handle.getFile(), handle, 0);
    });
}

async function bring(stage, file, handle, form) {
    const named = await (handle ? remember(handle) : withoutHandle(file));
    const content = await contentOf(file).catch(() => null);
    if (content === null) notice(stage, stage.text('unreadable'));
    else stage.link.send({ on: 'drop', form, ...named, content });
}
