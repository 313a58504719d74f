// usage: javascript.mjs NATIVE_MICROSECONDS; bench/javascript starts it.
import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";

const sources = dirname(dirname(fileURLToPath(import.meta.url)));
const made = join(sources, "build/js/package");
const native = Number(process.argv[2]);
const { api, Canvas, Screen, Widget } = await import(join(made, "node.mjs"));

/** The shortest time of one call, in microseconds. */
function best(work, number, rounds = 40) {
    let shortest = Infinity;
    for (let round = 0; round < rounds; round++) {
        const start = performance.now();
        for (let i = 0; i < number; i++) work(i);
        shortest = Math.min(shortest, (performance.now() - start) * 1000 / number);
    }
    return shortest;
}

/** As bench/screen.cpp makes them. */
function settings(canvas, theme) {
    return [
        api.orvel_widget_window(canvas, theme, "Settings", 0, 0, 320, 240),
        api.orvel_widget_tabs(canvas, theme, "General|Sound|Network", 8, 24, 304, 20, 1),
        api.orvel_widget_panel(canvas, theme, 8, 50, 148, 140),
        api.orvel_widget_label(canvas, theme, "Volume", 16, 58),
        api.orvel_widget_slider(canvas, theme, 16, 70, 130, 0.6),
        api.orvel_widget_checkbox(canvas, theme, "Play at start", 16, 88, 1),
        api.orvel_widget_radio(canvas, theme, "Stereo", 16, 106, 1),
        api.orvel_widget_radio(canvas, theme, "Mono", 16, 122, 0),
        api.orvel_widget_toggle(canvas, theme, 16, 140, 32, 16, 1),
        api.orvel_widget_progress(canvas, theme, 16, 166, 130, 12, 0.35),
        api.orvel_widget_list_item(canvas, theme, "Speakers", "volume", 164, 50, 148, 22, 1),
        api.orvel_widget_list_item(canvas, theme, "Headphones", "music", 164, 74, 148, 22, 0),
        api.orvel_widget_textbox(canvas, theme, "Living room", 164, 104, 148, 18),
        api.orvel_widget_dropdown(canvas, theme, "44100 Hz", 164, 128, 148, 18, 0),
        api.orvel_widget_icon(canvas, theme, "wifi", 164, 154, 32),
        api.orvel_widget_button(canvas, theme, "Cancel", 164, 196, 70, 20),
        api.orvel_widget_button(canvas, theme, "Save", 242, 196, 70, 20),
        api.orvel_widget_statusbar(canvas, theme, "Connected", 0, 222, 320, 18),
    ];
}

/** How long after its start node has the package, in milliseconds: the shortest of several. */
function ready() {
    const program = `const start = performance.now(); require(${JSON.stringify(made)});
        console.log(performance.now() - start);`;
    const times = Array.from({ length: 15 }, () =>
        Number(execFileSync(process.execPath, ["-e", program], { encoding: "utf8" })));
    return Math.min(...times);
}

const theme = {};
api.orvel_theme_default(theme);
const widgets = settings(api.kit_canvas(320, 240), theme);
const redraw = best(() => widgets.forEach(api.orvel_widget_draw), 200, 60);
const folder = join(sources, "scenes/instrument");
const data = JSON.parse(readFileSync(join(folder, "data.json"), "utf8"));
const screen = new Screen(readFileSync(join(folder, "boiler.json")), data);
const canvas = screen.render();
const button = new Widget("button", 10, 10, 80, 22, { text: "OK" });
const packed = gzipSync(readFileSync(join(made, "orvelsdk.js")), { level: 9 }).length;
const us = (time) => `${time.toFixed(2)} µs`, ms = (time) => `${(time / 1000).toFixed(2)} ms`;
for (const row of [
    ["the one file, compressed by gzip", `${(packed / 1000).toFixed(0)} kB`],
    ["`require(\"orvelsdk\")`, until it can draw", `${ready().toFixed(0)} ms`],
    ["the screen of 18 widgets, redrawn", us(redraw)],
    ["… by the native library", us(native)],
    ["… ratio", (redraw / native).toFixed(1)],
    ["`canvas.set(1, 2, \"#010203\")`", us(best(() => canvas.set(1, 2, "#010203"), 5000))],
    ["`canvas.text(\"21.5 °C\", 10, 20)`", us(best(() => canvas.text("21.5 °C", 10, 20), 5000))],
    ["`canvas.draw(button)`", us(best(() => canvas.draw(button), 2000))],
    ["`new Canvas(320, 240)` and its end", us(best(() => new Canvas(320, 240).free(), 500))],
    ["`screen.render(data)` of scenes/instrument, 320 × 240", ms(best(() => screen.render(data).free(), 50))],
    ["320 × 240 to `canvas.imageData()`", ms(best(() => canvas.imageData(), 50))],
    ["… to PNG bytes: `canvas.png()`", ms(best(() => canvas.png(), 5))],
    ["… to PNG bytes at level 1", ms(best(() => canvas.png(1), 5))],
]) console.log(`| ${row[0]} | ${row[1]} |`);
