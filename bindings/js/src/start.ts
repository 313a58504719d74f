// Starts the module of WebAssembly, before anything else of the package runs.

import { inflateSync } from "fflate";
import { fileCalls } from "./files.js";
import { hostCalls } from "./hosts.js";
import { start } from "./memory.js";
import packed from "./orvelsdk.deflate";
import { soundCalls } from "./sounds.js";

interface Node {
    Buffer?: { from(text: string, encoding: "base64"): Uint8Array };
    process?: {
        getBuiltinModule?(name: "zlib"): { inflateRawSync(data: Uint8Array): Uint8Array };
    };
}

/** The bytes of the module. Node's own functions need a tenth of the time. */
function unpacked(text: string): Uint8Array {
    const { Buffer, process } = globalThis as Node;
    const zlib = process?.getBuiltinModule?.("zlib");
    if (zlib !== undefined && Buffer !== undefined) {
        return zlib.inflateRawSync(Buffer.from(text, "base64"));
    }
    const letters = atob(text);
    const bytes = new Uint8Array(letters.length);
    for (let i = 0; i < bytes.length; i++) bytes[i] = letters.charCodeAt(i);
    return inflateSync(bytes);
}

start(new WebAssembly.Module(unpacked(packed) as Uint8Array<ArrayBuffer>), {
    env: { ...fileCalls.env, ...hostCalls, ...soundCalls },
    wasi_snapshot_preview1: fileCalls.wasi,
});
