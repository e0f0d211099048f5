// What the page offers besides the program, at the right end of the bar of the main window.

import { notice } from './notices.js';
import { make } from './views/view.js';

export function addTools(stage, { panel, serial }) {
    const tools = make('div', 'page-tools');
    const button = (name, act) => {
        const one = make('button', '', tools);
        one.type = 'button';
        one.tabIndex = -1;
        one.dataset.text = name;
        one.addEventListener('mousedown', (event) => event.preventDefault());
        one.addEventListener('click', act);
    };
    button('copyLink', () => stage.link.send({ on: 'link' }));
    button('machine', () => panel.toggle());
    const follow = () => {
        for (const one of tools.children) one.textContent = stage.text(one.dataset.text);
        panel.followLanguage();
        serial.tellNames();
    };
    for (const one of tools.children) one.textContent = stage.text(one.dataset.text);
    stage.handle({ languageChanged: follow, mainShown: (form) => form.element.querySelector('.bar').append(tools) });
}

// Says once which browsers have a serial port, where this one has none.
export function tellSerial(stage) {
    if (!navigator.serial) notice(stage, stage.text('noSerial'));
}
