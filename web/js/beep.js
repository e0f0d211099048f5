// The beep of the program. A browser lets a page sound once its user has done something in it.

const pitch = 880; // hertz
const seconds = 0.09;
let sound = null;

export function beep() {
    if (!(navigator.userActivation?.hasBeenActive ?? true)) return;
    try {
        sound ??= new AudioContext();
        const volume = new GainNode(sound, { gain: 0.1 });
        const tone = new OscillatorNode(sound, { frequency: pitch });
        tone.connect(volume).connect(sound.destination);
        tone.start();
        tone.stop(sound.currentTime + seconds);
    } catch {
        // A device without sound.
    }
}
