// Lengths of the controls on the page: 15 twips are a pixel at a root font of 16 pixels. The style sheet has the same
// factor as --twip, so that all places follow the browser's font by themselves.

const twipsPerPixel = 15;
const usualBar = 360; // twips of the bar of a window
const touchedBar = 540; // where fingers press it
const usualFont = 16; // pixels of the root font at factor 1
// What the forms are made for, in pixels at factor 1: the mean width of a small letter, the height of a line, and the
// width of a character in a column.
const meanWidth = 6.35;
const lineHeight = 16;
const columnCharacter = 7;
const largestFace = 13;
const smallestFace = 10.5;

const canvas = document.createElement('canvas').getContext('2d');
const letters = 'abcdefghijklmnopqrstuvwxyz';
const listeners = [];
let factor = 1;
let faceFont = '12px sans-serif';

function families(name) {
    return getComputedStyle(document.documentElement).getPropertyValue(name);
}

// The largest size at which the forms have room for the page's face.
function faceSize(family) {
    for (let size = largestFace; size > smallestFace; size -= 0.25) {
        canvas.font = `${size}px ${family}`;
        const wide = canvas.measureText(letters).width / letters.length;
        const tall = canvas.measureText('\u00C4\u00D6g');
        const high = tall.actualBoundingBoxAscent + tall.actualBoundingBoxDescent;
        if (wide <= meanWidth && high <= lineHeight) return size;
    }
    return smallestFace;
}

function fixedSize(family) {
    canvas.font = `100px ${family}`;
    return Math.min(largestFace, (columnCharacter * 100) / canvas.measureText('0').width);
}

function measure() {
    const style = document.documentElement.style;
    factor = parseFloat(getComputedStyle(document.documentElement).fontSize) / usualFont;
    const face = faceSize(families('--face-family'));
    style.setProperty('--face-size', `${face / usualFont}rem`);
    style.setProperty('--fixed-size', `${fixedSize(families('--fixed-family')) / usualFont}rem`);
    faceFont = `${face * factor}px ${families('--face-family')}`;
    for (const listener of listeners) listener();
}

// Begins to follow the browser's font.
export function followFont() {
    measure();
    const probe = document.createElement('div');
    probe.className = 'probe';
    document.body.append(probe);
    new ResizeObserver(() => {
        if (parseFloat(getComputedStyle(document.documentElement).fontSize) / usualFont !== factor) measure();
    }).observe(probe);
}

// Calls back when the font has another size.
export function onFont(listener) {
    listeners.push(listener);
}

// How high the bar of a window is, in twips.
export function barHeight() {
    return document.body.classList.contains('touched') ? touchedBar : usualBar;
}

export function pixels(twips) {
    return (twips * factor) / twipsPerPixel;
}

export function twips(pixelCount) {
    return (pixelCount * twipsPerPixel) / factor;
}

// A length for the style sheet.
export function length(twipCount) {
    return `calc(var(--twip) * ${Number(twipCount) || 0})`;
}

// How wide a text is in the face of the forms, in pixels.
export function textWidth(text) {
    canvas.font = faceFont;
    return canvas.measureText(text).width;
}

// A text shortened in its middle where it is wider than its place.
export function fitted(text, width) {
    if (width <= 0 || textWidth(text) <= width) return text;
    let low = 0;
    let high = text.length;
    const cut = (kept) =>
        `${text.slice(0, Math.ceil(kept / 2))}\u2026${text.slice(text.length - Math.floor(kept / 2))}`;
    while (low < high) {
        const middle = (low + high + 1) >> 1;
        if (textWidth(cut(middle)) <= width) low = middle;
        else high = middle - 1;
    }
    return cut(low);
}
