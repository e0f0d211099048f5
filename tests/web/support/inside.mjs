// What is put into the page before its own script: each function stands alone.

// Keeps what the program tells the page, so that a test can read what is shown: window.told.
export function recordMessages() {
    const controls = new Map();
    // asks: the questions that the page has not answered yet.
    const told = { controls, focus: 0, beeps: 0, ended: false, at: 0, asks: new Set(), printed: [], drops: 0 };
    const take = (message) => {
        if (message.ask) told.asks.add(message.ask);
        if (message.do === 'print') {
            told.printed.push(message);
            if (message.preview) window.previewed?.push(...message.pages);
        }
        const control = controls.get(message.id);
        if (message.do === 'make') controls.set(message.id, { ...message, p: { ...message.p } });
        else if (message.do === 'set' && control) Object.assign(control.p, message.p);
        else if (message.do === 'append' && control) control.p.Text = (control.p.Text ?? '') + message.text;
        else if (message.do === 'rows' && control) control.rows = { ...control.rows, ...message };
        else if (message.do === 'focus') told.focus = message.id;
        else if (message.do === 'beep') ++told.beeps;
        else if (message.do === 'end') told.ended = true;
    };
    const parse = JSON.parse;
    JSON.parse = (text, ...rest) => {
        const value = parse(text, ...rest);
        if (!Array.isArray(value) || !value[0]?.do) return value;
        value.forEach(take);
        told.at = performance.now();
        return value;
    };
    const stringify = JSON.stringify;
    JSON.stringify = (value, ...rest) => {
        if (value?.on === 'reply') told.asks.delete(value.ask);
        if (value?.on === 'drop') ++told.drops;
        return stringify(value, ...rest);
    };
    // By name, index behind it in parentheses, form in front of it where two have one: "frmDraw.mnuGrid", "mnuPP(1)".
    told.named = (name) => {
        const [, form, plain, index] = /^(?:(\w+)\.)?(\w+)(?:\((\d+)\))?$/.exec(name) ?? [];
        const ofForm = (one) => !form || controls.get(one.form)?.name === form;
        const ofIndex = (one) => index === undefined || one.index === Number(index);
        return [...controls.values()].find((one) => one.name === plain && ofForm(one) && ofIndex(one));
    };
    window.told = told;
}

export function withoutStackSwitching() {
    delete WebAssembly.Suspending;
    delete WebAssembly.promising;
}

export function withoutFileAccess() {
    delete window.showOpenFilePicker;
    delete window.showSaveFilePicker;
}

export function withoutSerial() {
    Object.defineProperty(navigator, 'serial', { value: undefined });
}

export function withoutStorage() {
    Object.defineProperty(window, 'localStorage', {
        get() {
            throw new DOMException('forbidden', 'SecurityError');
        },
    });
}

// The dialogs of the file access answer by window.picks, names in the browser's own folder for the page; null cancels.
export function playFilePickers() {
    window.picks = [];
    const pick = async (create) => {
        const name = window.picks.shift();
        if (name === undefined || name === null) throw new DOMException('cancelled', 'AbortError');
        return (await navigator.storage.getDirectory()).getFileHandle(name, { create });
    };
    window.showOpenFilePicker = async () => [await pick(false)];
    window.showSaveFilePicker = () => pick(true);
    window.writePlayed = async (name, text) => {
        const handle = await (await navigator.storage.getDirectory()).getFileHandle(name, { create: true });
        const stream = await handle.createWritable();
        await stream.write(Uint8Array.from(text, (one) => one.charCodeAt(0)));
        await stream.close();
    };
    window.readPlayed = async (name) => {
        const file = await (await (await navigator.storage.getDirectory()).getFileHandle(name)).getFile();
        return [...new Uint8Array(await file.arrayBuffer())].map((one) => String.fromCharCode(one)).join('');
    };
}

// What the page lets its user download: window.downloads, by name.
export function keepDownloads() {
    window.downloads = {};
    const contents = new Map();
    const create = URL.createObjectURL;
    URL.createObjectURL = (blob) => {
        const address = create(blob);
        contents.set(address, blob);
        return address;
    };
    const click = HTMLAnchorElement.prototype.click;
    HTMLAnchorElement.prototype.click = function () {
        if (!this.download) return click.call(this);
        return contents.get(this.href).arrayBuffer().then((bytes) => {
            window.downloads[this.download] = Array.from(new Uint8Array(bytes), (one) => String.fromCharCode(one)).join('');
        });
    };
}

