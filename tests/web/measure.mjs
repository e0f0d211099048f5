// Measures the page in Chromium; docs/web.md has the table. For a quiet machine: node tests/web/measure.mjs
import { serve } from './support/site.mjs';
import { pageFolder } from './support/setting.mjs';
import { launch, Workbench } from './support/workbench.mjs';

// Code, X, Z, F, H of the blocks that are repeated, as in the benchmarks of the window.
const blocks = [
    [' 00', ' 2100', '   100', '', ''], [' 84', ' 1800', '- 2000', ' 100', '100'], [' 01', ' 2000', '- 1000', '  80', ''],
    [' 03', ' 2400', '- 1200', '  80', ''], [' 01', ' 2400', '- 1500', '  80', ''], [' 00', ' 2600', '   100', '', ''],
];
function programText(lines) {
    const line = (i, [code, x, z, f, h]) =>
        `   ${String(i).padStart(2, '0').padEnd(3)}${code} ${x.padEnd(5)} ${z.padEnd(6)}${f.padEnd(4)} ${h.padEnd(3)}  `;
    const rows = ['%', '    N` G`   X `    Z `  F`  H ', line(0, [' 92', ' 4000', '  1000', '', ''])];
    for (let i = 1; i < lines - 1; ++i) rows.push(line(i, blocks[(i - 1) % blocks.length]));
    return [...rows, line(lines - 1, ['M30', '', '', '', '']), '   M', ''].join('\r\n');
}

const median = (numbers) => numbers.sort((a, b) => a - b)[Math.floor(numbers.length / 2)];
const show = (what, value, budget) => console.log(`| ${what} | ${value} | ${budget} |`);

// From a key's press to the end of the frame that shows what it has done.
function watchKeys() {
    window.pressed = [];
    window.addEventListener('keydown', (event) => {
        const from = event.timeStamp;
        requestAnimationFrame(() => {
            const channel = new MessageChannel();
            channel.port1.onmessage = () => window.pressed.push(performance.now() - from);
            channel.port2.postMessage(0);
        });
    }, true);
}
async function pressTimes(bench, key, times) {
    await bench.evaluate(() => (window.pressed.length = 0));
    for (let i = 0; i < times; ++i) {
        await bench.press(key);
        await bench.until((count) => window.pressed.length > count, i);
    }
    return median(await bench.evaluate(() => window.pressed));
}

// What the browser itself takes for a letter: a page with one field and nothing else.
async function measureBare({ browser }) {
    const context = await browser.createBrowserContext();
    const bench = new Workbench(await context.newPage(), context);
    await bench.page.setContent('<input autofocus>');
    await bench.evaluate(`(${watchKeys})()`);
    show('a letter in a bare field', `${(await pressTimes(bench, 'x', 40)).toFixed(1)} ms`, '');
    await bench.close();
}

async function measure(here, play) {
    const starts = [];
    for (let i = 0; i < 5; ++i) {
        const bench = await Workbench.open(here, { play: ['watchStart', ...play] });
        starts.push(await bench.evaluate(() => window.startedAt));
        await bench.close();
    }
    show('start to the painted window, cold', `${Math.round(median(starts))} ms`, '500 ms');
    const bench = await Workbench.open(here, { play });
    await bench.evaluate(`(${watchKeys})()`);
    await bench.open('part.cnc', programText(209));
    await bench.clickRow(5);
    await bench.settled();
    show('Enter to the repainted page, 209 lines', `${(await pressTimes(bench, 'Enter', 60)).toFixed(1)} ms`, '16 ms');
    await bench.click('txtComment');
    show('a letter', `${(await pressTimes(bench, 'x', 40)).toFixed(1)} ms`, '2 ms');
    await bench.press('F5');
    await bench.settled(300);
    show('redraw of the drawing, 209 lines', `${(await pressTimes(bench, 'R', 15)).toFixed(1)} ms`, '16 ms');
    await bench.close();

    const large = await Workbench.open(here, { play });
    await large.put('large.cnc', programText(20_000));
    await large.picks('large.cnc');
    await large.evaluate(() => (window.opening = performance.now()));
    await large.press('Ctrl+O');
    await large.until(() => window.told.named('lblPPLines').p.Caption === '20000');
    const opened = await large.evaluate(() => new Promise((then) => requestAnimationFrame(() => then(performance.now() - window.opening))));
    show('20,000 lines opened', `${Math.round(opened)} ms`, '1 s');
    const session = await large.page.createCDPSession();
    await session.send('Performance.enable');
    await large.pause(3000);
    const busy = async () => (await session.send('Performance.getMetrics')).metrics.find((one) => one.name === 'TaskDuration').value;
    const from = await busy();
    await large.pause(10_000);
    show('idle', `${(((await busy()) - from) * 10).toFixed(1)} % of a core`, '1 %');
    await large.close();
}

const site = await serve(pageFolder);
// Frames come at once, so that no wait for the screen is measured.
const chromium = await launch('--disable-frame-rate-limit', '--disable-gpu-vsync');
for (const play of [[], ['withoutStackSwitching']]) {
    console.log(`\n| ${play.length ? 'every browser' : 'stack switching'} | measured | budget |\n|---|---|---|`);
    await measure({ browser: chromium.browser, site }, play);
}
await measureBare(chromium);
await chromium.end();
await site.close();
