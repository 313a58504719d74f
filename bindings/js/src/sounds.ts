// Sounds: what the library has played, through Web Audio or whoever stands in for it.

import { files } from "./files.js";
import { bytes, outside, textAt } from "./memory.js";

/** Plays for the library. A function that is missing, or returns nothing, plays nothing. */
export interface Player {
    /** Plays a sound once; returns whether it could. */
    effect?(file: Uint8Array, name: string): boolean;
    /** Plays music; returns what ends it. */
    music?(file: Uint8Array, name: string): (() => void) | undefined;
    /** Plays a tone, a file of 16-bit samples; returns whether it could. */
    tone?(wav: Uint8Array): boolean;
}

let player: Player | undefined;
let context: AudioContext | undefined;
let tone: Uint8Array | undefined;
const playing = new Map<number, () => void>();
let last = 0;

/** Has this play instead of Web Audio; undefined brings that back. */
export function setPlayer(given: Player | undefined): void {
    if (given !== undefined && (given === null || typeof given !== "object")) {
        throw new TypeError("a player is an object with functions");
    }
    player = given;
}

/** Where the browser plays; it waits for a first click or key, as browsers want. */
function audio(): AudioContext | undefined {
    if (context === undefined && typeof AudioContext === "function") context = new AudioContext();
    if (context?.state === "suspended") void context.resume();
    return context;
}

/** The samples of a file that the library wrote, as they are. */
function samplesOf(wav: Uint8Array, at: AudioContext): AudioBuffer {
    const data = new DataView(wav.buffer, wav.byteOffset, wav.byteLength);
    const count = Math.max((wav.length - 44) >> 1, 1);
    const buffer = at.createBuffer(1, count, data.getUint32(24, true));
    const channel = buffer.getChannelData(0);
    for (let i = 0; i < count; i++) channel[i] = data.getInt16(44 + 2 * i, true) / 32768;
    return buffer;
}

function sound(at: AudioContext, buffer: AudioBuffer): AudioBufferSourceNode {
    const source = at.createBufferSource();
    source.buffer = buffer;
    source.connect(at.destination);
    source.start();
    return source;
}

/** Plays a file of any kind that the browser reads, once it has; returns what ends it. */
function decoded(file: Uint8Array): (() => void) | undefined {
    const at = audio();
    if (at === undefined) return undefined;
    let source: AudioBufferSourceNode | undefined;
    let ended = false;
    at.decodeAudioData(Uint8Array.from(file).buffer).then((buffer) => {
        if (!ended) source = sound(at, buffer);
    }, () => undefined); // no sound, as a player that cannot read the file
    return () => {
        ended = true;
        source?.stop();
    };
}

const web: Required<Player> = {
    effect: (file) => decoded(file) !== undefined,
    music: (file) => decoded(file),
    tone: (wav) => {
        const at = audio();
        if (at !== undefined) sound(at, samplesOf(wav, at));
        return at !== undefined;
    },
};

function current(): Player {
    return player ?? web;
}

function number(end: (() => void) | undefined): number {
    if (end === undefined) return -1;
    playing.set(++last, end);
    return last;
}

function playSound(path: number): number {
    const name = textAt(path);
    const file = files.get(name);
    return file !== undefined && current().effect?.(file, name) === true ? 0 : -1;
}

function startPlayer(path: number, any: number): number {
    if (any === 0) return tone !== undefined && current().tone?.(tone) === true ? ++last : -1;
    const name = textAt(path);
    const file = files.get(name);
    return file === undefined ? -1 : number(current().music?.(file, name) ?? undefined);
}

function stopPlayer(which: number): void {
    const end = playing.get(which);
    playing.delete(which);
    end?.();
}

function quietly(run: () => number): number {
    return outside(run, -1, () => undefined);
}

/** What the module imports. */
export const soundCalls = {
    orvel_web_play_sound: (path: number) => quietly(() => playSound(path)),
    orvel_web_start_player: (path: number, any: number) => quietly(() => startPlayer(path, any)),
    orvel_web_stop_player: (which: number) => void quietly(() => (stopPlayer(which), 0)),
    orvel_web_write_tone: (at: number, size: number) => {
        tone = bytes.slice(at, at + size);
    },
};
