// What the page offers besides the program, at the right end of the bar of the main window.

import { pictureOf } from './views/buttons.js';
import { notice } from './notices.js';
import { make } from './views/view.js';

const pictures = {
    copyLink: 'M 10 14 C 8 12 8 10 10 8 L 13 5 C 15 3 17 3 19 5 C 21 7 21 9 19 11 L 17 13 M 14 10 C 16 12 16 14 14 16 L 11 19 C 9 21 7 21 5 19 C 3 17 3 15 5 13 L 7 11',
    serialPort: 'M 4 8 L 20 8 L 18 16 L 6 16 Z M 8 11.5 O 8 11.5 0.6 O 12 11.5 0.6 O 16 11.5 0.6 M 12 16 L 12 20',
    machine: 'M 3 19 L 21 19 M 5 19 L 5 9 L 9 9 L 9 19 M 9 12 L 16 12 L 16 15 L 9 15 M 19 19 L 19 10 L 17 13',
};

export function addTools(stage, { panel, serial }) {
    const tools = make('div', 'page-tools');
    const button = (name, act) => {
        const one = make('button', '', tools);
        one.type = 'button';
        one.tabIndex = -1;
        one.dataset.text = name;
        one.append(pictureOf(pictures[name]));
        make('span', '', one);
        one.addEventListener('mousedown', (event) => event.preventDefault());
        one.addEventListener('click', act);
    };
    button('copyLink', () => stage.link.send({ on: 'link' }));
    if (serial.serial) button('serialPort', () => serial.grant());
    button('machine', () => panel.toggle());
    const name = () => {
        for (const one of tools.children) {
            one.lastChild.textContent = stage.text(one.dataset.text);
            one.setAttribute('aria-label', one.lastChild.textContent);
        }
    };
    const follow = () => {
        name();
        panel.followLanguage();
        serial.tellNames();
    };
    name();
    stage.handle({ languageChanged: follow, mainShown: (form) => form.element.querySelector('.bar').append(tools) });
}

const toldKey = 'kvt-told-serial';

// Tells once why there is no serial port, and what to do: most often it is the browser, but none gives one to a page that
// may have been changed on its way.
export function tellSerial(stage) {
    if (navigator.serial) return;
    try {
        if (localStorage.getItem(toldKey)) return;
        localStorage.setItem(toldKey, '1');
    } catch {
        // It is told again, then.
    }
    notice(stage, isSecureContext ? 'noSerial' : 'notSecure');
}
