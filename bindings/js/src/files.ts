// Files in memory: what a name of the library leads to, where there is no disk.

import { bytes, textAt, textOf, view } from "./memory.js";

const READS = 0, ACCESS = 3, CREATES = 0o100, EMPTIES = 0o1000;
const NO_FILE = -44, NO_NUMBER = 8, BAD_ARGUMENT = 28; // as the C library counts them
const FIRST = 3; // after the standard streams
const NO_BYTES = new Uint8Array(0);

interface Open {
    name: string;
    data: Uint8Array;
    length: number;
    at: number;
    writes: boolean;
}

const held = new Map<string, Uint8Array>();
const open = new Map<number, Open>();
const lines: Record<number, string> = {};

/** "./a//b/../c" is "a/c". */
function plain(path: string): string {
    const parts: string[] = [];
    for (const part of path.split("/")) {
        if (part === "..") parts.pop();
        else if (part !== "" && part !== ".") parts.push(part);
    }
    return parts.join("/");
}

/** The files that the library can open by their names, which are paths below one root. */
export const files = {
    /** Puts a file there; the bytes are copied. */
    set(path: string, data: Uint8Array | string): void {
        held.set(plain(path), typeof data === "string" ? new TextEncoder().encode(data)
                                                       : Uint8Array.from(data));
    },
    /** The bytes of a file; undefined where there is none. */
    get(path: string): Uint8Array | undefined {
        return held.get(plain(path))?.slice();
    },
    /** Removes a file; returns whether there was one. */
    delete(path: string): boolean {
        return held.delete(plain(path));
    },
    /** The paths of all files. */
    names(): string[] {
        return [...held.keys()].sort();
    },
};

let say = (line: string): void => {
    const { process } = globalThis as { process?: { stderr?: { write?(text: string): void } } };
    if (process?.stderr?.write) process.stderr.write(`${line}\n`);
    else console.debug(line);
};

/** Has what the library writes to the standard streams said by this function, line by line. */
export function setLog(log: (line: string) => void): void {
    if (typeof log !== "function") throw new TypeError("what says lines is a function");
    say = log;
}

function write(stream: number, text: string): void {
    const parts = ((lines[stream] ?? "") + text).split("\n");
    lines[stream] = parts.pop()!;
    for (const line of parts) say(line);
}

function opened(address: number, flags: number): number {
    const name = plain(textAt(address));
    const writes = (flags & ACCESS) !== READS;
    const data = held.get(name);
    if (data === undefined && (flags & CREATES) === 0) return NO_FILE;
    const empty = data === undefined || (flags & EMPTIES) !== 0;
    let number = FIRST;
    while (open.has(number)) number++;
    if (writes && empty) held.set(name, NO_BYTES);
    open.set(number, { name, data: empty ? NO_BYTES : data, length: empty ? 0 : data.length, at: 0,
                       writes });
    return number;
}

function append(file: Open, part: Uint8Array): void {
    const end = file.at + part.length;
    if (end > file.data.length || file.data === held.get(file.name)) {
        const larger = new Uint8Array(Math.max(end, 2 * file.data.length, 4096));
        larger.set(file.data.subarray(0, file.length));
        file.data = larger;
    }
    file.data.set(part, file.at);
    file.at = end;
    file.length = Math.max(file.length, end);
}

/** Calls @p each with the parts of memory that a list of places and lengths tells. */
function parts(list: number, count: number, each: (address: number, length: number) => number) {
    let all = 0;
    for (let i = 0; i < count; i++) {
        all += each(view.getUint32(list + 8 * i, true), view.getUint32(list + 8 * i + 4, true));
    }
    return all;
}

function fd_write(number: number, list: number, count: number, written: number): number {
    const file = open.get(number);
    if (file === undefined && number >= FIRST) return NO_NUMBER;
    view.setUint32(written, parts(list, count, (address, length) => {
        if (file === undefined) write(number, textOf(address, length));
        else append(file, bytes.slice(address, address + length));
        return length;
    }), true);
    return 0;
}

function fd_read(number: number, list: number, count: number, read: number): number {
    const file = open.get(number);
    if (file === undefined) return NO_NUMBER;
    view.setUint32(read, parts(list, count, (address, length) => {
        const part = file.data.subarray(file.at, Math.min(file.at + length, file.length));
        bytes.set(part, address);
        file.at += part.length;
        return part.length;
    }), true);
    return 0;
}

/** The place is given in two halves. */
function fd_seek(number: number, low: number, high: number, from: number, to: number): number {
    const file = open.get(number);
    if (file === undefined) return NO_NUMBER;
    const base = [0, file.at, file.length][from];
    const at = (base ?? NaN) + high * 2 ** 32 + (low >>> 0);
    if (!(at >= 0 && at < 2 ** 31)) return BAD_ARGUMENT;
    file.at = at;
    view.setBigInt64(to, BigInt(at), true);
    return 0;
}

function fd_close(number: number): number {
    const file = open.get(number);
    if (file === undefined) return NO_NUMBER;
    if (file.writes) held.set(file.name, file.data.slice(0, file.length));
    open.delete(number);
    return 0;
}

function nothing(count: number, size: number): number {
    view.setUint32(count, 0, true);
    view.setUint32(size, 0, true);
    return 0;
}

/** What the module imports. */
export const fileCalls = {
    env: { orvel_js_open: opened },
    wasi: {
        fd_write, fd_read, fd_seek, fd_close,
        environ_sizes_get: nothing,
        environ_get: () => 0,
        proc_exit: (status: number): never => {
            throw new WebAssembly.RuntimeError(`the library ended with status ${status}`);
        },
    },
};
