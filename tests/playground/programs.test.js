// Programs: the page survives every one, and tells what is wrong with it.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { after, before, test } from "node:test";
import { drawn, open, pixels, root, said, start, stop, toProgram, type } from "./browser.js";

before(start);
after(stop);

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
    await toProgram(page, "kit_canvas(3, 2);");
    await said(page, /3 × 2/);
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
