// Fields. A field of one line is edited by the program, which is told each key and each composed text; one of several
// lines has the browser's editor, whose edits are told.

import { textColor } from '../colors.js';
import { pressKey, sendText } from '../keys.js';
import { make, View } from './view.js';

// What the browser would do by itself, as the keys that do it.
const edits = {
    deleteContentBackward: [8, 0],
    deleteContentForward: [46, 0],
    deleteWordBackward: [8, 2],
    deleteWordForward: [46, 2],
    deleteByCut: [46, 0],
    deleteByDrag: [46, 0],
    historyUndo: [90, 2],
    historyRedo: [90, 3],
    insertLineBreak: [13, 0],
};
const longestNotes = 1_000_000;

// What of a text has become another one: { start, removed, inserted }, the first two as counts.
function changeOf(before, after) {
    const most = Math.min(before.length, after.length);
    let start = 0;
    while (start < most && before[start] === after[start]) ++start;
    let same = 0;
    while (same < most - start && before.at(-1 - same) === after.at(-1 - same)) ++same;
    return { start, removed: before.length - same - start, inserted: after.slice(start, after.length - same) };
}

class FieldView extends View {
    constructor(stage, facts, element) {
        super(stage, facts, element);
        this.focusable = true;
        element.spellcheck = false;
        element.autocomplete = 'off';
        element.setAttribute('autocapitalize', 'off');
        if (facts.fixedPitch) element.classList.add('fixed');
        if (facts.readOnly) element.classList.add('shown');
        element.readOnly = !!facts.readOnly;
        this.pressesFocus(element, true);
        this.composing = false;
        element.addEventListener('compositionstart', () => {
            this.composing = true;
            this.before = element.value;
        });
        element.addEventListener('compositionend', () => this.composed());
        element.addEventListener('beforeinput', (event) => this.beforeInput(event));
    }

    showEnabled(enabled) {
        this.element.readOnly = !enabled || !!this.facts.readOnly;
    }

    setForeColor() {
        this.recolor();
    }
    recolor() {
        this.element.style.color = textColor(this.properties.ForeColor, this.facts.readOnly ? 'window' : 'base');
    }

    setText(value) {
        this.show(value);
    }
    setSelection(selection) {
        this.selection = selection;
    }
    // The caret is placed once, in the text that it belongs to.
    applied(properties) {
        const places = 'Text' in properties || 'Selection' in properties;
        if (places && document.activeElement === this.element) this.showSelection();
    }
    focused() {
        this.showSelection();
    }

    show(text) {
        if (!this.composing && this.element.value !== text) this.element.value = text;
    }
    showAgain() {
        this.show(this.properties.Text ?? '');
        if (document.activeElement === this.element) this.showSelection();
    }

    showSelection() {
        if (!this.selection || this.composing) return;
        const [start, count, caretFirst] = this.selection;
        const { selectionStart, selectionEnd } = this.element;
        if (selectionStart === start && selectionEnd === start + count) return;
        this.element.setSelectionRange(start, start + count, caretFirst ? 'backward' : 'forward');
        this.scrollToCaret?.();
    }

    // What was composed, which may have taken the place of letters that stood there, has gone into the element. It is
    // told as if it were typed; the program says what stands there.
    composed() {
        this.composing = false;
        const { start, removed, inserted } = changeOf(this.before, this.element.value);
        if (removed > 0 && this.before === this.properties.Text) {
            this.selection = [start, removed, false];
            this.send({ on: 'caret', start, length: removed });
            if (!inserted) pressKey(this.stage, this.form, 46, 0);
        }
        if (inserted) sendText(this.stage, this.form, inserted.normalize('NFC'));
        this.showAgain();
    }

    // The hands have moved the caret or selected something.
    caretMoved() {
        if (document.activeElement !== this.element || this.composing || this.stage.focus !== this) return;
        const { selectionStart: start, selectionEnd, selectionDirection } = this.element;
        const count = selectionEnd - start;
        const [knownStart, knownCount] = this.selection ?? [];
        if (knownStart === start && knownCount === count) return;
        this.selection = [start, count, selectionDirection === 'backward'];
        this.send({ on: 'caret', start, length: count, caretFirst: this.selection[2] });
    }
}

export class LineView extends FieldView {
    constructor(stage, facts) {
        super(stage, facts, make('input'));
        this.element.type = 'text';
        // What a keyboard on the screen shows.
        if (facts.numeric) this.element.inputMode = 'decimal';
        this.element.enterKeyHint = 'next';
        this.element.addEventListener('input', () => {
            if (!this.composing) this.showAgain();
        });
    }

    beforeInput(event) {
        if (event.inputType === 'insertCompositionText' || event.isComposing) return;
        event.preventDefault();
        if (!this.effectivelyEnabled) return;
        const keys = edits[event.inputType];
        if (keys) pressKey(this.stage, this.form, ...keys);
        else sendText(this.stage, this.form, event.data ?? event.dataTransfer?.getData('text/plain') ?? '');
    }
}

export class NotesView extends FieldView {
    constructor(stage, facts) {
        super(stage, facts, make('textarea'));
        this.element.maxLength = longestNotes;
        this.element.addEventListener('input', () => {
            if (!this.composing) this.edited();
        });
    }

    // What comes without a key, from a keyboard on the glass or a menu of the browser, is typed all the same; the rest is
    // edited here.
    beforeInput(event) {
        const { inputType, isComposing, cancelable, data } = event;
        const keys = edits[inputType];
        const typed = inputType === 'insertText' && data;
        if (isComposing || !cancelable || !(keys || typed)) return;
        event.preventDefault();
        if (keys) pressKey(this.stage, this.form, ...keys);
        else sendText(this.stage, this.form, data);
    }

    edited() {
        const { value: text, selectionStart: start, selectionEnd: end, selectionDirection } = this.element;
        this.properties.Text = text;
        this.selection = [start, end - start, selectionDirection === 'backward'];
        this.send({ on: 'edit', text, start, length: end - start, caretFirst: this.selection[2] });
    }

    append(text) {
        this.properties.Text = (this.properties.Text ?? '') + text;
        const end = this.element.value.length;
        this.element.setRangeText(text, end, end, 'end');
        this.element.scrollTop = this.element.scrollHeight;
    }
}
