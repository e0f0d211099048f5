// How a user comes to a control of the page: by the Tab key, by the mouse, through menus, by moving windows aside.
import { noWay } from './story.mjs';

const mostTabs = 60;

// By the Tab key, which selects what stands in a field; a press that is drawn off it where that does not lead there.
export async function focusControl(story, name) {
    const { bench } = story;
    const one = await story.control(name);
    const plain = name.split('.').at(-1);
    if (!one.shown) return undefined;
    const focused = () => bench.evaluate(() => window.told.focus);
    const there = async () => (await focused()) === one.id;
    const isNear = () => bench.evaluate((n) => {
        const now = window.told.controls.get(window.told.focus);
        return now?.form === window.told.named(n).form;
    }, name);
    if (!(await isNear())) await uncover(story, name);
    const near = await isNear();
    const from = await focused();
    for (let i = 0; near && i < mostTabs && !(await there()); ++i) {
        const boxes = story.boxes.length;
        const before = await focused();
        await bench.press('Tab');
        await story.settle();
        const now = await focused();
        // A field with a wrong value keeps it.
        if (now === before || story.boxes.length > boxes) return undefined;
        if (now === from) break;
    }
    if (await there()) return undefined;
    // The title of its window brings back what had the keys there.
    if (one.kind === 'PictureBox') {
        const title = await bench.evaluate((n) => {
            const box = document.querySelector(`[data-control="${window.told.named(n).form}"] .title`).getBoundingClientRect();
            return { x: box.left + 20, y: box.top + box.height / 2 };
        }, name);
        await bench.page.mouse.click(title.x, title.y);
        return story.settle();
    }
    if (one.kind === 'TextBox') return clickControl(story, name, one);
    await uncover(story, name);
    const box = await (await bench.element(name)).boundingBox();
    const { mouse } = bench.page;
    // Low in a list; beside the letters of all else.
    const [x, y] = one.kind === 'ListView' ? [30, box.height - 25] : [box.width - 8, box.height / 2];
    await mouse.move(box.x + x, box.y + y);
    await mouse.down();
    await mouse.move(2, 2);
    await mouse.up();
    await story.settle();
    if (!(await there()) && (await bench.evaluate((n) => window.told.named(n).p.Enabled !== false, name))) {
        if ((await focused()) === from) noWay(`neither the Tab key nor the mouse leads to ${plain}`);
    }
}

export async function chooseMenu(story, name) {
    const { bench } = story;
    const popup = await bench.evaluate((n) => {
        let one = window.told.named(n);
        while (window.told.controls.get(one.parent)?.kind === 'Menu') one = window.told.controls.get(one.parent);
        return one.name === 'mnuRightClick' || !one.p.Visible;
    }, name);
    if (popup) return chooseAtPointer(story, name);
    const hidden = await bench.evaluate((n) => !window.told.controls.get(window.told.named(n).form).p.Visible, name);
    if (hidden) return undefined;
    await uncover(story, name);
    const way = await bench.evaluate((n) => {
        const ids = [];
        for (let one = window.told.named(n); one?.kind === 'Menu'; one = window.told.controls.get(one.parent)) ids.unshift(one.id);
        return ids;
    }, name);
    for (const id of way) {
        const entry = await bench.page.$(`[data-control="${id}"]`);
        // A grey menu does not open.
        if (!(await entry?.isVisible())) break;
        await entry.hover();
        // The pointer has opened what lies beside.
        const isUp = await entry.evaluate((element) => element.classList.contains('up'));
        if (!isUp) await entry.click();
    }
    // A menu that is left grey is closed again.
    if (await bench.page.$('.popup:not([hidden])')) await bench.press('Esc');
    return undefined;
}

// The menu at the pointer has come up by the right button.
async function chooseAtPointer({ bench }, name) {
    const entry = await bench.element(name);
    if (await entry?.isVisible()) await entry.click();
}

// What cannot be seen is not clicked.
export async function clickControl(story, name, one) {
    const { bench } = story;
    if (!one.shown) return;
    await uncover(story, name);
    const element = await bench.element(name);
    if (one.kind === 'ListView') {
        const row = await bench.evaluate(() => window.told.named('lvCncProgram').rows.selected);
        await rowInSight(story, row);
        return bench.clickRow(row);
    }
    return element.click();
}

// A window that lies over what is to be clicked, or over a part of that, is drawn aside by its title; one that fills the
// page gives way to the editor by a key.
export async function uncover(story, name, part = '') {
    for (let i = 0; i < 3 && (await uncoverOnce(story, name, part)); ++i);
}
// False where nothing lay over it.
async function uncoverOnce(story, name, part) {
    const { bench } = story;
    const bar = await bench.evaluate((n, within) => {
        let one = window.told.named(n);
        while (window.told.controls.get(one.parent)?.kind === 'Menu') one = window.told.controls.get(one.parent);
        const own = document.querySelector(`[data-control="${one.form ?? one.id}"]`);
        const box = document.querySelector(`[data-control="${one.id}"] ${within}`).getBoundingClientRect();
        const over = document.elementFromPoint(box.left + box.width / 2, box.top + box.height / 2)?.closest('.form');
        if (!over || over === own) return null;
        if (over.classList.contains('main')) return { behind: true };
        const title = over.querySelector('.title').getBoundingClientRect();
        return { x: title.left + 40, y: title.top + title.height / 2, filling: over.classList.contains('filling'), main: own?.classList.contains('main') };
    }, name, part);
    if (!bar) return false;
    if (bar.filling && !bar.main) noWay('what lies below a maximised window');
    // A drawing that fills the page lies behind the editor, or over it.
    if (bar.behind || bar.filling) await bench.press(bar.behind ? 'F5' : 'F6');
    else await drawAside(story, bar);
    await story.settle();
    return true;
}
async function drawAside({ bench, size }, { x, y }) {
    const { mouse } = bench.page;
    await mouse.move(x, y);
    await mouse.down();
    await mouse.move(size.width - 10, size.height - 20, { steps: 3 });
    await mouse.up();
}

export async function rowInSight(story, number) {
    const { bench } = story;
    const list = await bench.element('lvCncProgram');
    await uncover(story, 'frmMain.lvCncProgram');
    for (let i = 0; i < 100; ++i) {
        const off = await list.evaluate((element, n) => {
            const row = element.querySelector(`[data-row="${n}"]`);
            const seen = element.getBoundingClientRect();
            if (!row) return n < Number(element.querySelector('.row')?.dataset.row) ? -400 : 400;
            const box = row.getBoundingClientRect();
            return box.top < seen.top + 20 ? box.top - seen.top - 40 : box.bottom > seen.bottom - 17 ? box.bottom - seen.bottom + 20 : 0;
        }, number);
        if (off === 0) return uncover(story, 'frmMain.lvCncProgram', `[data-row="${number}"] .cell`);
        const box = await list.boundingBox();
        await bench.page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
        await bench.page.mouse.wheel({ deltaY: off });
        await bench.pause(30);
        await bench.evaluate(() => window.clock.rest());
    }
    return noWay(`row ${number} does not come into sight`);
}
