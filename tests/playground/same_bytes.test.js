// Every example draws the bytes that C draws, and so does the program of C that the page shows for
// it.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, test } from "node:test";
import {
    bmpPixels,
    drawn,
    folder,
    native,
    open,
    pixels,
    root,
    said,
    start,
    stop,
    type,
} from "./browser.js";

before(start);
after(stop);

function same(one, other, what) {
    assert.deepEqual([one.width, one.height], [other.width, other.height], what);
    assert.ok(one.rgba.equals(other.rgba), `${what}: other pixels`);
}

function rendered(file, ...options) {
    const output = join(folder(), "picture.bmp");
    const scene = join(root, "scenes", file),
        data = join(scene, "../data.json");
    execFileSync(join(native, "orvel-render"), [scene, "--data", data, ...options, "-o", output]);
    return bmpPixels(readFileSync(output));
}

/** Compiles and runs a program of C; returns the folder with what it drew. */
function compiled(sources, argument) {
    const into = folder(),
        program = join(into, "program");
    const flags = [
        "-std=c99",
        "-Wall",
        "-Wextra",
        "-Werror",
        `-I${root}/include`,
        `-I${root}/kit/include`,
    ];
    const libraries = ["-lOrvelScreen", "-lOrvelKit", "-lOrvelSDK"];
    execFileSync("cc", [
        ...flags,
        sources,
        "-o",
        program,
        `-L${native}`,
        `-Wl,-rpath,${native}`,
        ...libraries,
    ]);
    execFileSync(program, argument ? [into] : [], { cwd: into });
    return into;
}

async function programOfC(page) {
    await page.getByRole("tab", { name: "Show as C" }).click();
    const source = join(folder(), "picture.c");
    writeFileSync(source, await page.textContent("#program"));
    return compiled(source);
}

async function choose(page, select, value) {
    await drawn(page, () => page.selectOption(select, value));
}

test("the program of C is of the picture that is shown, or says what it is without", async () => {
    const { page, faults } = await open();
    const scene = '{"orvel": 1, "size": [60, 30], "root": {"text": "${word}"}}';
    await page.getByRole("tab", { name: "Show as C" }).click();
    await type(page, "scene", scene);
    await page.getByRole("tab", { name: "data.json" }).click();
    await type(page, "data", '[{"word": "One"}, {"word": "Two"}, {"word": "Three"}]');
    await said(page, /^3 pictures/);
    await page.focus("#frame");
    await page.keyboard.press("End");
    const third = await pixels(page);
    const drawnByC = async () => bmpPixels(readFileSync(join(await programOfC(page), "picture.bmp")));
    same(third, await drawnByC(), "the third");
    await choose(page, "#panel", "mono");
    assert.match(await page.textContent("#drawers"), /without the panel's colours\. Compile/);
    assert.match(await page.textContent("#program"), /^\/\* Draws .* without the panel's colours/);
    same(third, await drawnByC(), "the third without the panel");
    await choose(page, "#panel", "");
    assert.doesNotMatch(await page.textContent("#program"), /without/);
    await drawn(page, () => page.check("#live"));
    await page.locator("#program").getByText("as it was before it was used").waitFor();
    await drawn(page, () => page.uncheck("#live"));
    await type(page, "data", '{"word": }');
    await page.locator("#program").getByText("There is none").waitFor();
    await page.click("#save");
    await page.click('[data-save="c"]');
    await said(page, /There is no program of C/);
    assert.deepEqual(faults, []);
});

test("every scene draws the bytes of orvel-render, and its program of C does", async () => {
    const { page, faults } = await open();
    const files = await page
        .locator("#example option")
        .evaluateAll((all) => all.map((each) => each.value));
    assert.ok(files.length >= 7);
    for (const file of files) {
        await choose(page, "#example", file === files[0] ? files[1] : files[0]);
        await choose(page, "#example", file);
        same(await pixels(page), rendered(file), file);
        same(
            await pixels(page),
            bmpPixels(readFileSync(join(await programOfC(page), "picture.bmp"))),
            `${file} in C`,
        );
    }
    assert.deepEqual(faults, []);
});

test("themes and panels show what orvel-render shows", async () => {
    const { page, faults } = await open();
    const file = await page.inputValue("#example");
    await choose(page, "#theme", "dark");
    same(await pixels(page), rendered(file, "--theme", "dark"), "dark");
    same(
        await pixels(page),
        bmpPixels(readFileSync(join(await programOfC(page), "picture.bmp"))),
        "dark in C",
    );
    await choose(page, "#theme", "paper");
    same(
        await pixels(page),
        rendered(file, "--theme", join(root, "share/themes/paper.json")),
        "paper",
    );
    for (const panel of ["mono", "gray4", "gray16", "red", "seven", "rgb565"]) {
        await choose(page, "#panel", panel);
        for (const dither of panel === "rgb565" ? [] : ["diffused", "none", "ordered"]) {
            await choose(page, "#dither", dither);
            const wanted = [
                "--theme",
                join(root, "share/themes/paper.json"),
                "--panel",
                panel,
                "--dither",
                dither,
            ];
            same(await pixels(page), rendered(file, ...wanted), `${panel} ${dither}`);
        }
    }
    assert.deepEqual(faults, []);
});

test("every program draws the bytes of its example in C and of the program shown", async () => {
    const { page, faults } = await open();
    await drawn(page, () => page.locator(".switch").getByText("JavaScript").click());
    const files = await page
        .locator("#example option")
        .evaluateAll((all) => all.map((each) => each.value));
    assert.ok(files.length >= 7);
    for (const file of files) {
        if (file !== (await page.inputValue("#example"))) await choose(page, "#example", file);
        const name = file.replace(/\.js$/, ""),
            example = join(root, "examples", `${name}.c`);
        const shown = await programOfC(page);
        const ofExample = existsSync(example) ? compiled(example, name !== "hello") : null;
        const count = 1 + Number(await page.getAttribute("#frame", "max"));
        for (let i = 0; i < count; i++) {
            await page.locator("#frame").evaluate((range, value) => {
                range.value = value;
                range.dispatchEvent(new Event("input"));
            }, i);
            const picture = (await page.textContent("#frame-name")).split(", ")[1];
            same(
                await pixels(page),
                bmpPixels(readFileSync(join(shown, picture))),
                `${file}: ${picture}`,
            );
            if (ofExample)
                same(
                    await pixels(page),
                    bmpPixels(readFileSync(join(ofExample, picture))),
                    `${picture} of C`,
                );
        }
    }
    assert.deepEqual(faults, []);
});
