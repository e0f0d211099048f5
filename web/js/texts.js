// What the page says before the program runs, or where it cannot run. All other texts come from the program, with its
// language.

const english = {
    tooOld: 'This browser is too old for the workbench, or WebAssembly is switched off in it.',
    stopped: 'The workbench could not be started. Check the connection, then start again.',
    again: 'Start again',
};

const german = {
    tooOld: 'Dieser Browser ist zu alt f\u00fcr die Werkbank, oder WebAssembly ist in ihm abgeschaltet.',
    stopped: 'Die Werkbank lie\u00df sich nicht starten. Bitte die Verbindung pr\u00fcfen, dann neu starten.',
    again: 'Neu starten',
};

export const before = navigator.language.startsWith('de') ? german : english;
