// Draws scenes for the page.
import { api, Canvas } from "orvelsdk";
import { makeCanvas, panelFormat, pictureOf } from "./pictures.js";

const files = new Map(); // the pictures that scenes may show, as the page gave them
const canvases = new Map();

/** Gives scenes the pictures that they may show: PNG files by name. */
export function keepFiles(given) {
    for (const [name, bytes] of Object.entries(given)) files.set(name, bytes);
}

/** A host that serves them; @p used gets those that were asked for. */
function hostFor(used) {
    return {
        picture(name) {
            if (!files.has(name)) return null;
            if (!canvases.has(name)) canvases.set(name, Canvas.read(files.get(name)));
            used.add(name);
            return canvases.get(name).handle;
        },
    };
}

/** A screen in the theme that the page wants. */
export function openScreen({ scene, data, theme }, used = new Set()) {
    const screen = api.kit_screen_read(scene, "scene", data, hostFor(used));
    if (theme !== null) {
        try {
            api.kit_screen_change(screen, null, "theme", JSON.stringify(theme));
        } catch (reason) {
            api.kit_screen_close(screen);
            throw reason;
        }
    }
    return screen;
}

/** What a careful look finds wrong with a scene, a line each. */
export function reportScene(wish) {
    const screen = openScreen(wish);
    try {
        const format = panelFormat(wish.panel, wish.dither) ?? null;
        return (api.kit_screen_report_on(screen, format) ?? "").split("\n").filter(Boolean);
    } finally {
        api.kit_screen_close(screen);
    }
}

/** A canvas as large as a screen. */
export function canvasFor(screen) {
    const w = { value: 0 },
        h = { value: 0 };
    api.kit_screen_size(screen, w, h);
    return makeCanvas(w.value, h.value);
}

/** One picture of a scene. */
export function drawScene(wish) {
    const used = new Set(),
        screen = openScreen(wish, used);
    let canvas = null;
    try {
        canvas = canvasFor(screen);
        if (api.kit_screen_draw(screen, canvas, null) !== 0) {
            throw new Error("the memory is too small to draw this");
        }
        return {
            ...pictureOf(canvas, wish.panel, wish.dither),
            describe: api.kit_screen_describe(screen) ?? "",
            pictures: [...used].map((name) => ({ name, ...pictureOf(canvases.get(name).handle) })),
        };
    } finally {
        api.orvel_canvas_destroy(canvas);
        api.kit_screen_close(screen);
    }
}
