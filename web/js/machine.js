// The played machine: while its panel is there, it is at the other end of the line. It keeps what comes, and gives it
// back at the pace of a line.

import { make } from './views/view.js';

const rates = [300, 600, 1200, 2400, 4800, 9600, 19200, 115200];
const bitsACharacter = 10;
const step = 50; // milliseconds

export class MachinePanel {
    #panel = null;
    #text = '';
    #sending = 0;

    constructor(stage) {
        this.stage = stage;
    }

    get isOpen() {
        return this.#panel !== null;
    }

    toggle() {
        if (this.#panel) this.#close();
        else this.#make();
    }

    #close() {
        clearInterval(this.#sending);
        this.#panel.remove();
        this.#panel = null;
        this.stage.restoreFocus();
    }

    #make() {
        const { stage } = this;
        const panel = make('section', 'panel', document.body);
        this.#panel = panel;
        panel.setAttribute('aria-labelledby', 'machine-heading');
        const heading = make('div', 'heading', panel);
        const title = make('span', '', heading);
        title.id = 'machine-heading';
        title.textContent = stage.text('machine');
        const hide = this.#button('hidden', heading, () => this.#close());
        hide.className = 'hide';
        const body = make('div', 'body', panel);
        make('div', 'hint', body).textContent = stage.text('machineHint');
        const row = make('div', 'row', body);
        const label = make('label', '', row);
        label.textContent = `${stage.text('speed')} `;
        const speed = make('select', '', label);
        for (const rate of rates) make('option', '', speed).textContent = String(rate);
        this.speed = speed;
        this.#button('send', row, () => this.#send());
        this.#button('clear', row, () => this.#take(''));
        this.state = make('div', 'state', body);
        this.state.setAttribute('role', 'status');
        const came = make('pre', 'came', body);
        came.tabIndex = 0;
        came.setAttribute('aria-label', stage.text('received'));
        came.textContent = this.#text;
        this.came = came;
    }

    #button(name, parent, act) {
        const button = make('button', '', parent);
        button.type = 'button';
        button.textContent = this.stage.text(name);
        button.addEventListener('click', act);
        return button;
    }

    // The workbench sends: a machine that takes a program shows itself.
    receive(data) {
        if (!this.#panel) this.#make();
        this.#take(this.#text + data);
    }

    #take(text) {
        this.#text = text;
        if (!this.#panel) return;
        this.came.textContent = text.replace(/\r\n?/g, '\n');
        this.came.scrollTop = this.came.scrollHeight;
    }

    // Gives back what it has, so many characters a step as the speed says.
    #send() {
        clearInterval(this.#sending);
        if (!this.#text) return this.#tell('machineEmpty');
        const { stage } = this;
        const from = performance.now();
        let sent = 0;
        this.#sending = setInterval(() => {
            const due = Math.floor(((performance.now() - from) * Number(this.speed.value)) / bitsACharacter / 1000);
            const piece = this.#text.slice(sent, due);
            sent += piece.length;
            if (piece) this.line.fromMachine(piece);
            const left = this.#text.length - sent;
            this.#tell('', left > 0 ? `${stage.text('sending')} ${sent} / ${this.#text.length}` : stage.text('sent'));
            if (left <= 0) clearInterval(this.#sending);
        }, step);
        return undefined;
    }

    #tell(name, text = this.stage.text(name)) {
        if (this.#panel) this.state.textContent = text;
    }

    followLanguage() {
        if (!this.#panel) return;
        this.#panel.remove();
        this.#make();
    }
}
