// Quiet lines at the lower edge, for what is to be known and asks for nothing.

import { make } from './views/view.js';

const shown = 9000; // milliseconds
const lines = make('div', 'notices');
lines.setAttribute('role', 'status');
lines.setAttribute('aria-live', 'polite');

// stays: until it is closed.
export function notice(stage, text, { stays = false, action } = {}) {
    if (!lines.isConnected) document.body.append(lines);
    const line = make('div', 'notice', lines);
    make('span', '', line).textContent = text;
    const button = (name, act) => {
        const one = make('button', '', line);
        one.type = 'button';
        one.textContent = stage.text(name);
        one.addEventListener('click', () => {
            line.remove();
            act?.();
            stage.restoreFocus();
        });
    };
    if (action) button(action.name, action.act);
    button('close');
    if (!stays) setTimeout(() => line.remove(), shown);
    return line;
}
