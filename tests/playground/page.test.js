// The page: it draws at once and asks nobody, and needs no pointer.
import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { after, before, test } from "node:test";
import { gzipSync } from "node:zlib";
import {
    SMALL,
    axe,
    bmpPixels,
    built,
    download,
    drawn,
    open,
    pixels,
    root,
    said,
    serve,
    start,
    stop,
    toProgram,
    type,
} from "./browser.js";

before(start);
after(stop);

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
