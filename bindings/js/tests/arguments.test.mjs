// Every method with good arguments, with nothing, with the wrong types and at the ends of its ranges.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { Canvas, Chart, CHARTS, Color, Face, FACES, files, FORMATS, Freed, ICONS, KINDS, OrvelError,
         playMusic, playSound, playTone, Screen, setLog, setPlayer, setResourcePath, stopMusic, Theme,
         version, Widget } from "orvelsdk";
import { SOURCES } from "./project.mjs";

const LOWEST = -(2 ** 31), HIGHEST = 2 ** 31 - 1;
const BAD_INTS = [null, undefined, "1", 1.5, NaN, Infinity, [1], 2 ** 31, -(2 ** 31) - 1, 10n];
const BAD_TEXTS = [1, {}, ["a"], "a\0b"];
const BAD_COLORS = [null, 1, "red", "#12", "#gggggg", "#1234567", [1, 2], [1, 2, 3, 4, 5], [256, 0, 0],
                    [-1, 0, 0], [0.5, 0, 0], {}, "#１２３４５６"];
const refused = ({ name }) => ["TypeError", "RangeError", "OrvelError", "OutOfMemory"].includes(name);
const small = () => new Canvas(32, 24);
setLog(() => undefined);

test("shapes take any int and nothing else", () => {
    for (const [name, count] of [["line", 4], ["rect", 4], ["fill", 4], ["circle", 3], ["disc", 3],
                                 ["triangle", 6], ["set", 2]]) {
        const canvas = small();
        const before = canvas.pixels();
        canvas[name](...[2, 3, 9, 8, 5, 14].slice(0, count), "#fedcba");
        assert.notDeepEqual(canvas.pixels(), before, name);
        for (let place = 0; place < count; place++) {
            const numbers = Array(count).fill(3);
            for (numbers[place] of [LOWEST, -1, 0, 7, HIGHEST]) canvas[name](...numbers, "#ff0000");
            for (numbers[place] of BAD_INTS) assert.throws(() => canvas[name](...numbers), refused);
        }
        for (const bad of BAD_COLORS) {
            assert.throws(() => canvas[name](...Array(count).fill(3), bad), refused, `${name} ${bad}`);
        }
    }
});

test("a canvas has sides", () => {
    for (const bad of [...BAD_INTS, 0, -1, 100_000]) {
        assert.throws(() => new Canvas(bad, 100_000), refused);
        assert.throws(() => new Canvas(100_000, bad), refused);
    }
});

test("pixels are set and told", () => {
    const canvas = small();
    canvas.set(3, 4, "#01020304");
    assert.deepEqual({ ...canvas.get(3, 4) }, { r: 1, g: 2, b: 3, a: 4 });
    assert.equal(canvas.get(-1, 0).a, 0);
    assert.equal(String(canvas.get(3, 4)), "#01020304");
    assert.equal(new Color(255, 255, 255).grey, 255);
    assert.equal(String(Color.of("#000000").mix([200, 100, 50], 50)), "#643219");
});

