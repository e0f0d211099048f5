// The page's own texts; all others come from the program.

const english = {
    ok: 'OK', yes: 'Yes', no: 'No', cancel: 'Cancel', close: 'Close', maximise: 'Maximise', restore: 'Restore',
    menu: 'Menu', save: 'Save', chooseFile: 'Choose a file', chooseButton: 'Choose\u2026', fileName: 'File name',
    saveHint: 'This browser saves files as downloads.', color: 'Choose a colour',
    print: 'Print', preview: 'Print preview', printers: 'Printers and copies are in the dialog of the browser, when you print.',
    noStorage: 'This browser keeps nothing for this page: settings and recovery end with it.',
    secondTab: 'The workbench is open in another tab too. This one keeps its settings to itself.',
    noSerial: 'This browser has no serial port; Chrome, Edge and Opera on a computer have one. TX and RX work with the played machine.',
    serialPort: 'Serial port', newPort: 'Port to choose', machine: 'Played machine', copyLink: 'Copy link',
    linkCopied: 'The link to this program is in the clipboard.',
    linkTooLong: 'The program is too long for a link: 8 kB is the most.', linkEmpty: 'There is no program to link to.',
    unreadable: 'The file cannot be read, or is larger than 64 MB.',
    linkUnreadable: 'The link holds no program that can be read.', showLink: 'Copy this link:',
    ended: 'The workbench has ended. You can close this tab.',
    again: 'Start again', stopped: 'The workbench has stopped because of a fault. What was typed is kept; start again to go on.',
    grantPort: 'Choose the serial port of the machine', grantButton: 'Choose port\u2026',
    send: 'Send', speed: 'Speed', machineHint: 'While this is open it is the machine: TX sends to it, and what it sends comes to RX.',
    received: 'Received', sending: 'Sending:', sent: 'All has been sent.',
    machineEmpty: 'The machine has no program yet: transmit one to it first.',
    clear: 'Clear', hidden: 'Hide',
};

const german = {
    ok: 'OK', yes: 'Ja', no: 'Nein', cancel: 'Abbrechen', close: 'Schlie\u00dfen', maximise: 'Maximieren',
    menu: 'Men\u00fc', restore: 'Wiederherstellen', save: 'Speichern', chooseFile: 'Datei w\u00e4hlen',
    chooseButton: 'W\u00e4hlen\u2026', fileName: 'Dateiname',
    saveHint: 'Dieser Browser speichert Dateien als Downloads.',
    color: 'Farbe w\u00e4hlen', print: 'Drucken', preview: 'Druckvorschau',
    printers: 'Drucker und Anzahl stehen im Dialog des Browsers, wenn gedruckt wird.',
    noStorage: 'Dieser Browser bewahrt f\u00fcr diese Seite nichts auf: Einstellungen und Wiederherstellung enden mit ihr.',
    secondTab: 'Die Werkbank ist auch in einem anderen Tab offen. Dieser beh\u00e4lt seine Einstellungen f\u00fcr sich.',
    noSerial: 'Dieser Browser hat keinen seriellen Anschluss; Chrome, Edge und Opera auf einem Rechner haben einen. TX und RX arbeiten mit der gespielten Maschine.',
    serialPort: 'Anschluss', newPort: 'Anschluss, noch zu w\u00e4hlen', machine: 'Gespielte Maschine', copyLink: 'Link kopieren',
    linkCopied: 'Der Link zu diesem Programm ist in der Zwischenablage.',
    linkTooLong: 'Das Programm ist zu lang f\u00fcr einen Link: h\u00f6chstens 8 kB.',
    linkEmpty: 'Es gibt kein Programm, auf das der Link zeigen k\u00f6nnte.',
    unreadable: 'Die Datei l\u00e4sst sich nicht lesen oder ist gr\u00f6\u00dfer als 64 MB.',
    linkUnreadable: 'Der Link enth\u00e4lt kein lesbares Programm.', showLink: 'Diesen Link kopieren:',
    ended: 'Die Werkbank ist beendet. Dieser Tab kann geschlossen werden.',
    again: 'Neu starten', stopped: 'Die Werkbank ist wegen eines Fehlers stehen geblieben. Was getippt wurde, ist aufbewahrt; neu starten.',
    grantPort: 'Seriellen Anschluss der Maschine w\u00e4hlen', grantButton: 'Anschluss w\u00e4hlen\u2026',
    send: 'Senden', speed: 'Geschwindigkeit',
    machineHint: 'Solange dies offen ist, ist es die Maschine: TX sendet an sie, und was sie sendet, kommt bei RX an.',
    received: 'Empfangen', sending: 'Sendet:', sent: 'Alles ist gesendet.',
    machineEmpty: 'Die Maschine hat noch kein Programm: erst eines an sie senden.',
    clear: 'Leeren', hidden: 'Ausblenden',
};

export function words(language) {
    return language === 'de' ? german : english;
}
