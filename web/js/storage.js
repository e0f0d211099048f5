// What outlives the page: the program's own files in the browser's storage, and the handles of the user's files.

import { pacer } from './clock.js';

const prefix = 'kvt:';
const timePrefix = 'kvt-at:'; // when a file was written, in seconds
const sharedFolder = '/Settings/'; // what a second tab may read: the rest is at work in the first one
const lockName = 'kvt';
const beatKey = 'kvt-beat';
const beatEvery = 1000; // milliseconds
const beatLasts = 3500;
let lost = false; // another page has taken the storage over
let tellLost = () => {};

function storage() {
    try {
        const probe = `${prefix}probe`;
        localStorage.setItem(probe, '1');
        localStorage.removeItem(probe);
        return localStorage;
    } catch {
        return null;
    }
}

// Whether another page has the storage: this one in another tab, or another copy of it at the same address. Without locks,
// as where the address begins with http, a beat in it tells.
async function taken(store) {
    if (navigator.locks) {
        return new Promise((resolve) => {
            navigator.locks.request(lockName, { ifAvailable: true }, (lock) => {
                resolve(lock === null);
                // Held as long as the page is there.
                return lock === null ? undefined : new Promise(() => {});
            }).catch(() => resolve(false));
        });
    }
    if (await beats(store)) return true;
    beat(store);
    return false;
}

// One that has just broken down beats no more.
async function beats(store) {
    const last = store.getItem(beatKey);
    if (!(Date.now() - Number.parseFloat(last) < beatLasts)) return false;
    await new Promise((over) => setTimeout(over, 2 * beatEvery));
    return store.getItem(beatKey) !== last;
}

// By a worker, since the page's own timers all but stop in a hidden tab. A page that stood still for long may find that
// another one has begun meanwhile: it leaves the storage to that.
function beat(store) {
    const own = Math.random();
    let mine = '';
    const step = () => {
        if (lost) return;
        const there = store.getItem(beatKey);
        if (mine && there && there !== mine) {
            lost = true;
            pace(0);
            tellLost();
            return;
        }
        mine = `${Date.now()} ${own}`;
        try {
            store.setItem(beatKey, mine);
        } catch {
            mine = ''; // A full one tells nobody.
        }
    };
    const pace = pacer(step);
    pace(beatEvery);
    step();
    addEventListener('pagehide', () => store.getItem(beatKey) === mine && store.removeItem(beatKey));
}

// Calls when another page has the storage from now on.
export function onLost(act) {
    tellLost = act;
}

// What is kept, when it was written, and how it goes on: problem is 'noStorage' or 'secondTab' where nothing more is
// kept.
export async function openStorage() {
    const store = storage();
    const files = {};
    const times = {};
    if (!store) return { files, times, store: null, problem: 'noStorage' };
    const second = await taken(store);
    for (const key of Object.keys(store)) {
        const path = key.slice(prefix.length);
        if (!key.startsWith(prefix) || (second && !path.includes(sharedFolder))) continue;
        files[path] = store.getItem(key);
        times[path] = store.getItem(timePrefix + path) ?? '';
    }
    return second ? { files, times, store: null, problem: 'secondTab' } : { files, times, store, problem: '' };
}

// Writes a file through, or forgets it: false where the storage is full.
export function keep(store, path, content) {
    if (!store || lost) return true;
    try {
        if (content === null || content === undefined) {
            store.removeItem(prefix + path);
            store.removeItem(timePrefix + path);
        } else {
            store.setItem(prefix + path, content);
            store.setItem(timePrefix + path, String(Math.floor(Date.now() / 1000)));
        }
        return true;
    } catch {
        return false;
    }
}

// A small table of handles by name. Every call gives null, or nothing, where the browser keeps none.
function table() {
    return new Promise((resolve) => {
        let request;
        try {
            request = indexedDB.open('kvt', 1);
        } catch {
            return resolve(null);
        }
        request.onupgradeneeded = () => request.result.createObjectStore('handles');
        request.onsuccess = () => resolve(request.result);
        request.onerror = request.onblocked = () => resolve(null);
    });
}

async function inTable(mode, act) {
    const base = await table();
    if (!base) return null;
    return new Promise((resolve) => {
        try {
            const request = act(base.transaction('handles', mode).objectStore('handles'));
            request.onsuccess = () => resolve(request.result ?? null);
            request.onerror = () => resolve(null);
        } catch {
            resolve(null);
        }
    });
}

export const handles = {
    names: async () => (await inTable('readonly', (store) => store.getAllKeys())) ?? [],
    get: (name) => inTable('readonly', (store) => store.get(name)),
    put: (name, handle) => inTable('readwrite', (store) => store.put(handle, name)),
    remove: (name) => inTable('readwrite', (store) => store.delete(name)),
};
