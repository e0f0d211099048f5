// Colours of the page, light and dark as the browser wishes. Those of the program are changed for their ground, never
// set bare.

const leastContrast = 4.5;
const darkScheme = window.matchMedia('(prefers-color-scheme: dark)');
const listeners = [];

darkScheme.addEventListener('change', () => listeners.forEach((listener) => listener()));

// Calls back when the page has turned dark or light.
export function onScheme(listener) {
    listeners.push(listener);
}

export function isDark() {
    return darkScheme.matches;
}

// Numbers have red in the low byte.
export function parts(color) {
    return [color & 255, (color >> 8) & 255, (color >> 16) & 255];
}

export function css(rgb) {
    return `rgb(${rgb.map(Math.round).join(' ')})`;
}

export function cssOf(color) {
    return css(parts(color));
}

export function hexOf(color) {
    return `#${parts(color)
        .map((part) => part.toString(16).padStart(2, '0'))
        .join('')}`;
}

export function numberOf(hex) {
    const value = parseInt(hex.slice(1), 16);
    return ((value & 255) << 16) | (value & 0xff00) | (value >> 16);
}

function luminance(rgb) {
    const [r, g, b] = rgb.map((part) => {
        const share = part / 255;
        return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
    });
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
}

function contrast(a, b) {
    const [dark, light] = [luminance(a), luminance(b)].sort((one, other) => one - other);
    return (light + 0.05) / (dark + 0.05);
}

function mixed(color, other, share) {
    return color.map((part, i) => part + (other[i] - part) * share);
}

// The colour moved away from its ground as far as it takes to be read.
export function readable(rgb, ground) {
    const far = luminance(ground) > 0.18 ? [0, 0, 0] : [255, 255, 255];
    for (let share = 0; share < 1; share += 0.05) {
        const candidate = mixed(rgb, far, share);
        if (contrast(candidate, ground) >= leastContrast) return candidate;
    }
    return far;
}

const grounds = {
    window: { light: [239, 239, 239], dark: [41, 44, 48] },
    base: { light: [255, 255, 255], dark: [27, 30, 32] },
};

// A colour of the program as a text on a ground, 'window' or 'base'; nothing for the usual one, 0.
export function textColor(color, ground) {
    if (!color) return '';
    return css(readable(parts(color), grounds[ground][isDark() ? 'dark' : 'light']));
}
