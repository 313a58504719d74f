// Screens: what a scene describes, laid out and drawn, with values that change.

import * as api from "./api.js";
import { boxOf } from "./boxes.js";
import type { Box, BoxLike } from "./boxes.js";
import { Canvas } from "./canvas.js";
import { Theme } from "./colors.js";
import { kindOf, OrvelError, OutOfMemory } from "./errors.js";
import { Face } from "./faces.js";
import { formatOf } from "./formats.js";
import type { FormatName, FormatParts } from "./formats.js";
import { changeOf, eventOf, moment } from "./input.js";
import type { Change, ScreenEvent } from "./input.js";
import { optionsOf } from "./names.js";
import { Owner } from "./owner.js";

/** What JSON has. */
export type Json = string | number | boolean | null | readonly Json[] |
    { readonly [name: string]: Json | undefined };
/** A map of names to things; an object or a Map. */
export type Named<T> = Readonly<Record<string, T>> | ReadonlyMap<string, T>;

/** What a screen asks for by name: maps of names, or functions that return null for a name that
 *  they do not know. Functions must not call the screen. */
export interface Host {
    /** Pictures: canvases, or the bytes of PNG and BMP files. */
    pictures?: Named<Canvas | Uint8Array> | ((name: string) => Canvas | Uint8Array | null);
    /** Themes beside "dark" and "light": a Theme, or the text of a theme file. */
    themes?: Named<Theme | string | Uint8Array> |
        ((name: string) => Theme | string | Uint8Array | null);
    /** Faces beside those of the kit: a Face, or the bytes of a BDF font. */
    faces?: Named<Face | string | Uint8Array> |
        ((name: string) => Face | string | Uint8Array | null);
    /** The texts of scene files for "include". */
    includes?: Named<string | Uint8Array> | ((name: string) => string | Uint8Array | null);
}

export interface ScreenParts {
    /** With which reasons begin. */
    name?: string;
    host?: Host;
}

function json(value: unknown, what: string): string {
    let text: string | undefined;
    try {
        text = JSON.stringify(value, (_, each: unknown) => {
            if (typeof each === "number" && !Number.isFinite(each)) {
                throw new RangeError(`${what} has ${each} in it, which JSON has not`);
            }
            return each;
        });
    } catch (reason) {
        if (reason instanceof RangeError && /call stack/i.test(reason.message)) {
            throw new RangeError(`${what} has too many lists in each other`);
        }
        throw reason;
    }
    if (text === undefined) throw new TypeError(`${what} is not what JSON has: ${kindOf(value)}`);
    return text;
}

/** Asks a map or a function, once for each name. */
function asking<T, Out>(given: Named<T> | ((name: string) => T | null) | undefined,
                        make: (found: T, name: string) => Out,
                        ): ((name: string) => Out | null) | null {
    if (given === undefined || given === null) return null;
    if (typeof given !== "object" && typeof given !== "function") {
        throw new TypeError(`what a host has is a map or a function, not ${kindOf(given)}`);
    }
    const known = new Map<string, Out>();
    return (name) => {
        const before = known.get(name);
        if (before !== undefined) return before;
        const found = typeof given === "function" ? given(name)
            : given instanceof Map ? given.get(name) as T | undefined
            : Object.hasOwn(given, name) ? (given as Record<string, T>)[name] : undefined;
        if (found === undefined || found === null) return null;
        const made = make(found, name);
        known.set(name, made);
        return made;
    };
}

function pictureOf(found: Canvas | Uint8Array): Canvas {
    return found instanceof Canvas ? found : Canvas.read(found);
}

function askedOf(host: Host): Parameters<typeof api.kit_screen_read>[3] {
    const { pictures, themes, faces, includes } =
        optionsOf(host, ["pictures", "themes", "faces", "includes"], "a host");
    const picture = asking(pictures, pictureOf);
    const theme = asking(themes, (found, name) =>
        found instanceof Theme ? found : Theme.read(found, name));
    const face = asking(faces, (found) => found instanceof Face ? found : Face.read(found));
    return {
        picture: picture && ((name) => picture(name)?.handle),
        theme: theme && ((name) => theme(name)?.record),
        face: face && ((name) => face(name)?.handle),
        include: asking(includes, (found) => found),
    };
}

