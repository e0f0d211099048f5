// Serial ports of the browser. A port is granted by its user in a click; the settings of an open one change only by
// closing and opening it again.

import { ask } from './boxes.js';
import { bytesOf, textOf } from './files.js';
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
    #port = null; // that is open
    #settings = '';
    #reader = null;
    #reading = null;
    #writer = null;
    #closing = false;

    constructor(stage) {
        this.stage = stage;
        this.serial = navigator.serial ?? null;
        this.serial?.addEventListener('connect', () => this.tellNames());
        this.serial?.addEventListener('disconnect', (event) => {
            if (event.target === this.#port) this.#vanished();
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
        await port.open(optionsOf(settings));
        this.#port = port;
        this.#settings = settings;
        this.#closing = false;
        this.#writer = port.writable.getWriter();
        this.#reading = this.#read(port);
    }

    // Faults of the line, such as a wrong stop bit, end a stream and not the port.
    async #read(port) {
        while (port.readable && !this.#closing && port === this.#port) {
            this.#reader = port.readable.getReader();
            try {
                for (;;) {
                    const { value, done } = await this.#reader.read();
                    if (done) break;
                    if (value?.length > 0) this.stage.link.send({ on: 'port', data: textOf(value) });
                }
            } catch {
                // The next stream goes on.
            } finally {
                this.#reader.releaseLock();
            }
        }
    }

    async #stop() {
        this.#closing = true;
        // Ends when all has left.
        await this.#writer?.close().catch(() => {});
        this.#writer?.releaseLock();
        await this.#reader?.cancel().catch(() => {});
        await this.#reading;
        await this.#port?.close().catch(() => {});
        this.#port = this.#writer = this.#reader = null;
    }

    async close({ ask: number }) {
        await this.#stop();
        this.stage.reply(number, { ok: true });
    }

    async change({ ask: number, settings }) {
        const before = this.#settings;
        const port = this.#port;
        if (!port) return this.stage.reply(number, {});
        await this.#stop();
        const opens = (which) => this.#start(port, which).then(() => true, () => false);
        if (await opens(settings)) return this.stage.reply(number, { ok: true });
        // It goes on with what it had, where it is still there.
        return this.stage.reply(number, { refused: await opens(before) });
    }

    write({ data }) {
        this.#writer?.write(bytesOf(data)).catch(() => this.#vanished());
    }

    #vanished() {
        if (!this.#port || this.#closing) return;
        this.#closing = true;
        this.#port = this.#writer = null;
        this.stage.link.send({ on: 'port', vanished: true });
    }
}
