// The page as a page: without a network, from disk, for a screen reader, and kept to itself.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { pathToFileURL } from 'node:url';

import { serve } from './support/site.mjs';
import { pageFolder, setting } from './support/setting.mjs';
import { sample, Workbench } from './support/workbench.mjs';

const here = setting();

test('works without a network after the first visit', async () => {
    const site = await serve(pageFolder);
    const context = await here.browser.createBrowserContext();
    const bench = await Workbench.open({ browser: here.browser, site }, { context });
    await bench.evaluate(() => navigator.serviceWorker.ready.then(() => true));
    await bench.until(async () => (await caches.keys()).length > 0 && (await navigator.serviceWorker.ready).active?.state === 'activated');
    await site.close();
    await bench.page.reload();
    await bench.started();
    await bench.open('mk4_bolt.cnc');
    await bench.press('F1');
    await bench.settled();
    await bench.close();
});

test('the single file opens from disk', async () => {
    const bench = await Workbench.open(here, { address: pathToFileURL(`${pageFolder}/kvt.html`).href });
    await bench.choose('mnuSamples');
    await bench.press('Esc');
    await bench.press('Esc');
    await bench.drop('bolt.cnc', sample('mk4_bolt.cnc'));
    await bench.untilIs('lblPPLines', 'Caption', '45');
    await bench.close();
});

test('every control has a name for a screen reader', async () => {
    const bench = await Workbench.open(here);
    await bench.open('mk4_bolt.cnc');
    const named = /^(button|checkbox|radio|textbox|combobox|listbox|menuitem|menuitemcheckbox|grid|tab|slider|scrollbar|spinbutton|dialog)$/;
    const nameless = [];
    const walk = (node) => {
        if (named.test(node.role) && !node.name) nameless.push(`${node.role} ${JSON.stringify(node).slice(0, 120)}`);
        node.children?.forEach(walk);
    };
    for (const opens of [null, 'mnuGeneral', 'mnuMachine', 'mnuPrinter', 'mnuCOM', 'mnuDraw']) {
        if (opens) await bench.choose(opens);
        await bench.settled();
        walk(await bench.page.accessibility.snapshot({ interestingOnly: false }));
    }
    assert.deepEqual([...new Set(nameless)], []);
    await bench.close();
});

test('no script but its own runs, and nothing is asked from outside', async () => {
    const bench = await Workbench.open(here);
    const blocked = await bench.evaluate(async () => {
        const violations = [];
        document.addEventListener('securitypolicyviolation', (event) => violations.push(event.effectiveDirective));
        const script = document.createElement('script');
        script.textContent = 'window.ran = true';
        document.body.append(script);
        await fetch('http://127.0.0.2:9/').catch(() => {});
        await new Promise((then) => setTimeout(then, 100));
        return { violations, ran: window.ran };
    });
    assert.equal(blocked.ran, undefined);
    assert.deepEqual(new Set(blocked.violations), new Set(['script-src-elem', 'connect-src']));
    await bench.context.close();
});
