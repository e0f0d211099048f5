// Buttons with a caption, a picture or a mark.

import { onFont, pixels, textWidth } from '../scale.js';
import { make, View } from './view.js';

const margin = 6; // pixels beside a caption, both sides together
const svgSpace = 'http://www.w3.org/2000/svg';

class ButtonView extends View {
    constructor(stage, facts, element) {
        super(stage, facts, element);
        this.focusable = true;
        element.tabIndex = 0;
        this.pressesFocus();
        element.addEventListener('click', (event) => {
            event.preventDefault();
            this.send({ on: 'click', shift: event.shiftKey });
        });
    }

    setCaption(value) {
        this.text.textContent = value;
        this.describe();
    }
}

// The path of strokes on a field of 24 by 24: M, L, C and Z as in a picture of the web, O a circle.
function pathOf(strokes) {
    const words = strokes.split(/\s+/).filter(Boolean);
    const path = [];
    for (let i = 0; i < words.length; ) {
        const command = words[i++];
        const count = { M: 2, L: 2, C: 6, O: 3 }[command] ?? 0;
        const numbers = words.slice(i, i + count).map(Number);
        i += count;
        if (command === 'O') {
            const [x, y, r] = numbers;
            path.push(`M${x - r} ${y}a${r} ${r} 0 1 0 ${2 * r} 0a${r} ${r} 0 1 0 ${-2 * r} 0`);
        } else {
            path.push(command + numbers.join(' '));
        }
    }
    return path.join('');
}

export function pictureOf(strokes) {
    const picture = document.createElementNS(svgSpace, 'svg');
    picture.setAttribute('viewBox', '0 0 24 24');
    picture.setAttribute('aria-hidden', 'true');
    const path = document.createElementNS(svgSpace, 'path');
    path.setAttribute('d', pathOf(strokes));
    picture.append(path);
    return picture;
}

export class CommandButtonView extends ButtonView {
    constructor(stage, facts) {
        super(stage, facts, make('button'));
        this.element.type = 'button';
        if (facts.picture) {
            this.element.classList.add('pictured');
            this.element.append(pictureOf(facts.picture));
            onFont(() => this.fitRow());
        }
        this.text = make('span', 'text', this.element);
    }

    applied(changed) {
        const fits = 'Caption' in changed || 'Width' in changed || 'Visible' in changed;
        if (this.facts.picture && fits) this.stage.later(this.parent ?? this, () => this.fitRow());
    }

    get hasRoom() {
        return textWidth(this.properties.Caption ?? '') <= pixels(this.properties.Width ?? 0) - margin;
    }

    // Buttons side by side have captions all, or none.
    fitRow() {
        const row = (this.parent?.children ?? [this]).filter((one) => one.facts.picture);
        const all = row.every((one) => one.element.hidden || one.hasRoom);
        for (const one of row) one.text.hidden = !all || !one.properties.Caption;
    }
}

class MarkedView extends ButtonView {
    constructor(stage, facts, role) {
        super(stage, facts, make('div'));
        this.element.setAttribute('role', role);
        make('span', 'mark', this.element);
        this.text = make('span', 'text', this.element);
        this.setValue(0);
    }

    setValue(value) {
        this.element.setAttribute('aria-checked', value ? 'true' : 'false');
    }
}

export class CheckBoxView extends MarkedView {
    constructor(stage, facts) {
        super(stage, facts, 'checkbox');
    }
}

export class OptionButtonView extends MarkedView {
    constructor(stage, facts) {
        super(stage, facts, 'radio');
    }
}
