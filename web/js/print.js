// Prints pages that come as pictures of strokes and letters. They are shown as images, where no script can run.

import { ask } from './boxes.js';
import { make } from './views/view.js';

function imagesOf(pages, into) {
    const addresses = [];
    const loaded = pages.map((page, i) => {
        const image = make('img', '', into);
        image.alt = String(i + 1);
        image.src = URL.createObjectURL(new Blob([page], { type: 'image/svg+xml' }));
        addresses.push(image.src);
        return image.decode().catch(() => {});
    });
    return { ready: Promise.all(loaded), free: () => addresses.forEach((one) => URL.revokeObjectURL(one)) };
}

function isLandscape(page) {
    const [, width, height] = /<svg[^>]*? width="([\d.]+)pt" height="([\d.]+)pt"/.exec(page) ?? [];
    return Number(width) > Number(height);
}

async function printPages(pages, file) {
    const sheets = make('div', 'sheets', document.body);
    const { ready, free } = imagesOf(pages, sheets);
    const paper = new CSSStyleSheet();
    paper.replaceSync(`@page { size: A4 ${isLandscape(pages[0]) ? 'landscape' : 'portrait'}; margin: 0; }`);
    document.adoptedStyleSheets.push(paper);
    document.body.classList.add('printing');
    // The name that the browser proposes for a PDF.
    const before = document.title;
    document.title = file;
    await ready;
    window.print();
    document.title = before;
    document.body.classList.remove('printing');
    document.adoptedStyleSheets = document.adoptedStyleSheets.filter((one) => one !== paper);
    sheets.remove();
    free();
}

export async function print(stage, { ask: number, preview, pages, title, file }) {
    let goes = true;
    if (preview) {
        let images = null;
        goes = await ask(stage, {
            title: title ? `${stage.text('preview')}: ${title}` : stage.text('preview'),
            className: 'preview',
            cancel: false,
            fill(content) {
                content.className = 'pages';
                content.tabIndex = 0;
                images = imagesOf(pages, content);
                return [['print', true, { usual: true }], ['close', false]];
            },
        });
        images.free();
    }
    if (goes) await printPages(pages, file);
    stage.reply(number, goes ? { ok: true } : { cancelled: true });
}
