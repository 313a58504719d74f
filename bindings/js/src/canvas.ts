// A picture in memory, and everything that is drawn on it.

import * as api from "./api.js";
import * as bmp from "./bmp.js";
import { boxOf } from "./boxes.js";
import type { Box, BoxLike } from "./boxes.js";
import { Color, Theme } from "./colors.js";
import type { ColorLike, ThemeLike } from "./colors.js";
import { kindOf, OrvelError, OutOfMemory } from "./errors.js";
import { faceOf } from "./faces.js";
import type { FaceLike } from "./faces.js";
import { files } from "./files.js";
import { formatOf, write } from "./formats.js";
import type { FormatName, FormatParts } from "./formats.js";
import { oneOf, optionsOf } from "./names.js";
import { Owner } from "./owner.js";
import * as png from "./png.js";
import { Chart, Widget } from "./widgets.js";
import type { ChartKind, ChartParts, Kind, SeriesLike, WidgetParts } from "./widgets.js";

const ALIGNS = { left: api.KIT_LEFT, center: api.KIT_CENTRE, right: api.KIT_RIGHT } as const;
const RGBA = formatOf("rgba");

export type Align = keyof typeof ALIGNS;
/** How words are drawn: the face is "sans 12" and the colour that of the theme's text else. */
export interface WordParts {
    face?: FaceLike | null;
    color?: ColorLike;
    align?: Align;
}
/** ImageData where the compiler knows browsers, and what it has of it elsewhere. */
export type BrowserPixels = typeof globalThis extends { ImageData: { prototype: infer Known } } ? Known
    : { readonly data: Uint8ClampedArray; readonly width: number; readonly height: number };
/** Where it has a theme of its own. */
export interface Themed {
    theme?: ThemeLike;
}

const themeOf = (parts: Themed): ThemeLike | undefined =>
    optionsOf(parts, ["theme"], "a canvas").theme;

/** A picture of so many pixels, opaque black or all of one colour.
 *
 *  What lies outside is dropped, and nothing is blended. A colour is "#rrggbb", three or four
 *  numbers, a Color, or a role of the canvas's theme such as "accent". */
export class Canvas extends Owner<api.orvel_canvas> {
    protected readonly what: string = "canvas";
    private colors: Theme;
    /** How many pixels lie side by side. */
    readonly width: number;
    /** How many pixels lie above each other. */
    readonly height: number;

    constructor(width: number, height: number, ground?: ColorLike | null, parts?: Themed);
    /** @internal */
    constructor(own: api.orvel_canvas, theme: Theme);
    constructor(first: number | api.orvel_canvas, second: number | Theme,
                ground?: ColorLike | null, parts: Themed = {}) {
        super();
        if (first instanceof api.orvel_canvas) {
            this.own = first;
            this.colors = second as Theme;
        } else {
            this.colors = Theme.of(themeOf(parts) ?? "dark");
            this.own = created(first, second as number);
        }
        this.width = api.orvel_canvas_width(this.own);
        this.height = api.orvel_canvas_height(this.own);
        if (ground !== undefined && ground !== null) this.clear(ground);
    }

    /** A canvas that shows red, green, blue and alpha of every pixel, rows top first. */
    static fromPixels(width: number, height: number, rgba: Uint8Array | Uint8ClampedArray,
                      parts: Themed = {}): Canvas {
        const canvas = new Canvas(width, height, null, parts);
        if (!ArrayBuffer.isView(rgba) || rgba.length !== 4 * width * height) {
            canvas.free();
            throw new RangeError(`${kindOf(rgba)} is not ${width} x ${height} pixels of 4 bytes`);
        }
        put(canvas.handle, width, height, rgba);
        return canvas;
    }

    /** A canvas that shows a PNG file of up to 8 bits a channel, or a BMP of the library's. */
    static read(file: Uint8Array, parts: Themed = {}): Canvas {
        if (!(file instanceof Uint8Array)) {
            throw new TypeError(`a picture's file is bytes, not ${kindOf(file)}`);
        }
        const { width, height, rgba } = (file[0] === 0x42 ? bmp : png).decode(file);
        return Canvas.fromPixels(width, height, rgba, parts);
    }

    protected release(own: api.orvel_canvas): void {
        api.orvel_canvas_destroy(own);
    }

    /** What is drawn in; it can be set to another Theme, or to a name. */
    get theme(): Theme {
        return this.colors;
    }

    set theme(theme: ThemeLike) {
        this.colors = Theme.of(theme);
    }

    /** Another canvas with the same pixels and theme. */
    copy(): Canvas {
        const other = new Canvas(this.width, this.height, null, { theme: this.theme });
        other.paste(this, 0, 0);
        return other;
    }

    private to(color: ColorLike): Color {
        return this.colors.color(color);
    }

    // ---- Shapes

    /** Makes every pixel this colour. */
    clear(color: ColorLike = "background"): void {
        api.orvel_canvas_clear(this.handle, this.to(color));
    }

