// Fingers on a drawing: one moves it as the middle button does, two zoom as the wheel does. A tap is the browser's
// click. A finger that rests does what the other button of a mouse does, or its resting.

const slack = 8; // pixels that a tap may slip
const notchShare = 1.15; // of the distance of two fingers
const rest = 600; // milliseconds

// tell(event, what, more) tells the program what a mouse would have done there.
export function followFingers(element, tell) {
    const fingers = new Map();
    let from = null;
    let moving = false;
    let apart = 0;

    const place = ({ clientX, clientY }) => ({ clientX, clientY });
    const distance = () => {
        const [one, other] = [...fingers.values()];
        return Math.hypot(one.clientX - other.clientX, one.clientY - other.clientY);
    };
    const middle = () => {
        const [one, other] = [...fingers.values()];
        return { clientX: (one.clientX + other.clientX) / 2, clientY: (one.clientY + other.clientY) / 2 };
    };

    element.addEventListener('pointerdown', (event) => {
        if (event.pointerType !== 'touch') return;
        fingers.set(event.pointerId, place(event));
        from = place(event);
        moving = false;
        if (fingers.size === 2) apart = distance();
    });
    element.addEventListener('pointermove', (event) => {
        if (!fingers.has(event.pointerId)) return;
        fingers.set(event.pointerId, place(event));
        if (fingers.size === 2) {
            const now = distance();
            const notches = Math.trunc(Math.log(now / apart) / Math.log(notchShare));
            if (notches === 0) return;
            apart = now;
            tell(middle(), 'wheel', { notches, sideways: false });
        } else if (fingers.size === 1) {
            if (!moving && Math.hypot(event.clientX - from.clientX, event.clientY - from.clientY) < slack) return;
            if (!moving) tell(from, 'down', { button: 4 });
            moving = true;
            tell(place(event), 'move', { button: 4 });
        }
    });
    for (const name of ['pointerup', 'pointercancel']) {
        element.addEventListener(name, (event) => {
            if (!fingers.delete(event.pointerId)) return;
            if (moving) tell(place(event), 'move', { button: 0 });
            moving = false;
            from = [...fingers.values()][0] ?? null;
        });
    }
}

// act(event) is told of a finger that rests, by the event that it came down with; where it is true nothing is pressed, and
// end() is told when the finger goes.
export function followRest(element, { act, end = () => {} }) {
    let waiting = 0;
    let from = null;
    let done = false;
    const leave = () => {
        clearTimeout(waiting);
        if (from && done) end();
        from = null;
    };
    element.addEventListener('pointerdown', (event) => {
        done = false;
        if (event.pointerType !== 'touch') return;
        from = event;
        clearTimeout(waiting);
        waiting = setTimeout(() => (done = act(event)), rest);
    }, true);
    element.addEventListener('pointermove', (event) => {
        if (from && !done && Math.hypot(event.clientX - from.clientX, event.clientY - from.clientY) > slack) leave();
    }, true);
    for (const name of ['pointerup', 'pointercancel']) element.addEventListener(name, leave, true);
    // What the browser makes of the finger's end.
    for (const name of ['mousedown', 'mouseup', 'click']) {
        element.addEventListener(name, (event) => {
            if (!done) return;
            event.preventDefault();
            event.stopImmediatePropagation();
            if (name === 'click') done = false;
        }, true);
    }
}
