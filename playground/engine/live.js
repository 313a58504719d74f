// A screen that is used: events of the page go in, what changed on it comes out.
import { api } from "orvelsdk";
import { pictureOf } from "./pictures.js";
import { canvasFor, openScreen } from "./scenes.js";

const MOST_CHANGES = 50; // told at a time

let live = null;

/** Whether this library lets screens be used. */
export const canLive = typeof api.kit_screen_send === "function";

export function closeLive() {
    if (live === null) return;
    api.orvel_canvas_destroy(live.canvas);
    api.kit_screen_close(live.screen);
    live = null;
}

/** What came of events: { part, changes, wait, pointer, caret, describe }. */
function answer(now) {
    const { screen, canvas, wish } = live;
    const box = {},
        changes = [];
    if (api.kit_screen_draw(screen, canvas, box) !== 0) {
        throw new Error("the memory is too small to draw this");
    }
    for (let change = {}; api.kit_screen_next(screen, change) === 1; change = {}) {
        if (changes.length < MOST_CHANGES) changes.push(change);
    }
    const caret = {};
    const part = box.w > 0 && box.h > 0 ? partOf(canvas, box, wish) : null;
    return {
        part,
        changes,
        wait: api.kit_screen_wait(screen, now),
        pointer: api.kit_screen_pointer(screen),
        caret: api.kit_screen_caret(screen, caret) === 0 ? caret : null,
        describe: api.kit_screen_describe(screen) ?? "",
    };
}

/** Panels dither across the whole picture. */
function partOf(canvas, box, { panel, dither }) {
    if (panel !== "") return { x: 0, y: 0, ...pictureOf(canvas, panel, dither) };
    const rgba = new Uint8ClampedArray(4 * box.w * box.h);
    api.kit_pixels(canvas, box, { layout: api.KIT_RGBA, keep_alpha: 1 }, rgba, 0);
    return { x: box.x, y: box.y, width: box.w, height: box.h, rgba };
}

/** Opens the screen that is used from now on. */
export function openLive({ now, ...wish }) {
    closeLive();
    const screen = openScreen(wish);
    try {
        live = { screen, canvas: canvasFor(screen), wish };
    } catch (reason) {
        api.kit_screen_close(screen);
        throw reason;
    }
    return answer(now);
}

/** Sends events of the form { event, now }. */
export function sendLive({ events, now }) {
    if (live === null) throw new Error("no screen is in use");
    for (const each of events) api.kit_screen_send(live.screen, each.event, each.now);
    return answer(now);
}
