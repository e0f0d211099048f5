// Keys for a screen without a keyboard: what the numeric keypads of phones lack. They have the lower edge of the page.

import { pressKey, sendText } from './keys.js';
import { make } from './views/view.js';

const touched = matchMedia('(hover: none) and (pointer: coarse)');
const keys = [
    ['Esc', 'Esc', (stage, form) => pressKey(stage, form, 27, 0)],
    ['\u2191', 'Up', (stage, form) => pressKey(stage, form, 38, 0)],
    ['\u2193', 'Down', (stage, form) => pressKey(stage, form, 40, 0)],
    ['\u2212', '-', (stage, form) => sendText(stage, form, '-')],
    ['\u23CE', 'Enter', (stage, form) => pressKey(stage, form, 13, 0)],
];

export function addTouchKeys(stage) {
    const bar = make('div', 'touch-keys', document.body);
    for (const [caption, name, press] of keys) {
        const button = make('button', '', bar);
        button.type = 'button';
        button.tabIndex = -1;
        button.textContent = caption;
        button.setAttribute('aria-label', name);
        // The field keeps the focus, and with it the keyboard of the screen.
        button.addEventListener('mousedown', (event) => event.preventDefault());
        button.addEventListener('click', () => {
            if (stage.menus.isOpen) stage.menus.close();
            else if (stage.front) press(stage, stage.front);
        });
    }
    const follow = () => document.body.classList.toggle('touched', touched.matches);
    touched.addEventListener('change', follow);
    follow();
}
