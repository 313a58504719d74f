// PNG files: written as they come out, read in all forms of up to 8 bits a channel.

import { unzlibSync, zlibSync } from "fflate";
import { OrvelError } from "./errors.js";

/** Red, green, blue and alpha of every pixel, rows top first. */
export interface Pixels {
    width: number;
    height: number;
    rgba: Uint8Array;
}

export const MOST_PIXELS = 64 << 20;
const SIGNATURE = [0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a];
const CHANNELS: Record<number, number> = { 0: 1, 2: 3, 3: 1, 4: 2, 6: 4 }; // by the colour type
const DEPTHS: Record<number, number[]> = { 0: [1, 2, 4, 8], 2: [8], 3: [1, 2, 4, 8], 4: [8],
                                           6: [8] };
const ADAM7 = [[0, 0, 8, 8], [4, 0, 8, 8], [0, 4, 4, 8], [2, 0, 4, 4], [0, 2, 2, 4], [1, 0, 2, 2],
               [0, 1, 1, 2]] as const;
const CRC = Int32Array.from({ length: 256 }, (_, byte) => {
    let value = byte;
    for (let bit = 0; bit < 8; bit++) value = value & 1 ? value >>> 1 ^ 0xedb88320 : value >>> 1;
    return value;
});

function crc(data: Uint8Array): number {
    let value = -1;
    for (let i = 0; i < data.length; i++) value = CRC[(value ^ data[i]!) & 255]! ^ value >>> 8;
    return ~value >>> 0;
}

function chunk(kind: string, data: Uint8Array): Uint8Array {
    const out = new Uint8Array(data.length + 12);
    const view = new DataView(out.buffer);
    view.setUint32(0, data.length);
    for (let i = 0; i < 4; i++) out[4 + i] = kind.charCodeAt(i);
    out.set(data, 8);
    view.setUint32(out.length - 4, crc(out.subarray(4, out.length - 4)));
    return out;
}

/** A file of RGBA from rows that each begin with a byte 0, the filter that changes nothing. */
export function encode(width: number, height: number, rows: Uint8Array, level: Level): Uint8Array {
    const header = new Uint8Array(13);
    const view = new DataView(header.buffer);
    view.setUint32(0, width);
    view.setUint32(4, height);
    header.set([8, 6], 8);
    const parts = [Uint8Array.from(SIGNATURE), chunk("IHDR", header),
                   chunk("IDAT", zlibSync(rows, { level })), chunk("IEND", new Uint8Array(0))];
    return joined(parts);
}

/** As zlib counts them. */
export type Level = 0 | 1 | 2 | 3 | 4 | 5 | 6 | 7 | 8 | 9;

function joined(parts: Uint8Array[]): Uint8Array {
    const out = new Uint8Array(parts.reduce((size, part) => size + part.length, 0));
    let at = 0;
    for (const part of parts) {
        out.set(part, at);
        at += part.length;
    }
    return out;
}

interface Header {
    width: number;
    height: number;
    depth: number;
    color: number;
    interlaced: boolean;
}

function headerOf(data: Uint8Array, most: number): Header {
    if (data.length !== 13) throw new OrvelError("a header of another length");
    const view = new DataView(data.buffer, data.byteOffset, 13);
    const [width, height] = [view.getUint32(0), view.getUint32(4)];
    const [depth, color, method, filters, interlace] = data.subarray(8) as unknown as
        [number, number, number, number, number];
    if (color in DEPTHS && depth === 16) {
        throw new OrvelError("16 bits a channel; only PNG files of up to 8 are read");
    }
    if (!DEPTHS[color]?.includes(depth) || method || filters || interlace > 1) {
        throw new OrvelError("a form that PNG does not have");
    }
    if (width < 1 || height < 1 || width >= 2 ** 31 || height >= 2 ** 31) {
        throw new OrvelError("a picture without pixels");
    }
    if (width * height > most) throw new OrvelError("too many pixels");
    return { width, height, depth, color, interlaced: interlace === 1 };
}

interface Contents {
    header: Header;
    palette: Uint8Array | undefined;
    clear: Uint8Array | undefined;
    packed: Uint8Array;
}

function* chunks(data: Uint8Array): Generator<[string, Uint8Array]> {
    const view = new DataView(data.buffer, data.byteOffset, data.length);
    for (let at = 8; at + 12 <= data.length;) {
        const end = at + 8 + view.getUint32(at);
        if (end + 4 > data.length) break;
        const kind = String.fromCharCode(...data.subarray(at + 4, at + 8));
        if (crc(data.subarray(at + 4, end)) !== view.getUint32(end)) {
            throw new OrvelError(`the chunk ${kind} is damaged`);
        }
        yield [kind, data.subarray(at + 8, end)];
        if (kind === "IEND") return;
        at = end + 4;
    }
    throw new OrvelError("the file ends too early");
}

