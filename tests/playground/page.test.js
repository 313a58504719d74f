// The page: it draws at once and asks nobody, survives every program, and needs no pointer.
import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { after, before, test } from "node:test";
import { gzipSync } from "node:zlib";
import {
    axe,
    bmpPixels,
    built,
    drawn,
    open,
    pixels,
    root,
    said,
    serve,
    start,
    stop,
    type,
} from "./browser.js";

before(start);
after(stop);

const SMALL =
    '{"orvel": 1, "size": [60, 30], "root": {"column": [\n  {"text": "${word}", "id": "w"}]}}';

async function download(page, name) {
    await page.click("#save");
    const [file] = await Promise.all([
        page.waitForEvent("download"),
        page.click(`[data-save="${name}"]`),
    ]);
    return readFileSync(await file.path());
}

async function toProgram(page, code) {
    await page.locator(".switch").getByText("JavaScript").click();
    await drawn(page, () => page.selectOption("#example", "animation.js"));
    await type(page, "code", code);
}

test("the page is one file of 1.3 MB, less than half of that compressed, that names no other", () => {
    const text = readFileSync(built, "utf8");
    assert.ok(gzipSync(text).length < statSync(built).size / 2);
    assert.ok(statSync(built).size < 1.4e6); // the manual's page tells both
    const policy = /Content-Security-Policy" content="([^"]*)"/.exec(text)[1];
    assert.match(
        policy,
        /^default-src 'none'; connect-src 'none'; script-src 'sha256-[^']*' 'wasm-unsafe-eval'; /,
    );
    assert.doesNotMatch(policy, /unsafe-inline|'unsafe-eval'|http|\*/);
    assert.match(policy, /worker-src blob:/);
});

test("from a plain server it works as from a file, and asks for nothing more", async () => {
    const server = await serve();
    const one = await open(server.address),
        other = await open();
    assert.ok((await pixels(one.page)).rgba.equals((await pixels(other.page)).rgba));
    assert.deepEqual([...one.faults, ...other.faults], []);
    server.end();
});

test("errors of scenes and data are told and marked by line, and the page goes on", async () => {
    const { page, faults } = await open();
    await type(page, "scene", SMALL.replace('"text"', '"texd"'));
    assert.match(await said(page, /^scene line 2/), /unknown kind.*did you mean "text"/);
    assert.equal(await page.locator("#editor-scene .cm-lint-marker-error").count(), 1);
    await page.locator("#problems button").click();
    assert.ok(
        await page
            .locator("#editor-scene .cm-content")
            .evaluate((node) => node.getRootNode().activeElement === node),
    );
    await type(page, "scene", SMALL);
    await page.getByRole("tab", { name: "data.json" }).click();
    await type(page, "data", '{"word": }');
    assert.match(await said(page, /^data line 1/), /expected/);
    await drawn(page, () => type(page, "data", '{"word": "Yes"}'));
    const { width, height } = await pixels(page);
    assert.deepEqual([width, height], [60, 30]);
    assert.equal(await page.locator("#problems li").count(), 0);
    assert.deepEqual(faults, []);
});

test("where an example's data stay in the way of the sample, that is said", async () => {
    const { page } = await open();
    await type(page, "scene", SMALL.slice(0, -1) + ', "sample": {"word": "Yes"}}');
    await said(page, /there is no word in the data.*empty data\.json to see the scene's own sample/);
    await page.getByRole("tab", { name: "data.json" }).click();
    await drawn(page, () => type(page, "data", ""));
    assert.equal(await page.locator("#problems li").count(), 0);
});

test("a list of data is a picture for each", async () => {
    const { page } = await open();
    await type(page, "scene", SMALL);
    await page.getByRole("tab", { name: "data.json" }).click();
    await type(page, "data", '[{"word": "One"}, {"word": "Two"}]');
    await said(page, /^2 pictures of 60 × 30/);
    const first = await pixels(page);
    await page.focus("#frame");
    await page.keyboard.press("End");
    assert.ok(!first.rgba.equals((await pixels(page)).rgba));
    const moving = await download(page, "apng");
    assert.equal(moving.readUInt32BE(moving.indexOf("acTL") + 4), 2);
    assert.ok(moving.includes("fdAT"));
});

test("a program without an end is ended after two seconds, and the page goes on", async () => {
    const { page, faults } = await open();
    await toProgram(page, "for (;;) {}");
    assert.match(await said(page, /two seconds/), /endless loop/);
    await drawn(page, () =>
        type(page, "code", "const c = kit_canvas(9, 7); orvel_canvas_clear(c, '#102030');"),
    );
    assert.deepEqual([...(await pixels(page)).rgba.subarray(0, 4)], [16, 32, 48, 255]);
    assert.deepEqual(faults, []);
});

test("what is wrong with a program is told with its line", async () => {
    const { page, faults } = await open();
    await toProgram(page, "const a = 1;\nconst b = ;");
    assert.match(await said(page, /Syntax/), /^Line 2: SyntaxError/);
    await type(page, "code", "\n\nnobody();");
    assert.match(await said(page, /nobody/), /^Line 3: nobody is not defined/);
    await type(page, "code", "kit_canvas(100000, 100000);");
    assert.match(
        await said(page, /too large/),
        /^Line 1: a canvas of 100000 x 100000 is too large/,
    );
    await type(page, "code", "orvel_canvas_clear(kit_canvas(2, 2), 'red');");
    assert.match(await said(page, /no colour/), /^Line 1: "red" is no colour/);
    await type(
        page,
        "code",
        "await fetch('https://example.org/').catch(() => console.log('refused'));",
    );
    await said(page, /made no picture/);
    assert.match(await page.textContent("#problems"), /refused/);
    assert.deepEqual(
        faults.filter((each) => !/Content Security Policy|Refused to connect/.test(each)),
        [],
    );
});

test("no message of a program's stands for what it drew", async () => {
    const { page, faults } = await open();
    const forged = `const forged = {done: {pictures: [{name: "a", width: 2, height: 2,
        rgba: new Uint8ClampedArray(16)}], program: {text: "forged"}, said: []}};
        self.postMessage(forged); self.postMessage({done: {}}); self.postMessage({failed: "x"});
        self.postMessage(null); orvel_canvas_clear(kit_canvas(9, 7), "#102030");`;
    await toProgram(page, "");
    await drawn(page, () => type(page, "code", forged));
    assert.deepEqual([...(await pixels(page)).rgba.subarray(0, 4)], [16, 32, 48, 255]);
    await page.getByRole("tab", { name: "Show as C" }).click();
    assert.match(await page.textContent("#program"), /kit_canvas\(9, 7\)/);
    await type(page, "code", "kit_canvas(9, 7); Array.prototype.push = function () { return 0; };");
    await said(page, /made no picture|cannot be read|is not/);
    assert.deepEqual(faults, []);
});

test("a program cannot close what it runs in, nor begin anew", async () => {
    const { page, faults } = await open();
    await toProgram(page, "");
    for (const [code, told] of [
        ["kit_canvas(9, 7);\n}); orvelPlay(async () => {", /^Line 2: SyntaxError/],
        ["kit_canvas(9, 7);\n}, self.mine = 1, async () => {", /^Line 2: SyntaxError/],
        ["kit_canvas(9, 7);\n} function postMessage() {", /^Line 2: SyntaxError/],
        ["kit_canvas(9, 7);\n`}); orvelPlay(async () => {", /SyntaxError/],
        ["\norvelPlay(async () => {});", /^Line 2: orvelPlay is not defined/],
    ]) {
        await type(page, "code", code);
        assert.match(await said(page, /Line|Syntax|9 × 7|no picture/), told, code);
        await drawn(page, () => type(page, "code", "kit_canvas(3, 2);"));
    }
    assert.deepEqual(faults, []);
});

test("a scene too large for the page is told so", async () => {
    const { page, faults } = await open();
    await type(
        page,
        "scene",
        SMALL.replace("[60, 30]", "[20000, 20000]").replace("${word}", "Word"),
    );
    assert.match(await said(page, /too large/), /a canvas of 20000 x 20000 is too large/);
    assert.deepEqual(faults, []);
});

test("a link opened in a fresh profile shows the same bytes", async () => {
    const { page, faults } = await open();
    await drawn(page, () => page.selectOption("#theme", "forest"));
    await drawn(page, () => page.selectOption("#panel", "seven"));
    await page.click("#share");
    await page.locator("#linking").waitFor();
    const link = await page.inputValue("#link");
    assert.match(link, /#1[\w-]+$/);
    const other = await open(link);
    assert.ok((await pixels(page)).rgba.equals((await pixels(other.page)).rgba));
    assert.equal(await other.page.inputValue("#theme"), "forest");

    await page.keyboard.press("Escape");
    await toProgram(
        page,
        "const c = kit_canvas(30, 20);\nkit_icon(c, 'sun', 2, 2, 16, '#ffd166');",
    );
    await said(page, /30 × 20/);
    await page.click("#share");
    await page.locator("#linking").waitFor();
    const third = await open(await page.inputValue("#link"));
    assert.ok((await pixels(page)).rgba.equals((await pixels(third.page)).rgba));
    assert.deepEqual([...faults, ...other.faults, ...third.faults], []);
});

test("what was written comes back after something else was opened", async () => {
    const { page, faults } = await open();
    const [first, second] = await page
        .locator("#example option")
        .evaluateAll((all) => all.map((each) => each.value));
    const back = page.locator("#back");
    const text = () => page.locator("#editor-scene .cm-content").innerText();
    await drawn(page, () => page.selectOption("#example", first));
    await drawn(page, () => page.selectOption("#example", second));
    assert.ok(!(await back.isVisible()));
    for (const [example, word] of [
        [second, "One"],
        [first, "Two"],
    ]) {
        assert.equal(await page.inputValue("#example"), example);
        await drawn(page, () => type(page, "scene", SMALL.replace("${word}", word)));
        await drawn(page, () =>
            page.selectOption("#example", example === first ? second : first),
        );
    }
    await page.click("#back");
    await page.waitForFunction(() => document.getElementById("picture").width === 60);
    assert.match(await text(), /Two/);
    assert.equal(await page.inputValue("#example"), first);
    await page.click("#back");
    assert.match(await text(), /One/);
    await page.click("#back");
    assert.match(await text(), /Two/);
    assert.ok(await back.isVisible());
    await drawn(page, () => page.locator(".switch").getByText("JavaScript").click());
    await drawn(page, () => type(page, "code", "kit_canvas(9, 7);"));
    await drawn(page, () => page.selectOption("#example", "animation.js"));
    await drawn(page, () => page.click("#back"));
    assert.equal((await pixels(page)).width, 9);
    assert.equal(await page.inputValue("#example"), "hello.js");
    await drawn(page, () => page.locator(".switch").getByText("Scene").click());
    assert.equal(await page.inputValue("#example"), first);
    assert.deepEqual(faults, []);
});

test("an example begins at its beginning", async () => {
    const { page } = await open();
    const scroller = page.locator("#editor-scene .cm-scroller");
    const place = () => scroller.evaluate((node) => [node.scrollLeft, node.scrollTop]);
    await scroller.evaluate((node) => node.scrollTo(40, 60));
    assert.deepEqual(await place(), [40, 60]);
    await drawn(page, () => page.selectOption("#example", { index: 2 }));
    assert.deepEqual(await place(), [0, 0]);
});

test("a link that was cut is told so", async () => {
    const { page, faults } = await open();
    await page.goto(page.url().replace(/#.*/, "") + "#1AAAA");
    await page.reload();
    assert.match(await said(page, /link/), /holds nothing that can be read/);
    assert.deepEqual(
        faults.filter((each) => !/request: file/.test(each)),
        [],
    );
});

test("files are saved as the library writes them", async () => {
    const { page, faults } = await open();
    const shown = await pixels(page);
    assert.ok(bmpPixels(await download(page, "bmp")).rgba.equals(shown.rgba));
    const png = await download(page, "png");
    assert.equal(png.subarray(1, 4).toString(), "PNG");
    assert.match((await download(page, "source")).toString(), /"orvel": 1/);
    assert.match((await download(page, "c")).toString(), /^#include <orvel_screen\.h>/);
    await page.getByRole("tab", { name: "Compare" }).click();
    await page.setInputFiles("#drop input", {
        name: "same.png",
        mimeType: "image/png",
        buffer: png,
    });
    await page.waitForFunction(() =>
        /No pixel differs/.test(document.getElementById("drawers").textContent),
    );
    await page.selectOption("#theme", "dark");
    await page.waitForFunction(() =>
        /\d+ pixels differ, the first at/.test(document.getElementById("drawers").textContent),
    );
    const dataTransfer = await page.evaluateHandle(() => {
        const dropped = new DataTransfer();
        dropped.items.add(new File(["words"], "words.txt"));
        return dropped;
    });
    await page.dispatchEvent("#stage", "drop", { dataTransfer });
    await page.locator("#drawers").getByText("words.txt is no picture").waitFor();
    assert.deepEqual(faults, []);
});

test("what is clicked in the lists is inserted, and draws", async () => {
    const { page, faults } = await open();
    await page.waitForFunction(
        () => document.querySelectorAll(".tiles.wide button").length === 28,
        null,
        { timeout: 20000 },
    );
    assert.equal(await page.locator(".tiles:not(.wide) button").count(), 68);
    await type(page, "scene", SMALL.replace('"${word}"', '"Word"'));
    await said(page, /60 × 30/);
    for (const button of await page.locator(".tiles.wide button").all()) {
        await type(page, "scene", SMALL.replace('"${word}"', '"Word"'));
        await drawn(page, () => button.click());
        assert.doesNotMatch(await page.textContent("#state"), /line/);
    }
    await drawn(page, () => page.locator(".switch").getByText("JavaScript").click());
    for (const name of ["button", "area chart", "sun"]) {
        await type(
            page,
            "code",
            "const canvas = kit_canvas(240, 120), theme = {};\norvel_theme_light(theme);",
        );
        await said(page, /240 × 120/);
        await drawn(page, () =>
            page
                .locator("#drawers")
                .getByRole("button", { name: `Insert ${name}`, exact: true })
                .or(page.locator(`button[title="Insert ${name}"]`))
                .first()
                .click(),
        );
        assert.doesNotMatch(await page.textContent("#state"), /Line/);
    }
    assert.deepEqual(faults, []);
});

test("what is inserted into a program names what is there, and draws", async () => {
    const { page, faults } = await open();
    const icon = page.locator('#drawers button[title="Insert sun"]');
    const button = page.locator('#drawers button[title="Insert button"]');
    await page.locator(".switch").getByText("JavaScript").click();
    const files = await page
        .locator("#example option")
        .evaluateAll((all) => all.map((each) => each.value));
    await button.waitFor({ timeout: 20000 });
    for (const file of files) {
        if (file !== (await page.inputValue("#example")))
            await drawn(page, () => page.selectOption("#example", file));
        const before = await pixels(page);
        await drawn(page, () => button.click());
        await drawn(page, () => icon.click());
        const state = await page.textContent("#state");
        assert.match(state, /^(Drawn|\d+ pictures of)/, file);
        if (file === "hello.js") assert.ok(!before.rgba.equals((await pixels(page)).rgba), file);
    }
    for (const [code, inserted] of [
        ["", /kit_icon\(canvas, "sun", 16, 16, 24, theme\.text\);/],
        ["let c = kit_canvas(50, 40); // mine\nfor (;;) break", /kit_icon\(c, .*theme\.text/],
        ["const theme = 1, c = kit_canvas(50, 40)", /kit_icon\(c, .*theme2\.text/],
        ["{ const c = kit_canvas(5, 4); kit_save_bmp(c, 'a') }", /kit_icon\(canvas, /],
    ]) {
        await type(page, "code", code || " ");
        await drawn(page, () => icon.click());
        assert.match(await page.locator("#editor-code .cm-content").innerText(), inserted);
        assert.match(await page.textContent("#state"), /^(Drawn|2 pictures of)/, code);
    }
    assert.deepEqual(faults, []);
});

test("the schema completes keys and values, the header completes functions", async () => {
    const { page } = await open();
    await type(page, "scene", '{"orvel": 1, "root": {"column": [{"icon": ""}]}}');
    for (let i = 0; i < 5; i++) await page.keyboard.press("ArrowLeft");
    await page.keyboard.press("Control+Space");
    await page.locator(".cm-tooltip-autocomplete").waitFor();
    assert.match(await page.locator(".cm-tooltip-autocomplete").textContent(), /"settings"/);
    await page.keyboard.press("Escape");
    await type(page, "scene", '{"orvel": 1, "root": {"text": "A", }}');
    for (let i = 0; i < 2; i++) await page.keyboard.press("ArrowLeft");
    await page.keyboard.press("Control+Space");
    await page.locator(".cm-tooltip-autocomplete").waitFor();
    const offered = await page.locator(".cm-tooltip-autocomplete").textContent();
    assert.match(offered, /"lines"/);
    assert.doesNotMatch(offered, /"series"/);
    await page.keyboard.press("Escape");
    await toProgram(page, "");
    await page.locator("#editor-code .cm-content").click();
    await page.keyboard.type("fill_tri");
    assert.match(
        await page.locator(".cm-tooltip-autocomplete").textContent(),
        /orvel_canvas_fill_triangle/,
    );
});

test("a theme is edited with its contrasts beside it", async () => {
    const { page, faults } = await open();
    await page.getByRole("tab", { name: "Theme" }).click();
    const field = page.getByLabel("background, as #rrggbb");
    await drawn(page, () => field.fill("#000000"));
    assert.equal(await page.inputValue("#theme"), "own");
    await drawn(page, () => page.getByLabel("text, as #rrggbb", { exact: true }).fill("#ffffff"));
    assert.match(
        await page.locator("tbody tr").first().textContent(),
        /text on background21\.00 : 1good/,
    );
    await page.getByLabel("text, as #rrggbb", { exact: true }).fill("#010101");
    assert.match(await page.locator("tbody tr").first().textContent(), /1\.01 : 1too little/);
    assert.deepEqual(faults, []);
});

test("messages name what is meant, and C has a length once", async () => {
    const { page, faults } = await open();
    const about = JSON.parse(readFileSync(`${root}/build/js/package/package.json`, "utf8"));
    assert.equal(await page.textContent("#version"), `version ${about.version}`);
    await toProgram(page, "const c = kit_canvas(9, 9); orvel_canvas_destroy(c); kit_pixels(c);");
    assert.match(await said(page, /freed/), /orvel_canvas was freed/);
    await type(page, "code", "kit_canvas(50);");
    await said(page, /^Line 1: height is a whole number, not undefined/);
    await page.getByRole("tab", { name: "Show as C" }).click();
    await drawn(page, () =>
        type(
            page,
            "code",
            "const c = kit_canvas(90, 90), theme = {}; orvel_theme_light(theme); " +
                "kit_chart_draw(c, theme, {kind: KIT_CHART_LINE, box: [0, 0, 90, 90], count: 1, " +
                "series: [{values: [1, 2, 3], count: 3}]});",
        ),
    );
    await page.locator("#program").getByText("kit_chart_draw").waitFor();
    const text = await page.textContent("#program");
    assert.match(text, /\.count = 3\}/);
    assert.doesNotMatch(text, /\.count = \d+, \.count/);
    assert.deepEqual(faults, []);
});

test("the inspector names the pixel and the node under pointer and arrow keys", async () => {
    const { page } = await open();
    await drawn(page, () => type(page, "scene", SMALL.replace('"${word}"', '"Word"')));
    await said(page, /60 × 30/);
    await page.selectOption("#zoom", "4");
    await page.locator("#picture").hover({ position: { x: 4 * 5 + 2, y: 4 * 3 + 2 } });
    assert.equal(await page.textContent("#place"), "5, 3");
    assert.match(await page.textContent("#node"), /text "Word" #w/);
    assert.match(await page.textContent("#color"), /^#[0-9a-f]{6}$/);
    await page.mouse.move(0, 0);
    await page.focus("#stage");
    await page.keyboard.press("ArrowLeft");
    assert.equal(await page.textContent("#place"), "29, 15");
    await page.keyboard.press("Shift+ArrowDown");
    assert.equal(await page.textContent("#place"), "29, 25");
});

const USED = `{"orvel": 1, "size": [200, 80], "root": {"column": [
  {"toggle": "\${on}", "id": "lamp", "width": 60, "height": 30},
  {"textbox": "\${word}", "id": "word", "width": 160, "height": 28}], "pad": 4, "gap": 4}}`;

test("pointer and keyboard use the screen, where the library lets them", async (t) => {
    const { page, faults } = await open();
    const text = readFileSync(`${root}/kit/include/orvel_screen.h`, "utf8");
    assert.equal(await page.isVisible("#live-field"), text.includes("kit_screen_send"));
    if (!(await page.isVisible("#live-field"))) return t.skip("the library has no input");
    await type(page, "scene", USED);
    await page.getByRole("tab", { name: "data.json" }).click();
    await drawn(page, () => type(page, "data", '{"on": false, "word": "Hi"}'));
    await drawn(page, () => page.check("#live"));
    await page.selectOption("#zoom", "2");
    const before = await pixels(page);
    await page.locator("#picture").click({ position: { x: 2 * 30, y: 2 * 18 } });
    await page.locator("#problems").getByText("on = true").waitFor();
    assert.ok(!before.rgba.equals((await pixels(page)).rgba));
    await page.locator("#picture").click({ position: { x: 2 * 150, y: 2 * 52 } });
    await page.keyboard.type("!");
    await page.locator("#problems").getByText('word = "Hi!"').waitFor();
    await page.keyboard.press("Escape");
    await page.keyboard.press("Tab");
    assert.notEqual(await page.evaluate(() => document.activeElement.id), "stage");
    await drawn(page, () => page.uncheck("#live"));
    assert.ok(before.rgba.equals((await pixels(page)).rgba));
    assert.deepEqual(faults, []);
});

/** Whether a box of the picture, or all of it, shows on the stage. */
const shows = (page, box) =>
    page.evaluate((box) => {
        const stage = document.getElementById("stage").getBoundingClientRect();
        const picture = document.getElementById("picture");
        const at = picture.getBoundingClientRect();
        const { x, y, w, h } = box ?? { x: 0, y: 0, w: picture.width, h: picture.height };
        const scale = at.width / picture.width;
        return (
            at.left + scale * x >= stage.left &&
            at.top + scale * y >= stage.top &&
            at.left + scale * (x + w) <= stage.right &&
            at.top + scale * (y + h) <= stage.bottom
        );
    }, box);

const sized = (width, height) =>
    SMALL.replace("[60, 30]", `[${width}, ${height}]`).replace("${word}", "Word");

test("a picture that fits shows whole, in the screen's pixels, and others scroll", async () => {
    for (const [width, height, deviceScaleFactor, ...sides] of [
        [1280, 900, 1, 800, 300],
        [1280, 900, 2, 300, 200],
        [1280, 900, 1.5, 500, 300],
        [390, 844, 3, 400, 300],
    ]) {
        const look = { viewport: { width, height }, deviceScaleFactor };
        const { page } = await open(undefined, look);
        await drawn(page, () => type(page, "scene", sized(...sides)));
        await said(page, new RegExp(sides.join(" × ")));
        assert.ok(await shows(page), look);
        const [across, room] = await page.evaluate(() => {
            const [picture, stage] = ["picture", "stage"].map((id) => document.getElementById(id));
            return [parseFloat(picture.style.width), stage.clientWidth - 32];
        });
        const each = (across * deviceScaleFactor) / sides[0];
        assert.ok(Math.abs(each - Math.round(each)) < 1e-3, `${each} pixels for one`);
        const larger = (across * (each + 1)) / each;
        const isHigh = (larger / sides[0]) * sides[1] > height / 3;
        assert.ok(larger > room || isHigh, `${larger} would fit ${room}`);
    }
    const { page } = await open(undefined, { viewport: { width: 1280, height: 720 } });
    await drawn(page, () => type(page, "scene", sized(2000, 1500)));
    await said(page, /2000 × 1500/);
    for (const corner of [
        { x: 0, y: 0, w: 9, h: 9 },
        { x: 1991, y: 1491, w: 9, h: 9 },
    ]) {
        await page.evaluate(
            ({ x, y }) => document.getElementById("stage").scrollTo(2 * x, 2 * y),
            corner,
        );
        assert.ok(await shows(page, corner), JSON.stringify(corner));
    }
});

test("the control that keys lead to is scrolled to", async () => {
    const { page, faults } = await open();
    const tall = `{"orvel": 1, "size": [300, 1500], "root": {"column": [
        {"button": "First", "id": "first", "width": 90, "height": 30}, {"space": 1440},
        {"textbox": "Word", "id": "last", "width": 90, "height": 30}]}}`;
    await drawn(page, () => type(page, "scene", tall));
    await said(page, /300 × 1500/);
    await drawn(page, () => page.check("#live"));
    const last = { x: 1, y: 1471, w: 88, h: 28 };
    await page.focus("#stage");
    await page.keyboard.press("Tab");
    assert.ok(!(await shows(page, last)));
    await page.keyboard.press("Tab");
    await page.waitForFunction(() => document.getElementById("stage").scrollTop > 0);
    assert.ok(await shows(page, last));
    await page.keyboard.press("Shift+Tab");
    await page.waitForFunction(() => document.getElementById("stage").scrollTop < 50);
    assert.ok(await shows(page, { x: 1, y: 1, w: 88, h: 28 }));
    assert.deepEqual(faults, []);
});

test("a text field that is tapped on a phone takes what its keyboard writes", async () => {
    const { page, faults, context } = await open(undefined, {
        viewport: { width: 390, height: 844 },
        hasTouch: true,
        isMobile: true,
    });
    await type(page, "scene", USED);
    await page.getByRole("tab", { name: "data.json" }).click();
    await drawn(page, () => type(page, "data", '{"on": false, "word": "Hi"}'));
    await said(page, /200 × 80/);
    await drawn(page, () => page.check("#live"));
    const tap = async (x, y) => {
        const each = (await page.locator("#picture").boundingBox()).width / 200;
        await page.locator("#picture").tap({ position: { x: each * x, y: each * y } });
    };
    const focused = () => page.evaluate(() => document.activeElement.id);
    const told = (text) => page.locator("#problems").getByText(text).waitFor();
    await tap(150, 52);
    assert.equal(await focused(), "typing");
    await page.keyboard.insertText("!");
    await told('word = "Hi!"');
    const keyboard = await context.newCDPSession(page);
    const composed = { text: "né", selectionStart: 2, selectionEnd: 2 };
    const before = await pixels(page);
    await keyboard.send("Input.imeSetComposition", composed);
    await page.waitForFunction(() => /né/.test(document.getElementById("typing").value));
    await keyboard.send("Input.insertText", { text: "née" });
    await told('word = "Hi!née"');
    assert.ok(!before.rgba.equals((await pixels(page)).rgba));
    await page.evaluate(() => {
        const inputType = "deleteContentBackward"; // as of keyboards that have no keys
        const event = new InputEvent("beforeinput", { inputType, cancelable: true });
        document.activeElement.dispatchEvent(event);
    });
    await told('word = "Hi!né"');
    await tap(30, 18);
    await told("on = true");
    assert.notEqual(await focused(), "typing");
    assert.ok(!(await page.isVisible("#typing")));
    assert.deepEqual(faults, []);
});

test("the keyboard alone reaches everything, and leaves the editor", async () => {
    const { page, faults } = await open();
    const reached = new Set();
    const where = () =>
        page.evaluate(() => {
            let found = document.activeElement;
            while (found?.shadowRoot?.activeElement) found = found.shadowRoot.activeElement;
            return (
                found?.id || found?.className || found?.textContent?.slice(0, 20) || found?.tagName
            );
        });
    for (let i = 0; i < 40; i++) {
        await page.keyboard.press("Tab");
        const here = await where();
        reached.add(here);
        if (/cm-content/.test(here)) await page.keyboard.press("Escape");
    }
    for (const id of ["example", "share", "save", "shade", "theme", "panel", "zoom", "stage"]) {
        assert.ok(reached.has(id), `${id} is not among ${[...reached].join(", ")}`);
    }
    assert.ok([...reached].some((each) => /cm-content/.test(each)));
    await page.focus('input[value="scene"]');
    await drawn(page, () => page.keyboard.press("ArrowRight"));
    assert.ok(await page.isVisible("#editor-code"));
    await page.focus("#save");
    await page.keyboard.press("Enter");
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.dataset.save), "png");
    assert.deepEqual(faults, []);
});

const looks = [
    ["desktop", 1440, 900],
    ["phone", 390, 844],
].flatMap((look) => ["light", "dark"].map((shade) => [...look, shade]));
for (const [name, width, height, colorScheme] of looks) {
    test(`on a ${name}, ${colorScheme}, everyone can read and use it`, async () => {
        const { page, faults } = await open(undefined, {
            viewport: { width, height },
            colorScheme,
            hasTouch: name === "phone",
        });
        await page.locator(".tiles.wide button").last().waitFor({ timeout: 20000 });
        if (process.env.PLAYGROUND_PICTURES) {
            await page.screenshot({
                path: `${process.env.PLAYGROUND_PICTURES}/${name}-${colorScheme}.png`,
                fullPage: name === "phone",
            });
        }
        assert.ok(
            await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth),
            "wider than the window",
        );
        assert.deepEqual(faults, []);
        for (const tab of ["Theme", "Compare", "Show as C"]) {
            await page.getByRole("tab", { name: tab }).click();
            const { violations } = await page.evaluate(`${axe}; axe.run()`);
            assert.deepEqual(
                violations.map(
                    ({ id, nodes }) => `${id}: ${nodes.map((node) => node.html).join(" ")}`,
                ),
                [],
            );
        }
    });
}
