// What a story expects, read off what the page shows.

const properties = {
    caption: (p) => p.Caption, text: (p, one) => (one.kind.startsWith('Lis') || one.kind === 'ComboBox' ? (p.Entries?.[p.ListIndex] ?? '') : p.Text),
    visible: (p) => p.Visible, enabled: (p) => p.Enabled, value: (p, one) => (one.kind === 'CheckBox' ? Number(p.Value) : p.Value), checked: (p) => p.Checked, tooltip: (p) => p.ToolTip,
    listindex: (p) => p.ListIndex, selstart: (p) => p.Selection?.[0], sellength: (p) => p.Selection?.[1], lead: (p) => p.Lead,
};

// A scalar of the state: the control that shows it, and how.
const ofState = {
    lineCount: ['lblPPLines', (one) => one.p.Caption],
    machine: ['lblMachineType', (one) => one.p.Caption.split(' ').find((word) => /^(MK2|MK4|F1)$/.test(word))],
    programChanged: ['frmMain', (one) => one.p.Caption.endsWith(' *')],
    selectedRow: ['lvCncProgram', (one) => one.rows.selected],
    metric: ['lblPPUnits', (one) => one.p.Caption.endsWith('mm')],
    notes: ['txtFileNotes', (one) => one.p.Text],
};

const plain = (value) => (value === undefined || value === null ? '' : String(value));

async function control(story, name) {
    const one = await story.bench.evaluate((n) => {
        const found = window.told.named(n);
        return found && { ...found, rows: found.rows && { ...found.rows } };
    }, name);
    return one ?? null;
}

// { got, wanted } as texts; null for what no page shows.
export async function shownOf(story, what, text, textOf) {
    const { bench } = story;
    const wanted = textOf(text);
    const words = text.trim().split(/\s+/);
    if (what === 'focus') return { got: plain(await bench.focus()), wanted: words[0].split('.').at(-1) };
    if (what === 'running') return { got: (await bench.evaluate(() => window.told.ended)) ? 'no' : 'yes', wanted };
    if (what === 'beeps') return null;
    if (what === 'clipboard') return { got: await bench.evaluate(() => navigator.clipboard.readText()), wanted };
    if (what === 'entries') return { got: plain((await control(story, words[0]))?.p.Entries?.length), wanted: words[1] };
    if (what === 'entry') {
        const one = await control(story, words[0]);
        return { got: plain(one?.p.Entries?.[Number(words[1])]), wanted: textOf(text.trim().split(/\s+/).slice(2).join(' ')) };
    }
    if (what === 'file' || what === 'filehas') {
        const name = textOf(words[0]);
        if (/[/$]/.test(name)) return null;
        const content = textOf(text.trimStart().slice(words[0].length + 1));
        const got = await bench.read(name);
        return what === 'file' ? { got, wanted: content } : { got: plain(got.includes(content)), wanted: 'true' };
    }
    if (what === 'cell') return cell(story, text, textOf);
    if (what === 'header') {
        const list = await control(story, 'lvCncProgram');
        return { got: plain(list.rows.headers[Number(words[0]) - 1]?.[0]), wanted: textOf(text.trimStart().slice(words[0].length + 1)) };
    }
    if (what === 'nolog') {
        const kept = await bench.evaluate(() => Object.keys(localStorage).filter((key) => key.endsWith('Errors.log')).length);
        return { got: plain(kept), wanted: '0' };
    }
    if (what === 'sent') {
        const written = await bench.evaluate(() => window.port.written.map((one) => one.text).join(''));
        const got = written.slice(story.sent);
        story.sent = written.length;
        return { got, wanted };
    }
    return ofControl(story, what, wanted);
}

async function cell(story, text, textOf) {
    const [, row, column, rest] = /^\s*(\d+)\s+(\d+)\s?(.*)$/s.exec(text);
    const list = await control(story, 'lvCncProgram');
    if (!list.rows.rows[Number(row) - list.rows.first]) await story.rowInSight(Number(row));
    const { rows, first } = (await control(story, 'lvCncProgram')).rows;
    return { got: plain(rows[Number(row) - first]?.[Number(column)]).trimEnd(), wanted: textOf(rest).trimEnd() };
}

async function ofControl(story, what, wanted) {
    const dot = what.lastIndexOf('.');
    const name = what.slice(0, dot);
    const property = what.slice(dot + 1);
    if (name === 'state') {
        const [shows, of] = ofState[property] ?? [];
        return of ? { got: plain(of(await control(story, shows))), wanted } : null;
    }
    // They follow the size of the window.
    if (/UpDown$|sbViewWindow$/.test(name)) return null;
    const read = properties[property.toLowerCase()];
    const one = read && (await control(story, name));
    if (!one) return null;
    const got = read(one.p, one);
    const lines = (text) => text.replaceAll('\r\n', '\n');
    return got === undefined ? null : { got: lines(plain(got)), wanted: lines(wanted) };
}
