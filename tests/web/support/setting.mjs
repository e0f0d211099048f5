// What every file of tests begins with: the page on a server, and a browser.
import { after, before } from 'node:test';

import { serve } from './site.mjs';
import { launch, root } from './workbench.mjs';

export const pageFolder = process.env.KVT_PAGE ?? `${root}/build/web/page`;

// Gives an object whose members site and browser are there as soon as tests run.
export function setting() {
    const here = {};
    before(async () => {
        here.site = await serve(pageFolder);
        here.chromium = await launch();
        here.browser = here.chromium.browser;
    });
    after(async () => {
        await here.chromium?.end();
        await here.site?.close();
    });
    return here;
}
