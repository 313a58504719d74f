// Every function of the description, by its name of C: good arguments, null, and extremes. What a call does
// not take is an exception, and afterwards the library still draws what it drew before.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { api, Canvas, CHARTS, DITHERS, FACES, FORMATS, KEYS, KINDS, ROLES, setLog } from "orvelsdk";
import { SOURCES } from "./project.mjs";

setLog(() => undefined);
const description = JSON.parse(readFileSync(`${SOURCES}/bindings/orvel_api.json`, "utf8"));
const functions = description.libraries.flatMap((library) => library.functions);
const records = description.libraries.flatMap((library) => library.records);

const NUMBERS = {
    int: [-(2 ** 31), -1, 0, 1, 7, 2 ** 31 - 1], unsigned: [0, 1, 2 ** 32 - 1],
    double: [0, -1, 0.5, NaN, Infinity, -1e308], size: [0, 1, 2 ** 32 - 1], enum: [-1, 0, 2 ** 31 - 1],
    int64: [-(2 ** 53) + 1, -1, 0, 1, 2 ** 53 - 1],
};
const WRONG = {
    int: [NaN, 0.5, 2 ** 31, "1", null, undefined, {}], enum: [NaN, 2 ** 31, "1", null],
    unsigned: [NaN, -1, 2 ** 32, "1", null], size: [NaN, -1, 2 ** 32, "1"], double: ["1", null, {}, 1n],
    int64: [NaN, 0.5, 2 ** 53, "1", null], text: [1, {}, "a\0b", Uint8Array.of(0)], record: [null, 1, "a"],
    object: [1, "a", {}, new (class {})()], pointer: [1, "a"], bytes: [1, {}], memory: [1, "a", [1]],
};
const TEXTS = ["", "a", "\ud800", Uint8Array.of(255, 254), "x".repeat(100_000)];
const scene = '{"orvel": 1, "size": [20, 20], "root": {"row": [], "id": "root"}}';
const theme = {};
api.orvel_theme_default(theme);
const objects = {
    orvel_canvas: () => api.kit_canvas(20, 20),
    orvel_widget: () => api.orvel_widget_button(api.kit_canvas(20, 20), theme, "a", 0, 0, 9, 9),
    kit_face: () => api.kit_face_fallback(api.kit_sans_12(), api.kit_bold_12()),
    kit_screen: () => api.kit_screen_read(scene, null, null, null),
};
const lengths = (of) => new Set([...of.arguments.map((each) => each.length), of.returns.length]);
/** What is passed from JavaScript: neither lengths nor the room for a reason. */
const passed = (of) => of.arguments.filter((each, i) => !lengths(of).has(each.name)
    && each.type !== "buffer");

function usual({ type, of, ownership }) {
    if (type === "object") return objects[of]();
    if (type === "pointer" && of === "double") return [0.25, NaN];
    if (type === "pointer" && of === "int") return { value: 0 };
    if (type === "pointer" || type === "record") return of === "orvel_theme" ? theme : {};
    return { text: "a", double: 1, size: 64, bytes: "a", memory: new Uint8Array(64) }[type] ?? 1;
}

/** A call that may be refused for a reason of the library's, and must not fail in another way. */
function call(name, given) {
    try {
        return api[name](...given);
    } catch (reason) {
        assert.match(reason.name, /^(OrvelError|OutOfMemory)$/, `${name}: ${reason.stack}`);
        assert.doesNotMatch(reason.message, /too deep or too far/, name);
    }
}

const picture = () => {
    const canvas = new Canvas(64, 48, "#123456");
    canvas.text("same", 4, 20);
    const pixels = Buffer.from(canvas.pixels());
    canvas.free();
    return pixels;
};
const before = picture();

test("every function takes good arguments, null and extremes", () => {
    let calls = 0;
    const canBeNull = ({ type }) => ["object", "pointer", "text", "bytes", "memory"].includes(type);
    for (const each of functions) {
        const shown = passed(each);
        call(each.name, shown.map(usual));
        call(each.name, shown.map((one) => canBeNull(one) ? null : usual(one)));
        shown.forEach((argument, place) => {
            const values = [...(canBeNull(argument) ? [null, undefined] : []),
                            ...(NUMBERS[argument.type] ?? []),
                            ...(argument.type === "text" ? TEXTS : [])];
            for (const value of values) {
                call(each.name, shown.map((one, at) => at === place ? value : usual(one)));
                calls++;
            }
        });
    }
    assert.ok(functions.length > 130 && calls > 1000, `${functions.length} ${calls}`);
    assert.deepEqual(picture(), before);
});

test("what a call does not take is a TypeError or a RangeError", () => {
    let refused = 0;
    for (const each of functions) {
        const shown = passed(each);
        shown.forEach((argument, place) => {
            for (const value of WRONG[argument.type] ?? []) {
                if (argument.type === "pointer" && argument.of === "double" && value === "a") continue;
                assert.throws(() => api[each.name](...shown.map((one, at) =>
                    at === place ? value : usual(one))),
                ({ name }) => name === "TypeError" || name === "RangeError",
                `${each.name}: ${argument.name}: ${String(value)}`);
                refused++;
            }
        });
    }
    assert.ok(refused > 1000, String(refused));
    assert.deepEqual(picture(), before);
});

