// Paints the operations of a drawing on a canvas, as every output of the workbench does: strokes along an axis are
// whole pixels, others smooth; an inversion that is done twice leaves nothing behind.

import { cssOf } from '../colors.js';

export const numbersAnOperation = 13;
export const kinds = { clear: 0, line: 1, box: 2, circle: 3, picture: 4 };
const invert = 6;
const fills = { solid: 0, transparent: 1 };
const wide = 3; // pixels from which on a stroke along an axis is as smooth as any other
const hatchStep = 8; // widths of the thinnest pen
const dash = 2;
const flatness = 0.1; // pixels that a chord may leave its arc
const mostSteps = 20_000;

// The part of a line inside a rectangle as [x1, y1, x2, y2]; null where it misses it. Lines can be longer than a
// painter bears.
export function clipped(x1, y1, x2, y2, { left, top, right, bottom }) {
    let from = 0;
    let to = 1;
    const cut = (step, room) => {
        if (step === 0) return room >= 0;
        const share = room / step;
        if (step < 0) from = Math.max(from, share);
        else to = Math.min(to, share);
        return from <= to;
    };
    const dx = x2 - x1;
    const dy = y2 - y1;
    if (!(cut(-dx, x1 - left) && cut(dx, right - x1) && cut(-dy, y1 - top) && cut(dy, bottom - y1))) return null;
    return [x1 + dx * from, y1 + dy * from, x1 + dx * to, y1 + dy * to];
}

export class Painter {
    // A piece is { scale: pixels a twip, pen: pixels of the thinnest pen, x, y: its corner on the field in pixels }.
    constructor(context, piece) {
        this.context = context;
        this.piece = piece;
        this.hatches = new Map();
    }

    // kept() paints the picture that earlier operations were exchanged for.
    paint(numbers, from, to, kept) {
        for (let at = from; at < to; ++at) this.paintOne(numbers, at * numbersAnOperation, kept);
        this.flush();
    }

    paintOne(numbers, at, kept) {
        const { context, piece } = this;
        const kind = numbers[at];
        if (kind === kinds.clear || kind === kinds.picture) {
            this.flush();
            context.globalCompositeOperation = 'source-over';
            if (kind === kinds.picture) return kept?.(context, piece);
            context.fillStyle = cssOf(numbers[at + 4]);
            return context.fillRect(0, 0, context.canvas.width, context.canvas.height);
        }
        const width = Math.max(1, Math.round(numbers[at + 12] * piece.pen));
        const dotted = numbers[at + 1] !== 0 && numbers[at + 12] === 1;
        this.usePen(numbers[at + 4], width, dotted, numbers[at + 2] === invert);
        const x1 = numbers[at + 6] * piece.scale - piece.x;
        const y1 = numbers[at + 7] * piece.scale - piece.y;
        const fill = { style: numbers[at + 3], ink: numbers[at + 5] };
        if (kind === kinds.circle) {
            this.circle(x1, y1, numbers[at + 8] * piece.scale, numbers[at + 10], numbers[at + 11], fill);
            return;
        }
        const x2 = numbers[at + 8] * piece.scale - piece.x;
        const y2 = numbers[at + 9] * piece.scale - piece.y;
        if (kind === kinds.line) this.stroke(x1, y1, x2, y2);
        else if (kind === kinds.box) this.box(x1, y1, x2, y2, fill);
    }

    // Strokes of one pen are gathered in one path.
    usePen(ink, width, dotted, inverts) {
        if (this.ink === ink && this.width === width && this.dotted === dotted && this.inverts === inverts) return;
        this.flush();
        Object.assign(this, { ink, width, dotted, inverts });
        const { context, piece } = this;
        context.globalCompositeOperation = inverts ? 'difference' : 'source-over';
        this.color = inverts ? '#fff' : cssOf(ink);
        context.lineWidth = width;
        context.lineCap = dotted ? 'butt' : 'round';
        context.lineJoin = 'round';
        context.setLineDash(dotted ? [dash * piece.pen, dash * piece.pen] : []);
        const margin = width + 2;
        const { width: right, height: bottom } = context.canvas;
        this.sight = { left: -margin, top: -margin, right: right + margin, bottom: bottom + margin };
    }

    flush() {
        if (this.path) {
            this.context.strokeStyle = this.color;
            this.context.stroke(this.path);
        }
        this.path = null;
        this.ink = undefined;
    }

    stroke(x1, y1, x2, y2) {
        const alongAxis = x1 === x2 || y1 === y2;
        if (this.inverts || (alongAxis && !this.dotted && this.width < wide)) return this.pixels(x1, y1, x2, y2);
        const seen = clipped(x1 + 0.5, y1 + 0.5, x2 + 0.5, y2 + 0.5, this.sight);
        if (!seen) return;
        this.path ??= new Path2D();
        this.path.moveTo(seen[0], seen[1]);
        this.path.lineTo(seen[2], seen[3]);
    }

