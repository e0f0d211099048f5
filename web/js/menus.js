// Which menus are up, and the keys while one is.

const edge = 2; // pixels kept free beside a menu
const slip = 8; // pixels that a press may slip

// Gives each entry the first letter of its caption that no entry before it has.
function giveKeys(entries) {
    const taken = new Set();
    for (const entry of entries) {
        const letter = [...(entry.properties.Caption ?? '').toUpperCase()].find(
            (one) => /[\p{L}\p{N}]/u.test(one) && !taken.has(one),
        );
        if (letter) taken.add(letter);
        entry.showKey(letter ?? '');
    }
}

export class Menus {
    #open = []; // from the first to the last that is up
    #active = null;
    #pressedAt = null; // the press that has brought up the first

    constructor(stage) {
        this.stage = stage;
        document.addEventListener('mousedown', (event) => {
            if (!event.target.closest?.('.popup, .menubar')) this.close();
        }, true);
        window.addEventListener('blur', () => this.close());
        window.addEventListener('resize', () => this.close());
    }

    get isOpen() {
        return this.#open.length > 0;
    }

    tops(form) {
        return form.children.filter((one) => one.kind === 'Menu' && !one.element.hidden);
    }
    giveBarKeys(form) {
        giveKeys(this.tops(form));
    }

    pressedTop(menu, event) {
        this.#pressedAt = event;
        const wasUp = this.#open[0] === menu;
        this.close();
        if (!wasUp && menu.effectivelyEnabled && menu.children.length > 0) this.#openBelow(menu, false);
    }
    pressedEntry(menu) {
        this.#pressedAt = null;
        if (menu.children.length > 0) this.openBeside(menu);
    }
    // The mouse goes up over an entry: behind a press on the bar it has to have gone there, since a menu may come up under
    // it.
    released(menu, event) {
        const { clientX: x, clientY: y } = this.#pressedAt ?? {};
        this.#pressedAt = null;
        if (Math.hypot(event.clientX - x, event.clientY - y) < slip) return;
        this.choose(menu);
    }
    hovered(menu) {
        if (!this.isOpen) return;
        if (menu.isTop) {
            if (this.#open[0] !== menu && this.#open[0].isTop && menu.effectivelyEnabled && menu.children.length > 0) {
                this.close();
                this.#openBelow(menu, false);
            }
            return;
        }
        this.#activate(menu.isLine ? null : menu);
        if (menu.children.length > 0 && menu.effectivelyEnabled) this.openBeside(menu);
    }

