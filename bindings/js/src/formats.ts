// How pixels leave a canvas.

import * as api from "./api.js";
import type { Box } from "./boxes.js";
import { Color } from "./colors.js";
import type { ColorLike } from "./colors.js";
import { OrvelError, OutOfMemory } from "./errors.js";
import { oneOf, optionsOf } from "./names.js";

/** What a pixel becomes: the layouts of the kit by name. */
export const FORMATS = {
    rgba: api.KIT_RGBA, bgra: api.KIT_BGRA, rgb565_le: api.KIT_RGB565_LE,
    rgb565_be: api.KIT_RGB565_BE, grey8: api.KIT_GREY8, grey4: api.KIT_GREY4,
    grey2: api.KIT_GREY2, grey1: api.KIT_GREY1, index8: api.KIT_INDEX8, index4: api.KIT_INDEX4,
    plane: api.KIT_PLANE,
} as const;
/** How colours that a format lacks are approximated. */
export const DITHERS = {
    none: api.KIT_DITHER_NONE, ordered: api.KIT_DITHER_ORDERED, diffused: api.KIT_DITHER_DIFFUSED,
} as const;

export type FormatName = keyof typeof FORMATS;
export type DitherName = keyof typeof DITHERS;

/** What belongs to a format beside its name. */
export interface FormatParts {
    dither?: DitherName;
    /** Quarters clockwise. */
    turns?: number;
    /** The panel's colours, 1 to 16, for index8, index4 and plane. */
    palette?: readonly ColorLike[];
    /** The colour that the format plane marks. */
    plane?: number;
    /** Whether the four-byte formats have the stored alpha, not 255. */
    keepAlpha?: boolean;
}

type Format = NonNullable<Parameters<typeof api.kit_pixels_stride>[0]>;

/** The record for kit_pixels(). */
export function formatOf(name: FormatName, parts: FormatParts = {}): Format {
    const { dither = "none", turns = 0, palette, plane = 0, keepAlpha = true } =
        optionsOf(parts, ["dither", "turns", "palette", "plane", "keepAlpha"], "a format");
    const record = {
        layout: oneOf(name, FORMATS, "format"),
        dither: oneOf(dither, DITHERS, "dither"),
        turns,
        plane,
        keep_alpha: keepAlpha ? 1 : 0,
    };
    if (name !== "index8" && name !== "index4" && name !== "plane") return record;
    const colors = palette?.map(Color.of) ?? [];
    if (colors.length < 1 || colors.length > 16) {
        throw new RangeError(`the format ${name} needs a palette of 1 to 16 colours`);
    }
    if (!(plane >= 0 && plane < colors.length)) {
        throw new RangeError(`the plane is ${plane}, not a colour of the palette`);
    }
    return { ...record, palette: colors };
}

/** The pixels of a box on a canvas of this size, with so many bytes 0 before each row. */
export function write(canvas: api.orvel_canvas, box: Box, form: Format, lead = 0): Uint8Array {
    const [w, h] = [api.orvel_canvas_width(canvas), api.orvel_canvas_height(canvas)];
    if (box.x < 0 || box.y < 0 || box.w < 1 || box.h < 1 || box.x + box.w > w ||
        box.y + box.h > h) {
        throw new OrvelError(`the box ${box.x},${box.y} ${box.w}x${box.h} does not lie on a ` +
                             `canvas of ${w} x ${h}`);
    }
    const turned = Math.abs(form.turns ?? 0) % 2 === 1;
    const stride = api.kit_pixels_stride(form, turned ? box.h : box.w) + lead;
    const all = memoryOf(stride * (turned ? box.w : box.h));
    if (api.kit_pixels(canvas, box, form, all.subarray(lead), stride) !== 0) {
        throw new OutOfMemory("the memory is too small for the pixels");
    }
    return all;
}

function memoryOf(size: number): Uint8Array {
    try {
        return new Uint8Array(size);
    } catch {
        throw new OutOfMemory("the memory is too small for the pixels");
    }
}
