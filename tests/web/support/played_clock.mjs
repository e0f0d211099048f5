// A clock of the page that stands still until the test moves it: window.clock. Put in before the page's own script, as
// the functions of inside.mjs, behind the recording of messages.
export function playClock() {
    const later = window.setTimeout.bind(window);
    const forget = window.clearTimeout.bind(window);
    const firstNumber = 1e9;
    const creep = 1000; // readings that take a millisecond, so that work without end comes to an end
    const longestSleep = 20; // milliseconds; a wait inside a handler is no longer
    const timers = new Map();
    let number = firstNumber;
    let readings = 0;
    let activity = 0;
    const clock = { now: 0, waits: 0 };
    window.clock = clock;

    // From where in the program it waits: its main loop, a wait that ends by itself (which looks at first, from a place of
    // its own in the same function, for what has come) or one for its user.
    Error.stackTraceLimit = 100;
    const site = () => new Error().stack.split('\n').filter((line) => line.includes('wasm')).join('\n');
    const chain = (whole) => whole.replace(/:0x[0-9a-f]+/g, '');
    const depth = (whole) => whole.split('\n').length;
    let mainLoop = '';
    const sleeping = new Set();
    const looks = new Set();
    const isTimed = (whole) => [...looks].some((one) => !sleeping.has(one) && chain(one) === chain(whole));
    let begun = false;
    let wait = null;
    let look = '';
    function waits(milliseconds) {
        const from = site();
        look = milliseconds === 0 && !sleeping.has(from) ? from : '';
        if (milliseconds === 0) return;
        // The long wait with the fewest functions below it, but for the one for the page's first word.
        const greets = window.told.controls.size === 0;
        if (milliseconds > longestSleep && !greets && !(mainLoop && depth(mainLoop) <= depth(from))) mainLoop = from;
        sleeping.add(from);
        wait = { from, until: clock.now + milliseconds };
    }
    // The one function of the page that the program waits in. Without a switch of stacks it is entered once more at the end
    // of each wait, when the program has been entered again.
    const rewinding = 2;
    let exports = {};
    const watched = (next) => (milliseconds) => {
        if (exports.asyncify_get_state?.() !== rewinding) waits(milliseconds);
        return next(milliseconds);
    };
    const { Suspending } = WebAssembly;
    if (Suspending) WebAssembly.Suspending = function (next) {
        return new Suspending(watched(next));
    };
    for (const name of ['instantiate', 'instantiateStreaming']) {
        const plain = WebAssembly[name];
        WebAssembly[name] = async (source, { env, ...imports }) => {
            const next = typeof env.kvt_next === 'function' ? { kvt_next: watched(env.kvt_next) } : {};
            const made = await plain(source, { ...imports, env: { ...env, ...next } });
            ({ exports } = made.instance ?? made);
            return made;
        };
    }

    performance.now = () => clock.now + Math.floor(readings++ / creep);
    Object.defineProperty(Event.prototype, 'timeStamp', { get: () => clock.now });
    window.setTimeout = (act, milliseconds = 0, ...more) => {
        ++activity;
        if (!(milliseconds > 0)) return later(act, 0, ...more);
        timers.set(++number, { act: () => act(...more), at: clock.now + milliseconds });
        return number;
    };
    window.clearTimeout = (one) => timers.delete(one) || forget(one);
    const post = MessagePort.prototype.postMessage;
    MessagePort.prototype.postMessage = function (...message) {
        ++activity;
        // Nothing has come by then: the wait begins.
        if (look) begun = !!looks.add(look);
        look = '';
        return post.apply(this, message);
    };

    const pings = new MessageChannel();
    const turn = () => new Promise((then) => {
        pings.port1.onmessage = then;
        post.call(pings.port2, 0);
    });
    // Until nothing goes on by itself any more.
    async function quiet() {
        for (let same = 0, last = -1; same < 3; last = activity) {
            await turn();
            same = last === activity ? same + 1 : 0;
        }
        readings = 0;
    }
    const framed = () => new Promise((then) => requestAnimationFrame(() => later(then, 0)));
    const boxIsUp = () => document.querySelector('dialog[open]') !== null;

    // What the program waits for: its user, a time that it has set itself, or, where it is through, any event.
    clock.state = () => {
        if (window.told.ended) return 'ended';
        if (boxIsUp()) return 'box';
        if (window.told.asks.size > 0) return 'asks';
        if (!wait || wait.from === mainLoop) return 'idle';
        return isTimed(wait.from) ? 'timed' : 'user';
    };

    // Lets all come to rest that needs no time. Views follow before the next frame.
    clock.rest = async () => {
        for (let i = 0; i < 400; ++i) {
            await quiet();
            await framed();
            await quiet();
            if (clock.state() !== 'asks') break;
            await new Promise((then) => later(then, 5));
        }
        return clock.state();
    };
    function next(end) {
        let first = null;
        for (const [key, one] of timers) if (one.at <= end && !(one.at >= timers.get(first)?.at)) first = key;
        return first;
    }
    // Goes on by so many milliseconds, timer by timer. Gives what is left of them where a box has come up.
    clock.advance = async (milliseconds) => {
        const end = clock.now + milliseconds;
        for (;;) {
            await quiet();
            if (boxIsUp() || window.told.ended) return end - clock.now;
            const key = next(end);
            if (key === null) break;
            const { act, at } = timers.get(key);
            timers.delete(key);
            clock.now = Math.max(clock.now, at);
            act();
        }
        clock.now = Math.max(clock.now, end);
        return 0;
    };
    // Lets times that the program waits for itself pass until it waits for its user or is through, or until `waits` such
    // waits have begun; clock.waits counts them.
    clock.pass = async (waits) => {
        for (;;) {
            await quiet();
            const state = clock.state();
            if (state === 'timed' && begun) ++clock.waits;
            begun = false;
            if (state === 'asks') await new Promise((then) => later(then, 5));
            else if (state !== 'timed' || clock.waits >= waits) return state;
            else await clock.advance(Math.max(wait.until - clock.now, 1));
        }
    };
}
