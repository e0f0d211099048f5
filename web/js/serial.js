// Serial ports of the browser. A port is granted by its user in a click; the settings of an open one change only by
// closing and opening it again.

import { ask } from './boxes.js';
import { SerialLine } from './serial_line.js';
import { make } from './views/view.js';

const offered = 4;
const bufferSize = 65536; // bytes: a minute at the fastest rate
const parities = { N: 'none', E: 'even', O: 'odd' };

function optionsOf(settings) {
    const [baud, parity, data, stop] = settings.split(',');
    return {
        baudRate: Number(baud), parity: parities[parity], dataBits: Number(data), stopBits: Number(stop),
        bufferSize, flowControl: 'none',
    };
}

function nameOf(port) {
    const { usbVendorId: vendor, usbProductId: product } = port.getInfo();
    if (vendor === undefined) return 'COM';
    return `USB ${[vendor, product].map((one) => one.toString(16).padStart(4, '0')).join(':')}`;
}

export class Serial {
    #ports = []; // that were granted, by their numbers
    #line = null; // of the port that is open
    #settings = '';

    constructor(stage) {
        this.stage = stage;
        this.serial = navigator.serial ?? null;
        this.serial?.addEventListener('connect', () => this.tellNames());
        this.serial?.addEventListener('disconnect', (event) => {
            if (event.target === this.#line?.port) this.#line.vanish();
            this.tellNames();
        });
    }

    // The names of what can be opened: ports that were granted, then one that is still to be chosen. A browser without
    // ports has the played machine.
    async names() {
        if (!this.serial) return [this.stage.text('machine')];
        this.#ports = (await this.serial.getPorts().catch(() => [])).slice(0, offered);
        const names = this.#ports.map(nameOf);
        if (names.length < offered) names.push(this.stage.text('newPort'));
        return names;
    }
    async tellNames() {
        this.stage.link.send({ on: 'ports', names: await this.names() });
    }

    // The user chooses a port, in a click.
    async grant() {
        try {
            await this.serial.requestPort();
            await this.tellNames();
        } catch {
            // None was chosen.
        }
    }

    // Asks for a port; null where none is chosen. A click that is too long ago is had anew.
    #request() {
        const request = () => this.serial.requestPort().catch(() => null);
        if (navigator.userActivation?.isActive ?? true) return request();
        return ask(this.stage, {
            title: this.stage.text('grantPort'),
            cancel: null,
            fill: (content, close) => {
                const button = make('button', '', content);
                button.type = 'button';
                button.textContent = this.stage.text('grantButton');
                button.addEventListener('click', () => request().then(close));
                return [['cancel', null]];
            },
        });
    }

    // At its start the program tries all ports. One that is still to be chosen, or taken by another program by then,
    // opens later, when its user wants it.
    async open({ ask: number, number: index, settings }) {
        const port = this.#ports[index - 1];
        if (!port) return this.stage.reply(number, { ok: true, later: true });
        const ok = await this.#start(port, settings).then(() => true, () => false);
        const later = !ok && document.body.classList.contains('starting');
        return this.stage.reply(number, { ok: ok || later, later });
    }

    async choose({ ask: number, number: index, settings }) {
        const port = this.#ports[index - 1] ?? (await this.#request());
        if (!port) return this.stage.reply(number, { cancelled: true });
        const ok = await this.#start(port, settings).then(() => true, () => false);
        this.tellNames();
        return this.stage.reply(number, { ok });
    }

    async #start(port, settings) {
        const tell = (what) => {
            if (what.vanished) this.#line = null;
            this.stage.link.send({ on: 'port', ...what });
        };
        this.#line = await new SerialLine(port, tell).open(optionsOf(settings));
        this.#settings = settings;
    }

    async close({ ask: number }) {
        const line = this.#line;
        this.#line = null;
        await line?.close();
        this.stage.reply(number, { ok: true });
    }

    async change({ ask: number, settings }) {
        const before = this.#settings;
        const line = this.#line;
        if (!line) return this.stage.reply(number, {});
        this.#line = null;
        await line.close();
        const opens = (which) => this.#start(line.port, which).then(() => true, () => false);
        if (await opens(settings)) return this.stage.reply(number, { ok: true });
        // It goes on with what it had, where it is still there.
        return this.stage.reply(number, { refused: await opens(before) });
    }

    write({ data }) {
        this.#line?.write(data);
    }
}
