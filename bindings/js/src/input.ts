// Events that screens take, and the changes that come of them.

import * as api from "./api.js";
import { kindOf } from "./errors.js";
import { oneOf, optionsOf } from "./names.js";

const KEY = "KIT_KEY_";
const EVENTS = {
    time: api.KIT_EVENT_TIME, move: api.KIT_EVENT_MOVE, press: api.KIT_EVENT_PRESS,
    release: api.KIT_EVENT_RELEASE, leave: api.KIT_EVENT_LEAVE, wheel: api.KIT_EVENT_WHEEL,
    key: api.KIT_EVENT_KEY, text: api.KIT_EVENT_TEXT, compose: api.KIT_EVENT_COMPOSE,
    paste: api.KIT_EVENT_PASTE, blur: api.KIT_EVENT_BLUR, focus: api.KIT_EVENT_FOCUS,
} as const;
const MODIFIERS = { shift: api.KIT_MOD_SHIFT, ctrl: api.KIT_MOD_CONTROL, alt: api.KIT_MOD_ALT };
const CHANGES = ["value", "press", "copy", "paste", "sound"] as const;

/** The keys that have names. */
export const KEYS: Readonly<Record<string, number>> = Object.fromEntries(
    Object.entries(api).filter(([name]) => name.startsWith(KEY)).map(([name, value]) =>
        [name.slice(KEY.length).toLowerCase().replaceAll("_", ""), value as number]));

/** One event; what its kind does not mention is not looked at. */
export interface ScreenEvent {
    kind: keyof typeof EVENTS;
    /** Of the pointer, in pixels. */
    x?: number;
    y?: number;
    /** Of a wheel: 120 a notch, positive to the right and away from the user. */
    dx?: number;
    dy?: number;
    /** 0 for the main one. */
    button?: number;
    /** A name, "enter" or "f5", a character, or a number. */
    key?: string | number;
    modifiers?: readonly (keyof typeof MODIFIERS)[];
    /** What was typed, composed or pasted. */
    text?: string;
    /** Of a composed text: where its caret is, in bytes of UTF-8. */
    caret?: number;
}

const PARTS = ["kind", "x", "y", "dx", "dy", "button", "key", "modifiers", "text",
               "caret"] as const;

/** What came of an event. */
export interface Change {
    kind: (typeof CHANGES)[number];
    /** Of the node, or empty. */
    id: string;
    /** Of the data, "days[2].on", or empty. */
    name: string;
    value: unknown;
}

function keyOf(key: string | number): number {
    if (typeof key !== "string") return key;
    if (key === "space") return 32;
    return [...key].length === 1 ? key.codePointAt(0)! : oneOf(key, KEYS, "key");
}

/** The record of an event. */
export function eventOf(event: ScreenEvent): Parameters<typeof api.kit_screen_send>[1] {
    if (event === null || typeof event !== "object") {
        throw new TypeError(`an event is an object, not ${kindOf(event)}`);
    }
    const { kind, key = 0, modifiers = [], ...rest } = optionsOf(event, PARTS, "an event");
    if (!Array.isArray(modifiers)) {
        throw new TypeError(`modifiers are several names, not ${kindOf(modifiers)}`);
    }
    const bits = modifiers.map((name) => oneOf(name, MODIFIERS, "modifier"));
    return { ...rest, kind: oneOf(kind, EVENTS, "event"), key: keyOf(key),
             modifiers: bits.reduce((sum, bit) => sum | bit, 0) };
}

/** A change, with its value as JavaScript has it. */
export function changeOf({ kind, id, name, value }: api.kit_change): Change {
    return { kind: CHANGES[kind]!, id: String(id), name: String(name),
             value: JSON.parse(String(value)) };
}

/** A time in milliseconds; that of this program where none is given. */
export function moment(now: number | undefined): number {
    if (now === undefined) return Math.floor(performance.now());
    return typeof now === "number" ? Math.floor(now) : now;
}
