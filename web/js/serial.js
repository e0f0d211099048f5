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
    #ports = [];
    #port = null;
    #settings = '';
    #reader = null;
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

    // The names of what can be opened: ports that were granted, then one that is still to be chosen.
    async names() {
        if (!this.serial) return [];
        const granted = await this.serial.getPorts().catch(() => []);
        this.#ports = granted.slice(0, offered);
        const names = this.#ports.map(nameOf);
        if (names.length < offered) names.push(this.stage.text('newPort'));
        return names;
    }
    async tellNames() {
        this.stage.link.send({ on: 'ports', names: await this.names() });
    }

    async #grant(number) {
        const known = this.#ports[number - 1];
        if (known) return known;
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

    async open({ ask: number, number: port, settings }) {
        try {
            if (!this.serial) throw new Error('none');
            this.#port = await this.#grant(port);
            if (!this.#port) throw new Error('none');
            await this.#start(settings);
            this.stage.reply(number, { ok: true });
            this.tellNames();
        } catch (fault) {
            this.#port = null;
            this.stage.reply(number, { ok: false, error: String(fault.message ?? fault) });
        }
    }

    async #start(settings) {
        await this.#port.open(optionsOf(settings));
        this.#settings = settings;
        this.#closing = false;
        this.#writer = this.#port.writable.getWriter();
        this.#read(this.#port);
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
        await this.#writer?.ready.catch(() => {});
        this.#writer?.releaseLock();
        await this.#reader?.cancel().catch(() => {});
        await this.#port?.close().catch(() => {});
        this.#writer = this.#reader = null;
    }

    async close({ ask: number }) {
        await this.#stop();
        this.#port = null;
        this.stage.reply(number, { ok: true });
    }

    async change({ ask: number, settings }) {
        const before = this.#settings;
        const port = this.#port;
        if (!port) return this.stage.reply(number, { ok: false });
        await this.#stop();
        try {
            await this.#start(settings);
            this.stage.reply(number, { ok: true });
        } catch {
            // It goes on with what it had, where it is still there.
            const back = await this.#start(before).then(() => true, () => false);
            this.stage.reply(number, back ? { ok: false, refused: true } : { ok: false });
        }
    }

    write({ data }) {
        this.#writer?.write(bytesOf(data)).catch(() => this.#vanished());
    }

    #vanished() {
        if (!this.#port || this.#closing) return;
        this.#closing = true;
        this.#port = null;
        this.#writer = null;
        this.stage.link.send({ on: 'port', vanished: true });
    }
}
