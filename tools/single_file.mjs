// Joins the files of the page into one that opens from disk, where a browser loads no others.
import { createHash } from 'node:crypto';

const sourceOf = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
const dataOf = (type, content) => `data:${type};base64,${content.toString('base64')}`;
// A text that does not end the script that it stands in.
const harmless = (text) => text.replaceAll('</', '<\\/').replaceAll('<!--', '<\\!--');

// joined: the script of the page and of the program.
export function singleFile(files, joined) {
    const text = (name) => files.get(name).toString();
    const script = harmless(joined.toString());
    const styles = [];
    const icon = dataOf('image/svg+xml', files.get('kvt.svg'));
    const page = text('index.html')
        .replace(/<link rel="stylesheet" href="([^"]+)">/g, (_, name) => {
            styles.push(text(name));
            return `<style>${text(name)}</style>`;
        })
        .replace(/<link rel="manifest"[^>]*>\n?/, '')
        .replaceAll('"kvt.svg"', `"${icon}"`)
        .replace(/<script type="module" src="js\/main\.js"><\/script>\n?/, '')
        .replace("script-src 'self'", `script-src ${sourceOf(script)}`)
        .replace("style-src 'self'", `style-src ${styles.map(sourceOf).join(' ')}`)
        .replace("connect-src 'self'", "connect-src 'none'");
    const parts = [
        `<script type="application/json" id="bundle">${text('bundle.json').replaceAll('<', '\\u003c')}</script>`,
        `<script type="text/plain" id="program">${files.get('program/kvt_web.wasm').toString('base64')}</script>`,
        `<script type="module">${script}</script>`,
    ];
    return page.replace('</body>', () => `${parts.join('\n')}\n</body>`);
}
