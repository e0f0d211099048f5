// Boxes that ask or tell. They are modal: what lies below hears of no key and no click meanwhile.

import { hexOf, numberOf } from './colors.js';
import { make } from './views/view.js';

const icons = { Information: 'i', Exclamation: '!', Question: '?', Critical: '\u00d7' };
const buttonsOf = { Ok: ['Ok'], YesNo: ['Yes', 'No'], YesNoCancel: ['Yes', 'No', 'Cancel'] };
const usualColors = [
    '#000000', '#0000ff', '#008000', '#ff0000', '#800080', '#008080', '#804000', '#808080',
    '#000080', '#3070d0', '#00a000', '#c00020', '#c000c0', '#00a0a0', '#c07000', '#404040',
];

// A modal box with a heading. fill(content, close) puts in what it is about and gives the buttons: [name, value,
// {usual}]. Resolves to the value of the button; to `cancel` when the box is left, if that is given.
export function ask(stage, { title, className = '', cancel, fill }) {
    stage.link.useHeld();
    return new Promise((resolve) => {
        const box = make('dialog', `dialog ${className}`, document.body);
        const heading = make('h2', 'heading', box);
        heading.textContent = title;
        heading.id = 'heading';
        box.setAttribute('aria-labelledby', 'heading');
        const content = make('div', 'content', box);
        let answered = false;
        const close = (value) => {
            answered = true;
            box.close();
            box.remove();
            stage.restoreFocus();
            resolve(value);
        };
        const row = make('div', 'buttons', box);
        for (const [name, value, { usual = false } = {}] of fill(content, close)) {
            const button = make('button', '', row);
            button.type = 'button';
            button.textContent = stage.text(name);
            button.autofocus = usual;
            button.addEventListener('click', () => close(typeof value === 'function' ? value() : value));
        }
        const leave = (event) => {
            event.preventDefault();
            if (cancel !== undefined) close(cancel);
        };
        box.addEventListener('cancel', leave);
        // A browser closes a box that is left again and again, whatever was prevented.
        box.addEventListener('close', () => {
            if (answered) return;
            if (cancel !== undefined) close(cancel);
            else box.showModal();
        });
        box.addEventListener('keydown', (event) => (event.key === 'Escape' ? leave(event) : boxKey(event, row)));
        box.showModal();
    });
}

// A key in a box: the buttons have the arrows, and Yes, No and their like their first letters. A key that is still held
// from before the box came up presses none of them.
function boxKey(event, row) {
    const { key, target } = event;
    if (event.repeat && (key === 'Enter' || key === ' ') && row.contains(target)) return event.preventDefault();
    if (event.ctrlKey || event.altKey || target.matches('input, select')) return undefined;
    const step = { ArrowLeft: -1, ArrowRight: 1 }[key];
    if (step) return row.children[[...row.children].indexOf(target) + step]?.focus();
    if (key.length !== 1) return undefined;
    return [...row.children].find((one) => one.textContent[0].toUpperCase() === key.toUpperCase())?.click();
}

// A question of Yes and No is answered by these alone: neither Escape nor closing the box stands for one.
export async function message(stage, { ask: number, text, title, icon, buttons, details }) {
    const names = buttonsOf[buttons] ?? buttonsOf.Ok;
    const value = await ask(stage, {
        title,
        cancel: { Ok: 'Ok', YesNoCancel: 'Cancel' }[buttons],
        fill(content) {
            if (icons[icon]) {
                const mark = make('div', `icon ${icon.toLowerCase()}`, content);
                mark.textContent = icons[icon];
                mark.setAttribute('aria-hidden', 'true');
            }
            const words = make('div', 'words', content);
            make('div', '', words).textContent = text.replace(/\r\n?/g, '\n');
            if (details) make('div', 'details', words).textContent = details.replace(/\r\n?/g, '\n');
            return names.map((name, i) => [name.toLowerCase(), name, { usual: i === 0 }]);
        },
    });
    stage.reply(number, { value });
}

export async function color(stage, { ask: number, color: before }) {
    const chosen = await ask(stage, {
        title: stage.text('color'),
        cancel: null,
        fill(content) {
            const side = make('div', '', content);
            const swatches = make('div', 'swatches', side);
            const free = make('input', '', side);
            free.type = 'color';
            free.value = hexOf(before);
            free.setAttribute('aria-label', stage.text('color'));
            const mark = () => {
                for (const one of swatches.children)
                    one.setAttribute('aria-pressed', one.dataset.color === free.value ? 'true' : 'false');
            };
            for (const hex of usualColors) {
                const swatch = make('button', 'swatch', swatches);
                swatch.type = 'button';
                swatch.dataset.color = hex;
                swatch.style.background = hex;
                swatch.setAttribute('aria-label', hex);
                swatch.addEventListener('click', () => ((free.value = hex), mark()));
            }
            free.addEventListener('input', mark);
            mark();
            return [['ok', () => free.value, { usual: true }], ['cancel', null]];
        },
    });
    stage.reply(number, chosen === null ? {} : { color: numberOf(chosen) });
}
