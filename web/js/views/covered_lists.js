// Where a frame lies over the end of a list, the list ends in front of it: every entry can be scrolled into sight.

import { length } from '../scale.js';

const gap = 60; // twips
const places = ['Left', 'Top', 'Width', 'Height', 'Visible'];

// Whether a change of these properties can cover a list.
export const covers = (view, properties) =>
    (view.kind === 'Frame' || view.kind === 'ListBox') && places.some((name) => name in properties);

export function shortenLists(form) {
    const frames = form.children.filter((one) => one.kind === 'Frame' && one.visible);
    for (const list of form.children.filter((one) => one.kind === 'ListBox' && !one.facts.inFront)) {
        const { Left: left = 0, Top: top = 0, Width: width = 0, Height: height = 0 } = list.properties;
        let end = top + height;
        for (const { properties: frame } of frames) {
            const beside = frame.Left >= left + width || frame.Left + frame.Width <= left;
            if (!beside && frame.Top > top && frame.Top < end) end = Math.max(top, frame.Top - gap);
        }
        list.element.style.height = length(end - top);
    }
}