// What a disk, a full storage or a clipboard refuses: as many next calls as window.refusals tells of each. What the program
// keeps by itself goes on.
export function playRefusals() {
    window.refusals = { file: 0, clipboard: 0 };
    const refusing = (of, name, which, applies = () => true) => {
        const plain = of[name];
        of[name] = function (...call) {
            if (window.refusals[which] > 0 && applies(...call) && --window.refusals[which] === 0) throw new DOMException('refused', 'NotAllowedError');
            return plain.apply(this, call);
        };
    };
    refusing(FileSystemFileHandle.prototype, 'createWritable', 'file');
    refusing(Storage.prototype, 'setItem', 'file', (key) => key.startsWith('kvt:') && !/Recovery|Errors\.log|probe/.test(key));
    refusing(Clipboard.prototype, 'readText', 'clipboard');
    for (const name of ['writeText', 'write']) refusing(Clipboard.prototype, name, 'clipboard');
}

// Granted ports that play the line, as many as window.portCount says: window.ports, the first of them window.port. They
// tell how they were opened and what was written when, and take what arrives. Their
// user can be asked for one too (asked), and choose none (noneChosen).
export function playSerial() {
    window.written = [];
    class PlayedPort extends EventTarget {
        opens = [];
        closes = 0;
        asked = 0;
        granted = true;
        written = [];
        getInfo() {
            return { usbVendorId: 0x0403, usbProductId: 0x6001 };
        }
        async open(options) {
            if (this.refuses || this.taken || this.gone || this.isOpen) {
                this.refuses = false;
                throw new DOMException('taken', 'NetworkError');
            }
            if (this.without?.(options)) throw new DOMException('cannot', 'NetworkError');
            this.isOpen = true;
            this.opens.push(options);
            this.readable = new ReadableStream({ start: (into) => (this.into = into) });
            this.#stream();
        }
        // One that is closed, when all has left, leaves another one; nothing leaves for a device that takesNothing.
        #stream() {
            this.writable = new WritableStream({
                write: (bytes) => {
                    if (this.gone) throw new DOMException('gone', 'NetworkError');
                    const text = String.fromCharCode(...bytes);
                    this.written.push({ at: performance.now(), text });
                    window.written.push(text);
                },
                close: () => (this.takesNothing ? new Promise(() => {}) : this.#stream()),
            });
        }
        async close() {
            if (this.readable.locked || this.writable.locked) throw new TypeError('a stream is locked');
            this.isOpen = false;
            ++this.closes;
        }
        arrives(text) {
            this.into.enqueue(Uint8Array.from(text, (one) => one.charCodeAt(0)));
        }
        unplug() {
            this.gone = true;
            this.isOpen = false;
            this.into?.error(new DOMException('gone', 'NetworkError'));
            this.#tell('disconnect');
        }
        plug() {
            this.gone = false;
            this.#tell('connect');
        }
        #tell(what) {
            const event = new Event(what);
            Object.defineProperty(event, 'target', { value: this });
            serial.dispatchEvent(event);
        }
    }
    const serial = new EventTarget();
    window.ports = Array.from({ length: window.portCount ?? 1 }, () => new PlayedPort());
    window.port = window.ports[0];
    serial.getPorts = async () => window.ports.filter((one) => one.granted && !one.gone);
    serial.requestPort = async () => {
        ++window.port.asked;
        if (!navigator.userActivation.isActive) throw new DOMException('no click', 'SecurityError');
        if (window.port.noneChosen) throw new DOMException('none chosen', 'NotFoundError');
        window.port.granted = true;
        return window.port;
    };
    Object.defineProperty(navigator, 'serial', { value: serial });
}

// Behind it: the port is still to be chosen.
export function withoutGrant() {
    window.port.granted = false;
}

// A printer: the pages that have come to it, and those that were shown before. No dialog of the system comes up.
export function playPrinter() {
    window.printed = [];
    window.previewed = [];
    window.print = () => {
        const { pages } = window.told.printed.at(-1);
        const sheets = document.querySelectorAll('.sheets img').length;
        if (sheets !== pages.length) throw new Error(`${sheets} of ${pages.length} pages`);
        window.printed.push(...pages);
    };
}

// When the window has been painted for the first time: window.startedAt.
export function watchStart() {
    const look = () => {
        if (document.body && !document.body.classList.contains('starting'))
            requestAnimationFrame(() => (window.startedAt = performance.now()));
        else requestAnimationFrame(look);
    };
    look();
}
