// The program: a table of which the page has the rows around those in sight. The program sends them as "rows"
// messages and is told what has come into sight.

import { textColor } from '../colors.js';
import { length, onFont, pixels } from '../scale.js';
import { showTip, hideTip } from '../tip.js';
import { followRest } from './touch.js';
import { make, View } from './view.js';

const headerHeight = 300; // twips
const rowHeight = 255;
const dwell = 500; // milliseconds until a tool tip

export class ListViewView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.element.tabIndex = 0;
        this.element.setAttribute('role', 'grid');
        this.element.setAttribute('aria-readonly', 'true');
        this.sheet = make('div', 'sheet', this.element);
        this.sheet.setAttribute('role', 'presentation');
        this.heads = make('div', 'heads', this.sheet);
        this.heads.setAttribute('role', 'row');
        this.lines = make('div', 'lines', this.sheet);
        this.lines.setAttribute('aria-hidden', 'true');
        this.body = make('div', 'rows', this.sheet);
        this.body.setAttribute('role', 'presentation');
        this.state = { count: 0, selected: 0, top: 1, marked: 0, first: 1, rows: [], colors: [], headers: [] };
        this.columns = [];
        this.listen();
        onFont(() => this.tellSight());
    }

    listen() {
        const { element } = this;
        this.pressesFocus();
        element.addEventListener('scroll', () => this.tellSight(), { passive: true });
        new ResizeObserver(() => this.tellSight()).observe(element);
        this.heads.addEventListener('click', (event) => {
            const head = event.target.closest('.head');
            if (head) this.send({ on: 'header', column: Number(head.dataset.column) });
        });
        this.body.addEventListener('mousedown', (event) => event.button === 2 && this.rowEvent(event));
        this.body.addEventListener('click', (event) => this.rowEvent(event));
        element.addEventListener('contextmenu', (event) => this.menuKey(event));
        followRest(this.body, { act: (event) => this.rested(event) });
        element.addEventListener('mousemove', (event) => this.hover(event));
        element.addEventListener('mouseleave', () => this.leave());
    }

    rowEvent(event, button = event.button === 2 ? 2 : 1) {
        const row = Number(event.target.closest('.row')?.dataset.row);
        if (!row) return;
        this.leave();
        const column = Number(event.target.closest('.cell')?.dataset.column ?? 0);
        this.send({ on: 'row', row, column, clicks: Math.max(1, event.detail), button });
    }

    rested(event) {
        this.stage.pointer = { x: event.clientX, y: event.clientY };
        this.rowEvent(event, 2);
        return true;
    }

    // Mouse and finger have their own ways; this is for the key.
    menuKey(event) {
        event.preventDefault();
        if (event.pointerType === 'touch') return;
        const row = this.body.querySelector(`[data-row="${this.state.selected}"]`);
        if (event.button === 2 || !row) return;
        const box = row.getBoundingClientRect();
        this.stage.pointer = { x: box.left + pixels(rowHeight), y: box.bottom };
        this.send({ on: 'row', row: Number(row.dataset.row), column: 0, clicks: 1, button: 2 });
    }

    // A message "rows": what is not in it stays.
    takeRows(message) {
        const before = this.state;
        this.state = { ...before, ...message };
        if (message.headers) this.layOut();
        const { count, selected } = this.state;
        this.element.setAttribute('aria-rowcount', count + 1);
        this.sheet.style.height = length(headerHeight + rowHeight * count);
        this.fill();
        for (const row of this.body.children) {
            const chosen = Number(row.dataset.row) === selected;
            if ((row.getAttribute('aria-selected') === 'true') !== chosen)
                row.setAttribute('aria-selected', chosen ? 'true' : 'false');
        }
        this.markActive();
        if ('top' in message) this.scrollToTop();
    }

    markActive() {
        const { selected } = this.state;
        const shown = this.body.querySelector(`[data-row="${selected}"]`);
        if (shown) this.element.setAttribute('aria-activedescendant', shown.id);
        else this.element.removeAttribute('aria-activedescendant');
    }

    layOut() {
        this.columns = [];
        let left = 0;
        this.state.headers.forEach(([text, width], column) => {
            if (width <= 0) return;
            this.columns.push({ column, text, left, width });
            left += width;
        });
        this.sheet.style.minWidth = length(left);
        const place = (element, { left: at, width }, i) => {
            element.style.left = length(at);
            // The last one has the room that the list has left.
            if (i === this.columns.length - 1) element.style.right = '0';
            else element.style.width = length(width);
        };
        this.heads.replaceChildren(
            ...this.columns.map((one, i) => {
                const head = make('div', 'head');
                head.setAttribute('role', 'columnheader');
                head.dataset.column = one.column;
                make('span', 'text', head).textContent = one.text;
                place(head, one, i);
                return head;
            }),
        );
        this.lines.replaceChildren(
            ...this.columns.map((one, i) => {
                const line = make('div', 'line');
                place(line, one, i);
                return line;
            }),
        );
        this.place = place;
        this.element.setAttribute('aria-colcount', this.columns.length);
        this.body.replaceChildren();
    }

    // Rows keep their elements as long as their number stays; what they hold is compared before it is written.
    fill() {
        const { first, rows, colors } = this.state;
        const known = new Map([...this.body.children].map((row) => [Number(row.dataset.row), row]));
        const wanted = rows.map((cells, i) => {
            const number = first + i;
            const element = known.get(number) ?? this.newRow(number);
            this.fillRow(element, cells, colors[i] ?? 0, number);
            return element;
        });
        const kept = new Set(wanted);
        for (const row of known.values()) if (!kept.has(row)) row.remove();
        let next = this.body.firstElementChild;
        for (const row of wanted) {
            if (row === next) next = next.nextElementSibling;
            else this.body.insertBefore(row, next);
        }
    }

    newRow(number) {
        const row = make('div', 'row');
        row.id = `row${this.id}_${number}`;
        row.dataset.row = number;
        row.setAttribute('role', 'row');
        row.setAttribute('aria-rowindex', number + 1);
        row.style.top = length(headerHeight + rowHeight * (number - 1));
        this.columns.forEach((one, i) => {
            const cell = make('div', 'cell', row);
            cell.setAttribute('role', 'gridcell');
            cell.dataset.column = one.column;
            this.place(cell, one, i);
        });
        return row;
    }

    fillRow(row, cells, color, number) {
        const { emphasised = 0, colored = [1, 0], selected, marked } = this.state;
        row.classList.toggle('marked', number === marked);
        row.classList.toggle('selected', number === selected);
        this.columns.forEach(({ column }, i) => {
            const cell = row.children[i];
            const text = (cells[column] ?? '').trimEnd();
            if (cell.textContent !== text) cell.textContent = text;
            const tinted = column >= colored[0] && column <= colored[1] && color !== 0;
            const key = column === emphasised && emphasised ? 'finding' : tinted ? String(color) : '';
            if (cell.dataset.ink === key) return;
            cell.dataset.ink = key;
            cell.classList.toggle('finding', key === 'finding');
            cell.style.color = tinted && key !== 'finding' ? textColor(color, 'base') : '';
        });
    }

    recolor() {
        for (const cell of this.body.querySelectorAll('.cell')) delete cell.dataset.ink;
        this.fill();
    }

    get rowsInSight() {
        return Math.max(1, Math.floor((this.element.clientHeight - pixels(headerHeight)) / pixels(rowHeight)));
    }
    get topInSight() {
        return Math.floor(this.element.scrollTop / pixels(rowHeight) + 0.01) + 1;
    }

    scrollToTop() {
        const wanted = this.state.top;
        if (this.topInSight !== wanted) this.element.scrollTop = (wanted - 1) * pixels(rowHeight);
        this.toldTop = this.topInSight;
    }

    tellSight() {
        if (this.element.clientHeight === 0) return;
        const rows = this.rowsInSight;
        const top = this.topInSight;
        if (rows === this.toldRows && top === this.toldTop) return;
        this.toldRows = rows;
        this.toldTop = top;
        this.leave();
        const event = { on: 'sight', id: this.id, top, rows };
        this.stage.link.sendLatest(event, (one) => one.on === 'sight' && one.id === this.id);
    }

    // A cell that its column cuts is shown whole, with what is to be known about it.
    hover(event) {
        clearTimeout(this.dwelling);
        hideTip();
        const cell = event.target.closest('.cell');
        if (!cell) return;
        const { clientX: x, clientY: y } = event;
        this.dwelling = setTimeout(() => {
            const row = Number(cell.parentElement.dataset.row);
            const column = Number(cell.dataset.column);
            this.tipped = { cell, x, y, row, column };
            this.send({ on: 'tooltip', row, column });
        }, dwell);
    }
    leave() {
        clearTimeout(this.dwelling);
        this.tipped = null;
        hideTip();
    }
    tip({ row, column, cell: whole = '', text = '' }) {
        const { cell, x, y } = this.tipped ?? {};
        if (!cell || this.tipped.row !== row || this.tipped.column !== column) return;
        const cut = cell.scrollWidth > cell.clientWidth;
        if (text) showTip(text, x, y, whole);
        else if (cut) showTip(whole, x, y);
    }
}
