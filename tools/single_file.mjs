// Joins the files of the page into one that opens from disk, where a browser loads no others.
import { createHash } from 'node:crypto';
import * as path from 'node:path';

const imports = /^import \{([^}]*)\} from '(\.[^']+)';\n/gm;
const exported = /^export ((?:async )?function\*?|class|const|let) ([A-Za-z_$][\w$]*)/gm;

// In a single file the program is beside the script, not loaded.
const replaced = new Map([['js/program.js', 'single/program.js']]);

// The modules below one, each as a function of its own that gives what it exports, those that others need first.
function joined(files, first) {
    const places = new Map();
    const parts = [];
    const add = (name, above) => {
        if (above.includes(name)) throw new Error(`modules that need each other: ${[...above, name].join(' > ')}`);
        if (places.has(name)) return;
        const source = files.get(replaced.get(name) ?? name);
        if (!source) throw new Error(`${above.at(-1)} needs ${name}, which is not there`);
        const names = [];
        const text = source.toString()
            .replace(imports, (_, list, from) => {
                const other = path.posix.join(path.posix.dirname(name), from);
                add(other, [...above, name]);
                return `const {${list.replaceAll(' as ', ': ')}} = module${places.get(other)};\n`;
            })
            .replace(exported, (_, kind, one) => {
                names.push(one);
                return `${kind} ${one}`;
            });
        const left = /^(import|export)\b.*/m.exec(text);
        if (left) throw new Error(`${name}: this is not joined: ${left[0]}`);
        places.set(name, places.size);
        parts.push(`const module${places.get(name)} = (() => {\n${text}\nreturn { ${names.join(', ')} };\n})();\n`);
    };
    add(first, []);
    return parts.join('');
}

const sourceOf = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
const dataOf = (type, content) => `data:${type};base64,${content.toString('base64')}`;
// A text that does not end the script that it stands in.
const harmless = (text) => text.replaceAll('</', '<\\/').replaceAll('<!--', '<\\!--');

export function singleFile(files) {
    const text = (name) => files.get(name).toString();
    const glue = text('program/kvt_web.js').replace(/^export default createProgram;\s*$/m, '');
    const script = harmless(`${glue}\n${joined(files, 'js/main.js')}`);
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
