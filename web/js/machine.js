// The panel of the played machine: shows what the program tells of it, and tells what its user does. The machine itself
// is the program's.

import { make } from './views/view.js';

const rates = [300, 600, 1200, 2400, 4800, 9600];

// What is said of a state: a text, and what of the machine stands in it.
const sentences = {
    listening: ['machineListening'],
    receiving: ['machineReceiving', 'characters'],
    received: ['machineReceived', 'lines', 'type'],
    noProgram: ['machineNoProgram', 'characters'],
    sending: ['machineSending', 'sent', 'of', 'seconds'],
    sent: ['machineSent', 'of'],
    stopped: ['machineStopped', 'sent', 'of'],
    nothing: ['machineNothing'],
    portClosed: ['machinePortClosed'],
};

function time(seconds) {
    return `${Math.floor(seconds / 60)}:${String(seconds % 60).padStart(2, '0')}`;
}

export class MachinePanel {
    #panel = null;
    #memory = '';
    #told = { state: 'listening' };

    constructor(stage) {
        this.stage = stage;
        document.addEventListener('mousedown', (event) => !event.target.closest?.('.panel') && this.#leave(), true);
    }

    // The keyboard goes back to the program.
    #leave() {
        if (!this.#panel?.contains(document.activeElement)) return;
        document.activeElement.blur();
        this.stage.restoreFocus();
    }

    toggle() {
        this.#say(this.#panel ? 'close' : 'open');
    }
    #say(what, more) {
        this.stage.link.send({ on: 'machine', what, ...more });
    }

    take(told) {
        if (!told.shown) return this.#hide();
        this.#memory = this.#memory.slice(0, told.from) + told.text;
        this.#told = told;
        if (!this.#panel) this.#make();
        this.#show();
        return undefined;
    }

    #hide() {
        if (!this.#panel) return;
        this.#panel.remove();
        this.#panel = null;
        this.stage.restoreFocus();
    }

    #make() {
        const { stage } = this;
        const panel = make('section', 'panel', document.body);
        this.#panel = panel;
        panel.setAttribute('aria-labelledby', 'machine-heading');
        panel.addEventListener('keydown', (event) => event.key === 'Escape' && this.#leave());
        const heading = make('div', 'heading', panel);
        const title = make('span', '', heading);
        title.id = 'machine-heading';
        title.textContent = stage.text('machine');
        this.#button('hidden', heading, () => this.#say('close')).className = 'hide';
        const body = make('div', 'body', panel);
        for (const hint of navigator.serial ? ['machineHint'] : ['noSerial', 'machineHint'])
            make('div', 'hint', body).textContent = stage.text(hint);
        const row = make('div', 'row', body);
        const label = make('label', '', row);
        label.textContent = `${stage.text('speed')} `;
        this.speed = make('select', '', label);
        for (const rate of rates) make('option', '', this.speed).textContent = String(rate);
        this.speed.addEventListener('change', () => this.#say('baud', { baud: Number(this.speed.value) }));
        let byMouse = false;
        this.speed.addEventListener('mousedown', () => (byMouse = true));
        this.speed.addEventListener('keydown', () => (byMouse = false));
        this.speed.addEventListener('change', () => byMouse && this.#leave());
        this.send = this.#button('send', row, () => this.#say(this.#told.state === 'sending' ? 'stop' : 'send'));
        this.#button('clear', row, () => this.#say('clear'));
        this.state = make('div', 'state', body);
        this.state.setAttribute('role', 'status');
        this.came = make('pre', 'came', body);
        this.came.tabIndex = 0;
        this.came.setAttribute('aria-label', stage.text('received'));
    }

    #button(name, parent, act) {
        const button = make('button', '', parent);
        button.type = 'button';
        button.textContent = this.stage.text(name);
        // By the mouse it is pressed and no more: the keyboard stays with the program.
        button.addEventListener('mousedown', (event) => event.preventDefault());
        button.addEventListener('click', act);
        return button;
    }

    #show() {
        const told = this.#told;
        this.speed.value = String(told.baud);
        this.send.textContent = this.stage.text(told.state === 'sending' ? 'stopSending' : 'send');
        this.send.disabled = told.waits || told.state === 'receiving';
        // A screen reader tells what has come of it, not each step.
        this.state.setAttribute('aria-live', told.state === 'receiving' || told.state === 'sending' ? 'off' : 'polite');
        this.#write(this.state, this.#sentence());
        const memory = this.#memory.replace(/\r\n?/g, '\n');
        if (this.came.textContent === memory) return;
        this.came.textContent = memory;
        this.came.scrollTop = this.came.scrollHeight;
    }
    #write(element, text) {
        if (element.textContent !== text) element.textContent = text;
    }

    #sentence() {
        const told = this.#told;
        if (told.waits) return this.stage.text('machineWaits');
        const state = told.state === 'sent' && told.sent < told.of ? 'stopped' : told.state;
        return [this.#filled(...sentences[state]), told.lost > 0 && this.#filled('machineLost', 'lost')].filter(Boolean).join(' ');
    }
    #filled(name, ...members) {
        const value = (member) => (member === 'seconds' ? time(this.#told.seconds) : this.#told[member]);
        return this.stage.text(name).replace(/%(\d)/g, (_, place) => value(members[place - 1]));
    }

    followLanguage() {
        if (!this.#panel) return;
        this.#panel.remove();
        this.#make();
        this.#show();
    }
}
