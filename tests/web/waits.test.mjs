// What may run inside which wait (docs/waits.md), through the page: in each wait each of the handlers is begun by real keys
// and clicks. What is shown afterwards is what kvtc has where the same is done to the half of the platform in memory.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import * as fs from 'node:fs';
import * as os from 'node:os';
import * as path from 'node:path';
import { after, test } from 'node:test';

import { setting } from './support/setting.mjs';
import { Story } from './support/story.mjs';
import { kvtc } from './support/workbench.mjs';

const here = setting();
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'kvt-waits-'));
after(() => fs.rmSync(folder, { recursive: true }));

const program = (...lines) => `P\\r\\n%\\r\\n    N\` G\`   X \`    Z \`  F\`  H \\r\\n${lines.map((line) => `    ${line}\\r\\n`).join('')}   M\\r\\n`;
const prelude = [
    '# options: --ports 1',
    `write \${TMP}/p.cnc ${program('00 92  2000    500', '01 00  1000    100', '02 01  1000 - 2000  50', '03 01  1600 - 2000  50', '04 00  2000    500', '05M30')}`,
    `write \${TMP}/q.cnc ${program('00 92  4000   1000', '01 00  3000    100', '02M30')}`,
    'start ${TMP}/p.cnc',
    'advance 1000',
];
const beside = ['press F5', 'restore frmDraw', 'resize frmDraw 9500 6000'];

// How each wait is reached. wait: which of those that end by themselves it is; a user's wait has none.
const waits = {
    'step of the run': { begin: ['click cmdRun'] },
    'step of a drawing': { begin: [...beside, 'click mnuSim 1'] },
    'click of a drawing': { begin: [...beside, 'press F6', 'clickrow 3', 'set txtComment cmdWAIT', 'focus txtComment', 'press Enter'] },
    'interval of a drawing': { first: beside, begin: ['click mnuSim 2'], wait: 2 },
    'line of a transmission': { first: beside, begin: ['press F6', 'click mnuTX'], wait: 3, before: 1 },
    'line of a fitted drawing': {
        first: [...beside, 'press F6', 'clickrow 1', 'set txtComment cmdINTERVAL 2', 'focus txtComment', 'press Enter', 'focus frmDraw.pbxDrawField'],
        begin: ['press Home'], wait: 2,
    },
    'receive view': { begin: ['receive %\\r\\n'] },
};

// What is done inside.
const handlers = {
    nothing: [],
    'an edit': ['clickrow 4', 'set txtXI 1750', 'focus txtComment', 'press Enter'],
    'a deletion': ['answer yes', 'clickrow 2', 'click cmdDelete'],
    'another program': ['answer no', 'file ${TMP}/q.cnc', 'click mnuOpen'],
    'a dropped program': ['answer no', 'drop ${TMP}/q.cnc'],
    'a new program': ['answer yes', 'click mnuNew'],
    'undo': ['press Ctrl+Z'],
    'the run': ['click cmdTopButtons 4', 'click cmdRun'],
    'a drawing': ['press F5'],
    'a scale': ['click frmDraw.mnuScale 3'],
    'a fitted drawing': ['click frmDraw.cmdAutoFit'],
    'a drawing fitted by its key': ['focus frmDraw.pbxDrawField', 'press Home'],
    'the end of the drawing': ['close frmDraw'],
    'a print': ['printer 1', 'press Ctrl+P'],
    'a transmission': ['press Ctrl+T'],
    'its end': ['click cmdStop'],
    'a character received': ['receive x'],
    'another machine': ['answer yes', 'click mnuMachine', 'click optSettingsMK2'],
    'a language': ['file languages/Deutsch.txt', 'click mnuLanguage'],
    'the settings': ['click mnuGeneral'],
    'a converted program': ['click mnuMMtoINCH'],
    'the end of the program': ['answer no', 'close frmMain'],
};

// Boxes are waits that let no hand in. come: what arrives there all the same.
const boxes = {
    'an error': { begin: ['answer ok', 'clickrow 4', 'set txtXI 9999', 'press Enter'] },
    'unsaved work': {
        begin: ['clickrow 4', 'set txtXI 1750', 'focus txtComment', 'press Enter', 'answer no', 'file ${TMP}/q.cnc', 'click mnuOpen'],
        come: ['receive x'],
    },
    'a question in the step of a drawing': { begin: [...beside, 'click mnuSim 1', 'clickrow 2', 'answer yes', 'click cmdDelete'] },
    'a question in the interval of a drawing': { begin: [...beside, 'clickrow 2', 'answer yes', 'during 2 click cmdDelete', 'click mnuSim 2'] },
};

