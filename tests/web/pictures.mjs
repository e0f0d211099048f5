// Takes pictures of the page into docs/pictures/page/, or into another folder.
// Usage: node tests/web/pictures.mjs [FOLDER [NAME...]]   (after tools/test_web.sh has built the page and installed the driver)
import * as fs from 'node:fs';
import { pathToFileURL } from 'node:url';

import { serve } from './support/site.mjs';
import { pageFolder } from './support/setting.mjs';
import { launch, root, Workbench } from './support/workbench.mjs';

const [given, ...only] = process.argv.slice(2);
const folder = given ?? `${root}/docs/pictures/page`;
const laptop = { width: 1366, height: 768 };
const screen = { width: 1920, height: 1080 };
const phone = { width: 390, height: 844, deviceScaleFactor: 2, isMobile: true, hasTouch: true };
const lyingPhone = { ...phone, width: 844, height: 390 };

const german = (bench) => bench.evaluate(() => {
    const entry = [...window.told.controls.values()].find((one) => one.kind === 'Menu' && one.p.Caption === 'Deutsch');
    return entry.name + (entry.index >= 0 ? `(${entry.index})` : '');
}).then((name) => bench.choose(name));

// The machine's axes lie over the list when the mill has been chosen.
const open = async (bench, name) => {
    await bench.open(name);
    if (name.startsWith('f1')) await bench.click('cmdReturn');
    await bench.settled();
};

const draw = (name) => async (bench) => {
    await open(bench, name);
    await bench.choose('mnuDraw');
};

const pictures = {
    '1366x768_mk4_bolt': { does: (bench) => open(bench, 'mk4_bolt.cnc') },
    '1366x768_mk2_knob': { does: (bench) => open(bench, 'mk2_knob.cnc') },
    '1366x768_f1_lid': { does: (bench) => open(bench, 'f1_lid.cnc') },
    '1366x768_draw_mk4_pawn': { does: draw('mk4_pawn.cnc') },
    '1366x768_beside_german_dark': {
        dark: true,
        async does(bench) {
            await open(bench, 'mk4_pawn.cnc');
            await german(bench);
            await bench.choose('mnuDraw');
            await bench.choose('frmDraw.mnuBeside');
        },
    },
    '1366x768_german_settings_4': {
        async does(bench) {
            await german(bench);
            await bench.choose('mnuCOM');
        },
    },
    '1366x768_dark_mk4_fault_quadrant': { dark: true, does: (bench) => open(bench, 'mk4_fault_quadrant.cnc') },
    '1366x768_transmit_played_machine': {
        async does(bench) {
            await open(bench, 'mk4_bolt.cnc');
            await (await bench.page.$('[data-text="machine"]')).click();
            await bench.choose('mnuTX');
            await bench.pause(4000);
        },
    },
    '1920x1080_f1_lid': { size: screen, does: (bench) => open(bench, 'f1_lid.cnc') },
    '390x844_mk4_bolt': { size: phone, does: (bench) => open(bench, 'mk4_bolt.cnc') },
    '390x844_draw_mk4_bolt': { size: phone, does: draw('mk4_bolt.cnc') },
    '390x844_german_typing': {
        size: phone,
        async does(bench) {
            await german(bench);
            await bench.type('00\r4000\r');
        },
    },
    '390x844_menu': {
        size: phone,
        async does(bench) {
            const menu = await bench.element('mnuSettings');
            await menu.tap();
        },
    },
    '844x390_f1_lid': { size: lyingPhone, does: (bench) => open(bench, 'f1_lid.cnc') },
    '844x390_draw_mk4_bolt': { size: lyingPhone, does: draw('mk4_bolt.cnc') },
    '1366x768_font_200': {
        async does(bench) {
            await bench.evaluate(() => (document.documentElement.style.fontSize = '200%'));
            await open(bench, 'mk4_bolt.cnc');
        },
    },
    'without_network': {
        async does(bench) {
            await bench.evaluate(() => navigator.serviceWorker.ready.then(() => true));
            await bench.page.setOfflineMode(true);
            await bench.page.reload();
            await bench.started();
            await open(bench, 'mk2_knob.cnc');
        },
    },
    'single_file_from_disk': { address: pathToFileURL(`${pageFolder}/kvt.html`).href, does: (bench) => bench.press('F1') },
};

const site = await serve(pageFolder);
const chromium = await launch();
fs.mkdirSync(folder, { recursive: true });
for (const [name, { size = laptop, dark = false, address = site.address, does }] of Object.entries(pictures)) {
    if (only.length > 0 && !only.includes(name)) continue;
    const bench = await Workbench.open({ browser: chromium.browser, site }, { size, address });
    await bench.page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: dark ? 'dark' : 'light' }]);
    await does(bench);
    await bench.settled();
    await bench.pause(200);
    await bench.page.screenshot({ path: `${folder}/${name}.png` });
    await bench.context.close();
}
await chromium.end();
await site.close();
