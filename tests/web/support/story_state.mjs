// What a story expects, read off what the page shows and keeps.
import { behind, textOf, wordsOf } from './story.mjs';
import { rowInSight } from './story_hands.mjs';

const plain = (value) => (value === undefined || value === null ? '' : String(value));
const lines = (text) => plain(text).replaceAll('\r\n', '\n').replaceAll('\r', '\n');
const choices = { ok: 1, yesno: 2, yesnocancel: 3 };

// { got, wanted } of a message box; nothing for other expectations.
export function boxWants({ boxes, box }, what, text) {
    const wanted = lines(textOf(text));
    if (what === 'nomessage') return { got: boxes.map((one) => one.text).join(), wanted: '' };
    if (what === 'message') return { got: lines(boxes[0]?.text), wanted };
    if (what === 'title') return { got: lines(box?.title), wanted };
    if (what === 'details') return { got: plain(lines(box?.details).includes(wanted)), wanted: 'true' };
    if (what === 'icon') return { got: box?.icon, wanted };
    if (what === 'buttons') return { got: Object.keys(choices).find((one) => choices[one] === box?.buttons.length), wanted };
    return undefined;
}

// A file of the user's, or one that the page keeps by itself; null where there is none.
async function contentOf({ bench }, path) {
    if (path.startsWith('/data/')) return bench.evaluate((key) => localStorage.getItem(key), `kvt:${path}`);
    return bench.read(path).catch(() => bench.evaluate((name) => window.downloads[name] ?? null, path));
}

const logPath = '/data/EMCO/KVT_100/Errors.log';
async function logged(story) {
    const log = plain(await contentOf(story, logPath));
    return log.split('\r\n').map((record) => /,"([^"]*)"$/.exec(record)?.[1]).filter(Boolean);
}

async function serialNow({ bench }) {
    return bench.evaluate(() => {
        const open = (window.ports ?? []).find((one) => one.isOpen);
        const { baudRate, parity, dataBits, stopBits } = open?.opens.at(-1) ?? {};
        return { open: !!open, settings: open ? [baudRate, parity[0].toUpperCase(), dataBits, stopBits].join() : '' };
    });
}

// What has come behind what was read before.
function newOf(story, name, all) {
    const before = story[`${name}Read`] ?? 0;
    story[`${name}Read`] = all.length;
    return all.slice(before);
}

// The texts of the pages that were printed or previewed since the last time.
async function textsOnPaper(story, which) {
    const pages = await story.bench.evaluate((key) => window[key], which);
    return newOf(story, which, pages).flatMap((page) =>
        [...page.matchAll(/<text[^>]*>([^<]*)<\/text>/g)].map(([, text]) => text.replaceAll('&lt;', '<').replaceAll('&gt;', '>').replaceAll('&amp;', '&').trimEnd()));
}
// Pages have heads and no empty lines, the columns have widths of their own there, and the units stand for their code.
async function onPaper(story, which, text) {
    const squeezed = (line) => line.replace(/\s+/g, ' ').replace(/ \w+ \d+ \w+ \d+$/, '').trim();
    const texts = (await textsOnPaper(story, which)).map(squeezed);
    // A file in no folder has its name for its path, which is printed once.
    const again = (line, i, all) => line !== all[i - 1];
    const rest = [...texts];
    const missing = textOf(text).split('\r\n').map(squeezed).filter((line) => line.length > 2).filter(again).filter((line) => {
        const at = rest.indexOf(line);
        if (at >= 0) rest.splice(0, at + 1);
        return at < 0;
    });
    const none = textOf(text) === '' && texts.length > 0;
    return { got: missing.length > 0 || none ? texts.join('\n') : '', wanted: '' };
}

async function picture(story, where) {
    if (where === 'printer') return newOf(story, 'drawings', await story.bench.evaluate(() => window.printed.filter((page) => page.includes('<svg x=')))).length > 0;
    if (where === 'clipboard') {
        return story.bench.evaluate(async () => (await navigator.clipboard.read()).some((item) => item.types.includes('image/png')));
    }
    const content = plain(await contentOf(story, where));
    return ['BM', '\x89PNG', '%PDF', '<svg'].some((begin) => content.startsWith(begin));
}

