// Documents. What comes as markup is taken apart and put together anew from the few elements that the help uses;
// nothing else of it reaches the page.

import { make, View } from './view.js';

const elements = new Set(
    ('h1 h2 h3 h4 p br b i u em strong code pre ul ol li table thead tbody tr td th a img sub sup hr div span ' +
        'font center dl dt dd blockquote').split(' '),
);
const dropped = new Set(['script', 'style', 'title', 'head', 'template', 'iframe', 'object', 'svg', 'math']);
const spans = new Set(['colspan', 'rowspan']);
const sizes = new Set(['width', 'height']);

// Copies what is allowed of a node into a place. picture(name) gives the address of a picture of the document.
function copy(node, into, picture) {
    for (const child of node.childNodes) {
        if (child.nodeType === Node.TEXT_NODE) {
            into.append(child.data);
            continue;
        }
        if (child.nodeType !== Node.ELEMENT_NODE) continue;
        const name = child.localName;
        if (dropped.has(name)) continue;
        if (!elements.has(name)) {
            copy(child, into, picture);
            continue;
        }
        const element = make(name === 'font' || name === 'center' ? 'div' : name, '', into);
        if (name === 'font') element.className = 'inline';
        attributes(child, element, picture);
        copy(child, element, picture);
    }
}

function attributes(from, to, picture) {
    for (const { name, value } of from.attributes) {
        if (spans.has(name) && /^\d{1,3}$/.test(value)) to.setAttribute(name, value);
        if (from.localName === 'a' && name === 'name') to.dataset.place = value;
        if (from.localName === 'a' && name === 'href' && value.startsWith('#')) {
            to.setAttribute('href', '#');
            to.dataset.to = value.slice(1);
        }
        if (from.localName === 'table' && name === 'border' && value !== '0') to.className = 'ruled';
        if (from.localName !== 'img') continue;
        if (sizes.has(name) && /^\d{1,4}$/.test(value)) to.setAttribute(name, value);
        if (name === 'alt') to.alt = value;
        if (name === 'src') to.src = picture(value);
    }
    if (from.localName === 'img' && !to.alt) to.alt = '';
}

export class RichTextView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.element.tabIndex = 0;
        this.element.setAttribute('role', 'document');
        this.page = make('div', 'page', this.element);
        this.pressesFocus(this.element, true);
        this.element.addEventListener('click', (event) => {
            const link = event.target.closest('a');
            if (!link) return;
            event.preventDefault();
            if (link.dataset.to !== undefined) this.showSection(link.dataset.to);
        });
    }

    setText(text) {
        this.page.replaceChildren();
        this.element.scrollTop = 0;
        this.found = null;
        if (this.facts.plain) {
            make('pre', 'plain', this.page).textContent = text.replace(/\r\n?/g, '\n');
            return;
        }
        // Styles would be refused, and the refusal told.
        const plain = text.replace(/<style\b[^]*?<\/style>/gi, '');
        const parsed = new DOMParser().parseFromString(plain, 'text/html');
        copy(parsed.body, this.page, (name) => this.stage.pictureAddress(this.properties.Folder ?? '', name));
    }

    showSection(name) {
        const place = [...this.page.querySelectorAll('[data-place]')].find((one) => one.dataset.place === name);
        if (place) this.element.scrollTop += place.getBoundingClientRect().top - this.element.getBoundingClientRect().top;
    }

    // Looks for a text behind the place that was found last, then from the beginning.
    find(sought) {
        const places = this.placesOf(sought.toLowerCase());
        const after = this.found;
        const isBehind = ({ node, at }) => {
            if (!after?.node.isConnected) return true;
            if (node === after.node) return at > after.at;
            return (after.node.compareDocumentPosition(node) & Node.DOCUMENT_POSITION_FOLLOWING) !== 0;
        };
        const next = places.find(isBehind) ?? places[0] ?? null;
        if (next) this.show(next, sought.length);
        this.send({ on: 'found', found: next !== null });
    }

    placesOf(sought) {
        const places = [];
        if (!sought) return places;
        const walker = document.createTreeWalker(this.page, NodeFilter.SHOW_TEXT);
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            const text = node.data.toLowerCase();
            for (let at = text.indexOf(sought); at >= 0; at = text.indexOf(sought, at + 1)) places.push({ node, at });
        }
        return places;
    }

    show(place, size) {
        this.found = place;
        const range = document.createRange();
        range.setStart(place.node, place.at);
        range.setEnd(place.node, place.at + size);
        const selection = getSelection();
        selection.removeAllRanges();
        selection.addRange(range);
        const box = range.getBoundingClientRect();
        const view = this.element.getBoundingClientRect();
        if (box.top < view.top || box.bottom > view.bottom)
            this.element.scrollTop += box.top - view.top - view.height / 3;
    }
}