test("words", () => {
    for (const text of ["", "ä€😀", "\ud800", "\u202e\u00ad\u200b", "x".repeat(1_000_000), "\n\t\r"]) {
        const canvas = small();
        assert.equal(typeof canvas.text(text, 0, 10), "number");
        assert.equal(typeof canvas.textBox(text, [0, 0, 30, 12], { align: "center" }), "boolean");
        assert.ok(canvas.textWrap(text, { x: 0, y: 0, w: 30, h: 12 }, { face: "bold 12" }) >= 0);
        canvas.signs(text, 0, 0);
        assert.ok(new Face("sans 12").missing(text) >= 0);
        canvas.widget("button", 0, 0, 0, 0, { text });
    }
    const canvas = small(), face = new Face("sans 12");
    for (const bad of BAD_TEXTS) {
        for (const call of [() => canvas.text(bad, 0, 0), () => canvas.textBox(bad, [0, 0, 9, 9]),
                            () => canvas.textWrap(bad, [0, 0, 9, 9]), () => canvas.signs(bad, 0, 0),
                            () => canvas.icon(bad, 0, 0, 16), () => face.width(bad), () => new Face(bad),
                            () => Face.read(bad), () => Theme.load(bad), () => playSound(bad),
                            () => new Widget("button", 0, 0, 0, 0, { hint: bad }),
                            () => setResourcePath(bad)]) {
            assert.throws(call, refused, String(call));
        }
    }
    assert.throws(() => canvas.text("a", 0, 0, { face: "sans 13" }), /there are sans 11/);
    assert.throws(() => canvas.textBox("a", [0, 0, 9, 9], { align: "middle" }), /left, center, right/);
    assert.throws(() => canvas.textBox("a", [0, 0, 9]), refused);
    assert.equal(face.at("äb", face.xOf("äb", 1)), 1);
    assert.ok(face.has("€") && !face.has(0x10ffff));
});

test("a lone surrogate shows as the sign for it", () => {
    const one = small(), other = small();
    one.text("a\ud800", 0, 12);
    other.text("a\ufffd", 0, 12);
    assert.deepEqual(one.pixels(), other.pixels());
});

test("every widget, chart, face and icon draws", () => {
    assert.equal(Object.keys(KINDS).length, 28);
    assert.equal(ICONS.length, 68);
    assert.equal(version, JSON.parse(readFileSync(`${SOURCES}/bindings/orvel_api.json`)).version);
    const canvas = new Canvas(200, 100);
    for (const kind of Object.keys(KINDS)) {
        if (kind === "image") continue;
        const parts = { text: kind === "icon" ? "home" : "One|Two", data: [0.5, NaN, 1], value: NaN,
                        amount: -3, hover: true, active: true, focus: true, caret: 99, anchor: -1 };
        canvas.widget(kind, 0, 0, 90, 40, parts);
        assert.ok(new Widget(kind, 0, 0, 0, 0, parts).size()[0] >= 0);
    }
    for (const kind of Object.keys(CHARTS)) {
        canvas.chart(kind, [[1, null, NaN, 1e308], { values: [2], name: "b", color: "accent" }], 0, 0, 99, 99,
                     { axes: true, legend: true, labels: ["a", "b"], unit: " l" });
    }
    for (const name of ICONS) canvas.icon(name, 0, 0, 24);
    for (const name of FACES) assert.ok(canvas.text("1", 0, 50, { face: name }) > 0);
    assert.throws(() => new Widget("buton"), /there is no widget "buton"; there are avatar/);
    assert.throws(() => new Widget("button", 0, 0, 0, 0, { txt: "a" }), /no "txt"/);
    assert.throws(() => new Widget("tabs", 0, 0, 0, 0, { text: ["a|b"] }), /would be two/);
    assert.throws(() => canvas.icon("hme", 0, 0, 24), /there is no icon "hme"; ICONS lists them/);
    assert.throws(() => canvas.icon("home", 0, 0, 0), /the icon "home" cannot be drawn 0 pixels/);
    assert.throws(() => new Chart("bars", [[1]], 0, 0, 9, 9, { decimals: NaN }), RangeError);
    assert.throws(() => new Chart("bars", [["1"]], 0, 0, 9, 9), TypeError);
    assert.throws(() => canvas.chart("bars", Array(33).fill([1]), 0, 0, 99, 99), OrvelError);
    assert.throws(() => canvas.draw({}), TypeError);
});

