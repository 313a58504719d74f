// Moving pictures: PNG files of one size put together into one, by the chunks acTL, fcTL and fdAT
// of the format's third edition.

const SIGNATURE = Uint8Array.of(137, 80, 78, 71, 13, 10, 26, 10);
const table = Uint32Array.from({ length: 256 }, (_, n) => {
    for (let i = 0; i < 8; i++) n = n & 1 ? 0xedb88320 ^ (n >>> 1) : n >>> 1;
    return n;
});

function checksum(bytes) {
    let sum = 0xffffffff;
    for (const byte of bytes) sum = table[(sum ^ byte) & 255] ^ (sum >>> 8);
    return ~sum >>> 0;
}

function chunk(kind, ...parts) {
    const length = parts.reduce((sum, part) => sum + part.length, 0);
    const bytes = new Uint8Array(12 + length),
        view = new DataView(bytes.buffer);
    view.setUint32(0, length);
    bytes.set(new TextEncoder().encode(kind), 4);
    let at = 8;
    for (const part of parts) {
        bytes.set(part, at);
        at += part.length;
    }
    view.setUint32(at, checksum(bytes.subarray(4, at)));
    return bytes;
}

/** The chunks of a kind in a file. */
function chunksOf(file, kind) {
    const view = new DataView(file.buffer, file.byteOffset, file.length),
        found = [];
    for (let at = SIGNATURE.length; at + 12 <= file.length; at += 12 + view.getUint32(at)) {
        const name = new TextDecoder().decode(file.subarray(at + 4, at + 8));
        if (name === kind) found.push(file.subarray(at + 8, at + 8 + view.getUint32(at)));
    }
    return found;
}

function numbers(size, ...fields) {
    const bytes = new Uint8Array(size),
        view = new DataView(bytes.buffer);
    for (const [at, width, value] of fields) view[`setUint${8 * width}`](at, value);
    return bytes;
}

/** A file that shows each of the files for so many milliseconds, again and again. */
export function movingPng(files, { width, height }, milliseconds) {
    const parts = [
        SIGNATURE,
        chunk("IHDR", ...chunksOf(files[0], "IHDR")),
        chunk("acTL", numbers(8, [0, 4, files.length])),
    ];
    let number = 0;
    files.forEach((file, i) => {
        parts.push(
            chunk(
                "fcTL",
                numbers(
                    26,
                    [0, 4, number++],
                    [4, 4, width],
                    [8, 4, height],
                    [20, 2, milliseconds],
                    [22, 2, 1000],
                ),
            ),
        );
        for (const data of chunksOf(file, "IDAT")) {
            parts.push(
                i === 0 ? chunk("IDAT", data) : chunk("fdAT", numbers(4, [0, 4, number++]), data),
            );
        }
    });
    return new Blob([...parts, chunk("IEND")], { type: "image/png" });
}
