// Tool tips: plain text, whatever mark-up it looks like.

import { followRest } from './views/touch.js';
import { make } from './views/view.js';

const dwell = 600; // milliseconds
const below = 20; // pixels below the pointer
const aboveFinger = 56; // pixels above a finger
const read = 4000; // milliseconds that a tip stays behind the finger
let face = null;
let waiting = 0;
let leaving = 0;
let over = null;
let place = { x: 0, y: 0 };

export function showTip(text, x, y, title = '') {
    face ??= make('div', 'tip', document.body);
    face.setAttribute('role', 'tooltip');
    face.replaceChildren();
    if (title) make('b', '', face).textContent = title;
    make('div', '', face).textContent = text.replace(/\r\n?/g, '\n').trim();
    // A dialog lies on top of all else.
    (document.querySelector('dialog[open]') ?? document.body).append(face);
    face.hidden = false;
    const { offsetWidth: width, offsetHeight: height } = face;
    const left = Math.max(4, Math.min(x, innerWidth - width - 4));
    const top = y + below + height > innerHeight ? y - height - 8 : y + below;
    face.style.left = `${left}px`;
    face.style.top = `${Math.max(4, top)}px`;
}

export function hideTip() {
    if (face) face.hidden = true;
}

// Follows the mouse over all that has a tip; a tip that changes while it is up is shown anew.
export function followTips() {
    document.addEventListener('mousemove', (event) => {
        place = { x: event.clientX, y: event.clientY };
        const element = event.target.closest?.('[data-tip]');
        if (element === over) return;
        over = element;
        clearTimeout(waiting);
        hideTip();
        if (element?.dataset.tip) waiting = setTimeout(() => showOver(), dwell);
    });
    for (const name of ['mousedown', 'keydown', 'wheel'])
        document.addEventListener(name, () => (clearTimeout(waiting), hideTip()), { capture: true, passive: true });
    followFingers();
    new MutationObserver((changes) => {
        if (!changes.some((one) => one.target === over)) return;
        if (face && !face.hidden) showOver();
        else if (over.dataset.tip) {
            clearTimeout(waiting);
            waiting = setTimeout(() => showOver(), dwell);
        }
    }).observe(document.body, { subtree: true, attributeFilter: ['data-tip'] });
}

// A finger that rests on something has its tip instead of its click.
function followFingers() {
    document.addEventListener('pointerdown', () => clearTimeout(leaving), true);
    followRest(document, {
        act({ target, clientX, clientY }) {
            const element = target.closest?.('[data-tip]');
            if (!element?.dataset.tip) return false;
            clearTimeout(waiting);
            over = element;
            place = { x: clientX, y: Math.max(0, clientY - aboveFinger - below) };
            showOver();
            return true;
        },
        end: () => (leaving = setTimeout(hideTip, read)),
    });
}

function showOver() {
    if (over?.isConnected && over.dataset.tip) showTip(over.dataset.tip, place.x, place.y);
    else hideTip();
}
