// What is opened: links show the same bytes, and nothing that was written is lost.
import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { SMALL, drawn, open, pixels, said, start, stop, toProgram, type } from "./browser.js";

before(start);
after(stop);

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