test("an option that there is not is refused, whatever it is of", () => {
    const canvas = small(), screen = new Screen({ orvel: 1, root: { row: [] } });
    const wrong = { colour: "#ffffff" }, box = [0, 0, 9, 9];
    const calls = [() => new Canvas(3, 3, null, wrong), () => Canvas.read(canvas.png(), wrong),
                   () => Canvas.fromPixels(1, 1, new Uint8Array(4), wrong),
                   () => canvas.text("a", 0, 9, wrong), () => canvas.text("a", 0, 9, { align: "right" }),
                   () => canvas.textBox("a", box, wrong), () => canvas.textWrap("a", box, wrong),
                   () => canvas.paste(small(), 0, 0, wrong), () => canvas.bmp(wrong),
                   () => canvas.widget("button", 0, 0, 9, 9, wrong),
                   () => canvas.widget("button", 0, 0, 9, 9, { draw: 1 }),
                   () => canvas.chart("bars", [[1]], ...box, wrong),
                   () => canvas.chart("bars", [[1]], ...box, { toString: 1 }),
                   () => canvas.chart("bars", [{ values: [1], ...wrong }], ...box),
                   () => canvas.pixels("rgba", wrong), () => screen.report("rgba", wrong),
                   () => new Screen({ orvel: 1, root: { row: [] } }, null, wrong),
                   () => new Screen({ orvel: 1, root: { row: [] } }, null, { host: { picture: {} } }),
                   () => screen.send({ kind: "press", ...wrong }, 1), () => new Theme(wrong)];
    for (const call of calls) assert.throws(call, /^RangeError: .* has no "(colour|align|picture|draw|toString)"/);
    for (const bad of [null, 1, "dark"]) {
        assert.throws(() => canvas.text("a", 0, 9, bad), /^TypeError: the options of a line of words/);
    }
});

test("themes", () => {
    const theme = Theme.light({ accent: "#fe640b" });
    assert.equal(String(theme.accent), "#fe640b");
    assert.ok(Theme.read(JSON.stringify(theme)).equals(theme) && !theme.equals(new Theme()));
    theme.save("mine.json");
    assert.ok(Theme.load("mine.json").equals(theme));
    for (const name of ["forest", "high-contrast", "lagoon", "midnight", "paper", "terminal"]) {
        files.set("Resources/UI/one.json", readFileSync(`${SOURCES}/share/themes/${name}.json`));
        assert.ok(Theme.load("one.json").equals(Theme.read(files.get("Resources/UI/one.json"))), name);
    }
    assert.throws(() => Theme.read("{}", "night"), /^OrvelError: night: background: found nothing/);
    assert.throws(() => Theme.read("{", "night"), /^OrvelError: night: /);
    assert.throws(() => new Theme({ acent: "#000000" }), /no "acent"/);
    assert.throws(() => Theme.of("blue"), RangeError);
    assert.throws(() => Theme.load("nothing"), OrvelError);
    assert.deepEqual(files.names(), ["Resources/UI/mine.json", "Resources/UI/one.json"]);
    assert.ok(files.delete("./Resources//UI/mine.json") && files.delete("Resources/UI/one.json"));
});

test("pixels out", () => {
    const canvas = new Canvas(17, 5, "#010203");
    canvas.disc(8, 2, 2, "#ffffff40");
    assert.equal(canvas.imageData().data.length, 4 * 17 * 5);
    assert.equal(canvas.imageData([1, 1, 3, 2]).width, 3);
    for (const format of Object.keys(FORMATS)) {
        const out = canvas.pixels(format, { palette: ["#000000", "#ffffff"], dither: "ordered", turns: 1 });
        assert.ok(out.length > 0, format);
    }
    assert.deepEqual(canvas.pixels("rgba").slice(0, 4), Uint8Array.of(1, 2, 3, 255));
    for (const bad of [[0, 0, 18, 1], [-1, 0, 1, 1], [0, 0, 0, 0], [LOWEST, 0, HIGHEST, 1], 1, "a"]) {
        assert.throws(() => canvas.pixels("rgba", { box: bad }), refused);
    }
    assert.throws(() => canvas.pixels("rgb"), /there is no format "rgb"/);
    assert.throws(() => canvas.pixels("index4"), /needs a palette/);
    assert.throws(() => canvas.pixels("grey1", { dither: "all" }), RangeError);
    assert.throws(() => canvas.png(10), RangeError);
    assert.deepEqual(Canvas.read(canvas.png()).pixels(), canvas.pixels());
    assert.deepEqual(Canvas.read(canvas.bmp({ alpha: true })).pixels(), canvas.pixels());
    assert.deepEqual(Canvas.fromPixels(17, 5, canvas.pixels()).pixels(), canvas.pixels());
    assert.deepEqual(canvas.copy().pixels(), canvas.pixels());
    assert.throws(() => Canvas.fromPixels(17, 6, canvas.pixels()), RangeError);
    const png = canvas.png();
    for (let cut = 0; cut < png.length; cut++) {
        assert.throws(() => Canvas.read(png.slice(0, cut)), OrvelError, String(cut));
        const wrong = png.slice();
        wrong[cut] ^= 1;
        assert.throws(() => Canvas.read(wrong), OrvelError, String(cut));
    }
});