test("the low level has what the description has", () => {
    for (const each of functions) assert.equal(api[each.name].length, passed(each).length, each.name);
    for (const library of description.libraries) {
        for (const { values } of library.enums) {
            for (const { name, value } of values) assert.equal(api[name], value, name);
        }
        for (const { name, value } of library.constants) assert.equal(api[name], value, name);
    }
});

test("what callers choose from by name is what the description has", () => {
    const enums = description.libraries.flatMap((library) => library.enums);
    const valuesOf = (of, prefix) => Object.fromEntries(
        enums.find(({ name }) => name === of).values.map(({ name, value }) =>
            [name.slice(prefix.length).toLowerCase(), value]));
    assert.deepEqual(KINDS, valuesOf("orvel_widget_kind", "ORVEL_WIDGET_"));
    assert.deepEqual(CHARTS, valuesOf("kit_chart_kind", "KIT_CHART_"));
    assert.deepEqual(FORMATS, valuesOf("kit_layout", "KIT_"));
    assert.deepEqual(DITHERS, valuesOf("kit_dither", "KIT_DITHER_"));
    assert.equal(Object.keys(KEYS).length, enums.find(({ name }) => name === "kit_key").values.length);
    const faces = functions.filter((each) => each.returns.of === "kit_face" && each.arguments.length === 0);
    assert.deepEqual(FACES, faces.map(({ name }) => name.slice("kit_".length).replace("_", " ")));
    const theme = records.find(({ name }) => name === "orvel_theme");
    assert.deepEqual(ROLES, theme.fields.map(({ name }) => name));
});

test("what is freed is refused, and freed once", () => {
    for (const each of functions) {
        const shown = passed(each);
        shown.forEach((argument, place) => {
            if (argument.type !== "object") return;
            const gone = objects[argument.of]();
            ({ orvel_canvas: api.orvel_canvas_destroy, orvel_widget: api.orvel_widget_destroy,
               kit_face: api.kit_face_close, kit_screen: api.kit_screen_close })[argument.of](gone);
            assert.ok(gone.freed);
            assert.throws(() => api[each.name](...shown.map((one, at) => at === place ? gone : usual(one))),
                          { name: "Freed" }, each.name);
        });
    }
});

test("a widget keeps its canvas and its theme, which may change", () => {
    const canvas = api.kit_canvas(40, 20);
    const own = { ...theme };
    const widget = api.orvel_widget_progress(canvas, own, 0, 0, 40, 20, 1);
    api.orvel_widget_draw(widget);
    const first = api.orvel_canvas_pixel_get(canvas, 20, 10);
    own.accent = { r: 1, g: 2, b: 3, a: 4 };
    api.orvel_widget_draw(widget);
    assert.deepEqual(api.orvel_canvas_pixel_get(canvas, 20, 10), own.accent);
    assert.notDeepEqual(first, own.accent);
    own.accent = { r: 256 };
    assert.throws(() => api.orvel_widget_draw(widget), RangeError);
    own.accent = {};
    api.orvel_canvas_destroy(canvas);
    api.orvel_widget_draw(widget);  // to what nobody sees any more
    api.orvel_widget_destroy(widget);
    assert.throws(() => api.orvel_canvas_width(canvas), { name: "Freed" });
});

test("what begins with a clip ends with it, once", () => {
    const canvas = api.kit_canvas(40, 20);
    const box = { x: -5, y: -5, w: 20, h: 20 };
    const inside = api.kit_clip_begin(canvas, box);
    assert.deepEqual(box, { x: 0, y: 0, w: 15, h: 15 });
    const widget = api.orvel_widget_panel(inside, theme, 0, 0, 5, 5);
    assert.throws(() => api.kit_clip_end(canvas, box, inside), /still needed/);
    api.orvel_widget_destroy(widget);
    assert.equal(api.kit_clip_end(canvas, box, canvas), -1);
    assert.equal(api.kit_clip_end(canvas, box, inside), 0);
    assert.throws(() => api.kit_clip_end(canvas, box, inside), { name: "Freed" });
});

test("records have the sizes and places that C gave them", () => {
    const color = { r: 1, g: 2, b: 3, a: 4 };
    assert.deepEqual(api.kit_mix(color, { r: 255, g: 255, b: 255, a: 255 }, 0), color);
    const light = {};
    api.orvel_theme_light(light);
    assert.deepEqual(Object.keys(light), records.find(({ name }) => name === "orvel_theme").fields
        .map(({ name }) => name));
});

test("too little memory is an exception, and what follows works", () => {
    const held = [];
    assert.throws(() => {
        for (;;) {
            const canvas = api.kit_canvas(8192, 8192);
            if (canvas === null) throw new Error("null");
            held.push(canvas);
        }
    }, /null/);
    assert.ok(held.length > 2);
    assert.throws(() => new Canvas(20_000, 20_000), { name: "OutOfMemory" });
    held.forEach(api.orvel_canvas_destroy);
    assert.deepEqual(picture(), before);
});
