// Starts the page: what it keeps, what it brings along, then the program.

import { broughtBy, copyLink } from './address.js';
import { beep } from './beep.js';
import { beside } from './beside.js';
import { color, message } from './boxes.js';
import { read, write, writePicture } from './clipboard.js';
import { isDark } from './colors.js';
import { followDrops, openFile, readFile, rememberedNames, saveFileAs, writeFile } from './files.js';
import { MachinePanel } from './machine.js';
import { notice } from './notices.js';
import { print } from './print.js';
import { startProgram } from './program.js';
import { barHeight, followFont, onFont, pixels, twips } from './scale.js';
import { Serial } from './serial.js';
import { Stage } from './stage.js';
import { keep, onLost, openStorage } from './storage.js';
import { before } from './texts.js';
import { followTips } from './tip.js';
import { addTools, tellSerial } from './tools.js';
import { addTouchKeys } from './touch_keys.js';
import { make } from './views/view.js';

const calm = 500; // milliseconds
const bundleName = 'bundle.json';
const lateFolder = '/share/Help/'; // what the program asks for when it needs it

// Languages, help and samples, by their paths: a file beside the page, or within a page that is a single file.
async function bundle() {
    const within = document.querySelector('#bundle');
    if (within) return JSON.parse(within.textContent);
    const response = await fetch(beside(bundleName));
    return response.ok ? response.json() : {};
}

const keysHeight = () => document.querySelector('.touch-keys')?.offsetHeight ?? 0;

function screenNow() {
    return {
        width: Math.floor(twips(innerWidth)), height: Math.floor(twips(innerHeight - keysHeight())), edgeWidth: 0,
        edgeHeight: barHeight(), pointsPerTwip: pixels(1) * devicePixelRatio,
    };
}

function follow(stage, share) {
    const tell = () => stage.link.sendLatest({ on: 'screen', ...screenNow() }, (one) => one.on === 'screen');
    window.addEventListener('resize', tell);
    onFont(tell);
    // The browser's own menu is for texts.
    document.addEventListener('contextmenu', (event) => {
        if (!event.target.closest?.('input, textarea, .richtext, .came, .words')) event.preventDefault();
    });
    document.addEventListener('visibilitychange', () => stage.link.send({ on: 'hidden', hidden: document.hidden }));
    window.addEventListener('pagehide', () => stage.link.send({ on: 'unload' }));
    window.addEventListener('hashchange', async () => {
        const brought = await broughtBy(location.hash, share);
        if (brought === 'unreadable') return notice(stage, 'linkUnreadable');
        if (brought) stage.link.send({ on: 'brought', ...brought });
    });
}

function handlers(stage, { store, share, serial, panel }) {
    stage.handle({
        message: (task) => message(stage, task),
        color: (task) => color(stage, task),
        open: (task) => openFile(stage, task),
        save: (task) => saveFileAs(stage, task),
        read: (task) => (task.path in share ? stage.reply(task.ask, { content: share[task.path] }) : readFile(stage, task)),
        saveFile: (task) => writeFile(stage, task),
        store: (task) => stage.reply(task.ask, { ok: keep(store, task.path, task.content) }),
        clipboardRead: (task) => read(stage, task),
        clipboardWrite: (task) => write(task.text),
        clipboardPicture: (task) => writePicture(stage, task),
        print: (task) => print(stage, task),
        printers: () => notice(stage, 'printers'),
        portOpen: (task) => serial.open(task),
        portChoose: (task) => serial.choose(task),
        portClose: (task) => serial.close(task),
        portSettings: (task) => serial.change(task),
        portWrite: (task) => serial.write(task),
        machine: (task) => panel.take(task),
        link: (task) => copyLink(stage, task),
        picture: (folder, name) => pictureOf(share, folder + name),
        beep,
        leaving: ({ asks }) => askBeforeLeaving(asks),
        started: workWithoutNetwork,
        end: () => ended(stage),
    });
}

