// Labels, frames and the bar that tells how much is done.

import { textColor } from '../colors.js';
import { fitted, onFont, pixels } from '../scale.js';
import { make, View } from './view.js';

const severalLines = 480; // twips of height from which on a label has them
const leastEdge = 12; // pixels of a frame's upper edge beside its caption

export class LabelView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.text = make('span', 'text', this.element);
        if (facts.atRight) this.element.classList.add('right');
        if (facts.announced) this.element.setAttribute('role', 'status');
        this.focusable = true;
        this.pressesFocus();
        this.element.addEventListener('click', () => this.send({ on: 'click' }));
        onFont(() => this.fit());
    }

    attach(parent) {
        super.attach(parent);
        // What lies on the form itself may lie over a frame and what is in it.
        this.element.classList.toggle('ground', parent.kind === 'Form');
    }

    setTabIndex(value) {
        super.setTabIndex(value);
        const clickable = value >= 0;
        this.element.classList.toggle('clickable', clickable);
        if (clickable) this.element.setAttribute('role', 'button');
        else this.target.removeAttribute('tabindex');
    }

    setForeColor() {
        this.recolor();
    }
    recolor() {
        this.element.style.color = textColor(this.properties.ForeColor, 'window');
    }

    setHeight(value) {
        super.setHeight(value);
        this.wraps = value >= severalLines;
        this.element.classList.toggle('wraps', this.wraps);
    }

    applied(changed) {
        if ('Caption' in changed || 'Width' in changed || 'Height' in changed) this.fit();
    }
    fit() {
        const { Caption: caption = '', Width: width = 0 } = this.properties;
        const shown = this.wraps ? caption : fitted(caption, pixels(width));
        if (this.text.textContent !== shown) this.text.textContent = shown;
    }

    // A text speaks for itself; what it is called besides is for those that do not say what they are.
    describe() {
        const { AccessibleName: name = '', Caption: caption = '', ToolTip: tip = '' } = this.properties;
        const role = this.element.getAttribute('role');
        if (name && name !== caption && caption) {
            if (!role) this.element.setAttribute('role', 'note');
            this.element.setAttribute('aria-label', name);
        } else if (role === 'note') {
            this.element.removeAttribute('role');
            this.element.removeAttribute('aria-label');
        }
        if (tip && tip !== name) this.element.setAttribute('aria-description', tip);
        else this.element.removeAttribute('aria-description');
    }
}

export class FrameView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.element.setAttribute('role', 'group');
        make('div', 'edge', this.element);
        this.caption = make('div', 'caption', this.element);
        onFont(() => this.fit());
    }

    setLead() {}
    applied(changed) {
        if ('Caption' in changed || 'Lead' in changed || 'Width' in changed) this.fit();
    }
    fit() {
        const { Lead: lead = '', Caption: caption = '', Width: width = 0 } = this.properties;
        const text = lead && caption ? `${lead} \u00B7 ${caption}` : lead + caption;
        this.caption.textContent = fitted(text, pixels(width) - leastEdge);
        this.element.classList.toggle('captioned', text !== '');
    }
}

export class ProgressBarView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.element.setAttribute('role', 'progressbar');
        this.fill = make('div', 'fill', this.element);
    }

    applied() {
        const { Min: min = 0, Max: max = 100, Value: value = 0 } = this.properties;
        const share = max > min ? Math.min(1, Math.max(0, (value - min) / (max - min))) : 0;
        this.fill.style.width = `${share * 100}%`;
        this.element.setAttribute('aria-valuemin', min);
        this.element.setAttribute('aria-valuemax', max);
        this.element.setAttribute('aria-valuenow', value);
    }
}

