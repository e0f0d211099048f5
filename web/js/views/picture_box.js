// A field that is drawn on. The canvas covers what of it is in sight; the operations are kept, for every other part and
// size to be painted from.

import { cssOf } from '../colors.js';
import { onFont, pixels, twips } from '../scale.js';
import { Painter, numbersAnOperation } from './painter.js';
import { followFingers } from './touch.js';
import { make, View } from './view.js';

const twipsPerPixel = 15;
const rim = 2; // pixels of a pen around a lit stroke, on either side
const crossArm = 120; // twips
const notch = 100; // of a wheel's deltaY
const litDefault = 0x00aaff;

export class PictureBoxView extends View {
    constructor(stage, facts) {
        super(stage, facts, make('div'));
        this.focusable = true;
        this.element.setAttribute('role', 'img');
        this.canvas = make('canvas', '', this.element);
        this.canvas.setAttribute('aria-hidden', 'true');
        this.over = make('canvas', 'over', this.element);
        this.over.setAttribute('aria-hidden', 'true');
        this.field = make('div', 'field', this.element);
        this.list = new Float32Array(0);
        this.count = 0;
        this.painted = 0;
        this.lit = new Float32Array(0);
        this.area = null;
        this.listen();
        onFont(() => this.repaint());
    }

    get inside() {
        return this.field ?? this.element;
    }

    listen() {
        const { element } = this;
        const own = (event) => event.target === element || event.target.parentElement === element;
        element.addEventListener('mousedown', (event) => {
            event.preventDefault();
            if (!own(event)) return;
            event.stopPropagation();
            this.stage.pressed(this, event);
            this.mouse(event, event.button === 0 && event.detail === 2 ? 'double' : 'down');
        });
        element.addEventListener('click', (event) => own(event) && this.send({ on: 'click' }));
        element.addEventListener('mousemove', (event) => own(event) && this.mouse(event, 'move'));
        followFingers(element, (place, what, more) => this.mouse(place, what, more));
        element.addEventListener(
            'wheel',
            (event) => {
                if (!this.facts.wheel && this.facts.wheel !== undefined) return;
                event.preventDefault();
                const sideways = Math.abs(event.deltaX) > Math.abs(event.deltaY);
                const turned = sideways ? event.deltaX : event.deltaY;
                const unit = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? 3 : notch;
                this.mouse(event, 'wheel', { notches: -turned / unit, sideways });
            },
            { passive: false },
        );
    }

    mouse(event, what, more = {}) {
        const box = this.element.getBoundingClientRect();
        const held = (event.shiftKey ? 1 : 0) | (event.ctrlKey ? 2 : 0) | (event.altKey ? 4 : 0);
        const buttons = what === 'move' ? event.buttons : { 0: 1, 1: 4, 2: 2 }[event.button] ?? 0;
        const message = {
            on: 'mouse', id: this.id, what, button: buttons, held,
            x: twips(event.clientX - box.left), y: twips(event.clientY - box.top), ...more,
        };
        if (what !== 'move') return this.stage.link.send(message);
        this.stage.link.sendLatest(message, (one) => one.on === 'mouse' && one.id === this.id && one.what === 'move');
    }

    // Operations take their place in the list from an index on; -1 are those that are shown lit up.
    operations(from, numbers) {
        if (from < 0) {
            this.lit = numbers.slice();
            return this.soon();
        }
        const size = (from * numbersAnOperation) + numbers.length;
        if (size > this.list.length) {
            const more = new Float32Array(Math.max(size, this.list.length * 2, 1024));
            more.set(this.list);
            this.list = more;
        }
        this.list.set(numbers, from * numbersAnOperation);
        this.count = size / numbersAnOperation;
        if (from < this.painted) this.painted = 0;
        this.soon();
    }

    // The picture that the list begins with covers the whole field.
    keepPicture(image) {
        this.kept = image;
        this.painted = 0;
        this.soon();
    }

    soon() {
        this.stage.later(this.canvas, () => {
            this.paint();
            this.paintOver();
        });
    }

    setBackColor() {
        this.soon();
    }
    setCross() {
        this.soon();
    }
    setLitColor() {
        this.soon();
    }
    applied(changed) {
        const placed = ['Left', 'Top', 'Width', 'Height', 'Visible'].some((name) => name in changed);
        if (placed) this.followAll();
    }
    // What lies in it comes into sight with it.
    followAll() {
        this.soon();
        for (const child of this.children) child.followAll?.();
    }
    recolor() {
        this.repaint();
    }
    repaint() {
        this.painted = 0;
        this.soon();
    }

