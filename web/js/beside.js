// The page's other files, of the same version as its script: each has the script's own mark behind its address, so that no
// cache on the way gives an older one to a newer script.

export function beside(name) {
    const address = new URL(`../${name}`, import.meta.url);
    address.search = new URL(import.meta.url).search;
    return address;
}
