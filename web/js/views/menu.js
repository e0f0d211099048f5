// Menus: a bar above the field of a form, and entries that come up below it or at the pointer.

import { make, View } from './view.js';

// Keys that a browser's tab keeps to itself; in a window of its own the page has them.
const browsersOwn = new Set(['Ctrl+N', 'Ctrl+T', 'Ctrl+W', 'Ctrl+Shift+N', 'Ctrl+Shift+T', 'Ctrl+Shift+W']);

export class MenuView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.element.setAttribute('role', 'menuitem');
        this.element.style.zIndex = '';
        this.mark = make('span', 'check', this.element);
        this.text = make('span', 'text', this.element);
        this.keys = make('span', 'keys', this.element);
        this.popup = make('div', 'popup');
        this.popup.setAttribute('role', 'menu');
        this.popup.hidden = true;
        this.element.addEventListener('mousedown', (event) => this.pressed(event));
        this.element.addEventListener('mouseup', (event) => this.released(event));
        this.element.addEventListener('click', (event) => event.stopPropagation());
        this.element.addEventListener('mouseenter', () => stage.menus.hovered(this));
    }

    get inside() {
        return this.popup;
    }
    get isTop() {
        return this.parent.kind === 'Form';
    }
    get isLine() {
        return this.properties.Caption === '-';
    }
    get entries() {
        return this.children.filter((one) => !one.element.hidden && !one.isLine);
    }

    attach(parent) {
        this.parent = parent;
        parent.children.push(this);
        (parent.kind === 'Form' ? parent.menuBar : parent.popup).append(this.element);
        if (parent.kind === 'Menu') parent.element.setAttribute('aria-haspopup', 'menu');
        const key = this.facts.shownShortcut || this.facts.shortcut || '';
        if (browsersOwn.has(key) && !window.matchMedia('(display-mode: standalone)').matches) return this.showPage();
        this.keys.textContent = key;
        if (key) this.element.setAttribute('aria-keyshortcuts', key.replace('Ctrl', 'Control'));
        this.showPage();
    }

    setCaption(value) {
        const line = value === '-';
        this.element.classList.toggle('line', line);
        this.element.setAttribute('role', line ? 'separator' : 'menuitem');
        if (line) this.element.removeAttribute('aria-label');
        else this.element.setAttribute('aria-label', value);
        this.popup.setAttribute('aria-label', value);
        this.showKey('');
    }

    // The letter that chooses it is underlined.
    showKey(letter) {
        this.letter = letter;
        const caption = this.isLine ? '' : (this.properties.Caption ?? '');
        const at = letter ? caption.toUpperCase().indexOf(letter) : -1;
        this.text.replaceChildren();
        if (at < 0) return this.text.append(caption);
        this.text.append(caption.slice(0, at));
        make('u', '', this.text).textContent = caption[at];
        this.text.append(caption.slice(at + 1));
    }

    setChecked(value) {
        this.element.setAttribute('role', value ? 'menuitemcheckbox' : 'menuitem');
        if (value) this.element.setAttribute('aria-checked', 'true');
        else this.element.removeAttribute('aria-checked');
    }
    setVisible(value) {
        super.setVisible(value);
        this.form.followMenus?.();
    }
    describe() {}
    setLeft() {}
    setTop() {}
    setWidth() {}
    setHeight() {}

    pressed(event) {
        event.preventDefault();
        event.stopPropagation();
        if (event.button !== 0) return;
        if (this.isTop) this.stage.menus.pressedTop(this, event);
        else this.stage.menus.pressedEntry(this);
    }
    released(event) {
        if (!this.isLine && this.children.length === 0) this.stage.menus.released(this, event);
    }
}
