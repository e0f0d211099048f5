// Keys by the program's numbers, with what is held and the character that comes with them.

const named = {
    Backspace: 8, Tab: 9, Enter: 13, Escape: 27, ' ': 32, PageUp: 33, PageDown: 34, End: 35, Home: 36, ArrowLeft: 37,
    ArrowUp: 38, ArrowRight: 39, ArrowDown: 40, Insert: 45, Delete: 46,
};
const numericSigns = { '+': 107, '-': 109, ',': 110, '.': 110, '/': 111, '*': 106 };
const signs = { '+': 187, '=': 187, ',': 188, '-': 189, '_': 189, '.': 190, '/': 191 };
const withCharacter = new Set([8, 9, 13, 27, 32]);
// Characters of the program's code page beyond Latin-1, from 128 on.
const beyondLatin = '\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F' +
    '\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178';

export const shift = 1;
export const ctrl = 2;
export const alt = 4;

export function heldWith(event) {
    return (event.shiftKey ? shift : 0) | (event.ctrlKey || event.metaKey ? ctrl : 0) | (event.altKey ? alt : 0);
}

// Keys that edit a text, by the letter that Ctrl is held with.
const edits = new Set([...'ACVXYZ'].map((letter) => letter.charCodeAt(0)));

export const isEditing = ({ key, held }) => (held & ctrl) !== 0 && edits.has(key);

// Whether the browser's own meaning of a key with Ctrl is not the program's to take: letters that only a menu could have
// a use for, and those that make the page larger and smaller.
export function isBrowsers({ key, held }) {
    if (!(held & ctrl)) return false;
    if (key >= 65 && key <= 90) return !edits.has(key);
    return key === 48 || key === 96 || key === 107 || key === 109 || key === 187 || key === 189;
}

// The number of a character in the code page, 0 where it has none.
export function characterNumber(character) {
    const code = character.charCodeAt(0);
    if (code < 128 || (code >= 160 && code < 256)) return code;
    const at = beyondLatin.indexOf(character);
    return at < 0 ? 0 : 128 + at;
}

function keyNumber(event) {
    const { key, code } = event;
    if (named[key]) return named[key];
    // F11 and F12 are the browser's.
    const functionKey = /^F([1-9]|10)$/.exec(key);
    if (functionKey) return 111 + Number(functionKey[1]);
    if (code.startsWith('Numpad')) {
        if (/^[0-9]$/.test(key)) return 96 + Number(key);
        if (numericSigns[key]) return numericSigns[key];
    }
    if (/^[a-z0-9]$/i.test(key)) return key.toUpperCase().charCodeAt(0);
    // Keyboards of other letters have those of the shortcuts at the same places.
    if (heldWith(event) === ctrl && key > '\u007f' && /^Key[A-Z]$/.test(code)) return code.charCodeAt(3);
    return signs[key] ?? 0;
}

// The press that an event of the browser stands for; null for what is no business of the program.
export function pressOf(event) {
    if (event.isComposing || event.key === 'Process' || event.key === 'Dead' || event.key === 'Unidentified') return null;
    const held = heldWith(event);
    // The key of the menu that belongs to a control.
    if (event.key === 'F10' && held === shift) return null;
    const prints = [...event.key].length === 1;
    // How some keyboards write their third character.
    const third = event.getModifierState?.('AltGraph') || (event.ctrlKey && event.altKey);
    if (prints && third) return { key: 0, held: 0, char: characterNumber(event.key), prints: true };
    const key = keyNumber(event);
    if (held & alt) {
        const opensList = held === alt && (key === 38 || key === 40);
        return opensList ? { key, held, char: 0, prints: false } : null;
    }
    if (held & ctrl) {
        const letter = key >= 65 && key <= 90;
        return key ? { key, held, char: letter && held === ctrl ? key - 64 : 0, prints: false } : null;
    }
    if (prints && event.key !== ' ') return { key, held, char: characterNumber(event.key), prints: true };
    return key ? { key, held, char: withCharacter.has(key) ? key : 0, prints: key === 32 } : null;
}

// A key that was not pressed at a keyboard.
export function pressKey(stage, form, key, held) {
    const char = held === 0 && withCharacter.has(key) ? key : 0;
    stage.link.send({ on: 'key', seq: 0, form: form.id, key, held, char, repeat: false, time: performance.now() });
}

// Composed or dropped text, as if it were typed.
export function sendText(stage, form, text) {
    const line = text.replace(/[\r\n]+/g, '');
    if (line) stage.link.send({ on: 'text', form: form.id, text: line });
}
