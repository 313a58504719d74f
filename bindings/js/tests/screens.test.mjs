// Screens: values, changes, what hosts give, and reasons.
import assert from "node:assert/strict";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { test } from "node:test";
import { api, Canvas, Face, files, Freed, OrvelError, Screen, Theme } from "orvelsdk";
import { SOURCES } from "./project.mjs";

const meter = { orvel: 1, size: [240, 80], root: { column: [
    { text: "${power:1} kW", face: "bold 18", id: "power" },
    { progress: "${power}", range: [0, 10], height: 12 }], pad: 12, gap: 8, id: "root" } };

test("values change what is drawn, and only that", () => {
    const screen = new Screen(meter, { power: 7 }, { name: "meter" });
    assert.deepEqual(screen.size, [240, 80]);
    screen.set("power", 2.25);
    assert.deepEqual(screen.draw(), { x: 0, y: 0, w: 240, h: 80 });
    screen.set("power", 2.3);
    assert.deepEqual(screen.draw(), { x: 12, y: 43, w: 216, h: 12 });
    assert.equal(screen.draw(), null);
    assert.equal(screen.get("power"), 2.3);
    assert.deepEqual(screen.data, { power: 2.3 });
    assert.ok(screen.has("power") && !screen.has("no"));
    assert.throws(() => screen.set("power", "much"),
                  { message: /^meter:1:\d+: root\.column\[0\]\.text: power is a text/ });
    assert.equal(screen.get("power"), 2.3);
    screen.update({ power: 3 });
    assert.deepEqual(screen.render({ power: 9 }).pixels(), new Screen(meter, { power: 9 }).render().pixels());
    assert.deepEqual(screen.box("power"), { x: 12, y: 12, w: 216, h: 23 });
    assert.equal(screen.box("no"), null);
    assert.match(screen.describe(), /^column 0,0 240x80 #root|^column #root 0,0 240x80/);
    assert.deepEqual(screen.report(), []);
    screen.resize(100, 60);
    assert.equal(screen.canvas.width, 100);
});

const form = { orvel: 1, size: [100, 90], root: { column: [
    { toggle: "${on}", id: "light", width: 60, height: 30, tip: "Light" },
    { textbox: "${words}", id: "words", height: 30 },
    { button: "Go", id: "go", key: "ctrl+g", sound: "click", height: 30 }] } };

test("events change values, and the changes come out", () => {
    const screen = new Screen(form, { on: false, words: "" });
    screen.draw();
    screen.click(30, 15, 0);
    assert.deepEqual([...screen.changes()], [{ kind: "value", id: "light", name: "on", value: true }]);
    assert.ok(screen.get("on") === true && screen.draw() !== null);
    assert.deepEqual([...screen.changes()], []);
    screen.send({ kind: "key", key: "g", modifiers: ["ctrl"] }, 1);
    assert.deepEqual([...screen.changes()].map(({ kind }) => kind), ["press", "sound"]);
    screen.click(30, 15);
    for (const { name, value } of screen.changes()) screen.set("words", `${name} is ${value}`);
    assert.equal(screen.get("words"), "on is false");
});

test("time matters where a tooltip is to show", () => {
    const screen = new Screen(form, { on: false, words: "" });
    assert.equal(screen.wait(), null);
    screen.send({ kind: "move", x: 30, y: 15 }, 100);
    assert.equal(screen.pointer, "pointer");
    assert.deepEqual([screen.wait(100), screen.wait(5000)], [600, 0]);
    screen.send({ kind: "time" }, 700);
    assert.match(screen.describe(), /tooltip "Light"/);
    screen.send({ kind: "leave" }, 701);
    assert.equal(screen.pointer, "default");
});

test("text fields take words", () => {
    const screen = new Screen(form, { on: false, words: "" });
    assert.equal(screen.caret, null);
    screen.focus("words");
    assert.ok(screen.caret.h > 0);
    screen.send({ kind: "text", text: "Größe" }, 0);
    screen.send({ kind: "key", key: "backspace" }, 1);
    assert.equal(screen.get("words"), "Größ");
    screen.focus(null);
    assert.equal(screen.caret, null);
    assert.throws(() => screen.focus("nobody"), OrvelError);
});

test("wrong events are told as they are written", () => {
    const screen = new Screen(form, { on: false, words: "" });
    for (const bad of [{ kind: "push" }, { kind: "move", x: 1.5 }, { kind: "move", x: 2 ** 40 }, null, "move", {},
                       { kind: "key", key: "any" }, { kind: "key", modifiers: ["hyper"] },
                       { kind: "key", modifiers: "ctrl" }, { kind: "text", text: 5 }]) {
        assert.throws(() => screen.send(bad), ({ name }) => /^(Type|Range)Error$/.test(name), JSON.stringify(bad));
    }
    for (const bad of [NaN, Infinity, "1", 2 ** 70]) {
        assert.throws(() => screen.send({ kind: "time" }, bad), ({ name }) => /^(Type|Range)Error$/.test(name));
    }
    assert.deepEqual([...screen.changes()], []);
});

test("the tree changes", () => {
    const screen = new Screen(meter, { power: 7 });
    screen.add("root", { text: "more", id: "more" }, 0);
    screen.change("more", "text", "less");
    assert.match(screen.describe(), /text "less" #more/);
    screen.remove("more");
    assert.throws(() => screen.remove("more"), OrvelError);
    assert.throws(() => screen.add("root", { txt: "a" }), /unknown/);
    screen.change(null, "theme", "light");
});

test("a host gives pictures, themes, faces and scenes", () => {
    const scene = { orvel: 1, size: [60, 60], theme: "mine", root: { column: [
        { picture: "red.png" }, { text: "a", face: "own" }, { include: "part.json" }] } };
    const red = new Canvas(20, 20, "#ff0000");
    const maps = {
        pictures: { "red.png": red.png() }, themes: { mine: Theme.light() },
        faces: { own: new Face("bold 12") },
        includes: { "part.json": '{"orvel": 1, "root": {"text": "part"}}' },
    };
    const drawn = new Screen(scene, null, { host: maps }).render();
    assert.equal(String(drawn.get(2, 2)), "#ff0000");
    const asked = [];
    const functions = Object.fromEntries(Object.entries(maps).map(([what, map]) =>
        [what, (name) => (asked.push(name), map[name] ?? null)]));
    assert.deepEqual(new Screen(scene, null, { host: functions }).render().pixels(), drawn.pixels());
    assert.deepEqual(asked.sort(), ["mine", "own", "part.json", "red.png"]);
    assert.throws(() => new Screen(scene), /there is no scene "part.json"/);
    assert.throws(() => new Screen(scene, null, { host: { ...maps, pictures: 1 } }), TypeError);
    assert.throws(() => new Screen(scene, null, { host: { ...maps, pictures: { "red.png": 1 } } }), TypeError);
    assert.throws(() => new Screen(scene, null, { host: { ...maps, includes: { "part.json": "{" } } }), OrvelError);
});

test("what a host throws comes out, and it must not call the screen", () => {
    const scene = { orvel: 1, size: [60, 60], root: { picture: "${name}" } };
    let screen, answer = () => null;
    screen = new Screen(scene, { name: "a" }, { host: { pictures: (name) => answer(name) } });
    answer = () => { throw new RangeError("mine"); };
    assert.throws(() => screen.set("name", "b"), { name: "RangeError", message: "mine" });
    answer = () => screen.size;
    assert.throws(() => screen.set("name", "c"), /must not call the screen/);
    answer = () => { screen.free(); };
    assert.throws(() => screen.set("name", "d"), /must not call the screen/);
    answer = () => new Canvas(5, 5, "#00ff00");
    screen.set("name", "e");
    assert.equal(String(screen.render().get(30, 30)), "#00ff00");
});

test("what is no scene is refused with a reason", () => {
    for (const bad of ["", "{", "[]", "{}", '{"orvel": 2, "root": {"row": []}}', "\0", Uint8Array.of(0, 255),
                       "[".repeat(100_000), JSON.stringify({ orvel: 1, root: { rw: [] } })]) {
        assert.throws(() => new Screen(bad, null, { name: "bad" }), { message: /^bad/ }, bad.slice(0, 9));
    }
    for (const bad of [null, undefined, 1, () => 1]) assert.throws(() => new Screen(bad), TypeError);
    assert.throws(() => new Screen(meter, { power: NaN }), RangeError);
    const loop = {};
    loop.loop = loop;
    assert.throws(() => new Screen(meter, loop), TypeError);
    const screen = new Screen(meter, { power: 1 });
    screen.free();
    assert.throws(() => screen.render(), Freed);
});

/** FNV-1a of 64 bits, in halves. */
function hashOf(bytes) {
    let high = 0xcbf29ce4, low = 0x84222325;
    for (const byte of bytes) {
        low = (low ^ byte) >>> 0;
        const product = low * 0x1b3;
        high = (high * 0x1b3 + low * 0x100 + Math.floor(product / 2 ** 32)) % 2 ** 32;
        low = product % 2 ** 32;
    }
    return [high, low].map((half) => half.toString(16).padStart(8, "0")).join("");
}

/** As tests/screen/scene_checksums.c has them. */
function picture(name, known) {
    const side = name.includes("-") ? parseInt(name.slice(name.lastIndexOf("-") + 1), 10) : 10;
    if (!(side >= 1 && side < 128)) return null;
    if (known.has(side)) return known.get(side);
    const canvas = new Canvas(side, side, [10, 20, 30]);
    for (let i = 0; i < side; i += 3) canvas.line(0, i, side, side - i, [0, 0, 0, 0]);
    known.set(side, canvas.handle);
    return canvas.handle;
}

test("the delivered scenes have the bytes that every other machine draws", () => {
    const known = new Map();
    const utf8 = new TextEncoder();
    const all = readdirSync(join(SOURCES, "scenes"), { recursive: true, withFileTypes: true });
    for (const each of all.filter((one) => one.isFile())) {
        const path = join(each.path, each.name);
        files.set(path.slice(SOURCES.length), readFileSync(path));
    }
    const expected = readFileSync(`${SOURCES}/tests/screen/scene_checksums.txt`, "utf8").trim().split("\n");
    const found = [...new Set(expected.map((line) => line.split(" ", 2).join(" ")))].flatMap((name) => {
        const [scene, data] = name.split(" ");
        const given = readFileSync(`${SOURCES}/scenes/${scene.split("/")[0]}/data.json`, "utf8");
        const screen = api.kit_screen_open(`/scenes/${scene}`, data === "data" ? given : null,
                                           { picture: (asked) => picture(asked, known) });
        const [w, h] = [{ value: 0 }, { value: 0 }];
        api.kit_screen_size(screen, w, h);
        const canvas = api.kit_canvas(w.value, h.value);
        assert.equal(api.kit_screen_draw(screen, canvas, null), 0);
        const pixels = new Uint8Array(4 * w.value * h.value);
        assert.equal(api.kit_pixels(canvas, null, { keep_alpha: 1 }, pixels, 0), 0);
        return [`${name} picture ${hashOf(pixels)}`,
                `${name} description ${hashOf(utf8.encode(api.kit_screen_describe(screen)))}`,
                `${name} report ${hashOf(utf8.encode(api.kit_screen_report(screen)))}`];
    });
    assert.ok(found.length > 30);
    assert.deepEqual(found, expected);
    files.names().forEach(files.delete);
});

/** What lies beside a scene, by name. */
function beside(folder) {
    const read = (name) => existsSync(join(folder, name)) ? readFileSync(join(folder, name)) : null;
    return { pictures: read, themes: read, faces: (name) => name.includes(".") ? read(name) : null,
             includes: read };
}

test("the delivered scenes have the pixels of the golden pictures", () => {
    const readme = readFileSync(`${SOURCES}/scenes/README.md`, "utf8");
    const lines = [...readme.matchAll(/^ {4}orvel-render (\S+) --data (\S+)(?: --theme (\w+))? -o (\S+)$/gm)];
    assert.ok(lines.length >= 3);
    for (const [, scene, data, theme, golden] of lines) {
        const path = join(SOURCES, "scenes", scene);
        const screen = new Screen(readFileSync(path), JSON.parse(readFileSync(join(SOURCES, "scenes", data))),
                                  { name: scene, host: beside(dirname(path)) });
        if (theme) screen.change(null, "theme", theme);
        const expected = Canvas.read(readFileSync(join(SOURCES, "tests/golden/scenes", golden)));
        assert.deepEqual(screen.render().pixels(), expected.pixels(), scene);
    }
});
