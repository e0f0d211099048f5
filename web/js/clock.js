// A clock that keeps its pace in a hidden tab, where the page's own timers fall to one tick a second. It runs only
// there.

const source = 'let t=0;onmessage=e=>{clearInterval(t);t=e.data?setInterval(()=>postMessage(0),e.data):0;};';
const interval = 5; // milliseconds

export function ticks(tick) {
    let worker = null;
    const follow = () => {
        if (!document.hidden) {
            worker?.postMessage(0);
            return;
        }
        try {
            worker ??= new Worker(URL.createObjectURL(new Blob([source], { type: 'text/javascript' })));
        } catch {
            return; // The page's timers it is, then.
        }
        worker.onmessage = tick;
        worker.postMessage(interval);
    };
    document.addEventListener('visibilitychange', follow);
    follow();
}
