// Nothing leaks, and objects go in any order.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Canvas, Face, Freed, Screen, Theme, Widget } from "orvelsdk";

const scene = { orvel: 1, size: [64, 48], root: { column: [
    { text: "${text}" }, { progress: "${value}" }, { picture: "red", id: "red" }] } };

function random(seed) {
    return (below) => {
        seed = Math.imul(seed, 1664525) + 1013904223 | 0;
        return (seed >>> 8) % below;
    };
}

test("objects are freed or collected in any order", async () => {
    const number = random(3);
    for (let round = 0; round < 200; round++) {
        const red = new Canvas(5, 5, "#ff0000");
        const chain = new Face("sans 12").fallback("bold 12").fallback("mono 12");
        const things = { canvas: new Canvas(30, 20), chain, red, theme: new Theme(),
                         screen: new Screen(scene, { text: "a", value: 0.5 },
                                            { host: { pictures: { red } } }),
                         widget: new Widget("button", 0, 0, 0, 0, { text: "a", face: chain }) };
        for (const name of Object.keys(things).sort(() => number(3) - 1)) {
            if (number(2)) things[name].free?.();
            delete things[name];
            if (things.canvas && things.widget) {
                try {
                    things.canvas.draw(things.widget);
                } catch (reason) {
                    assert.ok(reason instanceof Freed && !things.chain);
                }
            }
            if (things.screen) {
                const drawn = things.screen.render();
                const { x, y, w, h } = things.screen.box("red");
                assert.equal(String(drawn.get(x + (w >> 1), y + (h >> 1))), "#ff0000");
                drawn.free();
            }
        }
        if (round % 20 === 0) {
            globalThis.gc();
            await new Promise((resolve) => setImmediate(resolve));
        }
    }
});

test("a screen shows its pictures after they were freed", () => {
    const red = new Canvas(64, 48, "#ff0000");
    const screen = new Screen({ orvel: 1, size: [64, 48], root: { picture: "red" } }, null,
                              { host: { pictures: new Map([["red", red]]) } });
    red.free();
    for (let i = 0; i < 10; i++) new Canvas(64, 48, "#00ff00");
    assert.equal(String(screen.render().get(30, 20)), "#ff0000");
    assert.throws(() => red.get(0, 0), Freed);
});

test("memory is flat over 100,000 canvases", () => {
    const small = { orvel: 1, size: [64, 48], root: { text: "${value}" } };
    const widget = new Widget("button", 5, 5, 0, 0, { text: "a" });
    const one = (i) => {
        const canvas = new Canvas(64, 48, [i % 256, 0, 0]);
        canvas.text("memory", 2, 20, { face: "bold 12" });
        canvas.draw(widget);
        canvas.clip([0, 0, 9, 9], (inside) => inside.clear());
        if (i % 10 === 0) {
            canvas.chart("line", [[1, 2, i]], 0, 0, 64, 48);
            const face = new Face("sans 12").fallback("bold 12");
            face.width("a");
            face.free();
        }
        if (i % 50 === 0) {
            canvas.png();
            canvas.bmp();
            const screen = new Screen(small, { value: i });
            screen.set("value", "text");
            screen.render().free();
            assert.throws(() => screen.set("no such thing [", 1));
            screen.free();
        }
        canvas.free();
    };
    const used = () => {
        globalThis.gc();
        const { rss, heapUsed } = process.memoryUsage();
        return { rss, heapUsed };
    };
    for (let i = 0; i < 40_000; i++) one(i);  // node's own memory has to settle, too
    const before = used();
    for (let i = 0; i < 100_000; i++) one(i);
    const after = used();
    assert.ok(after.heapUsed - before.heapUsed < 1 << 20, JSON.stringify([before, after]));
    assert.ok(after.rss - before.rss < 16 << 20, JSON.stringify([before, after]));
});

test("what nobody refers to gives its memory back by itself", async () => {
    const side = 2048;  // 16 MB each, of at most 2 GB
    for (let i = 0; i < 400; i++) {
        new Canvas(side, side);
        if (i % 20 === 19) {
            globalThis.gc();
            await new Promise((resolve) => setTimeout(resolve, 1));
        }
    }
});
