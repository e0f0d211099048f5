// Puts the page together out of web/, the builds of the program, help, languages and samples.
// Usage: node tools/make_page.mjs OUT WEB_BIN [FAST_BIN]
//   OUT       the folder of the page; kvt.html beside its files is the whole page in a single file
//   WEB_BIN   the programs' folder of the build for every browser, FAST_BIN that of the build for stack switching
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync, constants } from 'node:zlib';

import { singleFile } from './single_file.mjs';

const root = path.dirname(path.dirname(fileURLToPath(import.meta.url)));
const web = path.join(root, 'web');
const [out, webBin, fastBin] = process.argv.slice(2);
if (!webBin) {
    console.error('usage: node tools/make_page.mjs OUT WEB_BIN [FAST_BIN]');
    process.exit(2);
}

// All files below a folder, by their paths in it.
function filesBelow(folder, below = '') {
    return fs.readdirSync(path.join(folder, below), { withFileTypes: true })
        .flatMap((one) => {
            const name = path.posix.join(below, one.name);
            return one.isDirectory() ? filesBelow(folder, name) : [name];
        })
        .sort();
}

// What the program finds below /share/, as strings of bytes.
function bundle() {
    const share = {};
    const take = (name, folder, wanted) => {
        for (const file of filesBelow(folder)) {
            if (wanted.test(file)) share[`/share/${name}/${file}`] = fs.readFileSync(path.join(folder, file), 'latin1');
        }
    };
    take('Help', path.join(webBin, 'Help'), /\.(html|svg)$/);
    take('languages', path.join(root, 'languages'), /\.txt$/);
    take('samples', path.join(root, 'samples'), /\.(cnc|nc)$/);
    return JSON.stringify(share);
}

// A script or style without what only its readers need. The page's modules become one file, so that none has to wait for
// another to be asked for.
function lean(file, ...more) {
    return execFileSync('esbuild', [file, '--minify', '--charset=utf8', '--log-level=warning', ...more]);
}
const joined = (folder) => lean(path.join(folder, 'js/main.js'), '--bundle', '--format=esm');

// In a single file the program is beside the script, not loaded.
function joinedWithProgram() {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-page-'));
    fs.cpSync(path.join(web, 'js'), path.join(folder, 'js'), { recursive: true });
    fs.cpSync(path.join(web, 'single'), path.join(folder, 'js'), { recursive: true });
    fs.cpSync(path.join(webBin, 'kvt_web.js'), path.join(folder, 'program/kvt_web.js'));
    const script = joined(folder);
    fs.rmSync(folder, { recursive: true });
    return script;
}

function pageFiles() {
    const files = new Map();
    const parts = /^(js|single)\//;
    for (const file of filesBelow(web).filter((one) => !parts.test(one))) {
        const from = path.join(web, file);
        files.set(file, /\.(js|css)$/.test(file) ? lean(from) : fs.readFileSync(from));
    }
    files.set('js/main.js', joined(web));
    for (const folder of [webBin, fastBin ?? webBin]) {
        for (const file of fs.readdirSync(folder).filter((one) => /^kvt_web.*\.(js|wasm)$/.test(one))) {
            const from = path.join(folder, file);
            files.set(`program/${file}`, file.endsWith('.js') ? lean(from) : fs.readFileSync(from));
        }
    }
    files.set('kvt.svg', fs.readFileSync(path.join(root, 'icons', 'kvt.svg')));
    for (const size of [128, 256]) files.set(`kvt_${size}.png`, fs.readFileSync(path.join(root, 'icons', `kvt_${size}.png`)));
    files.set('bundle.json', Buffer.from(bundle()));
    return files;
}

// The version is another one when any file is. The page asks for its parts by it, and the service worker keeps all files
// under it, each with its digest.
function nameVersion(files) {
    const whole = createHash('sha256');
    for (const [name, content] of files) whole.update(name).update('\0').update(content);
    const version = whole.digest('hex').slice(0, 16);
    const page = files.get('index.html').toString().replace(/(src|href)="([^"]+\.(?:js|css))"/g, `$1="$2?${version}"`);
    files.set('index.html', Buffer.from(page));
    const digestOf = (content) => createHash('sha256').update(content).digest('hex').slice(0, 16);
    const kept = [...files].filter(([name]) => name !== 'sw.js').map(([name, content]) => [name === 'index.html' ? './' : name, digestOf(content)]);
    const text = files.get('sw.js').toString().replace('@VERSION@', version).replace(/(['"])@FILES@\1/, JSON.stringify(kept));
    files.set('sw.js', Buffer.from(text));
}

function tellSizes(files) {
    const packed = (content) => brotliCompressSync(content, { params: { [constants.BROTLI_PARAM_QUALITY]: 11 } }).length;
    const script = [...files].filter(([name]) => /^js\/.*\.js$|^sw\.js$/.test(name)).map(([, content]) => content);
    const page = packed(Buffer.concat(script));
    for (const name of ['kvt_web', 'kvt_web_fast']) {
        const parts = ['js', 'wasm'].map((ending) => files.get(`program/${name}.${ending}`));
        if (!parts[0]) continue;
        const [glue, wasm] = parts.map(packed);
        const whole = Math.ceil((page + glue + wasm) / 1000);
        console.log(`${name}: wasm ${wasm}, its script ${glue}, script of the page ${page}: ${whole} kB with brotli`);
    }
}

const files = pageFiles();
const single = singleFile(files, joinedWithProgram());
nameVersion(files);
fs.rmSync(out, { recursive: true, force: true });
for (const [name, content] of files) {
    const target = path.join(out, name);
    fs.mkdirSync(path.dirname(target), { recursive: true });
    fs.writeFileSync(target, content);
}
fs.writeFileSync(path.join(out, 'kvt.html'), single);
tellSizes(files);
