// The boxes of the page that come up in a story: a box takes its queued answer, or its first button.

const names = { yes: 'Yes', no: 'No', cancel: 'Cancel', ok: 'OK' };
const german = { Yes: 'Ja', No: 'Nein', Cancel: 'Abbrechen', OK: 'OK' };

// Presses a button of the box that is up.
async function press({ bench }, place) {
    const dialog = await bench.page.$('dialog[open]');
    await (await dialog.$$('.buttons button'))[place].click();
    await bench.until((one) => !one.isConnected, dialog);
}

export async function answerBox(story) {
    const box = await story.bench.evaluate(() => {
        const up = document.querySelector('dialog[open]');
        const texts = (which) => [...up.querySelectorAll(which)].map((one) => one.textContent);
        const icon = up.querySelector('.icon');
        return {
            title: texts('.heading')[0], text: texts('.words > div')[0], details: texts('.details')[0] ?? '', buttons: texts('.buttons button'),
            icon: icon ? icon.className.replace(/^icon /, '') : 'none', color: !!up.querySelector('input[type=color]'), preview: up.matches('.preview'),
        };
    });
    if (box.color) return chooseColor(story);
    if (box.preview) return press(story, Number(story.printers.shift() ?? 0) > 0 ? 0 : 1);
    if (box.text === undefined) throw new Error(`a box of the page: ${box.title}`);
    story.boxes.push(box);
    const wanted = names[story.answers.shift()];
    const place = wanted ? box.buttons.findIndex((one) => one === wanted || one === german[wanted]) : 0;
    if (place < 0) throw new Error(`${wanted} is one of ${box.buttons}`);
    return press(story, place);
}

// The colours beside the swatches are chosen in a dialog of the system, which no test sees: its choice is played.
async function chooseColor(story) {
    const wanted = story.colors.shift() ?? 'cancel';
    if (wanted === 'cancel') return press(story, 1);
    const number = Number(wanted.replace('&H', '0x'));
    const hex = `#${[0, 8, 16].map((shift) => ((number >> shift) & 255).toString(16).padStart(2, '0')).join('')}`;
    const swatch = await story.bench.page.$(`dialog[open] .swatch[data-color="${hex}"]`);
    if (swatch) await swatch.click();
    else await story.bench.evaluate((value) => {
        const input = document.querySelector('dialog[open] input[type=color]');
        input.value = value;
        input.dispatchEvent(new Event('input'));
    }, hex);
    return press(story, 0);
}
