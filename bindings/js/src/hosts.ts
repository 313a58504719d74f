// What a screen asks its host for, on the way from the library to JavaScript and back.

import { kindOf } from "./errors.js";
import { allocate, bytes, outside, textAt, view, wasm } from "./memory.js";
import { Cell, Handle } from "./objects.js";
import type { Kept } from "./objects.js";

/** Functions that a screen asks for what it lacks; each returns null for a name that it does not
 *  know. They must not call the screen. */
export interface Asked {
    picture?: ((name: string) => Handle | null | undefined) | null;
    theme?: ((name: string) => object | null | undefined) | null;
    face?: ((name: string) => Handle | null | undefined) | null;
    include?: ((name: string) => string | Uint8Array | null | undefined) | null;
}

interface Kinds {
    picture: new (cell: Cell) => Handle;
    face: new (cell: Cell) => Handle;
    themeSize: number;
    putTheme(at: number, theme: object): void;
}

const FUNCTIONS = ["picture", "theme", "face", "include"] as const; // in the order of the record
const HOST_SIZE = 36;

let kinds: Kinds; // of the generated part
const lenders = new Map<number, Lender>();
let last = 0;
let failed: { reason: unknown } | undefined;

/** Tells which classes are pictures and faces, and how a theme is written. */
export function hostsLend(given: Kinds): void {
    kinds = given;
}

/** Throws what a function of a host threw during the call. */
export function asked(): void {
    if (failed === undefined) return;
    const { reason } = failed;
    failed = undefined;
    throw reason;
}

/** A host as the library knows it. Keeps what it lent for as long as the screen is there. */
export class Lender implements Kept {
    readonly number = ++last;
    private readonly held = new Set<Cell>();
    private readonly themes = new Map<object, number>();
    private text = 0;
    private used = false;

    constructor(private readonly host: Asked) {
        if (typeof host !== "object") {
            throw new TypeError(`a host is an object, not ${typeof host}`);
        }
        for (const name of FUNCTIONS) {
            const given = host[name];
            if (given !== undefined && given !== null && typeof given !== "function") {
                throw new TypeError(`a host's ${name} is a function, not ${kindOf(given)}`);
            }
        }
        lenders.set(this.number, this);
    }

    /** Writes the record of C to a place, with those functions that there are. */
    lay(at: number): number {
        const whole = wasm.orvel_js_host!();
        bytes.copyWithin(at, whole, whole + HOST_SIZE);
        view.setUint32(at, this.number, true);
        FUNCTIONS.forEach((name, i) => {
            if (!this.host[name]) view.setUint32(at + 4 * (i + 1), 0, true);
        });
        return at;
    }

    enter(): void {
        this.used = true;
    }

    /** Ends it where no screen came to need it. */
    settle(): void {
        if (!this.used) this.leave();
    }

    leave(): void {
        lenders.delete(this.number);
        for (const cell of this.held) cell.leave();
        for (const address of [...this.themes.values(), this.text]) wasm.free!(address);
    }

    object(what: "picture" | "face", name: string): number {
        const found = this.host[what]?.(name);
        if (found === null || found === undefined) return 0;
        if (!(found instanceof kinds[what])) {
            throw new TypeError(`a host's ${what} is a ${kinds[what].name} or null, ` +
                                `not ${kindOf(found)}`);
        }
        if (found.cell === undefined) return 0;
        if (!this.held.has(found.cell)) {
            this.held.add(found.cell);
            found.cell.enter();
        }
        return found.cell.address;
    }

    theme(name: string): number {
        const found = this.host.theme?.(name);
        if (found === null || found === undefined) return 0;
        const address = this.themes.get(found) ?? allocate(kinds.themeSize);
        this.themes.set(found, address);
        kinds.putTheme(address, found);
        return address;
    }

    include(name: string, length: number): number {
        const found = this.host.include?.(name);
        if (found === null || found === undefined) return 0;
        const data = typeof found === "string" ? new TextEncoder().encode(found) : found;
        if (!(data instanceof Uint8Array)) {
            throw new TypeError(`a host's include is a text, not ${kindOf(found)}`);
        }
        wasm.free!(this.text); // until the next one
        this.text = 0;
        this.text = allocate(data.length + 1);
        bytes.set(data, this.text);
        view.setUint32(length, data.length, true);
        return this.text;
    }
}

function ask(self: number, run: (lender: Lender) => number): number {
    return outside(() => run(lenders.get(self)!), 0, (reason) => {
        failed ??= { reason };
    });
}

/** What the module imports. */
export const hostCalls = {
    orvel_js_picture: (self: number, name: number) =>
        ask(self, (of) => of.object("picture", textAt(name))),
    orvel_js_face: (self: number, name: number) =>
        ask(self, (of) => of.object("face", textAt(name))),
    orvel_js_theme: (self: number, name: number) => ask(self, (of) => of.theme(textAt(name))),
    orvel_js_include: (self: number, name: number, length: number) =>
        ask(self, (of) => of.include(textAt(name), length)),
};
