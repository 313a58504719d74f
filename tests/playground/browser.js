// The page in Debian's Chromium, as a person has it; what it may never do is noted for every page.
import { mkdtempSync, readFileSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const setting = (name) =>
    process.env[name] ??
    (() => {
        throw new Error(`${name} is not set; ./check playground sets it`);
    })();
export const tools = resolve(setting("PLAYGROUND_TOOLS"));
export const native = resolve(setting("PLAYGROUND_NATIVE"));
export const root = fileURLToPath(new URL("../..", import.meta.url));
export const built = resolve(setting("PLAYGROUND_PAGE"));
const require = createRequire(join(tools, "package.json"));
const { chromium } = require("playwright-core");

export const axe = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");
export const fromFile = pathToFileURL(built).href;
export const folder = () => mkdtempSync(join(tmpdir(), "playground-"));

let browser = null;

export async function start() {
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
        args: ["--no-sandbox"],
    });
}

export async function stop() {
    await browser?.close();
}

/** A server that has the page alone, and no headers that would help it. */
export async function serve() {
    const server = createServer((request, response) => {
        if (request.url !== "/playground/") return response.writeHead(404).end();
        return response.setHeader("content-type", "text/html").end(readFileSync(built));
    });
    await new Promise((done) => server.listen(0, "127.0.0.1", done));
    return {
        address: `http://127.0.0.1:${server.address().port}/playground/`,
        end: () => server.close(),
    };
}

/** A page in a profile of its own. Its "faults" are requests, errors, and what the console says. */
export async function open(address = fromFile, options = {}) {
    const context = await browser.newContext({
        viewport: { width: 1440, height: 900 },
        acceptDownloads: true,
        ...options,
    });
    const page = await context.newPage();
    const faults = [];
    page.on("console", (message) => faults.push(`console: ${message.text()}`));
    page.on("pageerror", (reason) => faults.push(`error: ${reason.message}`));
    page.on("request", (request) => {
        const first = request.url() === address.replace(/#.*/, "");
        if (!first && !request.url().startsWith("blob:")) faults.push(`request: ${request.url()}`);
    });
    await page.goto(address);
    await drawn(page);
    return { page, faults, context };
}

/** Waits until the page has drawn something again after @p act. */
export async function drawn(page, act) {
    const before = act
        ? await page.evaluate(() => document.documentElement.dataset.drawn)
        : undefined;
    await act?.();
    await page.waitForFunction((old) => document.documentElement.dataset.drawn !== old, before, {
        timeout: 30000,
    });
}

/** Waits for a message in the line below the editor. */
export async function said(page, pattern) {
    await page.waitForFunction(
        ([source]) => new RegExp(source).test(document.getElementById("state").textContent),
        [pattern.source],
        { timeout: 30000 },
    );
    return page.textContent("#state");
}

/** What the canvas shows: { width, height, rgba }. */
export async function pixels(page) {
    const { width, height, base64 } = await page.evaluate(() => {
        const canvas = document.getElementById("picture");
        const { data } = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
        let letters = "";
        for (let at = 0; at < data.length; at += 8192)
            letters += String.fromCharCode(...data.subarray(at, at + 8192));
        return { width: canvas.width, height: canvas.height, base64: btoa(letters) };
    });
    return { width, height, rgba: Buffer.from(base64, "base64") };
}

/** The pixels of a BMP file of 24 bits. */
export function bmpPixels(bytes) {
    const width = bytes.readInt32LE(18),
        height = bytes.readInt32LE(22),
        at = bytes.readUInt32LE(10);
    const stride = Math.ceil((3 * width) / 4) * 4,
        rgba = Buffer.alloc(4 * width * height, 255);
    for (let y = 0; y < height; y++) {
        for (let x = 0; x < width; x++) {
            const from = at + (height - 1 - y) * stride + 3 * x,
                to = 4 * (y * width + x);
            for (let i = 0; i < 3; i++) rgba[to + i] = bytes[from + 2 - i];
        }
    }
    return { width, height, rgba };
}

/** Puts a text in place of all that the editor has. */
export async function type(page, which, text) {
    await page.locator(`#editor-${which} .cm-content`).click();
    await page.keyboard.press("Control+a");
    await page.keyboard.insertText(text);
}

/** A scene of 60 by 30 pixels that shows the value "word". */
export const SMALL =
    '{"orvel": 1, "size": [60, 30], "root": {"column": [\n  {"text": "${word}", "id": "w"}]}}';

/** Has the page save a file; returns its bytes. */
export async function download(page, name) {
    await page.click("#save");
    const [file] = await Promise.all([
        page.waitForEvent("download"),
        page.click(`[data-save="${name}"]`),
    ]);
    return readFileSync(await file.path());
}

/** Goes to programs, and writes one. */
export async function toProgram(page, code) {
    await page.locator(".switch").getByText("JavaScript").click();
    await drawn(page, () => page.selectOption("#example", "animation.js"));
    await type(page, "code", code);
}