// A click in a window that lies beside brings that to the front, with its keys.
const inWindowBeside = ['a scale', 'a fitted drawing', 'the end of the drawing', 'a converted program', 'a language'];
// The received code covers the list, and a grey menu of the bar does not open: its tab alone closes the page then.
const covered = ['receive view: an edit', 'receive view: a deletion', 'receive view: the end of the program', 'line of a transmission: the end of the program'];

const shown = [
    'state.lineCount', 'state.machine', 'state.selectedRow', 'state.notes', 'txtGMcode.text', 'txtXI.text', 'frEntry.caption', 'lblPath.caption',
    'lblNotice.caption', 'lblTransmitLine.caption', 'lblPPLinesExe.caption', 'lblPPUnits.caption', 'cmdRun.visible', 'cmdStep.visible', 'cmdStop.visible',
    'mnuFile.enabled', 'frRXcode.visible', 'rtfHelp.visible', 'tabSettings.visible', 'frmDraw.visible', 'frmDraw.cmdStep.enabled', 'frmDraw.cmdRedraw.enabled',
    'frmDraw.frStepControls.visible', 'frmDraw.txtBarLine.text', 'frmDraw.lblBarHint.caption', 'frmDraw.lblFileName.caption', 'frmDraw.mnuSim(0).checked', 'mnuSim(1).checked',
];

function linesOf({ first = [], begin, wait }, handler) {
    const inside = wait ? handler.map((line) => `during ${wait} ${line}`) : [];
    // What comes before the last line of the beginning is not in the wait.
    return [...prelude, ...first, ...begin.slice(0, -1), ...inside, begin.at(-1), ...(wait ? [] : handler)];
}

// What the half in memory makes of it, as expectations.
function expected(lines, withFocus, withNotice) {
    const file = path.join(folder, 'wait.kvts');
    fs.writeFileSync(file, [...lines, 'dump', ''].join('\n'));
    const dumped = kvtc('script', file).split('\n').find((line) => line.startsWith('{'));
    // Files of the user have their bare names in the page.
    const state = JSON.parse(dumped.replace(/\/[^"]*?\/kvtc-\w+-\w+\/tmp\//g, ''));
    if (state.ended) return [];
    const value = (what) => {
        const dot = what.lastIndexOf('.');
        const [name, property] = [what.slice(0, dot), what.slice(dot + 1)];
        return name === 'state' ? state[property] : state.controls[name.replace('frmMain.', '')]?.[property];
    };
    const quoted = (text) => `"${String(text).replaceAll('\\', '\\\\').replaceAll('\r', '\\r').replaceAll('\n', '\\n')}"`;
    const all = shown.filter((what) => withNotice || what !== 'lblNotice.caption').map((what) => [what, value(what)]).filter(([, one]) => one !== undefined).map(([what, one]) => `expect ${what} ${quoted(one)}`);
    const cells = state.rows.flatMap((cells, row) => [1, 2, 3, 4, 5, 18].map((column) => `expect cell ${row + 1} ${column} ${quoted(cells[column])}`));
    const boxes = state.messages.map(({ text }) => `expect message ${quoted(text)}`);
    return [...boxes, 'expect nomessage', ...all, ...cells, `expect logcount ${state.log.length}`, ...(state.focus && withFocus ? [`expect focus ${state.focus}`] : [])];
}

// KVT_WAIT: a pattern of those that are run. Some run in the build for every browser too.
const isWanted = (name) => new RegExp(process.env.KVT_WAIT ?? '').test(name);
const elsewhereToo = /: (a deletion|a drawing|the end of the program|a question in the interval of a drawing)$/;
function playedTest(name, lines) {
    if (!isWanted(name)) return;
    const plays = elsewhereToo.test(name) && !process.env.KVT_WEB_PLAY ? [[], ['withoutStackSwitching']] : [[]];
    for (const play of plays) test(`${name} ${play}`, () => new Story(here, 'wait', lines().join('\n'), [], play).run());
}

for (const [wait, how] of Object.entries(waits)) {
    for (const [name, handler] of Object.entries(handlers)) {
        if (covered.includes(`${wait}: ${name}`)) continue;
        playedTest(`${wait}: ${name}`, () => {
            const lines = linesOf(how, handler);
            const expectations = name === 'the end of the program' ? ['expect running no'] : expected(lines, !inWindowBeside.includes(name), wait !== 'receive view');
            assert.ok(expectations.length > 0);
            return [...lines, ...expectations];
        });
    }
}

for (const [name, { begin, come = [] }] of Object.entries(boxes)) {
    playedTest(`a box: ${name}`, () => {
        // Enter is the box's own answer.
        const tried = Object.values(handlers).flat().filter((line) => !/^answer|^press Enter|^receive/.test(line));
        const below = [...tried, ...come].map((line) => `below ${line}`);
        const expectations = expected([...prelude, ...begin, ...come], true, come.length === 0);
        return [...prelude, ...begin.slice(0, -1), ...below, begin.at(-1), ...expectations];
    });
}
