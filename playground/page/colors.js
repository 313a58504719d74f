// How far two colours stand apart: the contrast ratio of WCAG 2.2, from 1 to 21.
import { facts } from "./facts.js";

function luminance(hex) {
    const [r, g, b] = [1, 3, 5]
        .map((at) => parseInt(hex.slice(at, at + 2), 16) / 255)
        .map((part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4));
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
}

export function contrast(one, other) {
    const [low, high] = [luminance(one), luminance(other)].sort((a, b) => a - b);
    return (high + 0.05) / (low + 0.05);
}

export const ROLES = facts.roles;

/** The pairs that orvel-theme looks at, of which one is words on the other. */
export const PAIRS = [
    ["text", "background"],
    ["text", "surface"],
    ["text", "button_hover"],
    ["button_text", "button"],
    ["button_text", "button_hover"],
    ["accent", "surface"],
    ["background", "accent"],
    ["error", "background"],
];

export const isColor = (text) => /^#[0-9a-f]{6}$/i.test(text);

/** "#rrggbb" as the library's record. */
export function record(theme) {
    return Object.fromEntries(
        ROLES.map((role) => {
            const all = parseInt(theme[role].slice(1), 16);
            return [role, { r: all >> 16, g: (all >> 8) & 255, b: all & 255, a: 255 }];
        }),
    );
}