    // Whole pixels, both ends with it.
    pixels(x1, y1, x2, y2) {
        const seen = clipped(x1, y1, x2, y2, this.sight);
        if (!seen) return;
        const [fromX, fromY, toX, toY] = seen.map(Math.round);
        const { context, width } = this;
        // What was gathered lies below.
        if (this.path) {
            context.strokeStyle = this.color;
            context.stroke(this.path);
            this.path = null;
        }
        context.fillStyle = this.color;
        if (fromX === toX || fromY === toY) {
            const left = Math.min(fromX, toX);
            const top = Math.min(fromY, toY);
            context.fillRect(left, top, Math.abs(toX - fromX) + width, Math.abs(toY - fromY) + width);
            return;
        }
        const steps = Math.max(Math.abs(toX - fromX), Math.abs(toY - fromY));
        for (let i = 0; i <= steps; ++i)
            context.fillRect(
                Math.round(fromX + ((toX - fromX) * i) / steps),
                Math.round(fromY + ((toY - fromY) * i) / steps),
                width,
                width,
            );
    }

    fillOf({ style, ink }) {
        if (style === fills.solid) return cssOf(ink);
        if (this.hatches.has(ink)) return this.hatches.get(ink);
        const { piece, context } = this;
        const step = Math.round(hatchStep * piece.pen);
        const tile = new OffscreenCanvas(step, step);
        const pen = tile.getContext('2d');
        pen.fillStyle = cssOf(ink);
        const thick = Math.max(1, Math.round(piece.pen));
        for (let x = 0; x < step; ++x) for (let i = 0; i < thick; ++i) pen.fillRect((x + i) % step, x, 1, 1);
        const hatch = context.createPattern(tile, 'repeat');
        // Counted from the field's corner, so that two fills of one box are the same.
        hatch.setTransform(new DOMMatrix().translate(-piece.x, -piece.y));
        this.hatches.set(ink, hatch);
        return hatch;
    }

    box(x1, y1, x2, y2, fill) {
        const left = Math.min(x1, x2);
        const top = Math.min(y1, y2);
        const right = Math.max(x1, x2);
        const bottom = Math.max(y1, y2);
        if (fill.style !== fills.transparent && !this.inverts) {
            const { sight } = this;
            const from = [Math.max(left, sight.left), Math.max(top, sight.top)];
            const to = [Math.min(right, sight.right), Math.min(bottom, sight.bottom)];
            if (to[0] > from[0] && to[1] > from[1]) {
                this.context.fillStyle = this.fillOf(fill);
                this.context.fillRect(from[0], from[1], to[0] - from[0], to[1] - from[1]);
            }
        }
        this.stroke(left, top, right, top);
        this.stroke(left, bottom, right, bottom);
        this.stroke(left, top, left, bottom);
        this.stroke(right, top, right, bottom);
    }

    // Angles count counter-clockwise, as it is seen; no number is none, and the circle a full one.
    circle(x, y, radius, start, end, fill) {
        const { context, sight } = this;
        const centerX = x + 0.5;
        const centerY = y + 0.5;
        const reach = radius + 1;
        const outside =
            centerX + reach < sight.left || centerX - reach > sight.right ||
            centerY + reach < sight.top || centerY - reach > sight.bottom;
        if (outside) return;
        const full = !Number.isFinite(start);
        const turn = 2 * Math.PI;
        let sweep = full ? turn : (end - start) % turn;
        if (sweep <= 1e-6) sweep += turn;
        const from = full ? 0 : start;
        if (full && fill.style !== fills.transparent && !this.inverts) {
            context.fillStyle = this.fillOf(fill);
            context.beginPath();
            context.arc(centerX, centerY, radius, 0, turn);
            context.fill();
        }
        // Small enough for the painter's own arcs; what is larger is cut to what is in sight, chord by chord.
        if (!this.inverts && radius < 4 * Math.max(context.canvas.width, context.canvas.height)) {
            this.path ??= new Path2D();
            this.path.moveTo(centerX + radius * Math.cos(from), centerY - radius * Math.sin(from));
            this.path.arc(centerX, centerY, radius, -from, -(from + sweep), true);
            return;
        }
        const step = 2 * Math.acos(Math.max(0, 1 - flatness / Math.max(radius, flatness)));
        const steps = Math.min(mostSteps, Math.max(1, Math.ceil(sweep / step)));
        let [lastX, lastY] = [x + radius * Math.cos(from), y - radius * Math.sin(from)];
        for (let i = 1; i <= steps; ++i) {
            const angle = from + (sweep * i) / steps;
            const [nextX, nextY] = [x + radius * Math.cos(angle), y - radius * Math.sin(angle)];
            this.stroke(lastX, lastY, nextX, nextY);
            [lastX, lastY] = [nextX, nextY];
        }
    }
}
