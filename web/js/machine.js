// The played machine: takes what is sent, and sends a program, with the workbench's own port in between.

import { make } from './views/view.js';

const rates = [300, 600, 1200, 2400, 4800, 9600, 19200, 115200];

export class MachinePanel {
    #panel = null;
    #text = '';

    constructor(stage) {
        this.stage = stage;
    }

    toggle() {
        if (this.#panel) return this.#close();
        this.#make();
        this.stage.link.send({ on: 'machine', what: 'open' });
    }

    #close() {
        this.#panel.remove();
        this.#panel = null;
        this.stage.link.send({ on: 'machine', what: 'close' });
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
        speed.addEventListener('change', () => this.#tell('baud', { baud: Number(speed.value) }));
        this.#button('send', row, () => this.#tell('send', { baud: Number(speed.value) }));
        this.#button('clear', row, () => this.#tell('clear'));
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

    #tell(what, more = {}) {
        if (what === 'clear') this.take({ text: '' });
        this.stage.link.send({ on: 'machine', what, ...more });
    }

    // What the machine has in its memory, and what it is doing.
    take({ text, more, state }) {
        if (text !== undefined) this.#text = text;
        if (more !== undefined) this.#text += more;
        if (!this.#panel) return;
        this.came.textContent = this.#text.replace(/\r\n?/g, '\n');
        this.came.scrollTop = this.came.scrollHeight;
        if (state !== undefined) this.state.textContent = state;
    }

    followLanguage() {
        if (!this.#panel) return;
        this.#panel.remove();
        this.#make();
    }
}
