// Scroll bars, arrows beside a number, and tabs.

import { make, View } from './view.js';

const repeatAfter = 400; // milliseconds
const repeatEvery = 60;

// Calls act while a button of the mouse is held on an element.
function whileHeld(element, act) {
    let timer = 0;
    const stop = () => clearTimeout(timer);
    element.addEventListener('pointerdown', (event) => {
        if (event.button !== 0) return;
        const again = (after) => {
            act(event);
            timer = setTimeout(() => again(repeatEvery), after);
        };
        again(repeatAfter);
    });
    for (const name of ['pointerup', 'pointerleave', 'pointercancel']) element.addEventListener(name, stop);
}

class RangeView extends View {
    get min() {
        return this.properties.Min ?? 0;
    }
    get max() {
        return this.properties.Max ?? 0;
    }
    get value() {
        return this.properties.Value ?? 0;
    }
    change(value) {
        const low = Math.min(this.min, this.max);
        const high = Math.max(this.min, this.max);
        const held = Math.round(Math.min(high, Math.max(low, value)));
        if (held !== this.value && this.effectivelyEnabled) this.send({ on: 'range', value: held });
    }
    applied() {
        this.element.setAttribute('aria-valuemin', Math.min(this.min, this.max));
        this.element.setAttribute('aria-valuemax', Math.max(this.min, this.max));
        this.element.setAttribute('aria-valuenow', this.value);
    }
}

export class ScrollBarView extends RangeView {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.vertical = !!facts.vertical;
        this.element.setAttribute('role', 'scrollbar');
        this.element.setAttribute('aria-orientation', this.vertical ? 'vertical' : 'horizontal');
        this.element.classList.add(this.vertical ? 'upright' : 'level');
        this.less = make('div', 'arrow less', this.element);
        this.track = make('div', 'track', this.element);
        this.more = make('div', 'arrow more', this.element);
        this.thumb = make('div', 'thumb', this.track);
        this.pressesFocus();
        whileHeld(this.less, () => this.move(-(facts.small ?? 1)));
        whileHeld(this.more, () => this.move(facts.small ?? 1));
        whileHeld(this.track, (event) => this.page(event));
        this.thumb.addEventListener('pointerdown', (event) => this.grab(event));
    }

    // An upper bound below the lower one turns the bar round.
    get direction() {
        return this.max < this.min ? -1 : 1;
    }
    move(step) {
        this.change(this.value + step * this.direction);
    }
    page(event) {
        if (event.target === this.thumb) return;
        const box = this.thumb.getBoundingClientRect();
        const before = this.vertical ? event.clientY < box.top : event.clientX < box.left;
        const after = this.vertical ? event.clientY > box.bottom : event.clientX > box.right;
        const step = this.facts.large ?? 10;
        if (before) this.move(-step);
        else if (after) this.move(step);
    }

    grab(event) {
        event.stopPropagation();
        this.stage.pressed(this, event);
        this.thumb.setPointerCapture(event.pointerId);
        const along = (one) => (this.vertical ? one.clientY : one.clientX);
        const from = along(event);
        const valueFrom = this.value;
        const room = this.vertical
            ? this.track.clientHeight - this.thumb.offsetHeight
            : this.track.clientWidth - this.thumb.offsetWidth;
        if (room <= 0) return;
        const drag = (moved) => this.change(valueFrom + ((along(moved) - from) / room) * (this.max - this.min));
        this.thumb.addEventListener('pointermove', drag);
        const end = () => this.thumb.removeEventListener('pointermove', drag);
        this.thumb.addEventListener('lostpointercapture', end, { once: true });
    }

    applied() {
        super.applied();
        const span = Math.abs(this.max - this.min) || 1;
        const page = this.facts.large ?? 10;
        const size = Math.max(0.08, page / (span + page));
        const share = (this.value - this.min) / (this.max - this.min || 1);
        const { style } = this.thumb;
        style[this.vertical ? 'height' : 'width'] = `${size * 100}%`;
        style[this.vertical ? 'top' : 'left'] = `${share * (1 - size) * 100}%`;
    }
}

export class UpDownView extends RangeView {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.element.setAttribute('role', 'spinbutton');
        this.pressesFocus();
        whileHeld(make('div', 'arrow up', this.element), () => this.change(this.value + 1));
        whileHeld(make('div', 'arrow down', this.element), () => this.change(this.value - 1));
    }
}

export class TabStripView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.bar = make('div', 'tabs', this.element);
        this.bar.setAttribute('role', 'tablist');
        this.page = make('div', 'page', this.element);
        this.page.setAttribute('role', 'tabpanel');
        this.captions(facts.captions ?? []);
    }

    get target() {
        return this.bar ?? this.element;
    }
    get value() {
        return this.properties.Value ?? 0;
    }

    // The controls lie over the page, by places that count from the corner of the whole.
    captions(captions) {
        this.bar.replaceChildren(
            ...captions.map((caption, page) => {
                const tab = make('div', 'tab');
                tab.setAttribute('role', 'tab');
                tab.textContent = caption;
                tab.addEventListener('mousedown', (event) => {
                    event.preventDefault();
                    if (event.button !== 0) return;
                    this.stage.pressed(this, event);
                    if (page !== this.value) this.send({ on: 'tab', page });
                });
                return tab;
            }),
        );
        this.setValue();
    }
    setCaptions(captions) {
        this.captions(captions);
    }

    setValue() {
        [...this.bar.children].forEach((tab, page) => {
            tab.setAttribute('aria-selected', page === this.value ? 'true' : 'false');
        });
        this.page.setAttribute('aria-label', this.bar.children[this.value]?.textContent ?? '');
        for (const child of this.children) child.showPage();
    }
}
