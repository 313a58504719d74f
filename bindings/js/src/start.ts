// Starts the module of WebAssembly, before anything else of the package runs.

import { inflateSync } from "fflate";
import { fileCalls } from "./files.js";
import { hostCalls } from "./hosts.js";
import { start } from "./memory.js";
import packed from "./orvelsdk.deflate";
import { soundCalls } from "./sounds.js";

start(new WebAssembly.Module(inflateSync(packed) as Uint8Array<ArrayBuffer>), {
    env: { ...fileCalls.env, ...hostCalls, ...soundCalls },
    wasi_snapshot_preview1: fileCalls.wasi,
});