/** A tree of rows, columns, words, pictures, charts and widgets, and the values that it shows.
 *
 *      const screen = new Screen(scene, {target: 21});
 *      context.putImageData(screen.render().imageData(), 0, 0);
 *      screen.set("target", 22);
 *      const box = screen.draw();       // what changed on screen.canvas, null where nothing did
 *
 *  Names of values are paths: "now.temp", "days[2].name". A value that does not fit is an error
 *  with the place in the scene, and the screen stays as it was. */
export class Screen extends Owner<api.kit_screen> {
    protected readonly what = "screen";
    private ownCanvas: Canvas | undefined;
    private shown: WeakRef<api.orvel_canvas> | undefined;

    /** A scene as text, bytes or an object; without data it shows the scene's own "sample". */
    constructor(scene: string | Uint8Array | object, data?: Json, parts: ScreenParts = {}) {
        super();
        if (scene === null || (typeof scene !== "object" && typeof scene !== "string")) {
            throw new TypeError(`a scene is a text, bytes or an object, not ${kindOf(scene)}`);
        }
        const { name = "scene", host } = optionsOf(parts, ["name", "host"], "a screen");
        const text = typeof scene === "string" || scene instanceof Uint8Array
            ? scene : json(scene, "a scene");
        const given = data === undefined || data === null ? null : json(data, "the data");
        this.own = api.kit_screen_read(text, name, given, host === undefined ? null
                                                                             : askedOf(host))!;
    }

    protected release(own: api.kit_screen): void {
        api.kit_screen_close(own);
    }

    override free(): void {
        super.free();
        this.ownCanvas?.free();
        this.ownCanvas = undefined;
    }

    // ---- Size

    /** The width and height, in pixels. */
    get size(): [w: number, h: number] {
        const w = { value: 0 }, h = { value: 0 };
        api.kit_screen_size(this.handle, w, h);
        return [w.value, h.value];
    }

    /** Lays the screen out anew for this size, 1 to 32767 pixels each. */
    resize(width: number, height: number): void {
        api.kit_screen_resize(this.handle, width, height);
    }

    // ---- Values

    /** Sets a value by its path. */
    set(name: string, value: Json): void {
        api.kit_screen_set(this.handle, name, json(value, "a value"));
    }

    /** A value by its path; undefined where there is none. */
    get(name: string): Json | undefined {
        const text = api.kit_screen_get(this.handle, name);
        return text === null ? undefined : JSON.parse(text) as Json;
    }

    /** Whether there is such a value. */
    has(name: string): boolean {
        return api.kit_screen_get(this.handle, name) !== null;
    }

    /** All values. Setting it replaces them all. */
    get data(): Json {
        return this.get("") ?? null;
    }

    set data(values: Json) {
        this.set("", values);
    }

    /** Sets one value after the other. */
    update(values: { readonly [name: string]: Json }): void {
        for (const [name, value] of Object.entries(values)) this.set(name, value);
    }

    // ---- The tree

    /** Adds a node, written as in a scene, to a row, column or stack, before its child number at,
     *  or at the end. */
    add(parent: string, node: object, at = -1): void {
        api.kit_screen_add(this.handle, parent, at, json(node, "a node"));
    }

    /** Removes a node with all below it. */
    remove(id: string): void {
        api.kit_screen_remove(this.handle, id);
    }

    /** Sets a key of a node, or of the scene where the id is null; null removes the key. */
    change(id: string | null, key: string, value: Json): void {
        api.kit_screen_change(this.handle, id, key,
                              value === null ? null : json(value, "a value"));
    }

    // ---- Drawing

    /** The screen's own canvas, which draw() draws on. */
    get canvas(): Canvas {
        const [w, h] = this.size;
        const own = this.ownCanvas;
        if (own !== undefined && !own.freed && own.width === w && own.height === h) return own;
        return this.ownCanvas = new Canvas(w, h);
    }

