// Lists of entries: open ones, and those of which the selected entry alone is seen.

import { textColor } from '../colors.js';
import { onFont } from '../scale.js';
import { make, View } from './view.js';

export class ListBoxView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.element.tabIndex = -1;
        this.element.setAttribute('role', 'listbox');
        this.element.classList.toggle('fixed', !!facts.fixedPitch);
        this.body = make('div', 'entries', this.element);
        this.body.setAttribute('role', 'presentation');
        this.pressesFocus();
        this.body.addEventListener('click', (event) => {
            const entry = event.target.closest('.entry');
            if (entry) this.send({ on: 'entry', index: [...this.body.children].indexOf(entry) });
        });
        this.body.addEventListener('scroll', () => this.tellSight(), { passive: true });
        new ResizeObserver(() => this.tellSight()).observe(this.body);
        onFont(() => this.tellSight());
    }

    setEntries(entries) {
        this.body.replaceChildren(
            ...entries.map((text, i) => {
                const entry = make('div', 'entry');
                entry.id = `entry${this.id}_${i}`;
                entry.setAttribute('role', 'option');
                const tab = text.indexOf('\t');
                if (tab < 0) {
                    entry.textContent = text;
                } else {
                    make('span', 'code', entry).textContent = text.slice(0, tab).trim();
                    make('span', 'words', entry).textContent = text.slice(tab + 1).trim();
                    entry.setAttribute('aria-label', text.replace(/\s+/g, ' ').trim());
                }
                return entry;
            }),
        );
        this.mark();
        this.tellSight();
    }

    setListIndex() {
        this.mark();
    }

    // An index of no entry selects none.
    mark() {
        const chosen = this.properties.ListIndex ?? -1;
        [...this.body.children].forEach((entry, i) => {
            entry.setAttribute('aria-selected', i === chosen ? 'true' : 'false');
        });
        const entry = this.body.children[chosen];
        if (entry) {
            this.element.setAttribute('aria-activedescendant', entry.id);
            this.bringIntoSight(entry);
        } else {
            this.element.removeAttribute('aria-activedescendant');
        }
    }

    bringIntoSight(entry) {
        const top = entry.offsetTop;
        const bottom = top + entry.offsetHeight;
        const { scrollTop, clientHeight } = this.body;
        if (top < scrollTop) this.body.scrollTop = top;
        else if (bottom > scrollTop + clientHeight) this.body.scrollTop = bottom - clientHeight;
    }

    // How many entries are in sight is for the keys that go by pages.
    tellSight() {
        const height = this.body.firstElementChild?.offsetHeight;
        if (!height) return;
        const rows = Math.max(1, Math.floor(this.body.clientHeight / height));
        const top = Math.round(this.body.scrollTop / height) + 1;
        if (rows === this.rows && top === this.top) return;
        this.rows = rows;
        this.top = top;
        this.send({ on: 'sight', top, rows });
    }

    setForeColor() {
        this.recolor();
    }
    recolor() {
        this.element.style.color = textColor(this.properties.ForeColor, 'base');
    }
}

export class ComboBoxView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('select'));
        this.focusable = true;
        this.open = false;
        this.element.addEventListener('mousedown', (event) => {
            if (!this.effectivelyEnabled) event.preventDefault();
            this.stage.pressed(this, event);
            this.open = this.effectivelyEnabled;
        });
        this.element.addEventListener('blur', () => (this.open = false));
        this.element.addEventListener('change', () => {
            this.open = false;
            const index = this.element.selectedIndex;
            this.element.selectedIndex = this.properties.ListIndex ?? -1;
            this.send({ on: 'entry', index });
        });
        // The wheel over a closed box chooses nothing: it may be on its way to something else.
        this.element.addEventListener('wheel', (event) => event.preventDefault(), { passive: false });
    }

    // While its list is open the keys are the browser's.
    keepsKey(event) {
        const kept = this.open;
        if (event.key === 'Escape' || event.key === 'Enter' || event.key === 'Tab') this.open = false;
        return kept;
    }

    setEntries(entries) {
        this.element.replaceChildren(
            ...entries.map((text) => {
                const option = make('option');
                option.textContent = text;
                return option;
            }),
        );
        this.setListIndex();
    }
    setListIndex() {
        this.element.selectedIndex = this.properties.ListIndex ?? -1;
    }

    openList() {
        try {
            this.element.showPicker();
            this.open = true;
        } catch {
            // Not now: the keys choose without it.
        }
    }
}
