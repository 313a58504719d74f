// Objects of the library, and what holds them for as long as something needs them.

import { Freed, kindOf, OrvelError } from "./errors.js";
import { allocate, wasm } from "./memory.js";

/** What an object of the library needs for as long as it is there. */
export interface Kept {
    enter(): void;
    leave(): void;
    /** Writes what may have changed in JavaScript since. */
    sync?(): void;
}

/** An object of the library: released when it was freed and nothing needs it any more. */
export class Cell implements Kept {
    busy = false; // while the library calls JavaScript for it
    private users = 0;
    private free = false;

    /** Without @p release it is the library's own, and stays. */
    constructor(readonly address: number,
                readonly release: ((address: number) => void) | undefined,
                readonly kept: readonly Kept[]) {
        for (const each of kept) each.enter();
    }

    /** Whether something else needs it. */
    get needed(): boolean {
        return this.users > 0;
    }

    enter(): void {
        this.users++;
    }

    leave(): void {
        if (--this.users === 0 && this.free) this.end();
    }

    close(): void {
        this.free = true;
        if (this.users === 0) this.end();
    }

    sync(): void {
        for (const each of this.kept) each.sync?.();
    }

    private end(): void {
        this.release?.(this.address);
        for (const each of this.kept) each.leave();
    }
}

const forgotten = new FinalizationRegistry<Cell>((cell) => cell.close());

/** An object of the library, seen from JavaScript. */
export class Handle {
    /** @internal */
    cell: Cell | undefined;

    /** @internal */
    constructor(cell: Cell) {
        this.cell = cell;
        if (cell.release !== undefined) forgotten.register(this, cell, this);
    }

    /** Whether it can be used no more. */
    get freed(): boolean {
        return this.cell === undefined;
    }
}

type Kind<T extends Handle> = new (cell: Cell) => T;

function cellOf<T extends Handle>(value: T, kind: Kind<T>, what: string): Cell {
    if (!(value instanceof kind)) {
        throw new TypeError(`${what} is a ${kind.name}, not ${kindOf(value)}`);
    }
    if (value.cell === undefined) throw new Freed(`the ${kind.name} was freed before (${what})`);
    if (value.cell.busy) {
        throw new OrvelError("the function of a host must not call the screen that asks it");
    }
    return value.cell;
}

/** The address of an object; null is 0. */
export function object<T extends Handle>(value: T | null | undefined, kind: Kind<T>,
                                         what: string): number {
    if (value === null || value === undefined) return 0;
    const cell = cellOf(value, kind, what);
    if (cell.kept.length > 0) cell.sync();
    return cell.address;
}

/** What a new object shall keep. */
export function keep<T extends Handle>(value: T | null | undefined, kind: Kind<T>,
                                       what: string): Cell | undefined {
    return value === null || value === undefined ? undefined : cellOf(value, kind, what);
}

/** An object that the library made, null where it made none. */
export function made<T extends Handle>(address: number, kind: Kind<T>, free: string,
                                       ...kept: (Kept | undefined)[]): T | null {
    if (address === 0) return null;
    const release = (which: number): void => void wasm[free]!(which);
    return new kind(new Cell(address, release, kept.filter((each) => each !== undefined)));
}

const lentOut = new Map<number, Handle>();

/** An object of the library's own. */
export function lent<T extends Handle>(address: number, kind: Kind<T>): T | null {
    if (address === 0) return null;
    let found = lentOut.get(address);
    if (found === undefined) {
        found = new kind(new Cell(address, undefined, []));
        lentOut.set(address, found);
    }
    return found as T;
}

/** Frees an object, now or when nothing needs it any more; null and the library's own stay. */
export function take<T extends Handle>(value: T | null | undefined, kind: Kind<T>,
                                       what: string): void {
    if (value === null || value === undefined) return;
    const cell = cellOf(value, kind, what);
    if (cell.release === undefined) return;
    forgotten.unregister(value);
    value.cell = undefined;
    cell.close();
}

/** Refuses to give the library what something else needs. */
export function givable<T extends Handle>(value: T | null | undefined, kind: Kind<T>,
                                          what: string): void {
    if (value === null || value === undefined) return;
    if (cellOf(value, kind, what).needed) {
        throw new OrvelError(`${what} is still needed by another object`);
    }
}

/** Forgets what the library has released. */
export function gone(value: Handle | null | undefined): void {
    if (value?.cell?.release === undefined) return;
    forgotten.unregister(value);
    value.cell = undefined;
}

/** Begins a call of an object that may ask JavaScript meanwhile. */
export function use<T extends Handle>(value: T | null | undefined, kind: Kind<T>,
                                      what: string): Cell | undefined {
    const cell = keep(value, kind, what);
    if (cell !== undefined) cell.busy = true;
    return cell;
}

/** Ends it. */
export function idle(cell: Cell | undefined): void {
    if (cell !== undefined) cell.busy = false;
}

/** A record of JavaScript's that objects of the library look at for longer than a call. */
export class Shared implements Kept {
    private static readonly all = new WeakMap<object, Shared>();
    private users = 0;
    readonly address: number;

    private constructor(private readonly source: object, size: number,
                        private readonly write: (at: number, from: object) => void) {
        this.address = allocate(size);
    }

    /** That of a record, written anew. */
    static of<T extends object>(source: T | null | undefined, size: number,
                                write: (at: number, from: T) => void): Shared | undefined {
        if (source === null || source === undefined) return undefined;
        if (typeof source !== "object") throw new TypeError(`not a record but a ${typeof source}`);
        let found = Shared.all.get(source);
        if (found === undefined) {
            found = new Shared(source, size, write as (at: number, from: object) => void);
            try {
                found.sync();
            } catch (reason) {
                wasm.free!(found.address);
                throw reason;
            }
            Shared.all.set(source, found);
        } else {
            found.sync();
        }
        return found;
    }

    /** Ends it where nothing came to need it. */
    settle(): void {
        if (this.users > 0) return;
        Shared.all.delete(this.source);
        wasm.free!(this.address);
    }

    enter(): void {
        this.users++;
    }

    leave(): void {
        this.users--;
        this.settle();
    }

    sync(): void {
        this.write(this.address, this.source);
    }
}
