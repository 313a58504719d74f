// The picture: what it shows of itself, and how it is used.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { after, before, test } from "node:test";
import { SMALL, drawn, open, pixels, root, said, start, stop, type } from "./browser.js";

before(start);
after(stop);

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
