// Letters.

import * as api from "./api.js";
import { kindOf, OrvelError } from "./errors.js";
import { Owner } from "./owner.js";

/** The faces that the kit carries. */
export const FACES = ["sans 11", "sans 12", "sans 14", "sans 18", "sans 24", "sans 40", "bold 11",
                      "bold 12", "bold 14", "bold 18", "bold 24", "mono 12", "digits 64",
                      "digits 96"] as const;

/** A Face, or the name of one of the kit's. */
export type FaceLike = Face | (typeof FACES)[number] | (string & {});

/** Letters of one design in one size: `new Face("bold 18")`, or a font's by Face.read(). */
export class Face extends Owner<api.kit_face> {
    protected readonly what = "face";
    private readonly name: string;

    constructor(name: FaceLike & string);
    /** @internal */
    constructor(name: string, own: api.kit_face);
    constructor(name = "sans 12", own?: api.kit_face) {
        super();
        this.name = name;
        const found = own ?? api.kit_face_named(name);
        if (found === null) {
            throw new OrvelError(`there is no face "${name}"; there are ${FACES.join(", ")}`);
        }
        this.own = found;
    }

    /** A face as it is, or the one so called. */
    static of(value: FaceLike): Face {
        if (value instanceof Face) return value;
        if (typeof value === "string") return new Face(value);
        throw new TypeError(`a face is a Face or a name, not ${kindOf(value)}`);
    }

    /** Reads a bitmap font in the format BDF. */
    static read(font: string | Uint8Array): Face {
        return new Face("font", api.kit_face_read(font)!);
    }

    protected release(own: api.kit_face): void {
        api.kit_face_close(own);
    }

    /** A face that takes from the second one what this one lacks; at most 8 come together. */
    fallback(second: FaceLike): Face {
        const behind = Face.of(second);
        const found = api.kit_face_fallback(this.handle, behind.handle);
        if (found === null) throw new OrvelError("more than 8 faces cannot come together");
        return new Face(`${this.name} + ${behind.name}`, found);
    }

    /** Rows above the baseline's. */
    get ascent(): number {
        return api.kit_face_ascent(this.handle);
    }

    /** The baseline's row and those below. */
    get descent(): number {
        return api.kit_face_descent(this.handle);
    }

    /** From one baseline to the next. */
    get line(): number {
        return api.kit_face_line(this.handle);
    }

    /** The height of a capital letter. */
    get cap(): number {
        return api.kit_face_cap(this.handle);
    }

    /** Whether it has a letter, given as a text or by its number. */
    has(letter: string | number): boolean {
        const code = typeof letter === "string" ? letter.codePointAt(0) ?? 0 : letter;
        return api.kit_face_has(this.handle, code) === 1;
    }

    /** The width of a line in pixels. */
    width(text: string): number {
        return api.kit_text_width(this.handle, text);
    }

    /** How many characters of the text show as U+FFFD for want of a letter. */
    missing(text: string): number {
        return api.kit_text_missing(this.handle, text);
    }

    /** The width of so many characters of a line, the place of a caret there; as JavaScript counts
     *  them, in units of UTF-16. */
    xOf(text: string, characters: number): number {
        const start = new TextEncoder().encode(text.slice(0, Math.max(characters, 0)));
        return api.kit_text_x(this.handle, text, start.length);
    }

    /** How many characters of a line come before the place that is nearest to x. */
    at(text: string, x: number): number {
        const encoded = new TextEncoder().encode(text);
        const offset = api.kit_text_at(this.handle, text, x);
        return new TextDecoder().decode(encoded.subarray(0, offset)).length;
    }

    toString(): string {
        return `Face(${this.name})`;
    }
}

const named = new Map<string, api.kit_face>();

/** What to call with; none is the face of the library's choice. */
export function faceOf(face: FaceLike | null | undefined): api.kit_face | null {
    if (face === null || face === undefined) return null;
    if (typeof face !== "string") return Face.of(face).handle;
    let found = named.get(face);
    if (found === undefined) {
        found = new Face(face).handle;
        named.set(face, found);
    }
    return found;
}
