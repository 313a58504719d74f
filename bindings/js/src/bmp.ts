// The two forms of BMP file that the library writes.

import { OrvelError } from "./errors.js";
import { MOST_PIXELS } from "./png.js";
import type { Pixels } from "./png.js";

const HEADER = 54;
const LIBRARY_COMPRESSION = 255;

/** Throws OrvelError with the reason for any other file. */
export function decode(data: Uint8Array, most = MOST_PIXELS): Pixels {
    if (data.length < HEADER || data[0] !== 0x42 || data[1] !== 0x4d) {
        throw new OrvelError("not a BMP file");
    }
    const view = new DataView(data.buffer, data.byteOffset, data.length);
    const offset = view.getUint32(10, true);
    const width = view.getInt32(18, true), height = view.getInt32(22, true);
    const depth = view.getUint16(28, true), compression = view.getUint32(30, true);
    if (!(depth === 24 && compression === 0) &&
        !(depth === 32 && compression === LIBRARY_COMPRESSION)) {
        throw new OrvelError("neither of the two BMP forms that the library writes");
    }
    const rows = Math.abs(height), size = depth / 8;
    if (width < 1 || rows < 1) throw new OrvelError("a picture without pixels");
    const stride = Math.ceil(width * size / 4) * 4;
    if ((data.length - offset) / stride < rows) throw new OrvelError("the file ends too early");
    if (width * rows > most) throw new OrvelError("too many pixels");
    const rgba = new Uint8Array(4 * width * rows);
    for (let y = 0, to = 0; y < rows; y++) {
        let at = offset + (height < 0 ? y : rows - 1 - y) * stride;
        for (let x = 0; x < width; x++, at += size, to += 4) {
            rgba[to] = data[at + 2]!;
            rgba[to + 1] = data[at + 1]!;
            rgba[to + 2] = data[at]!;
            rgba[to + 3] = size === 4 ? data[at + 3]! : 255;
        }
    }
    return { width, height: rows, rgba };
}
