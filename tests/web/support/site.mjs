// A plain server of the page's files, as any web server is one, that tells what it was asked for.
import * as fs from 'node:fs/promises';
import { createServer } from 'node:http';
import * as path from 'node:path';

const types = {
    '.html': 'text/html', '.js': 'text/javascript', '.css': 'text/css', '.json': 'application/json', '.png': 'image/png',
    '.svg': 'image/svg+xml', '.wasm': 'application/wasm', '.webmanifest': 'application/manifest+json',
};

export async function serve(folder) {
    const asked = [];
    const server = createServer(async (request, response) => {
        const name = decodeURIComponent(new URL(request.url, 'http://127.0.0.1').pathname);
        asked.push(name);
        try {
            const content = await fs.readFile(path.join(folder, path.normalize(name.endsWith('/') ? `${name}index.html` : name)));
            response.writeHead(200, { 'content-type': types[path.extname(name || '.html')] ?? 'text/html' });
            response.end(content);
        } catch {
            response.writeHead(404).end();
        }
    });
    await new Promise((ready) => server.listen(0, '127.0.0.1', ready));
    const close = () => new Promise((closed) => {
        server.closeAllConnections();
        server.close(closed);
    });
    return { address: `http://127.0.0.1:${server.address().port}/`, asked, close };
}
