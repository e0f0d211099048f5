// The user's files: by the browser's file access where it has it, so that saving goes back into the opened file;
// otherwise by choosing and downloading. Contents are bytes, as texts of the characters 0 to 255.

import { ask } from './boxes.js';
import { notice } from './notices.js';
import { handles } from './storage.js';
import { make } from './views/view.js';

const chunk = 0x8000;
const largest = 64 * 1024 * 1024;
const open = new Map(); // handles by name
let withdrawOffer = () => {};

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

const handleOf = async (name) => open.get(name) ?? handles.get(name);

// What the program knows a file by: its name, with a number where another file of the name is there already, which must
// not be written in its place. fits(handle) tells whether the one that has a name will do.
async function nameFor(name, fits) {
    const point = name.lastIndexOf('.') > 0 ? name.lastIndexOf('.') : name.length;
    for (let count = 1; ; ++count) {
        const one = count > 1 ? `${name.slice(0, point)} (${count})${name.slice(point)}` : name;
        const known = await handleOf(one);
        if (!known || (await fits(known))) return one;
    }
}

// Gives the file's name for the program.
async function remember(handle) {
    withdrawOffer();
    const name = await nameFor(handle.name, (known) => known.isSameEntry(handle).catch(() => false));
    open.set(name, handle);
    await handles.put(name, handle);
    return name;
}
function withoutHandle({ name }) {
    withdrawOffer();
    return nameFor(name, () => false);
}

// The names of the files that can be opened again.
export const rememberedNames = () => handles.names();

const isGranted = async (handle, mode) => ((await handle.queryPermission?.({ mode })) ?? 'granted') === 'granted';

async function allowed(handle, mode) {
    if (await isGranted(handle, mode)) return true;
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

// Gives the file and its name for the program.
async function choose(filter) {
    if (!window.showOpenFilePicker) {
        const file = await fromInput(filter);
        return file && { file, name: await withoutHandle(file) };
    }
    const types = typesOf(filter);
    const [handle] = await window.showOpenFilePicker(types.length > 0 ? { types } : {});
    const file = await handle.getFile();
    return { file, name: await remember(handle) };
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
        if (chosen) answer = { name: chosen.name, content: await contentOf(chosen.file) };
    } catch (fault) {
        if (fault.name !== 'AbortError') notice(stage, 'unreadable');
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
            chosen = handle && { name: await remember(handle) };
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
export async function writeFile(stage, { ask: number, path: name, content }) {
    let ok = true;
    try {
        const handle = await handleOf(name);
        if (content === null) {
            open.delete(name);
            await handles.remove(name);
        } else if (handle?.createWritable) {
            if (!(await allowed(handle, 'readwrite'))) throw new Error('refused');
            const stream = await handle.createWritable();
            await stream.write(bytesOf(content));
            await stream.close();
            open.set(name, handle);
        } else {
            download(name, content);
        }
    } catch {
        ok = false;
    }
    stage.reply(number, { ok });
}

// A file of an earlier visit. A browser asks its user for it in a click only; the start makes an offer of it instead.
export async function readFile(stage, { ask: number, path }) {
    const starting = document.body.classList.contains('starting');
    let handle = null;
    try {
        handle = await handleOf(path);
        if (!handle) throw new Error('unknown');
        if (starting && !(await isGranted(handle, 'read'))) throw new DOMException('later', 'NotAllowedError');
        if (!(await allowed(handle, 'read'))) throw new Error('refused');
        open.set(path, handle);
        stage.reply(number, { content: await contentOf(await handle.getFile()) });
    } catch (fault) {
        if (starting && fault.name === 'NotAllowedError') offer(stage, handle);
        stage.reply(number, {});
    }
}

function offer(stage, handle) {
    const act = async () => {
        const file = (await allowed(handle, 'read').catch(() => false)) && (await handle.getFile().catch(() => null));
        if (file) await bring(stage, file, handle, stage.front?.id ?? 0);
        else notice(stage, 'unreadable');
    };
    withdrawOffer();
    withdrawOffer = notice(stage, 'openAgain', { value: handle.name, stays: true, action: { name: 'open', act } });
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
    const name = await (handle ? remember(handle) : withoutHandle(file));
    const content = await contentOf(file).catch(() => null);
    if (content === null) notice(stage, 'unreadable');
    else stage.link.send({ on: 'drop', form, name, content });
}