const readers = {
    focus: async (story, text) => ({
        got: await story.bench.evaluate(() => window.shown.focus()), wanted: plain(wordsOf(text)[0]).split('.').at(-1),
    }),
    running: async (story, text) => ({ got: (await story.bench.evaluate(() => window.told.ended)) ? 'no' : 'yes', wanted: text }),
    beeps: async ({ bench }, text) => ({ got: plain(await bench.evaluate(() => window.told.beeps)), wanted: text }),
    clipboard: async ({ bench }, text) => ({ got: await bench.evaluate(() => navigator.clipboard.readText()), wanted: textOf(text) }),
    clock: async (story, text) => ({ got: plain(Math.round(story.clock + (await story.bench.evaluate(() => window.clock.now)))), wanted: text }),
    entries: async ({ bench }, text) => ({ got: plain(await bench.evaluate((n) => window.shown.entries(n), wordsOf(text)[0])), wanted: wordsOf(text)[1] }),
    entry: async ({ bench }, text) => {
        const [name, index] = wordsOf(text);
        return { got: await bench.evaluate((n, i) => window.shown.entry(n, i), name, Number(index)), wanted: textOf(behind(behind(text))) };
    },
    cell: async (story, text) => {
        const [row, column] = wordsOf(text).map(Number);
        if (!(await story.bench.evaluate((c) => window.shown.hasColumn(c), column))) return null;
        const read = () => story.bench.evaluate((r, c) => window.shown.cell(r, c), row, column);
        let got = await read();
        if (got === null) {
            await rowInSight(story, row);
            got = await read();
        }
        return { got: plain(got).trimEnd(), wanted: textOf(behind(behind(text))).trimEnd() };
    },
    rowcolor: async ({ bench }, text) => {
        const [row, color] = wordsOf(text);
        return { got: plain(await bench.evaluate((n) => window.shown.rowColor(n), Number(row))), wanted: color };
    },
    header: async ({ bench }, text) => ({ got: await bench.evaluate((n) => window.shown.header(n), Number(wordsOf(text)[0])), wanted: textOf(behind(text)) }),
    columnwidth: async ({ bench }, text) => {
        const [column, width] = wordsOf(text);
        return { got: plain(await bench.evaluate((n) => window.shown.columnWidth(n), Number(column))), wanted: width };
    },
    file: async (story, text) => ({ got: await contentOf(story, textOf(wordsOf(text)[0])), wanted: textOf(behind(text)) }),
    filehas: async (story, text) => {
        const [got, wanted] = [plain(await contentOf(story, textOf(wordsOf(text)[0]))), textOf(behind(text))];
        return { got: got.includes(wanted) ? wanted : got, wanted };
    },
    nofile: async (story, text) => ({ got: await contentOf(story, textOf(text)), wanted: null }),
    log: async (story, text) => {
        const all = await logged(story);
        return { got: all.includes(text) ? text : all.join(), wanted: text };
    },
    nolog: async (story) => ({ got: (await logged(story)).join(), wanted: '' }),
    logcount: async (story, text) => ({ got: plain((await logged(story)).length), wanted: text }),
    sent: async (story, text) => {
        const all = story.sent + (await story.bench.evaluate(() => (window.written ?? []).join('')));
        return { got: newOf(story, 'port', all), wanted: textOf(text) };
    },
    port: async (story, text) => ({ got: (await serialNow(story)).open ? 'open' : 'closed', wanted: text }),
    portsettings: async (story, text) => ({ got: (await serialNow(story)).settings, wanted: text }),
    printed: (story, text) => onPaper(story, 'printed', text),
    previewed: (story, text) => onPaper(story, 'previewed', text),
    picture: async (story, text) => ({ got: await picture(story, textOf(text)), wanted: true }),
};

// What a place of the mouse on the drawing tells, and how far apart two of them are at the usual scales.
const pointed = /^frmDraw\.txt(X|Y|Z|Delta|Diameter|Distance|Grid)\w*$/;
const pixel = 2.5;

// { got, wanted } of what the page shows; null for what no page shows.
export async function compare(story, what, text) {
    if (readers[what]) return readers[what](story, text.trim());
    const dot = what.lastIndexOf('.');
    const name = what.slice(0, dot);
    const property = what.slice(dot + 1);
    // The main window is as large as the page, and windows have no edges beside their fields.
    if (dot < 0 || (/^frm\w+$/.test(name) && /left|top|width|height|windowState/i.test(property))) return null;
    const got = await story.bench.evaluate((n, p) => window.shown.property(n, p), name, property);
    if (got === undefined) return null;
    // The mouse points at whole pixels.
    if (/ViewWindow$/.test(name) && Math.abs(Number(got) - Number(text)) <= 1) return { got: text, wanted: text };
    if (pointed.test(name) && Math.abs(Number(got) - Number(text)) < pixel && text.trim() !== '') return { got: text, wanted: text };
    // A page knows no folders of the files used last.
    const wanted = name.startsWith('mnuRecentFile') ? text.replace(/ {2}(samples|\$\{TMP\})("?)$/, '$2') : text;
    return { got: lines(got), wanted: lines(textOf(wanted)) };
}
