// Quiet lines at the lower edge, for what is to be known and asks for nothing.

import { make } from './views/view.js';

const shown = 9000; // milliseconds
const lines = make('div', 'notices');
lines.setAttribute('role', 'status');
lines.setAttribute('aria-live', 'polite');

// name: of a text, in which "%1" stands for the value. action: { name, act }, a button in front of the one that closes
// the line. stays: until it is closed. A line that comes up before the window is shown with it, in its language.
// Gives back what takes the line away.
export function notice(stage, name, { value = '', stays = false, action } = {}) {
    const line = make('div', 'notice');
    let left = false;
    const leave = () => {
        left = true;
        line.remove();
    };
    const button = (caption, act) => {
        const one = make('button', '', line);
        one.type = 'button';
        one.textContent = stage.text(caption);
        one.addEventListener('mousedown', (event) => event.preventDefault());
        one.addEventListener('click', () => {
            leave();
            act?.();
            stage.restoreFocus();
        });
    };
    stage.shown.then(() => {
        if (left) return;
        if (!lines.isConnected) document.body.append(lines);
        make('span', '', line).textContent = stage.text(name).replace('%1', value);
        if (action) button(action.name, action.act);
        button('close');
        lines.append(line);
        if (!stays) setTimeout(leave, shown);
    });
    return leave;
}
