// The interfaces of OrvelSDK in C, for JavaScript.
//
// Made by scripts/describe from bindings/orvel_api.json: edit the headers, and run it. Names and
// order are those of C. Left out are the room for a reason, which comes as an exception, and what
// only tells how long something is. Records are plain objects, and what they lack is 0; an object
// of the library is freed by its function, or when nothing holds it any more.

import * as Pass from "./arguments.js";
import type { Given, Memory, Out, Reals, Text } from "./arguments.js";
import { refusal } from "./errors.js";
import { asked, hostsLend, Lender } from "./hosts.js";
import type { Asked } from "./hosts.js";
import * as Room from "./memory.js";
import * as Objects from "./objects.js";
import type { Cell } from "./objects.js";

const NONE = {}; // in place of a record that lacks

function byte(value: number, what: string): number {
    if ((value & 255) !== value) {
        Pass.int(value, what);
        throw new RangeError(`${what} is ${value}, not 0 to 255`);
    }
    return value;
}

function told(address: number): string | null {
    return address === 0 ? null : Room.textAt(address);
}

function list(address: number, count: number): string[] {
    return Array.from({ length: count },
                      (_, i) => Room.textAt(Room.view.getUint32(address + 4 * i, true)));
}

/** A picture in memory; made by orvel_canvas_create(). */
export class orvel_canvas extends Objects.Handle {
    declare private readonly is: "orvel_canvas";
}

/** One piece of user interface; made by the orvel_widget_ constructors. */
export class orvel_widget extends Objects.Handle {
    declare private readonly is: "orvel_widget";
}

/** A colour: red, green, blue and alpha (255 is opaque), four bytes in this order in memory. */
export interface orvel_color {
    /** red */
    r: number;
    /** green */
    g: number;
    /** blue */
    b: number;
    /** alpha */
    a: number;
}

function put_orvel_color(at: number, from: Given<orvel_color>): void {
    Pass.record(from, "a orvel_color");
    Room.bytes[at + 0] = byte(from.r ?? 0, "orvel_color.r");
    Room.bytes[at + 1] = byte(from.g ?? 0, "orvel_color.g");
    Room.bytes[at + 2] = byte(from.b ?? 0, "orvel_color.b");
    Room.bytes[at + 3] = byte(from.a ?? 0, "orvel_color.a");
}

function get_orvel_color(at: number): orvel_color {
    return {
        r: Room.view.getUint8(at + 0),
        g: Room.view.getUint8(at + 1),
        b: Room.view.getUint8(at + 2),
        a: Room.view.getUint8(at + 3),
    };
}

/**
 * The nine colours that widgets are drawn in. Plain memory of the host's: the library never
 * allocates one. The field names are also the keys of theme files.
 */
export interface orvel_theme {
    /** list items; words and knobs on the accent */
    background: orvel_color;
    /** the ground of windows, fields and the open tab; a radio's dot */
    surface: orvel_color;
    /** words, the signs of fields and steppers */
    text: orvel_color;
    /** what is selected, filled, switched on or open */
    accent: orvel_color;
    /** frames, rules, tracks, what is off; a list item's arrow */
    border: orvel_color;
    /** a button's face */
    button: orvel_color;
    /** it or a slider's knob under the pointer; selected list and menu items */
    button_hover: orvel_color;
    /** a button's caption */
    button_text: orvel_color;
    /** no widget uses it; for the host's own drawing */
    error: orvel_color;
}

function put_orvel_theme(at: number, from: Given<orvel_theme>): void {
    Pass.record(from, "a orvel_theme");
    put_orvel_color(at + 0, from.background ?? NONE);
    put_orvel_color(at + 4, from.surface ?? NONE);
    put_orvel_color(at + 8, from.text ?? NONE);
    put_orvel_color(at + 12, from.accent ?? NONE);
    put_orvel_color(at + 16, from.border ?? NONE);
    put_orvel_color(at + 20, from.button ?? NONE);
    put_orvel_color(at + 24, from.button_hover ?? NONE);
    put_orvel_color(at + 28, from.button_text ?? NONE);
    put_orvel_color(at + 32, from.error ?? NONE);
}

function get_orvel_theme(at: number): orvel_theme {
    return {
        background: get_orvel_color(at + 0),
        surface: get_orvel_color(at + 4),
        text: get_orvel_color(at + 8),
        accent: get_orvel_color(at + 12),
        border: get_orvel_color(at + 16),
        button: get_orvel_color(at + 20),
        button_hover: get_orvel_color(at + 24),
        button_text: get_orvel_color(at + 28),
        error: get_orvel_color(at + 32),
    };
}

export const ORVEL_VERSION = "0.1.0";
export const ORVEL_WIDGET_WINDOW = 0;
export const ORVEL_WIDGET_PANEL = 1;
export const ORVEL_WIDGET_LABEL = 2;
export const ORVEL_WIDGET_BUTTON = 3;
export const ORVEL_WIDGET_TOGGLE = 4;
export const ORVEL_WIDGET_CHECKBOX = 5;
export const ORVEL_WIDGET_SLIDER = 6;
export const ORVEL_WIDGET_PROGRESS = 7;
export const ORVEL_WIDGET_TEXTBOX = 8;
export const ORVEL_WIDGET_ICON = 9;
export const ORVEL_WIDGET_IMAGE = 10;
export const ORVEL_WIDGET_SEPARATOR = 11;
export const ORVEL_WIDGET_CARD = 12;
export const ORVEL_WIDGET_RADIO = 13;
export const ORVEL_WIDGET_DROPDOWN = 14;
export const ORVEL_WIDGET_SPINNER = 15;
export const ORVEL_WIDGET_RATING = 16;
export const ORVEL_WIDGET_STEPPER = 17;
export const ORVEL_WIDGET_TABS = 18;
export const ORVEL_WIDGET_AVATAR = 19;
export const ORVEL_WIDGET_BADGE = 20;
export const ORVEL_WIDGET_TITLEBAR = 21;
export const ORVEL_WIDGET_LIST_ITEM = 22;
export const ORVEL_WIDGET_MENU = 23;
export const ORVEL_WIDGET_BARS = 24;
export const ORVEL_WIDGET_SEARCH = 25;
export const ORVEL_WIDGET_TOOLTIP = 26;
export const ORVEL_WIDGET_STATUSBAR = 27;

/**
 * Marks the library as initialised and, unless it already was, writes
 * "[OrvelSDK] inizializzato (v0.1.0)" to the standard error stream. Always returns 0.
 *
 * @returns 0; never -1.
 */
export function orvel_init(): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_init!();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** The version of the library, "0.1.0". A static string: never null, never freed. */
export function orvel_version(): string | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_version!();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Clears the initialised mark and, if it was set, writes "[OrvelSDK] chiuso" to the standard error
 * stream. Nothing is released: the resource root stays in force and music goes on.
 */
export function orvel_shutdown(): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_shutdown!();
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Sets the resource root: the folder that holds "Sounds", "Music", "Icons" and "UI". The path is
 * copied and used exactly as given; it need not exist. An empty path unsets the root, which then is
 * the folder Resources under the directory named by the environment variable ORVELSDK_PATH or,
 * where that is unset or empty, under the current working directory.
 *
 * A resource name without a dot stands for the first file that opens among name.wav, .mp3, .bmp,
 * .json, .m4a, .aiff and .png; a name with a dot is used as it is.
 *
 * Raises std::bad_alloc.
 *
 * @returns 0, or -1 when `path` is null, which leaves the old root in force.
 */
