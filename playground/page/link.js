// What is shared by link: all of it, compressed, behind the #. Browsers send that part to nobody.

const MOST_BYTES = 4 << 20;

async function through(stream, bytes) {
    const made = new Blob([bytes]).stream().pipeThrough(stream);
    return new Uint8Array(await new Response(made).arrayBuffer());
}

/** The text of a link's end. */
export async function packLink(state) {
    const bytes = await through(
        new CompressionStream("deflate-raw"),
        new TextEncoder().encode(JSON.stringify(state)),
    );
    let letters = "";
    for (const byte of bytes) letters += String.fromCharCode(byte);
    return `1${btoa(letters).replace(/\+/g, "-").replace(/\//g, "_").replace(/=+$/, "")}`;
}

/** What such a text holds: an object of texts; null where it is none. */
export async function unpackLink(text) {
    if (!/^1[\w-]+$/.test(text)) return null;
    try {
        const letters = atob(text.slice(1).replace(/-/g, "+").replace(/_/g, "/"));
        const bytes = Uint8Array.from(letters, (letter) => letter.charCodeAt(0));
        const stream = new Blob([bytes])
            .stream()
            .pipeThrough(new DecompressionStream("deflate-raw"));
        const state = JSON.parse(await limited(stream));
        return state && typeof state === "object" ? state : null;
    } catch {
        return null;
    }
}

async function limited(stream) {
    const parts = [];
    let size = 0;
    for (const reader = stream.getReader(); ;) {
        const { done, value } = await reader.read();
        if (done) return new Blob(parts).text();
        size += value.length;
        if (size > MOST_BYTES) throw new Error("the link holds too much");
        parts.push(value);
    }
}
