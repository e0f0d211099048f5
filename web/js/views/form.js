// The main form is the page; every other one a window over it, with title and close.

import { barHeight, length, onFont, pixels, twips } from '../scale.js';
import { covers, shortenLists } from './covered_lists.js';
import { make, View } from './view.js';

const leastShown = 40; // pixels of a window that stay within the page

export class FormView extends View {
    constructor(stage, facts, isMain) {
        super(stage, facts, make('div'));
        this.isMain = isMain;
        this.state = 'Normal';
        this.element.classList.add(isMain ? 'main' : 'window');
        this.element.style.zIndex = '';
        this.element.tabIndex = -1;
        this.element.setAttribute('role', isMain ? 'application' : 'dialog');
        const bar = make('div', 'bar', this.element);
        this.menuBar = make('div', 'menubar', bar);
        this.menuBar.setAttribute('role', 'menubar');
        this.makeTitle(bar);
        this.sight = make('div', 'sight', this.element);
        this.field = make('div', 'field', this.sight);
        this.makeGrip();
        this.element.hidden = true;
        document.body.append(this.element);
        this.element.addEventListener('mousedown', () => this.stage.activate(this), true);
        new ResizeObserver(() => this.tellSize()).observe(this.field);
        this.setLeast();
        onFont(() => this.tellSize());
    }

    get inside() {
        return this.field;
    }
    get edges() {
        return [this.facts.edgeWidth ?? 0, this.facts.edgeHeight ?? 0];
    }

    // One bar has it all: menus, title, and what else the page offers.
    makeTitle(bar) {
        this.title = make('div', 'title', bar);
        this.nameButtons();
        if (this.isMain) return;
        this.title.id = `title${this.id}`;
        this.element.setAttribute('aria-labelledby', this.title.id);
        this.larger = make('button', 'larger', bar);
        this.closing = make('button', 'close', bar);
        for (const button of [this.larger, this.closing]) {
            button.type = 'button';
            button.tabIndex = -1;
            button.addEventListener('mousedown', (event) => event.preventDefault());
        }
        this.closing.addEventListener('click', () => this.tell({ on: 'close' }));
        const turn = () => this.tell({ on: 'state', state: this.state === 'Maximised' ? 'Normal' : 'Maximised' });
        this.larger.addEventListener('click', turn);
        this.title.addEventListener('dblclick', turn);
        this.title.addEventListener('pointerdown', (event) =>
            this.drag(event, this.title, (dx, dy, from) => this.moveTo(from.left + dx, from.top + dy)),
        );
        this.nameButtons();
    }

    nameButtons() {
        this.menuBar.setAttribute('aria-label', this.stage.text('menu'));
        this.larger?.setAttribute('aria-label', this.stage.text(this.state === 'Maximised' ? 'restore' : 'maximise'));
        this.closing?.setAttribute('aria-label', this.stage.text('close'));
    }

    makeGrip() {
        this.grip = make('div', 'grip', this.element);
        this.grip.setAttribute('aria-hidden', 'true');
        this.grip.addEventListener('pointerdown', (event) =>
            this.drag(event, this.grip, (dx, dy, from) => this.resizeTo(from.width + dx, from.height + dy)),
        );
    }

    drag(event, handle, act) {
        if (event.button !== 0 || this.state !== 'Normal') return;
        handle.setPointerCapture(event.pointerId);
        const from = this.element.getBoundingClientRect();
        const moved = (one) => act(one.clientX - event.clientX, one.clientY - event.clientY, from);
        handle.addEventListener('pointermove', moved);
        handle.addEventListener('lostpointercapture', () => handle.removeEventListener('pointermove', moved), { once: true });
    }

    moveTo(left, top) {
        const x = Math.min(innerWidth - leastShown, Math.max(leastShown - this.element.offsetWidth, left));
        const y = Math.min(innerHeight - leastShown, Math.max(0, top));
        this.element.style.left = `${x}px`;
        this.element.style.top = `${y}px`;
        this.tell({ on: 'place', left: Math.round(twips(x)), top: Math.round(twips(y)) });
    }

    resizeTo(width, height) {
        const [edgeX, edgeY] = this.edges;
        const rest = this.element.offsetHeight - this.sight.offsetHeight;
        const least = [this.facts.smallestWidth || 2000, this.facts.smallestHeight || 1000];
        const field = [twips(width), twips(height - rest)];
        this.showSize(Math.max(least[0], field[0] + edgeX), Math.max(least[1], field[1] + edgeY));
    }

    tell(event) {
        this.stage.link.send({ ...event, form: this.id });
    }

