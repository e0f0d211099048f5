// Serial ports of the browser. A port is granted by its user in a click; the settings of an open one change only by
// closing and opening it again.

import { ask } from './boxes.js';
import { bytesOf, textOf } from './files.js';
import { make } from './views/view.js';

const offered = 4;
const bufferSize = 8192;
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
    #entries = []; // { name, port } granted, { name } still to be chosen
    #entry = null; // that is open
    #port = null; // of the browser, once it is open
    #settings = '';
    #reader = null;
    #reading = null;
    #writer = null;
    #closing = false;
    #waiting = []; // what was given before the port was there

    // machine takes what is sent to a machine that is played.
    constructor(stage, machine) {
        this.stage = stage;
        this.machine = machine;
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
        const granted = (await this.serial?.getPorts().catch(() => [])) ?? [];
        this.#entries = granted.slice(0, offered).map((port) => ({ name: nameOf(port), port }));
        if (!this.serial) this.#entries.push({ name: this.stage.text('machine') });
        else if (this.#entries.length < offered) this.#entries.push({ name: this.stage.text('newPort') });
        return this.#entries.map((one) => one.name);
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

    async #chosen() {
        if (this.#entry.port) return this.#entry.port;
        const request = () => this.serial.requestPort();
        if (navigator.userActivation?.isActive ?? true) return request();
        return ask(this.stage, {
            title: this.stage.text('grantPort'),
            cancel: null,
            fill: (content, close) => {
                const button = make('button', '', content);
                button.type = 'button';
                button.textContent = this.stage.text('grantButton');
                button.addEventListener('click', () => request().then(close, () => close(null)));
                return [['cancel', null]];
            },
        });
    }

    // At its start the program tries all ports. One that is still to be chosen, or taken by another program by then,
    // is asked for when something is to be sent.
    async open({ ask: number, number: index, settings }) {
        this.#entry = this.#entries[index - 1] ?? null;
        this.#settings = settings;
        this.#waiting = [];
        let ok = this.#entry !== null;
        if (this.#entry?.port) {
            this.#port = this.#entry.port;
            ok = await this.#start(settings).then(() => true, () => false);
            if (!ok) this.#port = null;
            if (!ok && document.body.classList.contains('starting')) ok = true;
        }
        if (!ok) this.#entry = null;
        this.stage.reply(number, { ok });
    }

    async #start(settings) {
        await this.#port.open(optionsOf(settings));
        this.#settings = settings;
        this.#closing = false;
        this.#writer = this.#port.writable.getWriter();
        this.#reading = this.#read(this.#port);
    }

    // Faults of the line, such as a wrong stop bit, end a stream and not the port.
    async #read(port) {
        while (port.readable && !this.#closing && port === this.#port) {
            this.#reader = port.readable.getReader();
            try {
                for (;;) {
                    const { value, done } = await this.#reader.read();
                    if (done) break;
                    if (value?.length > 0 && !this.machine.isOpen) this.stage.link.send({ on: 'port', data: textOf(value) });
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
        this.#writer = this.#reader = null;
    }

    async close({ ask: number }) {
        await this.#stop();
        this.#port = this.#entry = null;
        this.stage.reply(number, { ok: true });
    }

    async change({ ask: number, settings }) {
        if (!this.#entry) return this.stage.reply(number, {});
        const before = this.#settings;
        this.#settings = settings;
        if (!this.#port) return this.stage.reply(number, { ok: true });
        await this.#stop();
        try {
            await this.#start(settings);
            this.stage.reply(number, { ok: true });
        } catch {
            // It goes on with what it had, where it is still there.
            const back = await this.#start(before).then(() => true, () => false);
            if (!back) this.#port = this.#entry = null;
            this.stage.reply(number, back ? { refused: true } : {});
        }
    }

    write({ data }) {
        if (this.machine.isOpen || !this.serial) return this.machine.receive(data);
        if (this.#writer) {
            this.#writer.write(bytesOf(data)).catch(() => this.#vanished());
            return undefined;
        }
        this.#waiting.push(data);
        if (this.#waiting.length === 1 && this.#entry) return this.#startWaiting();
        return undefined;
    }

    // What waited goes out as soon as there is a port.
    async #startWaiting() {
        try {
            this.#port = await this.#chosen();
            if (!this.#port) throw new Error('none');
            await this.#start(this.#settings);
            this.#entry = { ...this.#entry, port: this.#port };
            for (const data of this.#waiting.splice(0)) this.write({ data });
        } catch {
            this.#closing = false;
            this.#port ??= {};
            this.#vanished();
        }
    }

    // From the played machine.
    fromMachine(data) {
        this.stage.link.send({ on: 'port', data });
    }

    #vanished() {
        if (!this.#port || this.#closing) return;
        this.#closing = true;
        this.#port = this.#entry = null;
        this.#writer = null;
        this.#waiting = [];
        this.stage.link.send({ on: 'port', vanished: true });
    }
}
