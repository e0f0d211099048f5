// What stands between the page and the program: the page puts events into a queue, the program takes them one by one
// inside its waits and sends its messages back in between.

import { ticks } from './clock.js';

const mostHeld = 64; // keys that wait for their answer

// As JSON. Half of a character, as a shortened text can end with, would make all of it unreadable.
function jsonOf(event) {
    const json = JSON.stringify(event);
    if (!json.includes('\\ud')) return json;
    return json.replace(/\\(?:ud[89a-f]..|.)/g, (escaped) => (escaped.length > 2 ? '\\ufffd' : escaped));
}

export class Link {
    #events = [];
    #take = null;
    #timer = 0;
    #fires = Infinity;
    #due = Infinity;
    #waits = 0;
    #sequence = 0;
    #held = new Map();
    #turn = new MessageChannel();

    // stage(message) is told each message of the program, numbers(id, from, floats) the strokes of a drawing,
    // kept(id, canvas) the picture that they begin with.
    constructor(stage, numbers, kept) {
        this.stage = stage;
        this.strokes = numbers;
        this.kept = kept;
        this.ended = false;
        this.#turn.port1.onmessage = ({ data }) => data === this.#waits && this.#take && this.#deliver('');
        ticks(() => this.#tick());
    }

    now() {
        return performance.now();
    }

    // The program waits for an event: take() gets its JSON text, or "" when the time is over.
    wait(milliseconds, take) {
        // A key without an answer is one whose handler waits itself: it has a use for it.
        this.useHeld();
        this.#take = take;
        ++this.#waits;
        const endless = milliseconds < 0 || milliseconds === Infinity;
        this.#due = endless ? Infinity : performance.now() + milliseconds;
        if (this.#events.length > 0) {
            this.#give();
        } else if (milliseconds === 0) {
            // One turn of the browser's events; a timer would take some milliseconds more.
            this.#turn.port2.postMessage(this.#waits);
        } else if (!endless) {
            this.#wake(milliseconds);
        }
    }

    // A timer that an earlier wait has left fires in this one: it then goes on for what is left. It may fire a little
    // early; it is this wait's all the same.
    #wake(milliseconds) {
        if (this.#timer && this.#fires <= this.#due) return;
        clearTimeout(this.#timer);
        this.#fires = this.#due;
        this.#timer = setTimeout(() => {
            this.#timer = 0;
            const left = this.#due - performance.now();
            if (!this.#take || left === Infinity) return;
            if (left < 1) this.#deliver('');
            else this.#wake(left);
        }, milliseconds);
    }

    messages(text) {
        for (const message of JSON.parse(text)) {
            if (message.do === 'used') {
                this.#answer(message);
            } else {
                this.#show(message);
            }
        }
    }

    // A fault of the page's own must not go through the program, nor take the rest along; a question is answered.
    #show(message) {
        const failed = (fault) => {
            console.error(fault);
            if (message.ask) this.send({ on: 'reply', ask: message.ask });
        };
        try {
            this.stage(message)?.catch?.(failed);
        } catch (fault) {
            failed(fault);
        }
    }

    numbers(id, from, floats) {
        this.strokes(id, from, floats);
    }

    // points have red in the low byte, as the program has them.
    picture(id, width, height, points) {
        const image = new ImageData(width, height);
        new Uint32Array(image.data.buffer).set(points.map((point) => point | 0xff000000));
        const canvas = new OffscreenCanvas(width, height);
        canvas.getContext('2d').putImageData(image, 0, 0);
        this.kept(id, canvas);
    }

    // An event for the program. Where it waits it takes it before this returns, or right behind the listener.
    send(event) {
        if (this.ended) return;
        this.#events.push(event);
        this.#give();
    }

    // The same for what a newer one of its kind makes out of date, such as a movement of the mouse.
    sendLatest(event, same) {
        const at = this.#events.findIndex((one) => same(one, event));
        if (at >= 0) this.#events.splice(at, 1);
        this.send(event);
    }

    // A key: what the browser would do with it is prevented when the program has used it, and when it is not even
    // waiting for keys. always: in any case.
    sendKey(event, dom, always) {
        const seq = ++this.#sequence;
        this.#held.set(seq, dom);
        if (this.#held.size > mostHeld) this.#held.delete(this.#held.keys().next().value);
        if (always || !this.#take) dom.preventDefault();
        this.send({ ...event, seq });
    }

    // A key that has brought up a box is no key of the box: Enter would press its button.
    useHeld() {
        for (const dom of this.#held.values()) dom.preventDefault();
    }

    #answer({ seq, used }) {
        if (used) this.#held.get(seq)?.preventDefault();
        this.#held.delete(seq);
    }

    #tick() {
        if (this.#take && performance.now() >= this.#due) this.#deliver('');
    }

    #give() {
        if (this.#take && this.#events.length > 0) this.#deliver(jsonOf(this.#events.shift()));
    }

    #deliver(text) {
        const take = this.#take;
        this.#take = null;
        this.#due = Infinity;
        take(text);
    }
}