export function orvel_set_resource_path(path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_resource_path!(Pass.text(path, "path"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Makes a canvas of `width` x `height` pixels, all opaque black. Null when a side is below 1 or
 * the record cannot be allocated; raises std::bad_alloc when the pixels cannot.
 *
 * @returns the caller's, for orvel_canvas_destroy(), or null.
 */
export function orvel_canvas_create(width: number, height: number): orvel_canvas | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_canvas!(Pass.int(width, "width"), Pass.int(height, "height"));
        return Objects.made(found, orvel_canvas, "orvel_canvas_destroy");
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** Releases a canvas; `canvas` is taken. No widget made for it may be drawn afterwards. */
export function orvel_canvas_destroy(canvas: orvel_canvas | null): void {
    Objects.take(canvas, orvel_canvas, "canvas");
}

/** in pixels; 0 for null */
export function orvel_canvas_width(canvas: orvel_canvas | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_canvas_width!(
            Objects.object(canvas, orvel_canvas, "canvas"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** in pixels; 0 for null */
export function orvel_canvas_height(canvas: orvel_canvas | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_canvas_height!(
            Objects.object(canvas, orvel_canvas, "canvas"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** Sets every pixel to `color`. */
export function orvel_canvas_clear(canvas: orvel_canvas | null, color: Given<orvel_color>): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_clear!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** Sets the pixel (x, y); ignored outside the canvas. */
export function orvel_canvas_pixel(
    canvas: orvel_canvas | null,
    x: number,
    y: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_pixel!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** The pixel (x, y); all zero outside the canvas, as a stored transparent black would be, too. */
export function orvel_canvas_pixel_get(
    canvas: orvel_canvas | null,
    x: number,
    y: number,
): orvel_color {
    const mark = Room.enter();
    try {
        const result = Room.allot(4);
        Room.wasm.orvel_canvas_pixel_get!(
            result,
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return get_orvel_color(result);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * A line of single pixels, both ends included, by Bresenham's integer algorithm
 * (IBM Systems Journal 4(1), 1965) for all octants. Exact between any two points.
 */
export function orvel_canvas_line(
    canvas: orvel_canvas | null,
    x0: number,
    y0: number,
    x1: number,
    y1: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_line!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x0, "x0"),
            Pass.int(y0, "y0"),
            Pass.int(x1, "x1"),
            Pass.int(y1, "y1"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The one-pixel outline of the `w` x `h` box at (x, y), inside the box: four lines. Nothing when
 * `w` or `h` is below 1.
 */
export function orvel_canvas_rect(
    canvas: orvel_canvas | null,
    x: number,
    y: number,
    w: number,
    h: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_rect!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** Fills the box [x, x + w) x [y, y + h). Nothing when `w` or `h` is below 1. */
export function orvel_canvas_fill_rect(
    canvas: orvel_canvas | null,
    x: number,
    y: number,
    w: number,
    h: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_fill_rect!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The outline of a circle around (cx, cy): a midpoint rule that starts from d = 3 - 2r and tests d
 * before it is stepped. A radius of 0 is one pixel, a negative one nothing.
 */
export function orvel_canvas_circle(
    canvas: orvel_canvas | null,
    cx: number,
    cy: number,
    r: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_circle!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(cx, "cx"),
            Pass.int(cy, "cy"),
            Pass.int(r, "r"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * A filled disc: on each row dy the span of the truncated square root of r^2 - dy^2 to both sides,
 * so its edge differs a little from that of orvel_canvas_circle(). The difference is formed in 32
 * bits: with a radius above 46340 it wraps, and a row on which it is negative is left out. A radius
 * of 0 is one pixel, a negative one nothing.
 */
export function orvel_canvas_fill_circle(
    canvas: orvel_canvas | null,
    cx: number,
    cy: number,
    r: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_fill_circle!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(cx, "cx"),
            Pass.int(cy, "cy"),
            Pass.int(r, "r"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * A filled triangle, its edges included, by edge functions (Pineda, SIGGRAPH 1988); both windings
 * fill. Three points on one line fill that whole line within their rows: three points on one row
 * fill the row from edge to edge of the canvas. The edge functions are formed in 32 bits; they are
 * exact while no coordinate lies further than 16384 from zero and no side of the canvas is longer.
 * Beyond that, every pixel of the visible rows is tested.
 */
export function orvel_canvas_fill_triangle(
    canvas: orvel_canvas | null,
    x0: number,
    y0: number,
    x1: number,
    y1: number,
    x2: number,
    y2: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_canvas_fill_triangle!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.int(x0, "x0"),
            Pass.int(y0, "y0"),
            Pass.int(x1, "x1"),
            Pass.int(y1, "y1"),
            Pass.int(x2, "x2"),
            Pass.int(y2, "y2"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Writes the canvas to the file `path` as a 24-bit BMP, bottom row first, without alpha. Raises
 * std::bad_alloc.
 *
 * @returns 0 once the file is open: whether the writes after that succeed is not checked. -1
 *     for null arguments and when the file cannot be opened for writing.
 */
export function orvel_canvas_save_bmp(canvas: orvel_canvas | null, path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_save_bmp!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(path, "path"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Writes the canvas as a 32-bit BMP with alpha. Its compression field holds 255, which many readers
 * refuse; orvel_icon_draw_bitmap() reads it. Raises std::bad_alloc.
 *
 * @returns 0 or -1, as for orvel_canvas_save_bmp().
 */
export function orvel_canvas_save_bmp_rgba(canvas: orvel_canvas | null, path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_save_bmp_rgba!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(path, "path"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The width of `text` in pixels: 6 a byte, less the last gap; 0 for null or empty. Every byte
 * counts, newlines too. The height of a text is always 7.
 */
export function orvel_text_width(text: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_text_width!(Pass.text(text, "text"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws `text` with the top left corner of its first cell at (x, y). A cell is 5 x 7 pixels, the
 * next one starts 6 further right. Clear bits leave the canvas as it is. A newline (10) is skipped:
 * it moves nothing and starts no new line. Every other byte outside 32 ... 126 is a blank cell.
 *
 * The shapes are the library's own and are not the letters: each cell shows seven consecutive bytes
 * of a font stored by columns, read as rows.
 */
export function orvel_text_draw(
    canvas: orvel_canvas | null,
    text: Text,
    x: number,
    y: number,
    color: Given<orvel_color>,
): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_text_draw!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.value(color, 4, put_orvel_color),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The names of the 68 built-in icons, in their fixed order.
 *
 * @returns the library's own table, `count` of them; static, never null; do not write to it.
 */
export function orvel_icon_list(): string[] {
    const mark = Room.enter();
    try {
        const count = Room.allot(4);
        const found = Room.wasm.orvel_icon_list!(count);
        return list(found, Room.view.getInt32(count, true));
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** @returns 1 when `name` is exactly one of the 68 names, else 0. */
export function orvel_icon_exists(name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_icon_exists!(Pass.text(name, "name"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws the built-in icon `name` in the square of side `size` at (x, y), in one colour. Its
 * cut-outs take the colour of the canvas at (x, y), or opaque black where that is transparent or
 * outside.
 *
 * Two designs measure from the top of the canvas and look as intended only where y is 0: further
 * down, "home" loses its body, and the stem of "power" reaches past the square. To place them
 * anywhere, draw them on a canvas of their own and copy it, which is what kit_icon() of the kit
 * does.
 *
 * @returns 0; -1 for null arguments or a size below 1, which draw nothing, and for an unknown
 *     name, which draws a one-pixel frame of the square.
 */
export function orvel_draw_icon(
    canvas: orvel_canvas | null,
    name: Text,
    x: number,
    y: number,
    size: number,
    color: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_draw_icon!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
            Pass.value(color, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * As orvel_draw_icon(), with the colours of the design's details (`accent`) and of its cut-outs
 * (`background`) given.
 *
 * @returns 0 or -1, as for orvel_draw_icon().
 */
export function orvel_draw_icon_ex(
    canvas: orvel_canvas | null,
    name: Text,
    x: number,
    y: number,
    size: number,
    color: Given<orvel_color>,
    accent: Given<orvel_color>,
    background: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_draw_icon_ex!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
            Pass.value(color, 4, put_orvel_color),
            Pass.value(accent, 4, put_orvel_color),
            Pass.value(background, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws the BMP file `name` of the resource folder "Icons" at its own size, its top left corner at
 * (x, y). Of the header, the offset of the pixels, the width, the height and the depth are read and
 * the rest is ignored: 24 and 32 bits a pixel, rows in either order. A pixel of a 32-bit file with
 * alpha 0 is skipped, any other replaces the canvas pixel. The file is not trusted: whatever it
 * holds, the call neither reads nor writes outside memory, does not block, and costs no more than
 * what is visible; a file that ends early, or that can no longer be read, shows the rows before
 * that.
 *
 * A width whose row, rounded up to 4 bytes, is negative as a 32-bit number raises
 * std::length_error: -2, for example, or 0x20000000 at 32 bits. A C host that draws files of
 * strangers looks at the four bytes at offset 18 first. Raises std::bad_alloc, too.
 *
 * @returns 0 when the file was accepted; -1 for null arguments, a file that cannot be opened,
 *     a header shorter than 54 bytes or without "BM", and any other depth.
 */
export function orvel_icon_draw_bitmap(
    canvas: orvel_canvas | null,
    name: Text,
    x: number,
    y: number,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bitmap!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** The dark theme, all nine fields; `theme` is written. */
export function orvel_theme_default(theme: Partial<orvel_theme> | null): void {
    const mark = Room.enter();
    try {
        const theme_at = Pass.room(theme, "theme", 36);
        Room.wasm.orvel_theme_default!(theme_at);
        if (theme_at !== 0 && theme) Object.assign(theme, get_orvel_theme(theme_at));
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** The light theme, all nine fields; `theme` is written. */
export function orvel_theme_light(theme: Partial<orvel_theme> | null): void {
    const mark = Room.enter();
    try {
        const theme_at = Pass.room(theme, "theme", 36);
        Room.wasm.orvel_theme_light!(theme_at);
        if (theme_at !== 0 && theme) Object.assign(theme, get_orvel_theme(theme_at));
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Reads the theme file `name` of the resource folder "UI"; `theme` is changed. For each of the
 * nine keys in double quotes, the next quoted text after the next colon is its colour, "#rrggbb". A
 * key that is missing or whose value is empty keeps its field, so fill the record first. A value of
 * fewer than six characters after the '#' is white; a bad digit counts as 0; alpha becomes 255. The
 * whole file is read into memory, whatever its size; when memory runs out, the record stays as it
 * was. A read that fails counts as the end of the file. Raises std::bad_alloc.
 *
 * @returns 0 when the file was opened, whatever it held; -1 for null arguments or when it
 *     cannot be opened.
 */
export function orvel_theme_load(theme: Partial<orvel_theme> | null, name: Text): number {
    const mark = Room.enter();
    try {
        const theme_at = Pass.given(theme, 36, put_orvel_theme);
        const found = Room.wasm.kit_theme_load!(theme_at, Pass.text(name, "name"));
        if (theme_at !== 0 && theme) Object.assign(theme, get_orvel_theme(theme_at));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Writes `theme` to the file `name` of the resource folder "UI", 264 bytes, without alpha. A name
 * without a dot overwrites the file that loading it would find; if there is none, the file gets
 * exactly that name. No folder is made. Raises std::bad_alloc.
 *
 * @returns 0 once the file is open; -1 for null arguments or when it cannot be opened.
 */
export function orvel_theme_save(theme: Given<orvel_theme> | null, name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_theme_save!(
            Pass.given(theme, 36, put_orvel_theme),
            Pass.text(name, "name"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * A window: surface in a border frame, and along its top a band of accent, 12 rows high, with the
 * title in background.
 */
export function orvel_widget_window(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    title: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_window!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(title, "title"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** A panel: surface in a border frame. */
export function orvel_widget_panel(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_panel!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** tw x 7: one line of words, without a ground. */
export function orvel_widget_label(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_label!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A push button: a framed box of the colour button, with its caption in the middle. Under the
 * pointer the box is button_hover.
 */
export function orvel_widget_button(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_button!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A switch: a framed track, accent when on and else border, and a round knob in background at its
 * right end when on and at its left end when off.
 */
export function orvel_widget_toggle(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
    on: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_toggle!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(on, "on"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** tw + 13 x 9: a box of 9 x 9 with a tick when checked, and a caption to its right. */
export function orvel_widget_checkbox(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    checked: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_checkbox!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(checked, "checked"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * w x 9: a track of 3 rows and a knob of 9 x 9, whose middle is w times the value from the left:
 * at 0 and 1 half of it lies outside the width. Under the pointer the knob is button_hover, else
 * accent.
 */
export function orvel_widget_slider(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    value: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_slider!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.real(value, "value"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A progress bar: a frame that fills from the left with accent; at 1 the filling covers the right
 * side of the frame.
 */
export function orvel_widget_progress(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
    value: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_progress!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.real(value, "value"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A text field: surface in a frame, accent under the pointer and else border, with the text from
 * the left. It shows neither caret nor selection.
 */
export function orvel_widget_textbox(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_textbox!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * size x size: the built-in icon `name` in accent, from a size of 9 on with a margin of one
 * pixel.
 */
export function orvel_widget_icon(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    name: Text,
    x: number,
    y: number,
    size: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_icon!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** The bitmap `name` of the resource folder "Icons", at its own size. */
export function orvel_widget_image(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    name: Text,
    x: number,
    y: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_image!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** A rule one pixel high from x to x + w, both ends included. */
export function orvel_widget_separator(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_separator!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A card: surface in a border frame, with a stripe of accent 3 pixels wide down its left side.
 */
export function orvel_widget_card(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_card!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * tw + 13 x 9: a radio button, which is a circle with a dot in it, accent when selected and else
 * surface, and a caption to its right. One of several is selected at a time if the host sees to
 * it.
 */
export function orvel_widget_radio(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    selected: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_radio!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(selected, "selected"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A drop-down field: surface in a frame, accent when open and else border, with the text from the
 * left and an arrow at the right. The list that opens is the host's to draw.
 */
export function orvel_widget_dropdown(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    w: number,
    h: number,
    open: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_dropdown!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(open, "open"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * size x size: a busy sign, a circle and a dot on it that may reach past the square. `value` is
 * the fraction of a clockwise turn from 3 o'clock that the dot has made; the host advances it.
 */
export function orvel_widget_spinner(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    size: number,
    value: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_spinner!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
            Pass.real(value, "value"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * 50 x 10: five stars, 10 pixels apart, of which the nearest whole number to 5 times the value are
 * accent, and the others border. `value` is a fraction.
 */
export function orvel_widget_rating(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    value: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_rating!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.real(value, "value"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A number between a minus and a plus, each in a framed square of the height; `value` is a
 * number of any size.
 */
export function orvel_widget_stepper(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
    value: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_stepper!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(value, "value"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * Tabs side by side, each w / n pixels wide for n of them; the remainder stays empty at the right.
 * `items` are the captions, joined with "|"; `selected` is the number of the open one, from 0:
 * it is surface under a line of accent.
 */
export function orvel_widget_tabs(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    items: Text,
    x: number,
    y: number,
    w: number,
    h: number,
    selected: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_tabs!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(items, "items"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(selected, "selected"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A disc of accent with an outline, size + 1 pixels across for an even size. The initials are
 * placed for one letter, and longer ones reach to the right; null `initials` are "?".
 */
export function orvel_widget_avatar(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    initials: Text,
    x: number,
    y: number,
    size: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_avatar!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(initials, "initials"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A number on a rounded ground of accent: 14 x 11 for one digit and 6 more for each further
 * character.
 */
export function orvel_widget_badge(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    count: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_badge!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(count, "count"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A title bar: surface in a border frame, the title at the left, and at the right end three dots,
 * whose colours no theme changes.
 */
export function orvel_widget_titlebar(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    title: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_titlebar!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(title, "title"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A row of a list: background in a border frame, or button_hover in an accent one when selected;
 * at the left an icon of 16 x 16 and the text, at the right an arrow. `icon` is a built-in icon;
 * null or empty for none.
 */
export function orvel_widget_list_item(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    icon: Text,
    x: number,
    y: number,
    w: number,
    h: number,
    selected: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_list_item!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.text(icon, "icon"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(selected, "selected"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A menu bar: items side by side, each w / n pixels wide for n of them, without a ground of its
 * own; the remainder stays empty at the right. `items` are the captions, joined with "|";
 * `selected` is the number of one, from 0: it is button_hover over a line of accent.
 */
export function orvel_widget_menu(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    items: Text,
    x: number,
    y: number,
    w: number,
    h: number,
    selected: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_menu!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(items, "items"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            Pass.int(selected, "selected"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A bar chart: bars of accent in a frame, for n values one every w / n pixels, with a gap of one
 * pixel; the remainder stays empty at the right. Bars are at least 2 pixels apart, so more than
 * w / 2 values run past the right side. Draws nothing until orvel_widget_set_data() has given it
 * values.
 */
export function orvel_widget_bars(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_bars!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * A search field: surface in a frame, accent when active and else border, with a magnifier in a
 * square of the height and the text to its right.
 */
export function orvel_widget_search(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_search!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/**
 * tw + 8 x 12: a bubble of 10 rows with the text, and below its middle a pointer of 3 rows, the
 * last of which is outside.
 */
export function orvel_widget_tooltip(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_tooltip!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** A status bar: a line of text on surface, under a rule from x to x + w, both ends included. */
export function orvel_widget_statusbar(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    text: Text,
    x: number,
    y: number,
    w: number,
    h: number,
): orvel_widget | null {
    const theme_kept = Objects.Shared.of(theme, 36, put_orvel_theme);
    const mark = Room.enter();
    try {
        const found = Room.wasm.orvel_widget_statusbar!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            theme_kept?.address ?? 0,
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(w, "w"),
            Pass.int(h, "h"),
        );
        return Objects.made(
            found,
            orvel_widget,
            "orvel_widget_destroy",
            Objects.keep(canvas, orvel_canvas, "canvas"),
            theme_kept,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        theme_kept?.settle();
        Room.leave(mark);
    }
}

/** Releases a widget and its copies, not its canvas or theme; `widget` is taken. */
export function orvel_widget_destroy(widget: orvel_widget | null): void {
    Objects.take(widget, orvel_widget, "widget");
}

/**
 * The pointer is over the widget: a button's face and a slider's knob are then button_hover, the
 * frame of a text field is accent. Shown by button, slider, textbox.
 */
export function orvel_widget_set_hover(widget: orvel_widget | null, on: number): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_widget_set_hover!(
            Objects.object(widget, orvel_widget, "widget"),
            Pass.int(on, "on"),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * On, checked, selected, open or focused. Shown by toggle, checkbox, radio, dropdown, search, list
 * item.
 */
export function orvel_widget_set_active(widget: orvel_widget | null, on: number): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_widget_set_active!(
            Objects.object(widget, orvel_widget, "widget"),
            Pass.int(on, "on"),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** Clamped to [0, 1], NaN kept. Shown by slider, progress, spinner, rating. */
export function orvel_widget_set_value(widget: orvel_widget | null, value: number): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_widget_set_value!(
            Objects.object(widget, orvel_widget, "widget"),
            Pass.real(value, "value"),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Not clamped; of tabs and menu the selected index, none if out of range. Shown by stepper, badge,
 * tabs, menu.
 */
export function orvel_widget_set_amount(widget: orvel_widget | null, amount: number): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_widget_set_amount!(
            Objects.object(widget, orvel_widget, "widget"),
            Pass.int(amount, "amount"),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Replaces the values of a bar chart by a copy of `count` values, drawn clamped to [0, 1]. A count
 * of 0 empties the list. Null `values` or a negative count do nothing. All or nothing: when memory
 * runs out, it raises std::bad_alloc, and the old values stay. Shown by bars.
 */
export function orvel_widget_set_data(widget: orvel_widget | null, values: Reals): void {
    const mark = Room.enter();
    try {
        const [values_at, values_length] = Pass.reals(values, "values");
        Room.wasm.orvel_widget_set_data!(
            Objects.object(widget, orvel_widget, "widget"),
            values_at,
            values_length,
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws the widget on its canvas in the colours of its theme. Never changes the widget. Raises
 * std::bad_alloc; an image raises std::length_error as orvel_icon_draw_bitmap() does.
 */
export function orvel_widget_draw(widget: orvel_widget | null): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_widget_draw!(Objects.object(widget, orvel_widget, "widget"));
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Plays the file `name` of the resource folder "Sounds" once, without waiting. Writes
 * "[OrvelSDK] suono: PATH" or "[OrvelSDK] suono non trovato: PATH" to the standard error stream.
 * It cannot be stopped; on Linux it is heard to its end even when the host has exited. Raises
 * std::bad_alloc.
 *
 * @returns 0 when the system took the sound; -1 for null, a file that does not open, or a file
 *     that the system refuses. On Linux also for what is no regular file, when a library is
 *     not installed, when the server refuses or does not answer, and always in a child process
 *     forked after a first sound.
 */
export function orvel_play_sound(name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_sound!(Pass.text(name, "name"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Stops the music, then plays the file `name` of the resource folder "Music" once in a player
 * process. Writes "[OrvelSDK] musica: PATH" or "[OrvelSDK] musica non trovata: PATH" to the
 * standard error stream. The old music stops even when the new file is missing. Raises
 * std::bad_alloc.
 *
 * @returns 0 when the player process was started, whether or not it can play the file; -1 for
 *     null (the music goes on), a file that does not open, or when no process can be started.
 */
export function orvel_play_music(name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_music!(Pass.text(name, "name"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Ends the music: a player that still runs gets SIGTERM and is waited for, to the end of the track
 * if it inherited from the host that SIGTERM is blocked or ignored; one that has ended by itself
 * and was not reaped yet is reaped. Does nothing otherwise.
 */
export function orvel_stop_music(): void {
    const mark = Room.enter();
    try {
        Room.wasm.orvel_stop_music!();
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Plays a sine tone beside whatever else is playing. It is written as a 16-bit mono WAV file of
 * 44100 samples a second to /tmp/orvelsdk_tone.wav and played in a player process of its own, which
 * the library neither stops nor waits for. Writes "[OrvelSDK] tone: HZ Hz x MS ms" to the standard
 * error stream. Keep durations below 97392 ms: from there the 32-bit sample count wraps.
 *
 * A file that cannot be written is not reported; the player then plays whatever lies at that path.
 * A library that was built without a platform, which has no player, writes none.
 * Nothing is written to a link, a FIFO, a file with a second name or a file of another user. NaN
 * and infinite frequencies are silence. Raises std::bad_alloc.
 *
 * @param frequency_hz in hertz, above 0.
 * @param duration_ms in milliseconds, at least 1.
 * @returns 0 when the player process was started; -1 for arguments out of range or when no
 *     process can be started.
 */
export function orvel_play_tone(frequency_hz: number, duration_ms: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_tone!(
            Pass.real(frequency_hz, "frequency_hz"),
            Pass.int(duration_ms, "duration_ms"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** A typeface in one size: its letters, and how they are spaced. */
export class kit_face extends Objects.Handle {
    declare private readonly is: "kit_face";
}

/** A rectangle: [x, x + w) x [y, y + h), in pixels. Empty when a side is below 1. */
export interface kit_box {
    /** left */
    x: number;
    /** top */
    y: number;
    /** width */
    w: number;
    /** height */
    h: number;
}

function put_kit_box(at: number, from: Given<kit_box>): void {
    Pass.record(from, "a kit_box");
    Room.view.setInt32(at + 0, Pass.int(from.x ?? 0, "kit_box.x"), true);
    Room.view.setInt32(at + 4, Pass.int(from.y ?? 0, "kit_box.y"), true);
    Room.view.setInt32(at + 8, Pass.int(from.w ?? 0, "kit_box.w"), true);
    Room.view.setInt32(at + 12, Pass.int(from.h ?? 0, "kit_box.h"), true);
}

function get_kit_box(at: number): kit_box {
    return {
        x: Room.view.getInt32(at + 0, true),
        y: Room.view.getInt32(at + 4, true),
        w: Room.view.getInt32(at + 8, true),
        h: Room.view.getInt32(at + 12, true),
    };
}

/** How pixels come out. */
export interface kit_format {
    /** a kit_layout */
    layout: number;
    /** a kit_dither; the layouts of four bytes need none */
    dither: number;
    /** a number of quarter turns, clockwise if positive */
    turns: number;
    /** the panel's, alpha ignored, `colors` of them */
    palette: readonly orvel_color[] | null;
    /** the number of the colour that KIT_PLANE marks, from 0 */
    plane: number;
    /** 0 or 1: four-byte layouts get alpha 255, or what is stored */
    keep_alpha: number;
}

function put_kit_format(at: number, from: Given<kit_format>): void {
    Pass.record(from, "a kit_format");
    Room.bytes.fill(0, at, at + 44);
    Room.view.setInt32(at + 0, Pass.int(from.layout ?? 0, "kit_format.layout"), true);
    Room.view.setInt32(at + 4, Pass.int(from.dither ?? 0, "kit_format.dither"), true);
    Room.view.setInt32(at + 8, Pass.int(from.turns ?? 0, "kit_format.turns"), true);
    const [palette, palette_count] = Pass.records(from.palette, "kit_format.palette", 4, put_orvel_color);
    Room.view.setUint32(at + 16, palette, true);
    Room.view.setUint32(at + 12, palette_count, true);
    Room.view.setInt32(at + 20, Pass.int(from.plane ?? 0, "kit_format.plane"), true);
    Room.view.setInt32(at + 24, Pass.int(from.keep_alpha ?? 0, "kit_format.keep_alpha"), true);
}

/**
 * One widget, as a plain record; a kind ignores what it has no use for. The order of the fields is
 * part of the interface.
 */
export interface kit_widget {
    /** an orvel_widget_kind */
    kind: number;
    /** a width or height of 0 is what kit_size() says */
    box: kit_box;
    /**
     * the caption; items of tabs and menus joined with "|"; the name of an icon or image; what a stepper or badge shows instead of its number, unless it is empty
     */
    text: Text;
    /** what an empty text field shows, in the quiet colour */
    hint: Text;
    /** a built-in icon before the caption: list items, buttons */
    icon: Text;
    /** of all its words */
    face: kit_face | null;
    /** of kit_state */
    state: number;
    /** of steppers and badges; the selected item of tabs and menus */
    amount: number;
    /** the fraction of sliders, progress bars, spinners and ratings */
    value: number;
    /** the values of bars, 0 to 1, `count` of them */
    data: Reals;
    /** of a text field with focus: the offset of the caret, in bytes */
    caret: number;
    /** the other end of its selection, in bytes */
    anchor: number;
    /**
     * in pixels, 1 more than kit_field() returned: a text longer than the field then moves only as far as its caret needs; below 1 the caret is in the middle
     */
    scroll: number;
}

function put_kit_widget(at: number, from: Given<kit_widget>): void {
    Pass.record(from, "a kit_widget");
    Room.bytes.fill(0, at, at + 96);
    Room.view.setInt32(at + 0, Pass.int(from.kind ?? 0, "kit_widget.kind"), true);
    put_kit_box(at + 4, from.box ?? NONE);
    Room.view.setUint32(at + 20, Pass.text(from.text, "kit_widget.text"), true);
    Room.view.setUint32(at + 24, Pass.text(from.hint, "kit_widget.hint"), true);
    Room.view.setUint32(at + 28, Pass.text(from.icon, "kit_widget.icon"), true);
    Room.view.setUint32(at + 32, Objects.object(from.face, kit_face, "kit_widget.face"), true);
    Room.view.setUint32(at + 36, Pass.unsigned(from.state ?? 0, "kit_widget.state"), true);
    Room.view.setInt32(at + 40, Pass.int(from.amount ?? 0, "kit_widget.amount"), true);
    Room.view.setFloat64(at + 48, Pass.real(from.value ?? 0, "kit_widget.value"), true);
    const [data, data_count] = Pass.reals(from.data, "kit_widget.data");
    Room.view.setUint32(at + 56, data, true);
    Room.view.setUint32(at + 60, data_count, true);
    Room.view.setInt32(at + 64, Pass.int(from.caret ?? 0, "kit_widget.caret"), true);
    Room.view.setInt32(at + 68, Pass.int(from.anchor ?? 0, "kit_widget.anchor"), true);
    Room.view.setInt32(at + 72, Pass.int(from.scroll ?? 0, "kit_widget.scroll"), true);
}

/** One series of values. */
export interface kit_series {
    /** `count` of them; NaN or infinite is a missing value */
    values: Reals;
    /** alpha 0: the theme's accent, then others by number */
    color: orvel_color;
    /** for the legend; may be null */
    name: Text;
}

function put_kit_series(at: number, from: Given<kit_series>): void {
    Pass.record(from, "a kit_series");
    Room.bytes.fill(0, at, at + 24);
    const [values, values_count] = Pass.reals(from.values, "kit_series.values");
    Room.view.setUint32(at + 0, values, true);
    Room.view.setUint32(at + 4, values_count, true);
    put_orvel_color(at + 8, from.color ?? NONE);
    Room.view.setUint32(at + 12, Pass.text(from.name, "kit_series.name"), true);
}

/** A chart, as a plain record. The order of the fields is part of the interface. */
export interface kit_chart {
    /** a kit_chart_kind */
    kind: number;
    /** nothing is painted outside it; its ground is left as it is */
    box: kit_box;
    /** `count` of them */
    series: readonly kit_series[] | null;
    /** a number, the lower end of the range */
    low: number;
    /**
     * a number, the upper end; when it equals low, the range is found from the values, with zero for areas, bars and gauges
     */
    high: number;
    /** of kit_chart_parts */
    parts: number;
    /** the number of decimals, 0 to 9 after clamping; ticks may need more */
    decimals: number;
    /** put behind the numbers, for instance " kW" */
    unit: Text;
    /** of the places from left to right, joined with "|" */
    labels: Text;
    /** of all its words */
    face: kit_face | null;
}

function put_kit_chart(at: number, from: Given<kit_chart>): void {
    Pass.record(from, "a kit_chart");
    Room.bytes.fill(0, at, at + 88);
    Room.view.setInt32(at + 0, Pass.int(from.kind ?? 0, "kit_chart.kind"), true);
    put_kit_box(at + 4, from.box ?? NONE);
    const [series, series_count] = Pass.records(from.series, "kit_chart.series", 24, put_kit_series);
    Room.view.setUint32(at + 20, series, true);
    Room.view.setUint32(at + 24, series_count, true);
    Room.view.setFloat64(at + 32, Pass.real(from.low ?? 0, "kit_chart.low"), true);
    Room.view.setFloat64(at + 40, Pass.real(from.high ?? 0, "kit_chart.high"), true);
    Room.view.setUint32(at + 48, Pass.unsigned(from.parts ?? 0, "kit_chart.parts"), true);
    Room.view.setInt32(at + 52, Pass.int(from.decimals ?? 0, "kit_chart.decimals"), true);
    Room.view.setUint32(at + 56, Pass.text(from.unit, "kit_chart.unit"), true);
    Room.view.setUint32(at + 60, Pass.text(from.labels, "kit_chart.labels"), true);
    Room.view.setUint32(at + 64, Objects.object(from.face, kit_face, "kit_chart.face"), true);
}

export const KIT_VERSION = "0.2.0";
/** four bytes, red first */
export const KIT_RGBA = 0;
/** four bytes, blue first */
export const KIT_BGRA = 1;
/** 16 bits, red highest, the low byte first */
export const KIT_RGB565_LE = 2;
/** 16 bits, red highest, the high byte first */
export const KIT_RGB565_BE = 3;
/** one byte */
export const KIT_GREY8 = 4;
/** 4 bits, the first pixel in the highest ones; white is 15 */
export const KIT_GREY4 = 5;
/** 2 bits, the first pixel in the highest ones; white is 3 */
export const KIT_GREY2 = 6;
/** 1 bit, the first pixel in the highest one; white is 1 */
export const KIT_GREY1 = 7;
/** one byte, the number of the colour in the palette */
export const KIT_INDEX8 = 8;
/** 4 bits, the same, the first pixel in the highest ones */
export const KIT_INDEX4 = 9;
/** 1 bit, 0 where the pixel takes the colour number plane of the palette */
export const KIT_PLANE = 10;
/** the nearest colour; of several as near, the first */
export const KIT_DITHER_NONE = 0;
/**
 * an 8 x 8 matrix (Bayer, IEEE ICC 1973), anchored to the canvas, so
 * that boxes written at different times fit together. A palette's
 * own colours stay; others are moved by up to half of the largest
 * gap between the palette's values of a channel
 */
export const KIT_DITHER_ORDERED = 1;
/**
 * error diffusion (Floyd and Steinberg, Proc. SID 17(2), 1976), from
 * the box's top left corner along its rows. Colours and errors are
 * counted in sixteenths of a step. Of an error, 7 parts of 16 go
 * ahead, 3 to the lower left and 5 below, rounded toward zero, and
 * the rest to the lower right; the sum that a pixel gets is clamped
 * to black and white
 */
export const KIT_DITHER_DIFFUSED = 2;
export const KIT_LEFT = 0;
export const KIT_CENTRE = 1;
export const KIT_RIGHT = 2;
/** under the pointer: button, slider, text box */
export const KIT_HOVER = 1;
/** on, checked, selected, open or pressed */
export const KIT_ACTIVE = 2;
/** a ring, inside the box; a caret in text fields */
export const KIT_FOCUS = 4;
/** mixed halfway into the theme's background; no hover, no focus */
export const KIT_DISABLED = 8;
/** a line for each series */
export const KIT_CHART_LINE = 0;
/** the same, filled down to zero or to the nearer end of the range */
export const KIT_CHART_AREA = 1;
/** a line without anything around it; the last value has a dot */
export const KIT_CHART_SPARK = 2;
/** grouped bars: one of each series at every place */
export const KIT_CHART_BARS = 3;
/** bars on top of each other, positive ones up, negative ones down */
export const KIT_CHART_STACKED = 4;
/** the last value of the first series on three quarters of a ring */
export const KIT_CHART_GAUGE = 5;
/** lines at round numbers, with labels at the left */
export const KIT_CHART_AXES = 1;
/** the labels below, as many as fit; for a gauge the first */
export const KIT_CHART_LABELS = 2;
/** the names of the series at the top right, in rows */
export const KIT_CHART_LEGEND = 4;

/** The version of the kit. A static string: never null, never freed. */
export function kit_version(): string | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_version!();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_canvas_create(), guarded: null also when the pixels do not fit into memory. */
export function kit_canvas(width: number, height: number): orvel_canvas | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_canvas!(Pass.int(width, "width"), Pass.int(height, "height"));
        return Objects.made(found, orvel_canvas, "orvel_canvas_destroy");
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_icon_draw_bitmap(), guarded: -1 for every file that it cannot draw. */
export function kit_bitmap(canvas: orvel_canvas | null, name: Text, x: number, y: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bitmap!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_theme_load(), guarded. */
export function kit_theme_load(theme: Partial<orvel_theme> | null, name: Text): number {
    const mark = Room.enter();
    try {
        const theme_at = Pass.given(theme, 36, put_orvel_theme);
        const found = Room.wasm.kit_theme_load!(theme_at, Pass.text(name, "name"));
        if (theme_at !== 0 && theme) Object.assign(theme, get_orvel_theme(theme_at));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_theme_save(), guarded. */
export function kit_theme_save(theme: Given<orvel_theme> | null, name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_theme_save!(
            Pass.given(theme, 36, put_orvel_theme),
            Pass.text(name, "name"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_canvas_save_bmp(), guarded. */
export function kit_save_bmp(canvas: orvel_canvas | null, path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_save_bmp!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(path, "path"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_canvas_save_bmp_rgba(), guarded. */
export function kit_save_bmp_rgba(canvas: orvel_canvas | null, path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_save_bmp_rgba!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(path, "path"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_set_resource_path(), guarded. */
export function kit_resource_path(path: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_resource_path!(Pass.text(path, "path"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_play_sound(), guarded. */
export function kit_play_sound(name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_sound!(Pass.text(name, "name"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_play_music(), guarded. */
export function kit_play_music(name: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_music!(Pass.text(name, "name"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** orvel_play_tone(), guarded. */
export function kit_play_tone(frequency_hz: number, duration_ms: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_play_tone!(
            Pass.real(frequency_hz, "frequency_hz"),
            Pass.int(duration_ms, "duration_ms"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The colour that lies `percent` of the way between `from` and `to`; each of the four channels
 *  is rounded toward `from`. The percentage is clamped to [0, 100].
 */
export function kit_mix(
    from: Given<orvel_color>,
    to: Given<orvel_color>,
    percent: number,
): orvel_color {
    const mark = Room.enter();
    try {
        const result = Room.allot(4);
        Room.wasm.kit_mix!(
            result,
            Pass.value(from, 4, put_orvel_color),
            Pass.value(to, 4, put_orvel_color),
            Pass.int(percent, "percent"),
        );
        return get_orvel_color(result);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The lightness of a colour, a number from 0 to 255: (2126 r + 7152 g + 722 b + 5000) / 10000.
 */
export function kit_grey(color: Given<orvel_color>): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_grey!(Pass.value(color, 4, put_orvel_color));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Copies the box `part` of `from` to the point (x, y) of `to`, pixel by pixel, alpha included;
 * what lies outside either canvas is left out. Both may be the same canvas, and the boxes may
 * overlap.
 *
 * @param part borrowed; may be null, which is all of `from`.
 * @returns 0; -1 for a null canvas.
 */
export function kit_copy(
    to: orvel_canvas | null,
    x: number,
    y: number,
    from: orvel_canvas | null,
    part: Given<kit_box> | null,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_copy!(
            Objects.object(to, orvel_canvas, "to"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Objects.object(from, orvel_canvas, "from"),
            Pass.given(part, 16, put_kit_box),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * As kit_copy(), but pixels of `from` with alpha 0 are skipped.
 *
 * @param part borrowed; may be null, which is all of `from`.
 * @returns 0; -1 for a null canvas.
 */
export function kit_stamp(
    to: orvel_canvas | null,
    x: number,
    y: number,
    from: orvel_canvas | null,
    part: Given<kit_box> | null,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_stamp!(
            Objects.object(to, orvel_canvas, "to"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Objects.object(from, orvel_canvas, "from"),
            Pass.given(part, 16, put_kit_box),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws a built-in icon as orvel_draw_icon() draws it at the top left of a canvas of its own,
 * clipped to its square. Two icons, "home" and "power", look different further down a canvas; this
 * way they look the same everywhere. Cut-outs take the colour of the pixel in the top left corner
 * of the square or, where that is off the canvas, of the pixel of the square nearest to it.
 *
 * @param size in pixels.
 * @returns 0; -1 for null, an unknown name, a size below 1 or above 16384, and when memory
 *     runs out; nothing is then drawn.
 */
export function kit_icon(
    canvas: orvel_canvas | null,
    name: Text,
    x: number,
    y: number,
    size: number,
    color: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_icon!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.text(name, "name"),
            Pass.int(x, "x"),
            Pass.int(y, "y"),
            Pass.int(size, "size"),
            Pass.value(color, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Begins drawing that stays inside `box`: clips the box to the canvas and returns a new canvas of
 * exactly that size, with a copy of what is there. Subtract the box's new x and y from what you
 * draw on it, then pass both to kit_clip_end(). No pixel outside the box changes.
 *
 * @param box changed; null is refused.
 * @returns the caller's, for orvel_canvas_destroy() or kit_clip_end(); null when no part of
 *     the box is on the canvas or memory runs out, and the box then stays as it was.
 */
export function kit_clip_begin(
    canvas: orvel_canvas | null,
    box: Partial<kit_box> | null,
): orvel_canvas | null {
    const mark = Room.enter();
    try {
        const box_at = Pass.given(box, 16, put_kit_box);
        const found = Room.wasm.kit_clip_begin!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            box_at,
        );
        if (box_at !== 0 && box) Object.assign(box, get_kit_box(box_at));
        return Objects.made(found, orvel_canvas, "orvel_canvas_destroy");
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Copies `inside` back to `box` on the canvas, and destroys it, even when the canvas or the box
 * is null.
 *
 * @param inside taken; null is refused.
 * @returns 0; -1 for null, and when `inside` is the canvas itself, which is not destroyed.
 */
export function kit_clip_end(
    canvas: orvel_canvas | null,
    box: Given<kit_box> | null,
    inside: orvel_canvas | null,
): number {
    const mark = Room.enter();
    try {
        Objects.givable(inside, orvel_canvas, "inside");
        const found = Room.wasm.kit_clip_end!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.given(box, 16, put_kit_box),
            Objects.object(inside, orvel_canvas, "inside"),
        );
        if (canvas !== inside) Objects.gone(inside);
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The size in bytes of a row of `width` pixels, counted after the turn; 0 for an invalid format,
 *  a width below 1, and a size beyond the range of size_t.
 */
export function kit_pixels_stride(format: Given<kit_format> | null, width: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_pixels_stride!(
            Pass.given(format, 44, put_kit_format),
            Pass.int(width, "width"),
        );
        return found >>> 0;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Writes the pixels of `box` to memory, as the format says. Rows come from the top of the turned
 * picture, each starting `stride` bytes after the one before; a stride of 0 is what
 * kit_pixels_stride() says. The unused bits of a row's last byte are 0; bytes between the rows are
 * left alone. Nothing is written unless all of it fits.
 *
 * A format is invalid when its layout or dither is none of kit_layout or kit_dither and, with a
 * layout that needs them, when the palette is null, the number of colours is out of range, or there
 * is no colour of the number plane. Other fields may hold anything.
 *
 * @param box borrowed; may be null, which is all of the canvas.
 * @param to written, `size` of its bytes; null is refused.
 * @returns 0; -1 for null, a box that is empty or not wholly on the canvas, an invalid format,
 *     a stride shorter than a row, a size too small for the rows (the last one ends where its
 *     pixels do), and when memory runs out.
 */
export function kit_pixels(
    canvas: orvel_canvas | null,
    box: Given<kit_box> | null,
    format: Given<kit_format> | null,
    to: Memory,
    stride: number,
): number {
    const mark = Room.enter();
    try {
        const [to_at, to_length] = Pass.memory(to, "to");
        const found = Room.wasm.kit_pixels!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.given(box, 16, put_kit_box),
            Pass.given(format, 44, put_kit_format),
            to_at,
            to_length,
            Pass.unsigned(stride, "stride"),
        );
        to?.set(Room.bytes.subarray(to_at, to_at + to_length));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_11(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_11!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_12(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_12!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_14(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_14!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_18(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_18!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_24(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_24!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_sans_40(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_sans_40!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_bold_11(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bold_11!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_bold_12(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bold_12!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_bold_14(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bold_14!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_bold_18(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bold_18!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_bold_24(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_bold_24!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_mono_12(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_mono_12!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_digits_64(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_digits_64!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

export function kit_digits_96(): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_digits_96!();
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The built-in face of that name: "sans 12", "digits 96". A program that links the static kit and
 * calls this contains all the faces.
 *
 * @returns static; null when there is none.
 */
export function kit_face_named(name: Text): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_named!(Pass.text(name, "name"));
        return Objects.lent(found, kit_face);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Reads a bitmap font in the Glyph Bitmap Distribution Format (BDF 2.1, Adobe 1993; of 2.2, widths
 * for the whole font). The file is not trusted: it has at most 16 MiB, time and memory stay in
 * proportion to its size, and a FIFO is not waited for.
 *  - The codes are those of Unicode, of a character set that agrees with it (ISO8859-1, ASCII), or
 *    of symbols that belong to no set (FontSpecific). Fonts in another set are refused.
 *  - Of several letters with the same code the first counts; letters without a code are left out.
 *    If there is no U+FFFD, the letter of the property DEFAULT_CHAR stands for it.
 *  - Sides, offsets and advances are at most 4096 pixels, and no advance is negative.
 *
 * @returns the caller's, for kit_face_close(); null, and the reason as "PATH:LINE: what is
 *     wrong", when it is refused.
 */
export function kit_face_open(path: Text): kit_face | null {
    const mark = Room.enter();
    try {
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_face_open!(Pass.text(path, "path"), why, why_length);
        asked();
        if (found === 0) throw refusal(Room.textAt(why), "kit_face_open failed");
        return Objects.made(found, kit_face, "kit_face_close");
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * As kit_face_open(), from memory; reasons begin with "font" instead of a path.
 *
 * @param bytes borrowed, `length` of them; null is refused.
 * @returns the caller's, for kit_face_close(); null, and the reason, when it is refused.
 */
export function kit_face_read(bytes: Text): kit_face | null {
    const mark = Room.enter();
    try {
        const [bytes_at, bytes_length] = Pass.data(bytes, "bytes");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_face_read!(bytes_at, bytes_length, why, why_length);
        asked();
        if (found === 0) throw refusal(Room.textAt(why), "kit_face_read failed");
        return Objects.made(found, kit_face, "kit_face_close");
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * A face that takes from `second` the characters that `first` lacks. Its lines are as high as the
 * higher lines of the two, its capitals count as high as those of `first`. At most 8 faces can be
 * chained so. Letters of different faces are not kerned with each other.
 *
 * @param first kept until the new one is closed; null is refused.
 * @param second kept until the new one is closed; null is refused.
 * @returns the caller's, for kit_face_close(); null for a null face, for more than 8 faces,
 *     and when memory runs out.
 */
export function kit_face_fallback(
    first: kit_face | null,
    second: kit_face | null,
): kit_face | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_fallback!(
            Objects.object(first, kit_face, "first"),
            Objects.object(second, kit_face, "second"),
        );
        return Objects.made(
            found,
            kit_face,
            "kit_face_close",
            Objects.keep(first, kit_face, "first"),
            Objects.keep(second, kit_face, "second"),
        );
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Releases what kit_face_open(), kit_face_read() or kit_face_fallback() returned;
 *  `face` is taken.
 */
export function kit_face_close(face: kit_face | null): void {
    Objects.take(face, kit_face, "face");
}

/** in pixels: the rows above the baseline */
export function kit_face_ascent(face: kit_face | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_ascent!(Objects.object(face, kit_face, "face"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** in pixels: its row and those below it */
export function kit_face_descent(face: kit_face | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_descent!(Objects.object(face, kit_face, "face"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** in pixels: from baseline to baseline */
export function kit_face_line(face: kit_face | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_line!(Objects.object(face, kit_face, "face"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** in pixels: the height of a capital */
export function kit_face_cap(face: kit_face | null): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_cap!(Objects.object(face, kit_face, "face"));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Whether the face, or one chained behind it, has a character; `code` is its number in Unicode.
 *
 * @returns 1 when it has, else 0.
 */
export function kit_face_has(face: kit_face | null, code: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_face_has!(
            Objects.object(face, kit_face, "face"),
            Pass.unsigned(code, "code"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** The width of a line in pixels: the sum of its advances and kernings. */
export function kit_text_width(face: kit_face | null, text: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_width!(
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws one line that starts at x and whose letters stand on the row `baseline`: the lowest row of
 * a letter without a descender is the one above it.
 *
 * @param canvas borrowed; may be null.
 * @returns the x at which the line ends, in pixels, the same for a null canvas.
 */
export function kit_text_draw(
    canvas: orvel_canvas | null,
    face: kit_face | null,
    text: Text,
    x: number,
    baseline: number,
    color: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_draw!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
            Pass.int(x, "x"),
            Pass.int(baseline, "baseline"),
            Pass.value(color, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws one line in a box, its capitals centred vertically. A line wider than the box is cut and
 * ends in an ellipsis, which replaces a number as a whole rather than a part of it. No pixel
 * outside the box changes, so a letter may lose what hangs over the sides.
 *
 * @returns 0 when the line is no wider than the box, 1 when it was cut, -1 for a null canvas.
 */
export function kit_text_box(
    canvas: orvel_canvas | null,
    face: kit_face | null,
    text: Text,
    box: Given<kit_box>,
    align: number,
    color: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_box!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
            Pass.value(box, 16, put_kit_box),
            Pass.int(align, "align"),
            Pass.value(color, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws a paragraph from the top of a box. It is broken at spaces, which then take no room, at soft
 * hyphens, which then show, at zero width spaces, after hyphens and dashes between letters (not
 * before a digit), at every newline, and inside a word only when the word alone is wider than the
 * box. Lines that do not wholly fit the height are left out, and the last line shown then ends in
 * an ellipsis.
 *
 * @param canvas borrowed; may be null, and nothing is drawn then.
 * @returns the number of lines that the whole paragraph takes, 0 for an empty text.
 */
export function kit_text_wrap(
    canvas: orvel_canvas | null,
    face: kit_face | null,
    text: Text,
    box: Given<kit_box>,
    align: number,
    color: Given<orvel_color>,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_wrap!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
            Pass.value(box, 16, put_kit_box),
            Pass.int(align, "align"),
            Pass.value(color, 4, put_orvel_color),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The width in pixels of a line up to a caret; `offset` is the caret's, in bytes. An offset
 *  inside a character counts as that of the character, a negative one as 0, one past the end as the
 *  end.
 */
export function kit_text_x(face: kit_face | null, text: Text, offset: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_x!(
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
            Pass.int(offset, "offset"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The offset in bytes of the caret that is nearest to x in a line: the left one of two that are
 *  equally near, the last of several at the same x.
 */
export function kit_text_at(face: kit_face | null, text: Text, x: number): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_at!(
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
            Pass.int(x, "x"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * How many characters of the text show as U+FFFD because no face has them; ill-formed parts do not
 *  count if a face has U+FFFD.
 */
export function kit_text_missing(face: kit_face | null, text: Text): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_text_missing!(
            Objects.object(face, kit_face, "face"),
            Pass.text(text, "text"),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws a widget: the library's design with readable words, in the place and the colour that the
 * kind has for its caption; a caption that is too long ends in an ellipsis. A text field with focus
 * shows the part of a longer text that its caret is in. Where the design has no room for the face
 * (bands, bubbles, boxes beside words) or does not use the box (sliders, stars), it is drawn as
 * large as the face or the box. Nothing is painted outside the box.
 *
 * @returns 0, also when no part of the box is on the canvas; -1 for null, an unknown kind, a
 *     negative width or height, an icon or image that cannot be drawn (off the canvas, that is
 *     noticed only of an image whose own size counts), and when memory runs out; what was
 *     drawn by then stays.
 */
export function kit_draw(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    widget: Given<kit_widget> | null,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_draw!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.given(theme, 36, put_orvel_theme),
            Pass.given(widget, 96, put_kit_widget),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * The size that a widget wants with its words, face and value; a side of its box that is above 0
 * stays as it is. The size of an image is that of what can be seen of it, up to 4096 pixels a side,
 * and 0 x 0 if it cannot be drawn; to find it, the file is read and drawn.
 *
 * @param w written, in pixels; may be null.
 * @param h written, in pixels; may be null.
 * @returns 0; -1 for null, an unknown kind and when memory runs out, which write 0 x 0.
 */
export function kit_size(widget: Given<kit_widget> | null, w: Out, h: Out): number {
    const mark = Room.enter();
    try {
        const w_at = Pass.room(w, "w", 4);
        const h_at = Pass.room(h, "h", 4);
        const found = Room.wasm.kit_size!(Pass.given(widget, 96, put_kit_widget), w_at, h_at);
        if (w_at !== 0 && w) w.value = Room.view.getInt32(w_at, true);
        if (h_at !== 0 && h) h.value = Room.view.getInt32(h_at, true);
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Where a text box or search field shows its text, with the same `widget` as for kit_draw(). A
 * letter is drawn at the left side of the room, plus its kit_text_x(), minus what is returned.
 *
 * @param room written: the box that the words show in; may be null.
 * @param caret written: the box of the caret, empty if there is none; may be null.
 * @returns the width in pixels of the part of the text that lies to the left of the room, 0
 *     without focus; -1 for null, another kind and a negative width or height, with both boxes
 *     empty.
 */
export function kit_field(
    widget: Given<kit_widget> | null,
    room: Partial<kit_box> | null,
    caret: Partial<kit_box> | null,
): number {
    const mark = Room.enter();
    try {
        const room_at = Pass.room(room, "room", 16);
        const caret_at = Pass.room(caret, "caret", 16);
        const found = Room.wasm.kit_field!(
            Pass.given(widget, 96, put_kit_widget),
            room_at,
            caret_at,
        );
        if (room_at !== 0 && room) Object.assign(room, get_kit_box(room_at));
        if (caret_at !== 0 && caret) Object.assign(caret, get_kit_box(caret_at));
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Draws a chart in the theme's colours. Numbers and labels are shown whole or not at all; a name
 * that is too long ends in an ellipsis, and one stands for a gauge's number that has no room even
 * without its unit.
 *
 * @returns 0, also when there are no values to show, and when the box leaves no room for them
 *     or lies off the canvas; -1 for null (a null array only when its count is above 0), an
 *     unknown kind, a count below 0, more than 32 series, a box with a side below 0 or above
 *     32767, a range that is upside down or whose ends or width are not finite, and when
 *     memory runs out.
 */
export function kit_chart_draw(
    canvas: orvel_canvas | null,
    theme: Given<orvel_theme> | null,
    chart: Given<kit_chart> | null,
): number {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_chart_draw!(
            Objects.object(canvas, orvel_canvas, "canvas"),
            Pass.given(theme, 36, put_orvel_theme),
            Pass.given(chart, 88, put_kit_chart),
        );
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/** A screen; made by kit_screen_open() or kit_screen_read(). */
export class kit_screen extends Objects.Handle {
    declare private readonly is: "kit_screen";
}

/**
 * One event. Fields that its kind does not mention are not looked at. The others may hold
 * anything: what makes no sense has no effect, and what is not UTF-8 is shown as U+FFFD.
 */
export interface kit_screen_event {
    /** a kit_event_kind */
    kind: number;
    /** of the pointer, in pixels */
    x: number;
    /** of the pointer, in pixels */
    y: number;
    /** a number: the turn of the wheel, 120 a notch, positive to the right */
    dx: number;
    /** a number: the same, positive away from the user */
    dy: number;
    /** a number, 0 for the main one; others only move the pointer */
    button: number;
    /** a kit_key, or a character's number */
    key: number;
    /** of kit_modifier */
    modifiers: number;
    /** what was typed, composed or pasted; borrowed; may be null */
    text: Text;
    /** of a composed text: where its caret is, in bytes */
    caret: number;
}

function put_kit_screen_event(at: number, from: Given<kit_screen_event>): void {
    Pass.record(from, "a kit_screen_event");
    Room.bytes.fill(0, at, at + 56);
    Room.view.setInt32(at + 0, Pass.int(from.kind ?? 0, "kit_screen_event.kind"), true);
    Room.view.setInt32(at + 4, Pass.int(from.x ?? 0, "kit_screen_event.x"), true);
    Room.view.setInt32(at + 8, Pass.int(from.y ?? 0, "kit_screen_event.y"), true);
    Room.view.setInt32(at + 12, Pass.int(from.dx ?? 0, "kit_screen_event.dx"), true);
    Room.view.setInt32(at + 16, Pass.int(from.dy ?? 0, "kit_screen_event.dy"), true);
    Room.view.setInt32(at + 20, Pass.int(from.button ?? 0, "kit_screen_event.button"), true);
    Room.view.setInt32(at + 24, Pass.int(from.key ?? 0, "kit_screen_event.key"), true);
    Room.view.setUint32(at + 28, Pass.unsigned(from.modifiers ?? 0, "kit_screen_event.modifiers"), true);
    Room.view.setUint32(at + 32, Pass.text(from.text, "kit_screen_event.text"), true);
    Room.view.setInt32(at + 36, Pass.int(from.caret ?? 0, "kit_screen_event.caret"), true);
}

/** One change. The texts are borrowed until the next kit_screen_next() with this screen. */
export interface kit_change {
    /** a kit_change_kind */
    kind: number;
    /** of the node, or empty; borrowed; never null */
    id: Text;
    /** of the data ("days[2].on"), or empty; borrowed; never null */
    name: Text;
    /** JSON, "null" where there is none; borrowed; never null */
    value: Text;
}

function get_kit_change(at: number): kit_change {
    return {
        kind: Room.view.getInt32(at + 0, true),
        id: told(Room.view.getUint32(at + 4, true)),
        name: told(Room.view.getUint32(at + 8, true)),
        value: told(Room.view.getUint32(at + 12, true)),
    };
}

export const KIT_SCREEN_VERSION = "0.2.0";
/** nothing but that time has passed */
export const KIT_EVENT_TIME = 0;
/** the pointer is at x, y */
export const KIT_EVENT_MOVE = 1;
/** a button of it, or a finger, went down at x, y */
export const KIT_EVENT_PRESS = 2;
/** the button or finger went up at x, y; after a finger send LEAVE */
export const KIT_EVENT_RELEASE = 3;
/** nothing points at the screen; what is held has no effect */
export const KIT_EVENT_LEAVE = 4;
/** the wheel was turned at x, y by dx, dy */
export const KIT_EVENT_WHEEL = 5;
/** a key went down, or repeats */
export const KIT_EVENT_KEY = 6;
/** a text was typed, or its composition has ended */
export const KIT_EVENT_TEXT = 7;
/** an input method composes a text; an empty one when it stops */
export const KIT_EVENT_COMPOSE = 8;
/** the clipboard's text, which KIT_CHANGE_PASTE asked for */
export const KIT_EVENT_PASTE = 9;
/** the window lost the keyboard */
export const KIT_EVENT_BLUR = 10;
/** the window has the keyboard again */
export const KIT_EVENT_FOCUS = 11;
/** also that of the number pad */
export const KIT_KEY_ENTER = 1114112;
/** the next control; with shift the one before */
export const KIT_KEY_TAB = 1114113;
/** closes what is open, ends a drag */
export const KIT_KEY_ESCAPE = 1114114;
/** deletes to the left */
export const KIT_KEY_BACKSPACE = 1114115;
/** deletes to the right */
export const KIT_KEY_DELETE = 1114116;
/** an arrow */
export const KIT_KEY_LEFT = 1114117;
/** an arrow */
export const KIT_KEY_RIGHT = 1114118;
/** an arrow */
export const KIT_KEY_UP = 1114119;
/** an arrow */
export const KIT_KEY_DOWN = 1114120;
/** to the first, the lowest, the top */
export const KIT_KEY_HOME = 1114121;
/** to the last, the highest, the bottom */
export const KIT_KEY_END = 1114122;
/** a tenth of the range, or a page up */
export const KIT_KEY_PAGE_UP = 1114123;
/** a tenth of the range, or a page down */
export const KIT_KEY_PAGE_DOWN = 1114124;
/** a function key, for shortcuts */
export const KIT_KEY_F1 = 1114125;
/** the next one */
export const KIT_KEY_F2 = 1114126;
/** the next one */
export const KIT_KEY_F3 = 1114127;
/** the next one */
export const KIT_KEY_F4 = 1114128;
/** the next one */
export const KIT_KEY_F5 = 1114129;
/** the next one */
export const KIT_KEY_F6 = 1114130;
/** the next one */
export const KIT_KEY_F7 = 1114131;
/** the next one */
export const KIT_KEY_F8 = 1114132;
/** the next one */
export const KIT_KEY_F9 = 1114133;
/** the next one */
export const KIT_KEY_F10 = 1114134;
/** the next one */
export const KIT_KEY_F11 = 1114135;
/** the last one */
export const KIT_KEY_F12 = 1114136;
/** another case, backwards, selecting */
export const KIT_MOD_SHIFT = 1;
/** shortcuts, by words */
export const KIT_MOD_CONTROL = 2;
/** shortcuts */
export const KIT_MOD_ALT = 4;
/**
 * a control has a new value: with a name, that value of the data was
 * set; without one, the control with the id keeps what it had
 */
export const KIT_CHANGE_VALUE = 0;
/**
 * a button, a list item or a dropdown without items that has an id was
 * pressed, or its shortcut was; or Enter in a text field
 */
export const KIT_CHANGE_PRESS = 1;
/** a text for the clipboard */
export const KIT_CHANGE_COPY = 2;
/** a text field asks for the clipboard's text: send KIT_EVENT_PASTE */
export const KIT_CHANGE_PASTE = 3;
/** the effect that the scene names for the control ("sound") */
export const KIT_CHANGE_SOUND = 4;
/** over nothing that can be used */
export const KIT_POINTER_ARROW = 0;
/** over a control */
export const KIT_POINTER_HAND = 1;
/** over a text field */
export const KIT_POINTER_TEXT = 2;

/** The version of the library. A static string: never null, never freed. */
export function kit_screen_version(): string | null {
    const mark = Room.enter();
    try {
        const found = Room.wasm.kit_screen_version!();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Room.leave(mark);
    }
}

/**
 * Opens a scene file. Includes are files in its folder or below. Links are followed; a FIFO is not
 * waited for.
 *
 * @param data the data that the screen shows, a JSON object; borrowed; may be null, which is
 *     the file's "sample".
 * @param host borrowed; may be null; what it holds is kept until the screen is closed.
 * @returns the caller's, for kit_screen_close(); null, and the reason, when it is refused.
 */
export function kit_screen_open(path: Text, data: Text, host: Asked | null): kit_screen | null {
    const lender = host ? new Lender(host) : undefined;
    const mark = Room.enter();
    try {
        const host_at = lender === undefined ? 0 : lender.lay(Room.allot(36));
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_open!(
            Pass.text(path, "path"),
            Pass.text(data, "data"),
            host_at,
            why,
            why_length,
        );
        asked();
        if (found === 0) throw refusal(Room.textAt(why), "kit_screen_open failed");
        return Objects.made(found, kit_screen, "kit_screen_close", lender);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        lender?.settle();
        Room.leave(mark);
    }
}

/**
 * As kit_screen_open(), from memory. Includes come from the host.
 *
 * @param bytes borrowed, `length` of them; null is refused.
 * @param name what reasons begin with; borrowed; may be null, which is "scene".
 * @param data borrowed; may be null, which is the "sample".
 * @param host borrowed; may be null; what it holds is kept until the screen is closed.
 * @returns the caller's, for kit_screen_close(); null, and the reason, when it is refused.
 */
export function kit_screen_read(
    bytes: Text,
    name: Text,
    data: Text,
    host: Asked | null,
): kit_screen | null {
    const lender = host ? new Lender(host) : undefined;
    const mark = Room.enter();
    try {
        const [bytes_at, bytes_length] = Pass.data(bytes, "bytes");
        const host_at = lender === undefined ? 0 : lender.lay(Room.allot(36));
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_read!(
            bytes_at,
            bytes_length,
            Pass.text(name, "name"),
            Pass.text(data, "data"),
            host_at,
            why,
            why_length,
        );
        asked();
        if (found === 0) throw refusal(Room.textAt(why), "kit_screen_read failed");
        return Objects.made(found, kit_screen, "kit_screen_close", lender);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        lender?.settle();
        Room.leave(mark);
    }
}

/** Releases a screen; `screen` is taken. */
export function kit_screen_close(screen: kit_screen | null): void {
    Objects.take(screen, kit_screen, "screen");
}

/**
 * The size of the screen: what kit_screen_resize() set, else the "size" in its file, else what its
 *  root wants; 0 x 0 for null. `w` and `h` are written, in pixels, and may be null.
 */
export function kit_screen_size(screen: kit_screen | null, w: Out, h: Out): void {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const w_at = Pass.room(w, "w", 4);
        const h_at = Pass.room(h, "h", 4);
        Room.wasm.kit_screen_size!(screen_cell?.address ?? 0, w_at, h_at);
        if (w_at !== 0 && w) w.value = Room.view.getInt32(w_at, true);
        if (h_at !== 0 && h) h.value = Room.view.getInt32(h_at, true);
        asked();
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/** Lays the screen out anew in this size; either side is 1 to 32767 pixels. */
export function kit_screen_resize(screen: kit_screen | null, w: number, h: number): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_resize!(
            screen_cell?.address ?? 0,
            Pass.int(w, "w"),
            Pass.int(h, "h"),
            why,
            why_length,
        );
        asked();
        if (found !== 0) throw refusal(Room.textAt(why), "kit_screen_resize failed");
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Sets the value `name` ("battery", "now.temp", "days[2].name"; empty: all of the data) to the
 * JSON text `json`. Objects that are missing on the way there are made; an index one past the end
 * of a list appends to it.
 */
export function kit_screen_set(screen: kit_screen | null, name: Text, json: Text): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_set!(
            screen_cell?.address ?? 0,
            Pass.text(name, "name"),
            Pass.text(json, "json"),
            why,
            why_length,
        );
        asked();
        if (found !== 0) throw refusal(Room.textAt(why), "kit_screen_set failed");
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/** @returns the value `name` as JSON, borrowed until the next call; null when there is none. */
export function kit_screen_get(screen: kit_screen | null, name: Text): string | null {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_get!(
            screen_cell?.address ?? 0,
            Pass.text(name, "name"),
        );
        asked();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Adds the node `json` to the row, column or stack `parent`, before its child number `at`,
 *  counted from 0; a negative or larger number adds it at the end.
 */
export function kit_screen_add(
    screen: kit_screen | null,
    parent: Text,
    at: number,
    json: Text,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_add!(
            screen_cell?.address ?? 0,
            Pass.text(parent, "parent"),
            Pass.int(at, "at"),
            Pass.text(json, "json"),
            why,
            why_length,
        );
        asked();
        if (found !== 0) throw refusal(Room.textAt(why), "kit_screen_add failed");
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/** Removes the node `id`, and all below it, from the row, column or stack that it is in. */
export function kit_screen_remove(screen: kit_screen | null, id: Text): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_remove!(
            screen_cell?.address ?? 0,
            Pass.text(id, "id"),
            why,
            why_length,
        );
        asked();
        if (found !== 0) throw refusal(Room.textAt(why), "kit_screen_remove failed");
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Sets the key `key` ("text", "width", ...) of a node.
 *
 * @param id borrowed; may be null, which is the scene itself, whose "theme" and "face" can be
 *     set.
 * @param json borrowed; may be null, which removes the key.
 */
export function kit_screen_change(
    screen: kit_screen | null,
    id: Text,
    key: Text,
    json: Text,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const why = Room.allot(1024);
        Room.bytes[why] = 0;
        const why_length = 1024;
        const found = Room.wasm.kit_screen_change!(
            screen_cell?.address ?? 0,
            Pass.text(id, "id"),
            Pass.text(key, "key"),
            Pass.text(json, "json"),
            why,
            why_length,
        );
        asked();
        if (found !== 0) throw refusal(Room.textAt(why), "kit_screen_change failed");
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Draws what has changed since the last call, and everything on the first one. The canvas must
 * still show what was drawn before; where it does not, say so by kit_screen_expose().
 *
 * @param dirty written: the smallest rectangle that holds all that was drawn, empty when
 *     nothing had to be; may be null. Outside it no pixel changes.
 * @returns 0; -1 for null, and when memory runs out; the next call then draws it again.
 */
export function kit_screen_draw(
    screen: kit_screen | null,
    canvas: orvel_canvas | null,
    dirty: Partial<kit_box> | null,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const dirty_at = Pass.room(dirty, "dirty", 16);
        const found = Room.wasm.kit_screen_draw!(
            screen_cell?.address ?? 0,
            Objects.object(canvas, orvel_canvas, "canvas"),
            dirty_at,
        );
        if (dirty_at !== 0 && dirty) Object.assign(dirty, get_kit_box(dirty_at));
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/** Makes the next kit_screen_draw() draw a box again; `box` may be null, which is everything. */
export function kit_screen_expose(screen: kit_screen | null, box: Given<kit_box> | null): void {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        Room.wasm.kit_screen_expose!(screen_cell?.address ?? 0, Pass.given(box, 16, put_kit_box));
        asked();
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Hands an event to the screen.
 *
 * @param event borrowed; null is refused.
 * @param now_ms in milliseconds.
 * @returns 0; -1 for null, an unknown kind, and when memory runs out; the event then had no
 *     effect at all.
 */
export function kit_screen_send(
    screen: kit_screen | null,
    event: Given<kit_screen_event> | null,
    now_ms: number,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_send!(
            screen_cell?.address ?? 0,
            Pass.given(event, 56, put_kit_screen_event),
            Pass.wide(now_ms, "now_ms") as unknown as number,
        );
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Takes the next change out, the oldest first. Values of the same name that follow each other, and
 * that nobody has taken out yet, are one change, with the last of them. 4096 changes are kept;
 * beyond that the oldest are dropped.
 *
 * @param change written; null is refused.
 * @returns 1 when there was one, 0 when there was none; -1 for null.
 */
export function kit_screen_next(
    screen: kit_screen | null,
    change: Partial<kit_change> | null,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const change_at = Pass.room(change, "change", 32);
        const found = Room.wasm.kit_screen_next!(screen_cell?.address ?? 0, change_at);
        if (change_at !== 0 && change) Object.assign(change, get_kit_change(change_at));
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * How long it is until something happens by itself: a stepper repeats, a tooltip shows. A host
 * waits for its events no longer than that, and then sends KIT_EVENT_TIME.
 *
 * @param now_ms in milliseconds.
 * @returns in milliseconds from now, 0 when it is due; -1 when nothing will happen, and for
 *     null.
 */
export function kit_screen_wait(screen: kit_screen | null, now_ms: number): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_wait!(
            screen_cell?.address ?? 0,
            Pass.wide(now_ms, "now_ms") as unknown as number,
        );
        asked();
        return Number(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Gives the keyboard to the first node with this id ("target", in a repetition "day[2]"), which is
 * scrolled into view.
 *
 * @param id borrowed; may be null or empty, which gives it to none.
 * @returns 0; -1 when no node with that id can be used, and when memory runs out.
 */
export function kit_screen_focus(screen: kit_screen | null, id: Text): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_focus!(screen_cell?.address ?? 0, Pass.text(id, "id"));
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * The box of the caret in the text field that has the keyboard, for the window of an input method.
 *
 * @param box written; null is refused.
 * @returns 0; -1 when no text field has the keyboard, and for null.
 */
export function kit_screen_caret(screen: kit_screen | null, box: Partial<kit_box> | null): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const box_at = Pass.room(box, "box", 16);
        const found = Room.wasm.kit_screen_caret!(screen_cell?.address ?? 0, box_at);
        if (box_at !== 0 && box) Object.assign(box, get_kit_box(box_at));
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/** @returns the kit_pointer to show where the pointer is; the arrow for null. */
export function kit_screen_pointer(screen: kit_screen | null): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_pointer!(screen_cell?.address ?? 0);
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * Describes the screen in words. There is one line for each node that shows, in the order in which
 * they are drawn, each below its parent and indented by two spaces more: ROLE, then those of
 * "NAME", =VALUE, states and #ID that the node has, and last its box, X,Y WxH. The same screen
 * gives the same lines, everywhere and in every version with the same first number.
 *
 *     row 0,0 800x44
 *       icon "home" 20,8 28x28
 *       slider =21 focus #target 20,60 228x14
 *
 * @returns borrowed until the next call; null for null and when memory runs out.
 */
export function kit_screen_describe(screen: kit_screen | null): string | null {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_describe!(screen_cell?.address ?? 0);
        asked();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * What a careful look would find wrong, in one line each, "FILE:LINE:COLUMN: PATH: KIND: ...":
 *  - overflow: a node lies partly or wholly outside its parent, and is cut;
 *  - cut: words, a picture, an icon, a circle or the legend of a chart do not fit in their box;
 *  - missing: characters that the face lacks;
 *  - contrast: words that stand out too little from their ground (WCAG 2.2, 1.4.3);
 *  - target: a control that can be used, having an id or a value of the data, with a side below 24
 *    pixels (WCAG 2.2, 2.5.8) that the kit by itself would not make so small;
 *  - range: a number outside its range; a "selected" or "show" other than -1 of what is not there;
 *  - id: an id that another node of the same file has too;
 *  - name: a name, in a condition or with a fallback, that neither the data nor the sample has;
 *  - key: a shortcut that another control has too; it belongs to the first one;
 *  - unknown: a picture or an image that does not exist.
 *
 * @returns borrowed until the next call, empty when nothing is found; null for null and when
 *     memory runs out.
 */
export function kit_screen_report(screen: kit_screen | null): string | null {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_report!(screen_cell?.address ?? 0);
        asked();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * As kit_screen_report(), but for the screen on a panel: contrast is that of the nearest colours
 * that the panel has, and words in a colour that it would have to mix from dots are told too.
 *
 * @param panel borrowed, plane and turns without effect; may be null, which has every colour.
 * @returns borrowed until the next call; null for null, for an invalid format, and when memory
 *     runs out.
 */
export function kit_screen_report_on(
    screen: kit_screen | null,
    panel: Given<kit_format> | null,
): string | null {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const found = Room.wasm.kit_screen_report_on!(
            screen_cell?.address ?? 0,
            Pass.given(panel, 44, put_kit_format),
        );
        asked();
        return told(found);
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

/**
 * The box of the first node with this id ("target", in a repetition "day[2]"), as it lies on the
 * screen, cut to what shows of it.
 *
 * @param box written; null is refused.
 * @returns 0; -1 when there is none, or no part of it shows.
 */
export function kit_screen_box(
    screen: kit_screen | null,
    id: Text,
    box: Partial<kit_box> | null,
): number {
    const mark = Room.enter();
    let screen_cell: Cell | undefined;
    try {
        screen_cell = Objects.use(screen, kit_screen, "screen");
        const box_at = Pass.room(box, "box", 16);
        const found = Room.wasm.kit_screen_box!(
            screen_cell?.address ?? 0,
            Pass.text(id, "id"),
            box_at,
        );
        if (box_at !== 0 && box) Object.assign(box, get_kit_box(box_at));
        asked();
        return found;
    } catch (reason) {
        throw Room.refused(reason);
    } finally {
        Objects.idle(screen_cell);
        Room.leave(mark);
    }
}

hostsLend({
    picture: orvel_canvas,
    face: kit_face,
    themeSize: 36,
    putTheme: (at, theme) => put_orvel_theme(at, theme),
});
