// What JavaScript draws is what C draws, byte for byte: the programs of the manual and of the examples,
// compiled here by the system's compiler with the same sources.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { Canvas, Chart, Face, Theme, Widget } from "orvelsdk";
import { built, pageProgram, SOURCES } from "./project.mjs";

function same(expected, canvas) {
    assert.ok(Buffer.from(canvas.bmp()).equals(expected));
}

test("hello", () => {
    const [night, far, near, light] = [[22, 27, 51], [52, 64, 105], "#202848", "#ffd166"];
    const canvas = new Canvas(240, 144, night);
    canvas.disc(186, 44, 25, light);
    canvas.disc(175, 37, 22, night);
    canvas.triangle(-30, 144, 84, 66, 192, 144, far);
    canvas.triangle(90, 144, 186, 90, 285, 144, near);
    canvas.text("Hello", 18, 36, { face: "bold 24", color: light });
    canvas.text("Good night, hills", 19, 56, { color: light });
    canvas.rect(0, 0, 240, 144, light);
    same(built(readFileSync(`${SOURCES}/examples/hello.c`, "utf8"), "hello.bmp"), canvas);
});

test("the first screen", () => {
    const canvas = new Canvas(320, 240, "background");
    const watts = [0.2, 0.3, 0.3, 0.5, 0.9, 0.8, 0.6, 0.4, 0.3, 0.2, 0.2, 0.1];
    canvas.text("Lights", 12, 24, { face: "bold 18" });
    for (const widget of [
        new Widget("list_item", 12, 36, 140, 26, { text: "Kitchen", icon: "sun", active: true }),
        new Widget("list_item", 12, 62, 140, 26, { text: "Bedroom", icon: "moon" }),
        new Widget("list_item", 12, 88, 140, 26, { text: "Garden", icon: "cloud" }),
        new Widget("card", 164, 36, 144, 78),
        new Widget("toggle", 264, 48, 32, 16, { active: true }),
        new Widget("slider", 176, 86, 120, 16, { value: 0.7 }),
        new Widget("bars", 12, 124, 296, 56, { data: watts }),
        new Widget("button", 208, 188, 100, 22, { text: "All off", hover: true }),
        new Widget("statusbar", 0, 218, 320, 22, { text: "3 rooms" }),
    ]) canvas.draw(widget);
    canvas.text("Ceiling", 176, 60);
    canvas.text("70 % for 2 hours", 12, 204);
    same(built(pageProgram("first-screen.md", "screen.c"), "screen.bmp"), canvas);
});

test("a chart", () => {
    const canvas = new Canvas(400, 200, "surface", { theme: "light" });
    canvas.draw(new Chart("bars", [
        { values: [0, 0.2, 2.2, 4.3, 4.2, 1.1], name: "Solar" },
        { values: [0.6, 1.7, 1.2, 1.9, 1.2, 3.1], name: "Use" },
    ], 16, 12, 368, 176, {
        axes: true, legend: true, unit: " kW",
        labels: ["0:00", "4:00", "8:00", "12:00", "16:00", "20:00"],
    }));
    same(built(pageProgram("charts.md", "power.c"), "power.bmp"), canvas);
});

test("a theme", () => {
    const file = readFileSync(`${SOURCES}/share/themes/forest.json`);
    const theme = Theme.read(file);
    const canvas = new Canvas(200, 60, "background", { theme });
    canvas.widget("tabs", 5, 5, 190, 24, { text: ["One", "Two"], amount: 1 });
    canvas.widget("progress", 5, 40, 190, 12,
                  { value: 0.5, theme: theme.copy({ accent: [255, 0, 0] }) });
    const themed = readFileSync(`${SOURCES}/bindings/tests/themed.c`, "utf8");
    same(built(themed, "themed.bmp", { "resources/UI/forest.json": file }), canvas);
});

// The module for pages has the ink of letters in another form than the libraries.
test("letters without ink", () => {
    const letter = (code, width) =>
        `STARTCHAR ${code}\nENCODING ${code}\nSWIDTH 500 0\nDWIDTH 4 0\nBBX ${width} 0 0 0\nBITMAP\nENDCHAR\n`;
    const face = Face.read(Buffer.from(
        "STARTFONT 2.1\nFONT blank\nSIZE 8 75 75\nFONTBOUNDINGBOX 4 4 0 0\nSTARTPROPERTIES 2\n" +
        "FONT_ASCENT 4\nFONT_DESCENT 0\nENDPROPERTIES\nCHARS 2\n" +
        letter(97, 0) + letter(98, 1) + "ENDFONT\n"));
    const canvas = new Canvas(60, 20);
    const blank = canvas.bmp();
    canvas.text("ab", 4, 12, { face, color: "#ffffff" });
    same(blank, canvas);
});
