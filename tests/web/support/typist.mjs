// Types a program as its user does: code, fields as the entry row offers them, comment.
import { execFileSync } from 'node:child_process';

import { root } from './workbench.mjs';

const columns = { txtXI: 3, txtYJ: 4, txtZK: 5, txtFKTL: 6, txtH: 7, txtComment: 18 };

// The state that the console tells of a program.
export function stateOf(file) {
    const bin = process.env.KVT_WEB_BIN ?? `${root}/build/web/bin`;
    return JSON.parse(execFileSync('node', [`${bin}/kvtc.js`, 'check', '--json', file], { encoding: 'utf8' }));
}

// What is typed for a cell: without blanks and the letter in front. A cycle makes its comment by itself.
function typed(row, field) {
    const cell = row[columns[field]].trim() || (field === 'txtH' ? row[columns.txtFKTL].trim() : '');
    if (field === 'txtComment') return cell.startsWith('@') ? '' : cell;
    return cell.replace(/^[A-Z]/, '').replaceAll(' ', '');
}

export async function typeRow(bench, row) {
    const code = row[2].trim();
    await bench.type(`${code.startsWith('M') ? code : `G${code}`}\r`);
    for (;;) {
        const field = await bench.focus();
        if (!columns[field]) return;
        const text = typed(row, field);
        // What a field offers stands selected.
        if (text === '') await bench.press('Backspace');
        await bench.type(`${text}\r`);
    }
}

export async function typeProgram(bench, { rows, notes }) {
    if (notes) {
        await bench.click('txtFileNotes');
        await bench.type(notes.replaceAll('\r\n', '\r').replace(/\r$/, ''));
        await bench.click('txtGMcode');
    }
    for (const row of rows) if (row[1].trim() !== 'NN') await typeRow(bench, row);
}
