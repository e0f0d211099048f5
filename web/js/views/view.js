// What all views of controls have in common: place, sight, state, names. A view is made from the "make" message of its
// control and follows its properties; what the hands do is told to the program, which has the last word.

import { length } from '../scale.js';

// What lies over what, by kind: documents, pictures and lists of codes over the list, frames and tabs over these, the
// rest on top.
const layers = { ListView: 1, PictureBox: 2, RichText: 3, ListBox: 3, Frame: 4, TabStrip: 4 };

const pointers = { 2: 'crosshair', 13: 'progress' };

export class View {
    // facts is the message; element what shows the control.
    constructor(stage, facts, element) {
        this.stage = stage;
        this.id = facts.id;
        this.kind = facts.kind;
        this.facts = facts;
        this.element = element;
        this.children = [];
        this.properties = {};
        this.visible = true;
        this.enabled = true;
        element.classList.add('control', facts.kind.toLowerCase());
        element.dataset.control = facts.id;
        element.dataset.name = facts.name + (facts.index >= 0 ? facts.index : '');
        element.style.zIndex = facts.inFront ? 6 : (layers[facts.kind] ?? 5);
    }

    // What takes the keys, and what the children lie in.
    get target() {
        return this.element;
    }
    get inside() {
        return this.element;
    }

    get form() {
        let view = this;
        while (view.parent) view = view.parent;
        return view;
    }

    attach(parent) {
        this.parent = parent;
        parent.children.push(this);
        parent.inside.append(this.element);
        this.showPage();
        this.followEnabled();
    }

    apply(properties) {
        Object.assign(this.properties, properties);
        for (const [name, value] of Object.entries(properties)) this[`set${name}`]?.(value);
        this.applied?.(properties);
        this.parent?.childChanged?.(this, properties);
    }

    setLeft(value) {
        this.element.style.left = length(value);
    }
    setTop(value) {
        this.element.style.top = length(value);
    }
    setWidth(value) {
        this.element.style.width = length(value);
    }
    setHeight(value) {
        this.element.style.height = length(value);
    }

    setVisible(value) {
        this.visible = value;
        this.showPage();
    }

    // On a tab strip only what lies on the page in front is to be seen.
    showPage() {
        const page = this.facts.page ?? -1;
        const covered = page >= 0 && this.parent?.kind === 'TabStrip' && this.parent.value !== page;
        this.element.hidden = !this.visible || covered;
    }

    setEnabled(value) {
        this.enabled = value;
        this.followEnabled();
    }

    get effectivelyEnabled() {
        return this.enabled && (!this.parent || this.parent.effectivelyEnabled);
    }

    // What is disabled stays clickable: the program then says why.
    followEnabled() {
        const off = !this.effectivelyEnabled;
        this.element.classList.toggle('off', off);
        if (off) this.target.setAttribute('aria-disabled', 'true');
        else this.target.removeAttribute('aria-disabled');
        this.showEnabled?.(!off);
        for (const child of this.children) child.followEnabled();
    }

    setToolTip(value) {
        this.element.dataset.tip = value;
        this.describe();
    }
    setAccessibleName() {
        this.describe();
    }
    setCaption() {
        this.describe();
    }

    // The name for a screen reader, and behind it what the tool tip tells besides.
    describe() {
        const { AccessibleName: name = '', Caption: caption = '', ToolTip: tip = '' } = this.properties;
        const called = name || caption;
        if (called) this.target.setAttribute('aria-label', called);
        else this.target.removeAttribute('aria-label');
        const more = tip.startsWith(called) ? tip.slice(called.length).trim() : tip;
        if (more) this.target.setAttribute('aria-description', more);
        else this.target.removeAttribute('aria-description');
    }

    setMousePointer(value) {
        this.element.style.cursor = pointers[value] ?? '';
    }

    setTabIndex(value) {
        if (this.focusable) this.target.tabIndex = value >= 0 ? 0 : -1;
    }

    send(event) {
        this.stage.link.send({ ...event, id: this.id });
    }

    // A press of the mouse gives the focus by way of the program, not of the browser. keep: the browser places the
    // caret behind it.
    pressesFocus(element = this.element, keep = false) {
        element.addEventListener('mousedown', (event) => {
            if (!keep) event.preventDefault();
            this.stage.pressed(this, event);
        });
    }

    recolor() {}
    remove() {
        this.element.remove();
    }
}

export function make(tag, className, parent) {
    const element = document.createElement(tag);
    if (className) element.className = className;
    parent?.append(element);
    return element;
}
