// The controls of the program on the page: makes their views, leads messages to them and what the hands do back.

import { onScheme } from './colors.js';
import { isBrowsers, isEditing, pressOf } from './keys.js';
import { Link } from './link.js';
import { Menus } from './menus.js';
import { before } from './texts.js';
import { CheckBoxView, CommandButtonView, OptionButtonView } from './views/buttons.js';
import { FormView } from './views/form.js';
import { ListViewView } from './views/list_view.js';
import { ComboBoxView, ListBoxView } from './views/lists.js';
import { MenuView } from './views/menu.js';
import { PictureBoxView } from './views/picture_box.js';
import { FrameView, LabelView, ProgressBarView } from './views/plain.js';
import { ScrollBarView, TabStripView, UpDownView } from './views/ranges.js';
import { RichTextView } from './views/rich_text.js';
import { LineView, NotesView } from './views/text_box.js';

const kinds = {
    Label: LabelView, CheckBox: CheckBoxView, OptionButton: OptionButtonView, CommandButton: CommandButtonView,
    Frame: FrameView, ProgressBar: ProgressBarView, ListBox: ListBoxView, ComboBox: ComboBoxView,
    ListView: ListViewView, Menu: MenuView, PictureBox: PictureBoxView, RichText: RichTextView, TabStrip: TabStripView,
    ScrollBar: ScrollBarView, UpDown: UpDownView,
};

function withoutWay(event) {
    if (event.button < 3) return;
    event.preventDefault();
    event.stopPropagation();
}

export class Stage {
    #views = new Map();
    #forms = [];
    #later = new Map();
    #texts = before;
    #handlers = {};
    #quiet = false;
    #shortcuts = new Set();