    /** Draws what changed since the last time, and returns the box that holds it; null where
     *  nothing did. On another canvas than the last time, it draws everything. */
    draw(canvas: Canvas = this.canvas): Box | null {
        if (!(canvas instanceof Canvas)) {
            throw new TypeError(`what is drawn on is a Canvas, not ${kindOf(canvas)}`);
        }
        const target = canvas.handle;
        if (this.shown?.deref() !== target) this.expose();
        const box: Box = { x: 0, y: 0, w: 0, h: 0 };
        if (api.kit_screen_draw(this.handle, target, box) !== 0) {
            throw new OutOfMemory("the memory is too small to draw the screen");
        }
        this.shown = new WeakRef(target);
        return box.w > 0 && box.h > 0 ? box : null;
    }

    /** All of the screen, with this data where some is given, on a canvas of its own. */
    render(data?: Json): Canvas {
        if (data !== undefined) this.data = data;
        const canvas = new Canvas(...this.size);
        this.draw(canvas);
        return canvas;
    }

    /** Has the next draw() draw this box, too; everything when there is none. */
    expose(box?: BoxLike | null): void {
        api.kit_screen_expose(this.handle, box ? boxOf(box) : null);
    }

    // ---- Input

    /** One event, at a time in milliseconds; without one it is now. */
    send(event: ScreenEvent, now?: number): void {
        if (api.kit_screen_send(this.handle, eventOf(event), moment(now)) !== 0) {
            throw new OutOfMemory("the memory is too small for this event");
        }
    }

    /** A press and a release at one place. */
    click(x: number, y: number, now?: number): void {
        this.send({ kind: "press", x, y }, now);
        this.send({ kind: "release", x, y }, now);
    }

    /** The changes that came of events since the last time, oldest first. */
    *changes(): Generator<Change, void, void> {
        const change = {} as api.kit_change;
        while (api.kit_screen_next(this.handle, change) === 1) yield changeOf(change);
    }

    /** In how many milliseconds time matters by itself, and an event of the kind "time" is due;
     *  null: it does not. */
    wait(now?: number): number | null {
        const time = api.kit_screen_wait(this.handle, moment(now));
        return time < 0 ? null : time;
    }

    /** Gives the keyboard to the node with this id; to none for null. */
    focus(id: string | null): void {
        if (api.kit_screen_focus(this.handle, id) !== 0) {
            throw new OrvelError(`there is no "${id}" that takes the keyboard`);
        }
    }

    /** Where the caret of the text field with the keyboard stands; null where there is none. */
    get caret(): Box | null {
        const found: Box = { x: 0, y: 0, w: 0, h: 0 };
        return api.kit_screen_caret(this.handle, found) === 0 ? found : null;
    }

    /** The shape of the pointer where it is, as a page's styles name it. */
    get pointer(): "default" | "pointer" | "text" {
        return (["default", "pointer", "text"] as const)[api.kit_screen_pointer(this.handle)]!;
    }

    // ---- What is there

    /** One line for each node that shows: its role, name, value, states, id and box. */
    describe(): string {
        return told(api.kit_screen_describe(this.handle));
    }

    /** What a careful look would find wrong, a line each. Contrast is that of the colours of a
     *  panel that takes what Canvas.pixels() writes in this format. */
    report(format: FormatName = "rgba", parts: FormatParts = {}): string[] {
        const panel = formatOf(format, parts);
        return told(api.kit_screen_report_on(this.handle, panel)).split("\n").filter(Boolean);
    }

    /** Where a node lies on the screen; null where there is none or nothing of it shows. */
    box(id: string): Box | null {
        const found: Box = { x: 0, y: 0, w: 0, h: 0 };
        return api.kit_screen_box(this.handle, id, found) === 0 ? found : null;
    }
}

function told(text: string | null): string {
    if (text === null) throw new OutOfMemory("the memory is too small to tell what shows");
    return text;
}