    // What of the field is in sight, in pixels of the screen.
    inSight(ratio) {
        const { Left: left = 0, Top: top = 0, Width: width = 0, Height: height = 0 } = this.properties;
        let seen = { left: 0, top: 0, right: width, bottom: height };
        const around = this.parent;
        if (around?.kind === 'PictureBox') {
            const { Width: outer = 0, Height: high = 0 } = around.properties;
            seen = {
                left: Math.max(0, -left), top: Math.max(0, -top),
                right: Math.min(width, outer - left), bottom: Math.min(height, high - top),
            };
        }
        const scale = pixels(1) * ratio;
        const x = Math.floor(seen.left * scale);
        const y = Math.floor(seen.top * scale);
        return { x, y, width: Math.ceil(seen.right * scale) - x, height: Math.ceil(seen.bottom * scale) - y };
    }

    get piece() {
        const scale = pixels(1) * this.ratio;
        return { scale, pen: Math.max(1, scale * twipsPerPixel), x: this.area.x, y: this.area.y };
    }

    paint() {
        const ratio = devicePixelRatio;
        const area = this.inSight(ratio);
        if (!(area.width > 0 && area.height > 0)) return;
        const same = this.area && ['x', 'y', 'width', 'height'].every((key) => this.area[key] === area[key]);
        if (!same || ratio !== this.ratio) {
            this.area = area;
            this.ratio = ratio;
            this.painted = 0;
            this.placeCanvas(this.canvas);
        }
        const context = this.canvas.getContext('2d', { alpha: false });
        if (this.painted === 0) {
            context.globalCompositeOperation = 'source-over';
            context.fillStyle = cssOf(this.properties.BackColor ?? 0xffffff);
            context.fillRect(0, 0, area.width, area.height);
        }
        new Painter(context, this.piece).paint(this.list, this.painted, this.count, (...on) => this.paintKept(...on));
        this.painted = this.count;
    }

    placeCanvas(canvas) {
        const { area, ratio } = this;
        if (canvas.width !== area.width || canvas.height !== area.height) {
            canvas.width = area.width;
            canvas.height = area.height;
        }
        canvas.style.left = `${area.x / ratio}px`;
        canvas.style.top = `${area.y / ratio}px`;
        canvas.style.width = `${area.width / ratio}px`;
        canvas.style.height = `${area.height / ratio}px`;
    }

    paintKept(context, piece) {
        if (!this.kept) return;
        const { Width: width = 0, Height: height = 0 } = this.properties;
        context.drawImage(this.kept, -piece.x, -piece.y, width * piece.scale, height * piece.scale);
    }

    // What lies over the drawing: the lit strokes, and the cross at the tool.
    paintOver() {
        const cross = this.properties.Cross;
        const crossShown = Array.isArray(cross) ? cross.length > 0 : !!cross;
        const shown = this.area && (this.lit.length > 0 || crossShown);
        this.over.hidden = !shown;
        if (!shown) return;
        this.placeCanvas(this.over);
        const context = this.over.getContext('2d');
        context.clearRect(0, 0, this.over.width, this.over.height);
        this.paintLit(context);
        if (crossShown) this.paintCross(context, cross);
    }

    // In the colour of light with a rim, then as they are. What lies in a filled box stays to be seen.
    paintLit(context) {
        const count = this.lit.length / numbersAnOperation;
        if (count === 0) return;
        const plain = this.lit.slice();
        const around = this.lit.slice();
        for (let at = 0; at < plain.length; at += numbersAnOperation) {
            plain[at + 3] = around[at + 3] = 1;
            around[at + 1] = 0;
            around[at + 4] = this.properties.LitColor ?? litDefault;
            around[at + 12] += 2 * rim;
        }
        for (const numbers of [around, plain]) new Painter(context, this.piece).paint(numbers, 0, count);
        context.globalCompositeOperation = 'source-over';
    }

    // Light on a dark ground and dark on a light one, with an edge of the ground's colour.
    paintCross(context, cross) {
        const [x, y] = Array.isArray(cross) ? cross : [cross.x, cross.y];
        const { piece } = this;
        const ground = this.properties.BackColor ?? 0xffffff;
        const light = (ground & 255) * 0.3 + ((ground >> 8) & 255) * 0.59 + ((ground >> 16) & 255) * 0.11 < 128;
        const [atX, atY] = [x * piece.scale - piece.x + 0.5, y * piece.scale - piece.y + 0.5];
        const arm = crossArm * piece.scale;
        context.setLineDash([]);
        context.lineCap = 'butt';
        for (const [color, width] of [[cssOf(ground), 5], [light ? '#fff' : '#000', 2]]) {
            context.strokeStyle = color;
            context.lineWidth = width * piece.pen;
            context.beginPath();
            context.moveTo(atX - arm, atY);
            context.lineTo(atX + arm, atY);
            context.moveTo(atX, atY - arm);
            context.lineTo(atX, atY + arm);
            context.stroke();
        }
    }
}