    /** The pixel; all zero outside. */
    get(x: number, y: number): Color {
        return Color.of(api.orvel_canvas_pixel_get(this.handle, x, y));
    }

    /** Sets a pixel. */
    set(x: number, y: number, color: ColorLike = "text"): void {
        api.orvel_canvas_pixel(this.handle, x, y, this.to(color));
    }

    /** A line of single pixels, both ends included. */
    line(x0: number, y0: number, x1: number, y1: number, color: ColorLike = "text"): void {
        api.orvel_canvas_line(this.handle, x0, y0, x1, y1, this.to(color));
    }

    /** The outline of a box, one pixel thick, inside it. */
    rect(x: number, y: number, w: number, h: number, color: ColorLike = "text"): void {
        api.orvel_canvas_rect(this.handle, x, y, w, h, this.to(color));
    }

    /** A filled box. */
    fill(x: number, y: number, w: number, h: number, color: ColorLike = "text"): void {
        api.orvel_canvas_fill_rect(this.handle, x, y, w, h, this.to(color));
    }

    /** The outline of a circle. */
    circle(cx: number, cy: number, r: number, color: ColorLike = "text"): void {
        api.orvel_canvas_circle(this.handle, cx, cy, r, this.to(color));
    }

    /** A filled circle. */
    disc(cx: number, cy: number, r: number, color: ColorLike = "text"): void {
        api.orvel_canvas_fill_circle(this.handle, cx, cy, r, this.to(color));
    }

    /** A filled triangle. */
    triangle(x0: number, y0: number, x1: number, y1: number, x2: number, y2: number,
             color: ColorLike = "text"): void {
        api.orvel_canvas_fill_triangle(this.handle, x0, y0, x1, y1, x2, y2, this.to(color));
    }

    // ---- Words

    /** One line whose letters stand on the row baseline. Returns the x at which it ends. */
    text(text: string, x: number, baseline: number, parts: Omit<WordParts, "align"> = {}): number {
        const { face, color = "text" } = optionsOf(parts, ["face", "color"], "a line of words");
        return api.kit_text_draw(this.handle, faceOf(face), text, x, baseline, this.to(color));
    }

    /** One line in a box, with an ellipsis where it is too wide. Returns whether it was cut. */
    textBox(text: string, box: BoxLike, parts: WordParts = {}): boolean {
        return api.kit_text_box(this.handle, ...this.words(text, box, parts)) === 1;
    }

    /** A paragraph in a box, from its top. Returns the lines that all of it takes. */
    textWrap(text: string, box: BoxLike, parts: WordParts = {}): number {
        return api.kit_text_wrap(this.handle, ...this.words(text, box, parts));
    }

    private words(text: string, box: BoxLike, parts: WordParts) {
        const { face, align = "left", color = "text" } =
            optionsOf(parts, ["face", "align", "color"], "a text in a box");
        return [faceOf(face), text, boxOf(box), oneOf(align, ALIGNS, "alignment"),
                this.to(color)] as const;
    }

    /** The library's own 5 x 7 signs, which cannot be read; (x, y) is the top left corner. */
    signs(text: string, x: number, y: number, color: ColorLike = "text"): void {
        api.orvel_text_draw(this.handle, text, x, y, this.to(color));
    }

    // ---- Pictures

    /** A built-in icon, cut to its square. */
    icon(name: string, x: number, y: number, size: number, color: ColorLike = "text"): void {
        if (api.kit_icon(this.handle, name, x, y, size, this.to(color)) !== 0) {
            throw new OrvelError(api.orvel_icon_exists(name)
                ? `the icon "${name}" cannot be drawn ${size} pixels wide`
                : `there is no icon "${name}"; ICONS lists them`);
        }
    }

    /** The BMP file of the folder "Icons" of the resources, at its own size. */
    bitmap(name: string, x: number, y: number): void {
        if (api.kit_bitmap(this.handle, name, x, y) !== 0) {
            throw new OrvelError(`the bitmap "${name}" of the folder Icons cannot be drawn`);
        }
    }

    /** Copies another canvas, or a part of it, to (x, y); as a stamp, what has alpha above 0. */
    paste(other: Canvas, x: number, y: number,
          parts: { part?: BoxLike | null; stamp?: boolean } = {}): void {
        if (!(other instanceof Canvas)) {
            throw new TypeError(`what is pasted is a Canvas, not ${kindOf(other)}`);
        }
        const { part, stamp } = optionsOf(parts, ["part", "stamp"], "what is pasted");
        const call = stamp ? api.kit_stamp : api.kit_copy;
        if (call(this.handle, x, y, other.handle, part ? boxOf(part) : null) !== 0) {
            throw new OutOfMemory("the memory is too small to copy these pixels");
        }
    }

