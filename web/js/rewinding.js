// Waits of the program in a browser that does not switch stacks: it leaves all its functions, which Asyncify has made able
// to, and enters them again when the wait is over.

const room = 65536; // bytes for what the functions remember

export class Rewinding {
    #exports = null;
    #remembered = 0;
    #enters = false;
    #value = 0;

    use(exports) {
        this.#exports = exports;
    }

    // Within the function that waits: waits(take) calls take with what it gives, at once or later.
    pause(waits) {
        if (this.#enters) {
            this.#enters = false;
            this.#exports.asyncify_stop_rewind();
            return this.#value;
        }
        let came = false;
        let here = true;
        waits((value) => {
            this.#value = value;
            came = true;
            if (!here) this.#enter();
        });
        here = false;
        if (came) return this.#value;
        this.#remembered ||= this.#exports.malloc(room);
        const bounds = new Int32Array(this.#exports.memory.buffer, this.#remembered, 2);
        bounds.set([this.#remembered + 8, this.#remembered + room]);
        this.#exports.asyncify_start_unwind(this.#remembered);
        return 0;
    }

    #enter() {
        this.#enters = true;
        this.#exports.asyncify_start_rewind(this.#remembered);
        this.run();
    }

    // The program, up to its next wait or its end, which nobody tells.
    run() {
        this.#exports.main(0, 0);
        if (this.#exports.asyncify_get_state() !== 0) this.#exports.asyncify_stop_unwind();
        return { end: new Promise(() => {}) };
    }
}
