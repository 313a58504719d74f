// What callers pass, checked before it becomes a number or bytes of C.

import { kindOf } from "./errors.js";
import type { Handle } from "./objects.js";
import { allot, allotText, bytes, view } from "./memory.js";

/** UTF-8 where it is bytes; null where C has a null. */
export type Text = string | Uint8Array | null | undefined;
/** Room for a number that the call writes; null where it is not wanted. */
export type Out = { value: number } | null | undefined;
/** Several numbers with fractions. */
export type Reals = ArrayLike<number> | null | undefined;
/** Memory that the call writes. */
export type Memory = Uint8Array | Uint8ClampedArray | null | undefined;
/** A record with some of its fields; those that lack are 0. */
export type Given<T> = T extends object
    ? T extends Uint8Array | ArrayLike<number> | Handle ? T
    : T extends readonly (infer Item)[] ? readonly Given<Item>[]
    : { readonly [Field in keyof T]?: Given<T[Field]> | undefined } : T;

function notWhole(value: unknown, what: string, range: string): never {
    if (typeof value !== "number") {
        throw new TypeError(`${what} is a whole number, not ${kindOf(value)}`);
    }
    throw new RangeError(`${what} is ${value}, not a whole number ${range}`);
}

/** An int of C. */
export function int(value: number, what: string): number {
    if ((value | 0) !== value) notWhole(value, what, "of 32 bits");
    return value;
}

/** An unsigned or a size_t of C. */
export function unsigned(value: number, what: string): number {
    if (value >>> 0 !== value) notWhole(value, what, "from 0 to 4294967295");
    return value;
}

/** A long long of C. */
export function wide(value: number, what: string): bigint {
    if (!Number.isSafeInteger(value)) notWhole(value, what, "of 53 bits");
    return BigInt(value);
}

/** A double of C; NaN and infinities are numbers, too. */
export function real(value: number, what: string): number {
    if (typeof value !== "number") {
        throw new TypeError(`${what} is a number, not ${kindOf(value)}`);
    }
    return value;
}

/** The address of a text of C; null is 0. */
export function text(value: Text, what: string): number {
    if (value === null || value === undefined) return 0;
    if (typeof value === "string") {
        if (value.includes("\0")) noEnd(what);
    } else if (!(value instanceof Uint8Array)) {
        throw new TypeError(`${what} is a text, not ${kindOf(value)}`);
    } else if (value.includes(0)) {
        noEnd(what);
    }
    return allotText(value);
}

function noEnd(what: string): never {
    throw new RangeError(`${what} has a NUL in it, where a text of C would end`);
}

/** Bytes that the call reads: their address, and how many. */
export function data(value: Text, what: string): [number, number] {
    if (value === null || value === undefined) return [0, 0];
    const all = typeof value === "string" ? new TextEncoder().encode(value) : value;
    if (!(all instanceof Uint8Array)) {
        throw new TypeError(`${what} is a text or bytes, not ${kindOf(value)}`);
    }
    const address = allot(all.length);
    bytes.set(all, address);
    return [address, all.length];
}

/** Numbers that the call reads: their address, and how many. */
export function reals(values: Reals, what: string): [number, number] {
    if (values === null || values === undefined) return [0, 0];
    if (typeof values !== "object" || typeof values.length !== "number") {
        throw new TypeError(`${what} are several numbers, not ${kindOf(values)}`);
    }
    const count = values.length;
    const address = allot(8 * count);
    for (let i = 0; i < count; i++) view.setFloat64(address + 8 * i, real(values[i]!, what), true);
    return [address, count];
}

/** Records that the call reads: their address, and how many. */
export function records<T>(values: readonly T[] | null | undefined, what: string, size: number,
                           write: (at: number, from: T) => void): [number, number] {
    if (values === null || values === undefined) return [0, 0];
    if (!Array.isArray(values)) {
        throw new TypeError(`${what} is a list, not ${kindOf(values)}`);
    }
    const address = allot(size * values.length);
    values.forEach((value, i) => write(address + size * i, value));
    return [address, values.length];
}

/** A record with the same names. */
export function record(value: unknown, what: string): void {
    if (value === null || typeof value !== "object") {
        throw new TypeError(`${what} is a record, not ${kindOf(value)}`);
    }
}

/** The address of a record for this call; null is 0. */
export function given<T>(value: T | null | undefined, size: number,
                         write: (at: number, from: T) => void): number {
    if (value === null || value === undefined) return 0;
    const address = allot(size);
    write(address, value);
    return address;
}

/** The address of a record that is passed by value. */
export function value<T>(from: T, size: number, write: (at: number, from: T) => void): number {
    const address = allot(size);
    write(address, from);
    return address;
}

/** Room for what the call writes; null is 0. */
export function room(value: unknown, what: string, size: number): number {
    if (value === null || value === undefined) return 0;
    if (typeof value !== "object") {
        throw new TypeError(`${what} is an object to write to, not ${kindOf(value)}`);
    }
    const address = allot(size);
    bytes.fill(0, address, address + size);
    return address;
}

/** Memory that the call writes: its address here, and how many bytes. It brings what it has. */
export function memory(value: Memory, what: string): [number, number] {
    if (value === null || value === undefined) return [0, 0];
    if (!(value instanceof Uint8Array || value instanceof Uint8ClampedArray)) {
        throw new TypeError(`${what} is memory of bytes, not ${kindOf(value)}`);
    }
    const address = allot(value.length);
    bytes.set(value, address);
    return [address, value.length];
}