    #openBelow(menu, keyed) {
        const box = menu.element.getBoundingClientRect();
        this.#show(menu, box.left, box.bottom, keyed, innerHeight - box.bottom - edge);
        menu.element.classList.add('up');
    }
    openBeside(menu, keyed = false) {
        if (this.#open.includes(menu) || !menu.effectivelyEnabled) return;
        this.#closeTo(this.#open.indexOf(menu.parent) + 1);
        const box = menu.element.getBoundingClientRect();
        this.#show(menu, box.right, box.top, keyed);
    }
    // Shows the entries of a menu at the pointer.
    popUp(menu, x, y) {
        this.close();
        this.#pressedAt = { clientX: x, clientY: y };
        this.#show(menu, x, y, true);
        const { popup } = menu;
        // Not below the pointer, whose button may still be down: letting it go would choose an entry.
        if (popup.offsetTop < y) popup.style.top = `${Math.max(edge, y - popup.offsetHeight)}px`;
        if (popup.offsetLeft < x) popup.style.left = `${Math.max(edge, x - popup.offsetWidth)}px`;
    }

    // most: what it may have in height; the rest of it is scrolled to.
    #show(menu, x, y, keyed, most = innerHeight - 2 * edge) {
        const { popup } = menu;
        giveKeys(menu.entries);
        document.body.append(popup);
        popup.hidden = false;
        popup.style.maxHeight = `${most}px`;
        const { offsetWidth: width, offsetHeight: height } = popup;
        popup.style.left = `${Math.max(edge, Math.min(x, innerWidth - width - edge))}px`;
        popup.style.top = `${Math.max(edge, Math.min(y, innerHeight - height - edge))}px`;
        this.#open.push(menu);
        popup.tabIndex = -1;
        this.stage.withoutFocus(() => popup.focus({ preventScroll: true }));
        this.#activate(keyed ? (menu.entries[0] ?? null) : null);
    }

    close() {
        if (!this.isOpen) return;
        this.#closeTo(0);
        this.stage.restoreFocus();
    }
    #closeTo(depth) {
        for (const menu of this.#open.splice(depth)) {
            menu.popup.hidden = true;
            menu.element.classList.remove('up', 'active');
        }
        this.#activate(null);
        this.#open.at(-1)?.popup.focus({ preventScroll: true });
    }

    #activate(entry) {
        this.#active?.element.classList.remove('active');
        this.#active = entry;
        entry?.element.classList.add('active');
        entry?.element.scrollIntoView({ block: 'nearest' });
        const popup = this.#open.at(-1)?.popup;
        if (!popup) return;
        if (entry) {
            entry.element.id ||= `menu${entry.id}`;
            popup.setAttribute('aria-activedescendant', entry.element.id);
        } else {
            popup.removeAttribute('aria-activedescendant');
        }
    }

    choose(menu) {
        if (!menu.effectivelyEnabled) return menu.send({ on: 'menu' });
        this.close();
        menu.send({ on: 'menu' });
    }

    // Alt with a letter opens a menu of the bar, F10 the first. True where it has.
    keyOpens(form, event) {
        const tops = this.tops(form);
        const letter = event.altKey && !event.ctrlKey && !event.metaKey && event.key.length === 1;
        const menu = letter
            ? tops.find((one) => one.letter === event.key.toUpperCase())
            : event.key === 'F10' && !event.shiftKey ? tops[0] : null;
        if (!menu?.effectivelyEnabled || menu.children.length === 0) return false;
        this.close();
        this.#openBelow(menu, true);
        return true;
    }

    // A key while menus are up: they have them all.
    key(event) {
        event.preventDefault();
        const menu = this.#open.at(-1);
        const { entries } = menu;
        const at = entries.indexOf(this.#active);
        const move = (to) => this.#activate(entries[(to + entries.length) % entries.length] ?? null);
        switch (event.key) {
            case 'ArrowDown': return move(at + 1);
            case 'ArrowUp': return move(at < 0 ? entries.length - 1 : at - 1);
            case 'Home': return move(0);
            case 'End': return move(entries.length - 1);
            case 'Escape': return this.#back();
            case 'ArrowLeft': return this.#open.length > 1 ? this.#back() : this.#aside(-1);
            case 'ArrowRight':
                if (this.#active?.children.length > 0) return this.openBeside(this.#active, true);
                return this.#aside(1);
            case 'Enter':
            case ' ': return this.#enter(this.#active);
            case 'Alt':
            case 'F10': return this.close();
            default: return this.#letter(entries, event.key.toUpperCase());
        }
    }

    #back() {
        if (this.#open.length < 2) return this.close();
        const menu = this.#open.at(-1);
        this.#closeTo(this.#open.length - 1);
        this.#activate(menu);
    }
    #aside(step) {
        const first = this.#open[0];
        if (!first.isTop) return;
        const tops = this.tops(first.form).filter((one) => one.effectivelyEnabled && one.children.length > 0);
        const next = tops[(tops.indexOf(first) + step + tops.length) % tops.length];
        this.#closeTo(0);
        this.#openBelow(next, true);
    }
    #enter(entry) {
        if (!entry) return;
        if (entry.children.length > 0) this.openBeside(entry, true);
        else this.choose(entry);
    }
    #letter(entries, letter) {
        this.#enter(entries.find((one) => one.letter === letter));
    }
}