// The browser asks in words of its own. A page that asks for nothing can come back as it was.
function question(event) {
    event.preventDefault();
    event.returnValue = true; // for older browsers
}
function askBeforeLeaving(asks) {
    if (asks) window.addEventListener('beforeunload', question);
    else window.removeEventListener('beforeunload', question);
}

// A picture of a document, out of the bundle.
function pictureOf(share, path) {
    const content = share[path];
    if (!content) return '';
    return path.endsWith('.svg') ? `data:image/svg+xml;base64,${btoa(content)}` : '';
}

// Covers the page, with a way to start again.
function cover(stage, text) {
    askBeforeLeaving(false);
    const face = make('div', 'cover', document.body);
    face.setAttribute('role', 'alert');
    make('div', '', face).textContent = stage.text(text);
    addStartAgain(face, stage.text('again'));
}

function addStartAgain(face, caption) {
    const button = make('button', '', face);
    button.type = 'button';
    button.textContent = caption;
    button.addEventListener('click', () => location.reload());
    button.focus();
}

// What keeps the page asks for all its files: it does so when the program stands.
function workWithoutNetwork() {
    if (!('serviceWorker' in navigator) || !location.protocol.startsWith('http')) return;
    setTimeout(() => navigator.serviceWorker.register('sw.js').catch(() => {}), calm);
}

function ended(stage) {
    stage.link.ended = true;
    cover(stage, 'ended');
}

// The documents of the help stay here until they are read.
function sharedAtOnce(share) {
    return Object.fromEntries(Object.entries(share).map(([path, content]) => [path, path.startsWith(lateFolder) ? null : content]));
}

async function hello(stage, { files, times, problem, share, serial }) {
    const stored = { ...files };
    for (const name of await rememberedNames()) stored[name] = null;
    const brought = await broughtBy(location.hash, share);
    if (brought === 'unreadable') notice(stage, 'linkUnreadable');
    return {
        on: 'hello', ...screenNow(), language: navigator.language, dark: isDark(), share: sharedAtOnce(share),
        stored, times,
        withoutStorage: problem !== '', names: await serial.names(), withoutSerial: !serial.serial,
        ...(brought !== 'unreadable' ? brought : {}),
    };
}

async function start() {
    followFont();
    const stage = new Stage();
    const panel = new MachinePanel(stage);
    const serial = new Serial(stage);
    const [share, { files, times, store, problem }] = await Promise.all([bundle(), openStorage()]);
    handlers(stage, { store, share, serial, panel });
    addTools(stage, { panel, serial });
    followTips();
    addTouchKeys(stage);
    stage.link.send(await hello(stage, { files, times, problem, share, serial }));
    follow(stage, share);
    followDrops(stage);
    tellSerial(stage);
    if (problem) notice(stage, problem, { stays: true });
    onLost(() => notice(stage, 'secondTab', { stays: true }));
    window.addEventListener('error', (event) => isFatal(event.error) && stopped(stage));
    window.addEventListener('unhandledrejection', (event) => isFatal(event.reason) && stopped(stage));
    const { end } = await startProgram(stage.link);
    await end.catch((fault) => console.error(fault));
    stopped(stage);
}

// What the program itself has thrown; a number is one of its exceptions. The page's own faults leave it running.
function isFatal(fault) {
    return fault instanceof WebAssembly.RuntimeError || typeof fault === 'number' || fault?.name === 'CppException';
}

function stopped(stage) {
    if (stage.link.ended) return;
    stage.link.ended = true;
    cover(stage, 'stopped');
}

start().catch((fault) => {
    console.error(fault);
    const face = document.querySelector('.cover.start');
    face.classList.add('failed');
    face.querySelector('span').textContent = typeof WebAssembly === 'object' ? before.stopped : before.tooOld;
    make('small', '', face).textContent = fault.message ?? fault;
    addStartAgain(face, before.again);
});