    // The field is as large as the window, but never smaller than its controls need.
    setLeast() {
        const { smallestWidth = 0, smallestHeight = 0 } = this.facts;
        const [edgeX, edgeY] = this.edges;
        if (!smallestWidth) return;
        this.field.style.minWidth = length(smallestWidth - edgeX);
        this.field.style.minHeight = length(smallestHeight - edgeY);
    }

    // The size that the field has got, where it is another than the program has set.
    tellSize() {
        if (this.element.hidden || this.field.clientWidth === 0) return;
        const [edgeX, edgeY] = this.edges;
        const { Width: width = 0, Height: height = 0 } = this.properties;
        const same = (have, wanted) => Math.abs(have - Math.ceil(pixels(wanted) - 0.01)) < 1.01;
        const known = same(this.field.offsetWidth, width - edgeX) && same(this.field.offsetHeight, height - edgeY);
        if (known) return;
        const event = {
            on: 'resize', form: this.id,
            width: Math.floor(twips(this.field.offsetWidth) + 0.01),
            height: Math.floor(twips(this.field.offsetHeight) + 0.01),
        };
        this.stage.link.sendLatest(event, (one) => one.on === 'resize' && one.form === this.id);
    }

    setLeft() {}
    setTop() {}
    setWidth() {}
    setHeight() {}
    applied(changed) {
        const placed = ['Left', 'Top', 'Width', 'Height', 'WindowState', 'RestoredPlace'].some((name) => name in changed);
        if (!placed) return;
        this.showPlace();
        this.stage.later(this.field, () => this.tellSize());
    }

    showPlace() {
        const { style } = this.element;
        this.fills = this.state === 'Maximised' || (this.isMain && this.state !== 'Normal');
        this.element.classList.toggle('filling', this.fills);
        this.stage.restack();
        if (this.fills) {
            style.left = style.top = '0';
            style.width = '';
            this.field.style.width = this.field.style.height = '';
            return;
        }
        const { Left: left = 0, Top: top = 0, Width: width = 0, Height: height = 0 } = this.properties;
        this.showSize(width, height);
        const [edgeX, edgeY] = this.edges;
        const within = (place, room) => `${Math.max(0, Math.min(place, room))}px`;
        style.left = within(pixels(left), innerWidth - pixels(width - edgeX));
        style.top = within(pixels(top), innerHeight - pixels(height - edgeY + barHeight()));
    }
    showSize(width, height) {
        const [edgeX, edgeY] = this.edges;
        this.element.style.width = this.field.style.width = length(width - edgeX);
        this.field.style.height = length(height - edgeY);
    }

    childChanged(child, properties) {
        if (covers(child, properties)) this.stage.later(`lists${this.id}`, () => shortenLists(this));
    }

    setWindowState(value) {
        this.state = value;
        this.nameButtons();
    }

    setVisible(value) {
        this.visible = value;
        this.element.hidden = !value;
        if (value) this.showPlace();
        this.stage.formShown(this);
        if (value && this.isTooLarge && this.state === 'Normal') this.tell({ on: 'state', state: 'Maximised' });
    }
    showPage() {}

    // One that the page has no room for fills it.
    get isTooLarge() {
        const { Width: width = 0, Height: height = 0 } = this.properties;
        const resizable = !this.isMain && this.facts.smallestWidth > 0;
        return resizable && (pixels(width) > innerWidth || pixels(height) > innerHeight);
    }

    setCaption(value) {
        if (this.isMain) {
            document.title = value;
            this.element.setAttribute('aria-label', value);
        } else {
            this.title.textContent = value;
        }
    }
    describe() {}
    setEnabled(value) {
        this.enabled = value;
        this.field.classList.toggle('frozen', !value);
        for (const child of this.children) child.followEnabled();
    }

    followMenus() {
        this.stage.later(this.menuBar, () => {
            this.menuBar.hidden = this.stage.menus.tops(this).length === 0;
            this.stage.menus.giveBarKeys(this);
        });
    }

    // Where a part of the field alone can be seen, that is the part with the control that has the keys.
    bringIntoSight(element) {
        const box = element.getBoundingClientRect();
        const view = this.sight.getBoundingClientRect();
        if (box.width > view.width || box.height > view.height) return;
        const by = (low, high, from, to) => (low < from ? low - from : high > to ? high - to : 0);
        this.sight.scrollLeft += by(box.left, box.right, view.left, view.left + this.sight.clientWidth);
        this.sight.scrollTop += by(box.top, box.bottom, view.top, view.top + this.sight.clientHeight);
    }
}
