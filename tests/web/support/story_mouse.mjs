// The mouse on the drawing and on what scrolls.
import { noWay, wordsOf } from './story.mjs';
import { uncover } from './story_hands.mjs';

const field = 'frmDraw.pbxDrawField';

// Where a place of the field, in twips, lies on the page; null for a field that is not there.
async function pointOf(story, x, y) {
    if (!(await story.control(field)).shown) return null;
    await uncover(story, field);
    const point = await story.bench.evaluate((n, left, top) => {
        const element = document.querySelector(`[data-control="${window.told.named(n).id}"]`);
        const box = element.getBoundingClientRect();
        const twip = parseFloat(getComputedStyle(document.documentElement).fontSize) / 16 / 15;
        const view = element.parentElement.closest('.control').getBoundingClientRect();
        // The corner of the field stands for any place.
        const any = left <= 1 && top <= 1;
        const at = any ? { x: view.left + view.width / 2, y: view.top + view.height / 2 } : { x: box.left + left * twip, y: box.top + top * twip };
        return { ...at, inSight: element.contains(document.elementFromPoint(at.x, at.y)) };
    }, field, Number(x), Number(y));
    if (!point.inSight) noWay(`${x} ${y} lies out of sight`);
    return point;
}

async function press(story, rest, options, key) {
    const [x, y] = wordsOf(rest);
    const point = await pointOf(story, x, y);
    if (!point) return;
    const { keyboard, mouse } = story.bench.page;
    if (key) await keyboard.down(key);
    await mouse.click(point.x, point.y, options);
    if (key) await keyboard.up(key);
}

// A scroll bar is drawn by its thumb and set right by its arrows.
async function scrollBar(story, name, wanted) {
    const { mouse } = story.bench.page;
    const bar = await story.bench.element(name);
    const facts = await bar.evaluate((element) => {
        const number = (key) => Number(element.getAttribute(key));
        const box = (which) => {
            const { left, top, width, height } = element.querySelector(which).getBoundingClientRect();
            return { x: left + width / 2, y: top + height / 2, width, height };
        };
        const track = element.querySelector('.track');
        const thumb = element.querySelector('.thumb');
        const upright = element.classList.contains('upright');
        const room = upright ? track.clientHeight - thumb.offsetHeight : track.clientWidth - thumb.offsetWidth;
        return { now: number('aria-valuenow'), span: number('aria-valuemax') - number('aria-valuemin'), thumb: box('.thumb'), room, upright };
    });
    const by = ((wanted - facts.now) / facts.span) * facts.room;
    await mouse.move(facts.thumb.x, facts.thumb.y);
    await mouse.down();
    await mouse.move(facts.thumb.x + (facts.upright ? 0 : by), facts.thumb.y + (facts.upright ? by : 0), { steps: 2 });
    await mouse.up();
    await story.settle();
}

async function step(story, name, wanted, [less, more]) {
    const element = await story.bench.element(name);
    for (let i = 0; i < 40; ++i) {
        const now = Number(await element.evaluate((one) => one.getAttribute('aria-valuenow')));
        if (now === wanted) return;
        await (await element.$(now > wanted ? less : more)).click();
        await story.settle();
        const after = Number(await element.evaluate((one) => one.getAttribute('aria-valuenow')));
        // The steps of the arrows pass over it.
        if (after === now || (now < wanted) !== (after <= wanted)) break;
    }
    const now = Number(await element.evaluate((one) => one.getAttribute('aria-valuenow')));
    if (now !== wanted) noWay(`the mouse leads to ${now}, not to ${wanted}`);
}

export const mouseSteps = {
    async mousemove(rest) {
        const [x, y] = wordsOf(rest);
        const point = await pointOf(this, x, y);
        if (point) await this.bench.page.mouse.move(point.x, point.y);
    },
    mousedown(rest) {
        return press(this, rest, {});
    },
    ctrlmousedown(rest) {
        return press(this, rest, {}, 'Control');
    },
    doubleclick(rest) {
        return press(this, rest, { count: 2 });
    },
    async mousedrag(rest) {
        const [x, y, toX, toY] = wordsOf(rest);
        const from = await pointOf(this, x, y);
        if (!from) return;
        const { mouse } = this.bench.page;
        const perTwip = 1 / 15;
        await mouse.move(from.x, from.y);
        await mouse.down({ button: 'middle' });
        await mouse.move(from.x + (toX - x) * perTwip, from.y + (toY - y) * perTwip);
        await mouse.up({ button: 'middle' });
    },
    async mousewheel(rest) {
        const [x, y, notches] = wordsOf(rest);
        const point = await pointOf(this, x, y);
        if (!point) return;
        await this.bench.page.mouse.move(point.x, point.y);
        await this.bench.page.mouse.wheel({ deltaY: -100 * notches });
        await this.bench.pause(50);
    },
    async scroll(rest) {
        const [name, value] = wordsOf(rest);
        const one = await this.control(name);
        if (!one.shown) return;
        await uncover(this, name);
        if (one.kind === 'ScrollBar') await scrollBar(this, name, Number(value));
        await step(this, name, Number(value), one.kind === 'ScrollBar' ? ['.less', '.more'] : ['.down', '.up']);
    },
};
