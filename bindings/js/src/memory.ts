// The module of WebAssembly: its start, its memory, and the room for the arguments of a call.

import { OrvelError, OutOfMemory } from "./errors.js";

type Call = (...given: number[]) => number;

/** What the module exports; those that take 64 bits want a bigint. */
export let wasm: Record<string, Call>;

/** The memory; both change when it grows, so nobody keeps them over a call. */
export let bytes: Uint8Array;
export let view: DataView;

/** Starts the module with what it imports beside the memory's own. */
export function start(module: WebAssembly.Module, imports: WebAssembly.Imports): void {
    const look = (): void => {
        const { buffer } = wasm.memory as unknown as WebAssembly.Memory;
        bytes = new Uint8Array(buffer);
        view = new DataView(buffer);
    };
    const env = { ...imports.env, emscripten_notify_memory_growth: look };
    const { exports } = new WebAssembly.Instance(module, { ...imports, env });
    wasm = exports as Record<string, Call>;
    look();
    wasm._initialize!();
    room = allocate(ROOM);
    stack = wasm.stackSave!();
}

// ---- Room for the length of a call: a stack of blocks, and what does not fit there.

const ROOM = 1 << 16;
let room = 0;
const large: { address: number; depth: number }[] = [];
let top = 0;
let depth = 0;
let stack = 0; // where the stack of the outermost call begins

/** Begins a call; what it returns is for leave(). */
export function enter(): number {
    depth++;
    return top;
}

/** Ends a call, and with it all that was allotted in it. */
export function leave(mark: number): void {
    while (large.length > 0 && large[large.length - 1]!.depth === depth) {
        wasm.free!(large.pop()!.address);
    }
    top = mark;
    depth--;
}

/** Room for so many bytes, on a place for any number. */
export function allot(size: number): number {
    const rounded = (size + 7) & ~7;
    if (size <= ROOM && top + rounded <= ROOM) {
        top += rounded;
        return room + top - rounded;
    }
    const address = allocate(size);
    large.push({ address, depth });
    return address;
}

/** Room to be given back by wasm.free(). */
export function allocate(size: number): number {
    const address = size < 2 ** 31 ? wasm.malloc!(size) >>> 0 : 0;
    if (address === 0) throw new OutOfMemory(`out of memory, for ${size} bytes`);
    return address;
}

/** Runs what the library calls in JavaScript; what it throws may not pass through the library. */
export function outside<T>(run: () => T, otherwise: T, failed: (reason: unknown) => void): T {
    const before = stack;
    stack = wasm.stackSave!();
    try {
        return run();
    } catch (reason) {
        failed(reason);
        return otherwise;
    } finally {
        stack = before;
    }
}

/** What to throw for what came out of a call. */
export function refused(reason: unknown): unknown {
    const { Exception } = WebAssembly as unknown as { Exception?: new () => object };
    if (Exception !== undefined && reason instanceof Exception) {
        wasm.stackRestore!(stack);
        return new OutOfMemory("out of memory");
    }
    if (reason instanceof WebAssembly.RuntimeError) {
        wasm.stackRestore!(stack);
        return new OrvelError(`the call went too deep or too far: ${reason.message}`);
    }
    if (reason instanceof RangeError && /call stack/i.test(reason.message)) {
        wasm.stackRestore!(stack);
    }
    return reason;
}

// ---- Texts

const encoder = new TextEncoder();
const decoder = new TextDecoder("utf-8", { ignoreBOM: true });

/** Lays a text into the room for this call, with a zero behind it; ill-formed parts are U+FFFD. */
export function allotText(text: string | Uint8Array): number {
    if (typeof text !== "string") {
        const address = allot(text.length + 1);
        bytes.set(text, address);
        bytes[address + text.length] = 0;
        return address;
    }
    const most = 3 * text.length;
    if (most < 2048) {
        const address = allot(most + 1);
        const { written } = encoder.encodeInto(text, bytes.subarray(address, address + most));
        bytes[address + written] = 0;
        return address;
    }
    return allotText(encoder.encode(text));
}

/** The text that ends at the first zero. */
export function textAt(address: number): string {
    return textOf(address, bytes.indexOf(0, address) - address);
}

/** The text of so many bytes. */
export function textOf(address: number, length: number): string {
    return decoder.decode(bytes.subarray(address, address + length));
}
