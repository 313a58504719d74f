// Pixels out of a canvas, as they are or as a panel shows them.
import { api, DITHERS } from "orvelsdk";

/** The most pixels that the playground shows. */
export const MOST_PIXELS = 16 << 20;

const color = (r, g, b) => ({ r, g, b, a: 255 });
const RED = [color(0, 0, 0), color(255, 255, 255), color(255, 0, 0)];
const SEVEN = [
    color(0, 0, 0),
    color(255, 255, 255),
    color(0, 255, 0),
    color(0, 0, 255),
    color(255, 0, 0),
    color(255, 255, 0),
    color(255, 128, 0),
];

// Those of orvel-render: a layout, its bits for each pixel, and a palette.
const PANELS = {
    mono: { layout: api.KIT_GREY1, bits: 1 },
    gray4: { layout: api.KIT_GREY2, bits: 2 },
    gray16: { layout: api.KIT_GREY4, bits: 4 },
    rgb565: { layout: api.KIT_RGB565_LE, bits: 16 },
    red: { layout: api.KIT_INDEX8, bits: 8, palette: RED },
    seven: { layout: api.KIT_INDEX8, bits: 8, palette: SEVEN },
};

/** The format of a panel's pixels; undefined for the screen itself. */
export function panelFormat(panel, dither) {
    const found = PANELS[panel];
    return found && { layout: found.layout, dither: DITHERS[dither] ?? 0, palette: found.palette };
}

function bytesOf(canvas, format, stride, height) {
    const bytes = new Uint8ClampedArray(stride * height);
    if (api.kit_pixels(canvas, null, format, bytes, 0) !== 0) {
        throw new Error("the memory is too small for the pixels");
    }
    return bytes;
}

function shownColor(panel, row, x) {
    const { bits } = panel;
    if (panel.palette) return panel.palette[row[x]];
    if (bits === 16) {
        const value = row[2 * x] | (row[2 * x + 1] << 8);
        const spread = (part, most) => Math.trunc((part * 255 + (most >> 1)) / most);
        return color(
            spread(value >> 11, 31),
            spread((value >> 5) & 63, 63),
            spread(value & 31, 31),
        );
    }
    const inByte = 8 / bits,
        white = (1 << bits) - 1;
    const level = (row[Math.trunc(x / inByte)] >> ((inByte - 1 - (x % inByte)) * bits)) & white;
    const value = Math.trunc((level * 255) / white);
    return color(value, value, value);
}

/** The picture on a canvas: { width, height, rgba }. */
export function pictureOf(canvas, panel, dither) {
    const width = api.orvel_canvas_width(canvas),
        height = api.orvel_canvas_height(canvas);
    const format = panelFormat(panel, dither);
    if (!format) {
        const plain = { layout: api.KIT_RGBA, keep_alpha: 1 };
        return { width, height, rgba: bytesOf(canvas, plain, 4 * width, height) };
    }
    const chosen = PANELS[panel];
    const stride = Math.ceil((width * chosen.bits) / 8);
    const packed = bytesOf(canvas, format, stride, height);
    const rgba = new Uint8ClampedArray(4 * width * height);
    for (let y = 0, at = 0; y < height; y++) {
        const row = packed.subarray(stride * y, stride * (y + 1));
        for (let x = 0; x < width; x++, at += 4) {
            const { r, g, b, a } = shownColor(chosen, row, x);
            ((rgba[at] = r), (rgba[at + 1] = g), (rgba[at + 2] = b), (rgba[at + 3] = a));
        }
    }
    return { width, height, rgba };
}

/** Refuses what would be too large to show. */
export function refuseLarge(width, height) {
    if (!(width * height > MOST_PIXELS)) return; // the library says what is no number
    throw new Error(
        `a canvas of ${width} x ${height} is too large to show here: ` +
            `${MOST_PIXELS} pixels are the most`,
    );
}

/** A canvas, or an error that says how large it was to be. */
export function makeCanvas(width, height) {
    refuseLarge(width, height);
    const canvas = api.kit_canvas(width, height);
    if (canvas === null) throw new Error(`no canvas of ${width} x ${height}`);
    return canvas;
}
