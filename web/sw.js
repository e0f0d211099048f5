// Keeps the page for work without a network. The maker of the site puts in the version and the list of its files; a
// new version is another text of this file, and takes over when no tab has the old one any more.

const version = '@VERSION@';
const files = '@FILES@';
// Another copy of the page at the same address keeps its own.
const ownCaches = `kvt ${self.registration.scope} `;
const cacheName = ownCaches + version;

self.addEventListener('install', (event) => {
    event.waitUntil(
        caches.open(cacheName).then((cache) => cache.addAll(files.map((file) => new Request(file, { cache: 'reload' })))),
    );
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
