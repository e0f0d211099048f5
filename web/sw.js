// Keeps the page for work without a network. The maker of the site puts in the version and the list of its files, with
// their digests; a new version is another text of this file, and takes over when no tab has the old one any more. One of
// which a file is missing yet, or is still that of another version, is tried again at the next visit.

const version = '@VERSION@';
const files = '@FILES@';
// Another copy of the page at the same address keeps its own.
const ownCaches = `kvt ${self.registration.scope} `;
const cacheName = ownCaches + version;

async function keep(cache, [name, digest]) {
    const response = await fetch(new Request(name, { cache: 'reload' }));
    const content = await crypto.subtle.digest('SHA-256', await response.clone().arrayBuffer());
    const hex = [...new Uint8Array(content)].map((byte) => byte.toString(16).padStart(2, '0')).join('');
    if (!response.ok || !hex.startsWith(digest)) throw new Error(`${name} is not of version ${version}`);
    await cache.put(name, response);
}

self.addEventListener('install', (event) => {
    event.waitUntil(caches.open(cacheName).then((cache) => Promise.all(files.map((file) => keep(cache, file)))));
});

self.addEventListener('activate', (event) => {
    const drop = async () => {
        for (const name of await caches.keys()) if (name.startsWith(ownCaches) && name !== cacheName) await caches.delete(name);
        await self.clients.claim();
    };
    event.waitUntil(drop());
});

self.addEventListener('fetch', (event) => {
    const { request } = event;
    if (request.method !== 'GET' || new URL(request.url).origin !== location.origin) return;
    const answer = async () => {
        const cache = await caches.open(cacheName);
        // By either name it is the page of this version.
        const isPage = request.url.replace(/[?#].*/, '') === `${self.registration.scope}index.html`;
        const kept = await cache.match(isPage ? './' : request, { ignoreSearch: true });
        if (kept) return kept;
        // The page under another of its names.
        return fetch(request).catch(async () => (request.mode === 'navigate' ? cache.match('./') : Response.error()));
    };
    event.respondWith(answer());
});