test("PNG files of other writers", () => {
    for (const name of ["gallery-light.png", "showcase.png"]) {
        const file = readFileSync(`${SOURCES}/docs/images/${name}`);
        const canvas = Canvas.read(file);
        assert.deepEqual(Canvas.read(canvas.png(1)).pixels(), canvas.pixels());
    }
});

test("clips draw inside alone", () => {
    const canvas = small();
    canvas.clip([-5, -5, 15, 10], (inside, corner) => {
        assert.deepEqual(corner, { x: 0, y: 0 });
        inside.clear("#ff0000");
    });
    assert.equal(String(canvas.get(9, 4)), "#ff0000");
    assert.equal(String(canvas.get(10, 4)), "#000000");
    canvas.clip([99, 99, 5, 5], () => assert.fail("nothing of it is there"));
    assert.throws(() => canvas.clip([0, 0, 5, 5], () => { throw new Error("mine"); }), /mine/);
});

test("free is explicit, and twice does no harm", () => {
    for (const thing of [small(), new Face("sans 12").fallback("bold 12"),
                         new Screen({ orvel: 1, root: { row: [] } })]) {
        assert.ok(!thing.freed);
        thing.free();
        thing.free();
        assert.ok(thing.freed);
    }
    const canvas = small();
    canvas.free();
    for (const call of [() => canvas.clear(), () => canvas.png(), () => small().paste(canvas, 0, 0),
                        () => new Widget("button").draw(canvas)]) assert.throws(call, Freed);
});

test("sounds go to a player, and are -1 without one", () => {
    assert.throws(() => playTone(440, 100), /cannot be played/);
    assert.throws(() => playSound("ping"), /cannot be played/);
    const heard = [];
    setPlayer({ tone: (wav) => heard.push(wav) > 0, effect: (file, name) => heard.push([file.length, name]) > 0,
                music: (file, name) => (heard.push(name), () => heard.push("end")) });
    playTone(440, 100);
    assert.equal(String.fromCharCode(...heard[0].slice(0, 4)), "RIFF");
    assert.equal(heard[0].length, 44 + 2 * 4410);
    files.set("Resources/Sounds/ping.wav", Uint8Array.of(1, 2));
    files.set("Resources/Music/song.mp3", Uint8Array.of(1));
    playSound("ping");
    playMusic("song");
    stopMusic();
    assert.deepEqual(heard.slice(1), [[2, "./Resources/Sounds/ping.wav"],
                                      "./Resources/Music/song.mp3", "end"]);
    assert.throws(() => playSound("pong"), OrvelError);
    setPlayer({ tone() { throw new Error("broken"); } });
    assert.throws(() => playTone(440, 100), OrvelError);
    for (const bad of [NaN, 0, -1, "440"]) assert.throws(() => playTone(bad, 100), refused);
    setPlayer(undefined);
});
