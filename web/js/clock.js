// Clocks that keep their pace in a hidden tab, where the page's own timers fall to one tick a second.

const source = 'let t=0;onmessage=e=>{clearInterval(t);t=e.data?setInterval(()=>postMessage(0),e.data):0;};';
const interval = 5; // milliseconds

// Gives a function that sets the interval at which tick is called, in milliseconds, 0 for never.
export function pacer(tick) {
    const worker = new Worker(URL.createObjectURL(new Blob([source], { type: 'text/javascript' })));
    worker.onmessage = tick;
    return (milliseconds) => worker.postMessage(milliseconds);
}

// Ticks in a hidden tab only.
export function ticks(tick) {
    let pace = null;
    const follow = () => {
        if (!document.hidden) {
            pace?.(0);
            return;
        }
        try {
            pace ??= pacer(tick);
        } catch {
            return; // The page's timers it is, then.
        }
        pace(interval);
    };
    document.addEventListener('visibilitychange', follow);
    follow();
}
