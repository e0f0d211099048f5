// An open port of the browser: what is written goes out, what arrives is told, and so is a device that takes nothing or has
// gone.

import { bytesOf, textOf } from './files.js';

// Milliseconds: how often it is looked whether the device takes what is written, from when on it is late, and what a port
// that is closed has for its last line.
const looksEvery = 5000;
const late = 1500;
const grace = 1000;

export class SerialLine {
    #tell;
    #writer = null;
    #reader = null;
    #reading = null;
    #closing = false;
    #given = Promise.resolve(); // when all that was given has been taken
    #waiting = 0; // bytes of it that have not
    #looked = -looksEvery;
    #timer = 0;
    #toldLate = false;

    // tell is told { data }, { waits }: bytes that a late device leaves lying, and { vanished }.
    constructor(port, tell) {
        this.port = port;
        this.#tell = (what) => !this.#closing && tell(what);
    }

    async open(options) {
        await this.port.open(options);
        this.#writer = this.port.writable.getWriter();
        this.#reading = this.#read();
        return this;
    }

    // Faults of the line, such as a wrong stop bit, end a stream and not the port.
    async #read() {
        while (this.port.readable && !this.#closing) {
            this.#reader = this.port.readable.getReader();
            try {
                for (;;) {
                    const { value, done } = await this.#reader.read();
                    if (done) break;
                    if (value?.length > 0) this.#tell({ data: textOf(value) });
                }
            } catch {
                // The next stream goes on.
            } finally {
                this.#reader.releaseLock();
            }
        }
    }

    write(data) {
        const bytes = bytesOf(data);
        this.#waiting += bytes.length;
        this.#expect();
        this.#given = this.#given.then(() => this.#give(bytes)).catch(() => this.vanish());
    }

    // The browser itself holds what is written: only a stream that closes tells when the device has taken it, and the port
    // then has a new one.
    async #give(bytes) {
        await this.#writer.write(bytes);
        if (!this.#closing && performance.now() - this.#looked >= looksEvery) {
            this.#looked = performance.now();
            await this.#writer.close();
            this.#writer.releaseLock();
            this.#writer = this.port.writable.getWriter();
        }
        this.#waiting -= bytes.length;
        clearTimeout(this.#timer);
        this.#timer = 0;
        if (this.#toldLate) this.#tellWaiting();
        else this.#expect();
    }

    #expect() {
        if (this.#waiting > 0) this.#timer ||= setTimeout(() => this.#tellWaiting(), late);
    }
    #tellWaiting() {
        this.#toldLate = this.#waiting > 0;
        this.#tell({ waits: this.#waiting });
    }

    // A device that takes nothing more is let go when it can be.
    async close() {
        this.#closing = true;
        clearTimeout(this.#timer);
        await Promise.race([this.#end(), new Promise((over) => setTimeout(over, grace))]);
    }

    async #end() {
        await this.#given;
        // Ends when all has left.
        await this.#writer.close().catch(() => {});
        this.#writer.releaseLock();
        await this.#reader?.cancel().catch(() => {});
        await this.#reading;
        await this.port.close().catch(() => {});
    }

    vanish() {
        this.#tell({ vanished: true });
        this.#closing = true;
        clearTimeout(this.#timer);
    }
}