    /** Draws inside a box and nowhere else: @p draw gets a canvas that shows it, and the corner of
     *  the box, to be subtracted from coordinates. It is not called where nothing of the box is on
     *  the canvas. */
    clip(box: BoxLike, draw: (inside: Canvas, corner: { x: number; y: number }) => void): void {
        const cut = boxOf(box);
        const found = api.kit_clip_begin(this.handle, cut);
        if (found === null) {
            const { x, y, w, h } = boxOf(box);
            if (Math.min(x + w, this.width) > Math.max(x, 0) &&
                Math.min(y + h, this.height) > Math.max(y, 0)) {
                throw new OutOfMemory("the memory is too small for this part of the canvas");
            }
            return;
        }
        const inside = new Canvas(found, this.theme);
        try {
            draw(inside, { x: cut.x, y: cut.y });
            if (!inside.freed) this.paste(inside, cut.x, cut.y);
        } finally {
            inside.free();
        }
    }

    // ---- Widgets and charts

    /** Draws a Widget or a Chart, in this canvas's theme unless another one is given. */
    draw(what: Widget | Chart, theme?: ThemeLike): void {
        if (!(what instanceof Widget) && !(what instanceof Chart)) {
            throw new TypeError(`what is drawn is a Widget or a Chart, not ${kindOf(what)}`);
        }
        what.draw(this, theme);
    }

    /** Draws a widget at once; the parts are those of Widget. */
    widget(kind: Kind, x: number, y: number, w = 0, h = 0,
           { theme, ...parts }: WidgetParts & Themed = {}): void {
        new Widget(kind, x, y, w, h, parts).draw(this, theme);
    }

    /** Draws a chart at once; the parts are those of Chart. */
    chart(kind: ChartKind, series: readonly SeriesLike[], x: number, y: number, w: number,
          h: number, { theme, ...parts }: ChartParts & Themed = {}): void {
        new Chart(kind, series, x, y, w, h, parts).draw(this, theme);
    }

    // ---- Pixels out

    /** The pixels of a box, or all, as a file or panel wants them. */
    pixels(format: FormatName = "rgba",
           { box, ...parts }: FormatParts & { box?: BoxLike | null } = {}): Uint8Array {
        return write(this.handle, box ? boxOf(box) : this.all(), formatOf(format, parts));
    }

    private all(): Box {
        return { x: 0, y: 0, w: this.width, h: this.height };
    }

    /** The picture, or a box of it, for putImageData() of a browser's canvas. */
    imageData(box?: BoxLike): BrowserPixels {
        const part = box === undefined ? this.all() : boxOf(box);
        const pixels = write(this.handle, part, RGBA);
        const data = new Uint8ClampedArray(pixels.buffer as ArrayBuffer);
        if (typeof ImageData === "function") return new ImageData(data, part.w, part.h);
        return { data, width: part.w, height: part.h, colorSpace: "srgb" } as BrowserPixels;
    }

    /** A PNG file; the level, 0 to 9, is that of zlib. The bytes are the same everywhere. */
    png(level: png.Level = 6): Uint8Array {
        if (!(Number.isInteger(level) && level >= 0 && level <= 9)) {
            throw new RangeError(`the level of zlib is 0 to 9, not ${level}`);
        }
        const rows = write(this.handle, this.all(), RGBA, 1);
        return png.encode(this.width, this.height, rows, level);
    }

    /** A BMP file of 24 bits, or with alpha of 32, as the library writes them. */
    bmp(parts: { alpha?: boolean } = {}): Uint8Array {
        const { alpha } = optionsOf(parts, ["alpha"], "a BMP file");
        const call = alpha ? api.kit_save_bmp_rgba : api.kit_save_bmp;
        const failed = call(this.handle, BMP) !== 0;
        const found = files.get(BMP);
        files.delete(BMP);
        if (failed || found === undefined) throw new OutOfMemory("too little memory for the file");
        return found;
    }

    toString(): string {
        return `Canvas(${this.width} x ${this.height}${this.freed ? ", freed" : ""})`;
    }
}

const BMP = "/tmp/orvelsdk.bmp";

function created(width: number, height: number): api.orvel_canvas {
    if (width < 1 || height < 1) {
        throw new RangeError(`a canvas has at least one pixel, not ${width} x ${height}`);
    }
    const found = api.kit_canvas(width, height);
    if (found === null) throw new OutOfMemory("the memory is too small for the canvas");
    return found;
}

/** Fills each run of equal pixels. */
function put(canvas: api.orvel_canvas, width: number, height: number,
             rgba: Uint8Array | Uint8ClampedArray): void {
    const view = new DataView(rgba.buffer, rgba.byteOffset, rgba.length);
    for (let y = 0; y < height; y++) {
        for (let start = 0, end = 0; start < width; start = end) {
            const at = 4 * (y * width + start), pixel = view.getUint32(at);
            while (end < width && view.getUint32(4 * (y * width + end)) === pixel) end++;
            const color = { r: rgba[at]!, g: rgba[at + 1]!, b: rgba[at + 2]!, a: rgba[at + 3]! };
            api.orvel_canvas_fill_rect(canvas, start, y, end - start, 1, color);
        }
    }
}
