// What the page shows its user, read off its elements: window.shown. Put in as the functions of inside.mjs. What has no
// element of its own, or lies on a tab behind, comes from what the program has told (window.told).
export function readShown() {
    const twip = () => parseFloat(getComputedStyle(document.documentElement).fontSize) / 16 / 15;
    // The entries of a menu are out of the document until it has been opened.
    const made = [];
    const create = document.createElement.bind(document);
    document.createElement = (...which) => {
        const element = create(...which);
        made.push(new WeakRef(element));
        return element;
    };
    const entriesOut = new Map();
    const outside = (id) => {
        if (!entriesOut.has(id)) entriesOut.set(id, made.find((one) => one.deref()?.dataset?.control === String(id)));
        return entriesOut.get(id)?.deref() ?? null;
    };
    const of = (name) => {
        const told = window.told.named(name);
        if (!told) return null;
        return { told, p: told.p, element: document.querySelector(`[data-control="${told.id}"]`) ?? outside(told.id) };
    };
    const up = (told) => window.told.controls.get(told.parent ?? told.form);
    const around = (told) => (told.kind === 'Form' ? null : up(told));
    const chosen = ({ element }) =>
        element.matches('select') ? element.options[element.selectedIndex] : element.querySelector('[aria-selected=true]');
    const entries = ({ element }) => [...(element.matches('select') ? element.options : element.querySelectorAll('.entry'))];
    const line = (entry, whole) => {
        const text = entry?.textContent ?? '';
        // Columns stand apart in an entry.
        return entry?.children.length > 0 && whole?.replace(/\s+/g, '') === text.replace(/\s+/g, '') ? whole : text;
    };
    // What is cut in its middle to fit stands for what it was cut from.
    const fitted = (text, whole = '') => {
        const [begin, end] = text.split('\u2026');
        return end !== undefined && whole.startsWith(begin) && whole.endsWith(end) ? whole : text;
    };
    const captions = {
        Form: ({ p, element }) => {
            if (!element.classList.contains('main')) return element.querySelector('.title').textContent;
            // The browser squeezes blanks in a title.
            return p.Caption.replace(/ +/g, ' ').trim() === document.title ? p.Caption : document.title;
        },
        Frame: ({ element, p }) => {
            const whole = p.Lead && p.Caption ? `${p.Lead} \u00B7 ${p.Caption}` : (p.Lead ?? '') + (p.Caption ?? '');
            return fitted(element.querySelector(':scope > .caption').textContent, whole) === whole ? p.Caption : element.textContent;
        },
    };
    const covered = ({ told }) => (told.page ?? -1) >= 0 && up(told)?.kind === 'TabStrip' && (up(told).p.Value ?? 0) !== told.page;
    const offAround = ({ told }) => {
        for (let one = around(told); one; one = around(one)) if (one.p.Enabled === false) return true;
        return false;
    };
    const place = (side) => (one) => {
        const whole = one.told.p[side];
        if (one.told.kind === 'Form' || !one.element.checkVisibility()) return whole;
        const own = one.element.getBoundingClientRect();
        const parent = one.element.parentElement.getBoundingClientRect();
        const seen = { Left: own.left - parent.left, Top: own.top - parent.top, Width: own.width, Height: own.height }[side] / twip();
        return Math.abs(seen - whole) < 32 ? whole : Math.round(seen);
    };
    const marked = (element) => element.getAttribute('aria-checked') === 'true';
    const readers = {
        caption: (one) => {
            if (captions[one.told.kind]) return captions[one.told.kind](one);
            return fitted(one.element.querySelector(':scope > .text')?.textContent ?? '', one.p.Caption);
        },
        lead: ({ p, element }) => (element.querySelector(':scope > .caption').textContent.startsWith(p.Lead.slice(0, 3)) ? p.Lead : ''),
        text: (one) => {
            if (one.element.matches('input, textarea')) return one.element.value;
            if (one.told.kind === 'RichText') return one.p.Text;
            return line(chosen(one), one.p.Entries?.[one.p.ListIndex]);
        },
        visible: (one) => (covered(one) ? one.p.Visible : !one.element.hidden),
        enabled: (one) => {
            if (offAround(one)) return one.p.Enabled;
            const target = one.element.querySelector(':scope > .tabs') ?? one.element;
            return target.getAttribute('aria-disabled') !== 'true';
        },
        value: ({ told, element }) => {
            if (told.kind === 'CheckBox') return Number(marked(element));
            if (told.kind === 'OptionButton') return marked(element);
            if (told.kind === 'TabStrip') return [...element.querySelectorAll('.tab')].findIndex((tab) => tab.getAttribute('aria-selected') === 'true');
            return element.getAttribute('aria-valuenow');
        },
        checked: ({ element }) => marked(element),
        tooltip: ({ element }) => element.dataset.tip ?? '',
        listindex: (one) => entries(one).indexOf(chosen(one)),
        selstart: ({ element, p }) => (element === document.activeElement ? element.selectionStart : p.Selection?.[0]),
        sellength: ({ element, p }) =>
            element === document.activeElement ? element.selectionEnd - element.selectionStart : p.Selection?.[1],
        windowstate: ({ element }) => (element.classList.contains('filling') ? 2 : 0),
        left: place('Left'), top: place('Top'), width: place('Width'), height: place('Height'),
    };

    const list = () => of('lvCncProgram').element;
    const label = (name) => readers.caption(of(name));
    const states = {
        // The head and the open line at the end are rows too.
        lineCount: () => Number(list().getAttribute('aria-rowcount')) - 2,
        machine: () => label('lblMachineType').split(' ').find((word) => /^(MK2|MK4|F1)$/.test(word)),
        programChanged: () => document.title.endsWith(' *'),
        selectedRow: () => list().querySelector('.row[aria-selected=true]')?.dataset.row ?? of('lvCncProgram').told.rows.selected,
        metric: () => label('lblPPUnits').endsWith('mm'),
        notes: () => of('txtFileNotes').element.value,
        transmitActive: () => of('frTransmit') ? readers.visible(of('cmdStop')) && !readers.enabled(of('mnuFile')) : undefined,
    };

    window.shown = {
        // undefined for what no page shows.
        property(name, property) {
            if (name === 'state') return states[property]?.();
            const one = of(name);
            return one?.element || one?.told.kind === 'Form' ? readers[property.toLowerCase()]?.(one) : undefined;
        },
        cell(row, column) {
            const cell = list().querySelector(`.row[data-row="${row}"] .cell[data-column="${column}"]`);
            return cell ? cell.textContent : (of('lvCncProgram').told.rows.headers[column][1] > 0 ? null : '');
        },
        hasColumn: (column) => of('lvCncProgram').told.rows.headers[column][1] > 0,
        header: (number) => list().querySelector(`.head[data-column="${number - 1}"]`)?.textContent ?? of('lvCncProgram').told.rows.headers[number - 1]?.[0],
        columnWidth: (number) => of('lvCncProgram').told.rows.headers[number - 1]?.[1],
        rowColor: (row) => of('lvCncProgram').told.rows.colors[row - of('lvCncProgram').told.rows.first],
        entries: (name) => entries(of(name)).length,
        entry: (name, index) => line(entries(of(name))[index], of(name).p.Entries[index]),
        // The control that the browser's focus is in; none is in what has gone out of sight with the keys.
        focus() {
            const id = Number(document.activeElement?.closest('[data-control]')?.dataset.control);
            const out = !document.querySelector(`[data-control="${window.told.focus}"]`)?.checkVisibility();
            const told = window.told.controls.get(out ? window.told.focus : id);
            return told && told.kind !== 'Form' ? told.name + (told.index >= 0 ? `(${told.index})` : '') : '';
        },
    };
}