function contentsOf(data: Uint8Array, most: number): Contents {
    if (!SIGNATURE.every((byte, i) => data[i] === byte)) throw new OrvelError("not a PNG file");
    let header: Header | undefined, palette: Uint8Array | undefined, clear: Uint8Array | undefined;
    const parts: Uint8Array[] = [];
    for (const [kind, content] of chunks(data)) {
        if (kind === "IHDR" && header === undefined) header = headerOf(content, most);
        else if (header === undefined) throw new OrvelError("a file without a header");
        else if (kind === "acTL" && parts.length === 0) {
            throw new OrvelError("an animation; only still pictures are read");
        } else if (kind === "PLTE") palette = content;
        else if (kind === "tRNS") clear = content;
        else if (kind === "IDAT") parts.push(content);
        else if (/^[A-Z]/.test(kind) && kind !== "IEND") {
            throw new OrvelError(`a chunk ${kind} that is not known`);
        }
    }
    if (header === undefined) throw new OrvelError("a file without a header");
    return { header, palette, clear, packed: joined(parts) };
}

function undo(kind: number, row: Uint8Array, above: Uint8Array, step: number): void {
    if (kind > 4) throw new OrvelError("a filter that PNG does not have");
    for (let i = 0; i < row.length; i++) {
        const a = i >= step ? row[i - step]! : 0, b = above[i]!;
        const c = i >= step ? above[i - step]! : 0;
        if (kind === 1) row[i]! += a;
        else if (kind === 2) row[i]! += b;
        else if (kind === 3) row[i]! += a + b >> 1;
        else if (kind === 4) {
            const fromA = Math.abs(b - c), fromB = Math.abs(a - c), fromC = Math.abs(a + b - 2 * c);
            row[i]! += fromA <= fromB && fromA <= fromC ? a : fromB <= fromC ? b : c;
        }
    }
}

/** What the samples of a picture mean. */
function colorsOf({ header, palette, clear }: Contents) {
    const { color, depth } = header;
    if (color === 3 && (!palette || palette.length < 3 || palette.length % 3 > 0 ||
                        palette.length > 768)) {
        throw new OrvelError("a palette that PNG does not have");
    }
    const count = CHANNELS[color]!;
    const gone = clear && color !== 3 && color < 4 ? new DataView(clear.buffer, clear.byteOffset,
                                                                  clear.length) : undefined;
    if (gone && gone.byteLength !== 2 * count) {
        throw new OrvelError("a transparent colour that PNG does not have");
    }
    const scale = 255 / ((1 << depth) - 1);
    const mask = (1 << depth) - 1;
    return (row: Uint8Array, x: number, out: Uint8Array, to: number): void => {
        const sample = (channel: number): number => depth === 8 ? row[x * count + channel]!
            : row[x * depth >> 3]! >> 8 - depth - (x * depth & 7) & mask;
        const first = sample(0);
        if (color === 3) {
            if (3 * first >= palette!.length) {
                throw new OrvelError("a colour that is not in the palette");
            }
            for (let i = 0; i < 3; i++) out[to + i] = palette![3 * first + i]!;
            out[to + 3] = clear?.[first] ?? 255;
            return;
        }
        const rgb = color === 2 || color === 6;
        for (let i = 0; i < 3; i++) out[to + i] = (rgb ? sample(i) : first) * scale;
        let alpha = color >= 4 ? sample(count - 1) : 255;
        if (gone) {
            let same = true;
            for (let i = 0; i < count; i++) same &&= gone.getUint16(2 * i) === sample(i);
            if (same) alpha = 0;
        }
        out[to + 3] = alpha;
    };
}

function passesOf({ width, height, interlaced, depth, color }: Header) {
    return (interlaced ? ADAM7 : [[0, 0, 1, 1] as const]).map(([x, y, dx, dy]) => {
        const w = Math.ceil((width - x) / dx), h = Math.ceil((height - y) / dy);
        return { x, y, dx, dy, w, h, bytes: Math.ceil(w * depth * CHANNELS[color]! / 8) };
    }).filter(({ w, h }) => w > 0 && h > 0);
}

function inflated(packed: Uint8Array, size: number): Uint8Array {
    let found: Uint8Array;
    try {
        found = unzlibSync(packed, { out: new Uint8Array(size) });
    } catch (reason) {
        throw new OrvelError(`damaged: ${(reason as Error).message}`);
    }
    if (found.length < size) throw new OrvelError("the pixels end too early");
    return found;
}

/** Reads a still picture of up to 8 bits a channel; for others, throws OrvelError and says why. */
export function decode(data: Uint8Array, most = MOST_PIXELS): Pixels {
    const contents = contentsOf(data, most);
    const { width, height, depth, color } = contents.header;
    const passes = passesOf(contents.header);
    const size = passes.reduce((sum, { h, bytes }) => sum + h * (1 + bytes), 0);
    const all = inflated(contents.packed, size);
    const put = colorsOf(contents);
    const step = Math.max(1, CHANNELS[color]! * depth >> 3);
    const rgba = new Uint8Array(4 * width * height);
    let at = 0;
    for (const { x, y, dx, dy, w, h, bytes } of passes) {
        let above = new Uint8Array(bytes);
        for (let line = 0; line < h; line++, at += 1 + bytes) {
            const row = all.slice(at + 1, at + 1 + bytes);
            undo(all[at]!, row, above, step);
            const start = (y + line * dy) * width + x;
            for (let i = 0; i < w; i++) put(row, i, rgba, 4 * (start + i * dx));
            above = row;
        }
    }
    return { width, height, rgba };
}