    constructor() {
        this.link = new Link(
            (message) => this.take(message),
            (id, from, floats) => this.#views.get(id)?.operations(from, floats),
            (id, canvas) => this.#views.get(id)?.keepPicture(canvas),
        );
        this.menus = new Menus(this);
        this.focus = null;
        this.front = null;
        // When the first window is there.
        this.shown = new Promise((resolve) => (this.tellShown = resolve));
        this.pointer = { x: 0, y: 0 };
        this.speaker = document.querySelector('#speaker');
        this.#listen();
        onScheme(() => this.#views.forEach((view) => view.recolor()));
    }

    // Who takes a message of a kind besides the views: handle(message).
    handle(tasks) {
        Object.assign(this.#handlers, tasks);
    }
    reply(ask, answer) {
        this.link.send({ on: 'reply', ask, ...answer });
    }

    // A text of the page's own, in the language of the program, which tells it.
    text(name) {
        return this.#texts[name] ?? '';
    }

    #listen() {
        document.addEventListener('keydown', (event) => this.#key(event), true);
        // Some browsers press a button when the blank is let go, though its way down was prevented.
        document.addEventListener('keyup', (event) => event.key === ' ' && event.target.matches?.('.control') && event.preventDefault(), true);
        // Buttons that lead back and forward would leave the page and its work.
        for (const name of ['mousedown', 'mouseup']) document.addEventListener(name, (event) => withoutWay(event), true);
        document.addEventListener('paste', (event) => this.#paste(event), true);
        document.addEventListener('selectionchange', () => this.focus?.caretMoved?.());
        document.addEventListener('focusin', (event) => this.#focused(event));
        // A keyboard on the screen has taken a part of the page.
        window.addEventListener('resize', () => this.later('sight', () => this.focus?.form.bringIntoSight(this.focus.element)));
        document.addEventListener('mousemove', (event) => (this.pointer = { x: event.clientX, y: event.clientY }), true);
        document.addEventListener('mousedown', (event) => (this.pointer = { x: event.clientX, y: event.clientY }), true);
    }

    get asking() {
        return document.querySelector('dialog[open]') !== null;
    }

    #key(event) {
        const elsewhere = this.asking || event.target.closest?.('.panel');
        if (!elsewhere && this.menus.isOpen) return this.menus.key(event);
        const form = this.front;
        const press = pressOf(event);
        const shortcut = this.#isShortcut(press);
        // A box has them not, but the page is not to be loaded anew, saved or printed instead.
        if (elsewhere) return shortcut && !isEditing(press) && event.preventDefault();
        if (!form) return;
        if (this.menus.keyOpens(form, event)) return event.preventDefault();
        if (!shortcut && this.focus?.keepsKey?.(event)) return;
        // With Alt an arrow would leave the page.
        if (!press && event.altKey && event.key.startsWith('Arrow')) event.preventDefault();
        if (!press || (!shortcut && isBrowsers(press))) return;
        const held = press.held;
        // What is pasted comes by itself.
        const pastes = (held === 2 && press.key === 86) || (held === 1 && press.key === 45);
        if (pastes && event.target.matches?.('.textbox')) return;
        // The caret may have moved just now.
        this.focus?.caretMoved?.();
        const { key } = press;
        const message = { on: 'key', form: form.id, key, held, char: press.prints ? event.key : '' };
        const always = press.prints || key === 9 || shortcut;
        this.link.sendKey({ ...message, repeat: event.repeat, time: event.timeStamp }, event, always);
    }

    // A function key and a key of a menu are the program's, whatever the browser would do with them and whatever window
    // is in front.
    #isShortcut(press) {
        const { key, held } = press ?? {};
        if (key >= 112 && key <= 121) return true;
        const name = (held & 2 ? 'Ctrl+' : '') + (held & 1 ? 'Shift+' : '') + String.fromCharCode(key);
        return (held & 2) !== 0 && this.#shortcuts.has(name);
    }

    #paste(event) {
        if (this.asking || !this.front || !event.target.matches?.('.textbox')) return;
        event.preventDefault();
        const text = event.clipboardData?.getData('text/plain') ?? '';
        this.link.send({ on: 'paste', form: this.front.id, text });
    }

    // The mouse goes down on a control.
    pressed(view, event) {
        if (event.button !== 0) return;
        this.pressing = view;
        view.send({ on: 'press' });
        setTimeout(() => {
            this.pressing = null;
            this.restoreFocus();
        });
    }

    activate(form) {
        if (this.front !== form) this.link.send({ on: 'activate', form: form.id });
    }

    // The focus of the browser follows that of the program. What has got it otherwise, by a screen reader, asks for it.
    #focused(event) {
        if (this.#quiet || this.asking || this.menus.isOpen) return;
        const view = this.viewOf(event.target);
        if (!view || view === this.focus || this.pressing) return;
        if (view.focusable) view.send({ on: 'press' });
        setTimeout(() => this.restoreFocus());
    }
    withoutFocus(act) {
        this.#quiet = true;
        act();
        this.#quiet = false;
    }
    restoreFocus() {
        if (this.asking || this.menus.isOpen) return;
        const active = document.activeElement;
        if (active?.closest?.('.panel')) return;
        const wanted = this.focus && !this.focus.element.closest('[hidden]') ? this.focus.target : this.front?.element;
        if (!wanted || active === wanted) return;
        this.withoutFocus(() => wanted.focus({ preventScroll: true }));
        this.focus?.focused?.();
    }

    viewOf(element) {
        return this.#views.get(Number(element.closest?.('[data-control]')?.dataset.control));
    }
    view(id) {
        return this.#views.get(id);
    }

    // Calls once before the next frame, however often it is asked for.
    later(key, act) {
        if (this.#later.size === 0) requestAnimationFrame(() => this.#runLater());
        this.#later.set(key, act);
    }
    #runLater() {
        const acts = [...this.#later.values()];
        this.#later.clear();
        for (const act of acts) act();
    }

    // A screen reader tells a text by itself.
    announce(text) {
        this.speaker.textContent = '';
        this.speaker.textContent = text;
    }

    pictureAddress(folder, name) {
        return this.#handlers.picture?.(folder, name) ?? '';
    }

    formShown(form) {
        if (document.body.classList.contains('starting')) this.#handlers.started?.();
        document.body.classList.remove('starting');
        this.tellShown();
        if (this.front === form && !form.visible) this.front = this.#forms.findLast((one) => one.visible) ?? null;
        this.front ??= form.visible ? form : null;
    }

    take(message) {
        const view = this.#views.get(message.id);
        switch (message.do) {
            case 'make': return this.#make(message);
            case 'set': return view?.apply(message.p);
            case 'rows': return view?.takeRows(message);
            case 'tip': return view?.tip(message);
            case 'append': return view?.append(message.text);
            case 'section': return view?.showSection(message.name);
            case 'find': return view?.find(message.text);
            case 'openList': return view?.openList?.();
            case 'popup': return view && this.menus.popUp(view, this.pointer.x, this.pointer.y);
            case 'focus': return this.#takeFocus(view);
            case 'front': return this.#takeFront(view);
            case 'say': return this.announce(message.text);
            case 'language': return this.#takeLanguage(message);
            default: return this.#handlers[message.do]?.(message);
        }
    }

    #make(message) {
        const old = this.#views.get(message.id);
        if (old) return old.apply(message.p);
        const { kind } = message;
        let view = null;
        if (kind === 'Form') {
            view = new FormView(this, message, this.#forms.length === 0);
            this.#forms.push(view);
            if (view.isMain) this.#handlers.mainShown?.(view);
        } else if (kind === 'TextBox') {
            view = message.multiLine ? new NotesView(this, message) : new LineView(this, message);
        } else if (kinds[kind]) {
            view = new kinds[kind](this, message);
        } else {
            return;
        }
        this.#views.set(message.id, view);
        if (message.shortcut) this.#shortcuts.add(message.shortcut);
        if (kind !== 'Form') view.attach(this.#views.get(message.parent ?? message.form));
        view.apply(message.p ?? {});
        if (kind === 'Menu') view.form.followMenus();
    }

    #takeFocus(view) {
        this.focus = view ?? null;
        if (view) {
            view.form.bringIntoSight(view.element);
            this.front = view.form;
        }
        // A press of the mouse places the caret itself.
        if (this.pressing === view && view?.element === document.activeElement) return;
        this.restoreFocus();
    }

    #takeFront(form) {
        if (!form) return;
        this.front = form;
        this.#forms = [...this.#forms.filter((one) => one !== form), form];
        this.restack();
        if (this.focus?.form !== form) this.focus = null;
        this.restoreFocus();
    }

    // Windows lie over the main one, but one that fills the page goes behind it when that comes to the front.
    restack() {
        const main = this.#forms.findIndex((one) => one.isMain);
        this.#forms.forEach((one, i) => {
            const behind = one.fills && i < main;
            const layer = one.facts.topMost ? 1000 : one.isMain || behind ? 0 : 100;
            one.element.style.zIndex = layer + i;
        });
    }

    #takeLanguage({ code, texts }) {
        this.#texts = texts;
        document.documentElement.lang = code.replace('_', '-') || 'en';
        for (const form of this.#forms) form.nameButtons();
        this.#handlers.languageChanged?.();
    }
}
