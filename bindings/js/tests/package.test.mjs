// The package as it is installed: in an empty folder, without a network, for each kind of module.
import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { copyFileSync, cpSync, mkdirSync, readdirSync, readFileSync, statSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { test } from "node:test";
import vm from "node:vm";
import { gzipSync } from "node:zlib";
import * as orvelsdk from "orvelsdk";
import { folder, SOURCES } from "./project.mjs";

const require = createRequire(import.meta.url);
const MADE = join(SOURCES, "build/js");
const tarball = join(MADE, readdirSync(MADE).find((name) => name.endsWith(".tgz")));
const DRAW = `const canvas = new Canvas(20, 10, "#123456");
canvas.text("a", 2, 9);
console.log(Buffer.from(canvas.png()).toString("base64"));\n`;
const node = (path, name) => execFileSync(process.execPath, [name], { cwd: path, encoding: "utf8" });

test("it installs without a network, for both kinds of module", () => folder((path) => {
    const quiet = ["--offline", "--no-audit", "--no-fund", "--silent", "--ignore-scripts"];
    execFileSync("npm", ["install", ...quiet, tarball], { cwd: path });
    assert.deepEqual(readdirSync(join(path, "node_modules")).filter((name) => name[0] !== "."), ["orvelsdk"]);
    writeFileSync(join(path, "a.mjs"), `import { Canvas } from "orvelsdk";\n${DRAW}`);
    writeFileSync(join(path, "a.cjs"), `const { Canvas } = require("orvelsdk");\n${DRAW}`);
    writeFileSync(join(path, "both.mjs"), `import { createRequire } from "node:module";
        import { Canvas } from "orvelsdk";
        console.log(createRequire(import.meta.url)("orvelsdk").Canvas === Canvas);`);
    writeFileSync(join(path, "bundled.mjs"),
                  `import { Canvas } from "./node_modules/orvelsdk/orvelsdk.mjs";\n${DRAW}`);
    assert.ok(node(path, "a.mjs").length > 100);
    assert.equal(node(path, "a.mjs"), node(path, "a.cjs"));
    assert.equal(node(path, "a.mjs"), node(path, "bundled.mjs"));
    assert.equal(node(path, "both.mjs"), "true\n");
}));

/** What a page has, and nothing of node's. */
function page(script) {
    const window = vm.createContext({ WebAssembly, TextEncoder, TextDecoder, FinalizationRegistry, atob,
                                      console: { debug() {} } });
    vm.runInContext(script, window);
    return window;
}

test("one file makes a global in a page, and asks for nothing", () => {
    const window = page(readFileSync(require.resolve("orvelsdk"), "utf8"));
    const drawn = vm.runInContext(`const canvas = new orvelsdk.Canvas(20, 10, "#123456");
        canvas.text("a", 2, 9); canvas.png()`, window);
    const canvas = new orvelsdk.Canvas(20, 10, "#123456");
    canvas.text("a", 2, 9);
    assert.deepEqual(Uint8Array.from(drawn), canvas.png());
    assert.throws(() => vm.runInContext("orvelsdk.playTone(440, 100)", window), /cannot be played/);
});

test("it runs where nothing may be made of text", () => {
    const script = readFileSync(require.resolve("orvelsdk"), "utf8");
    assert.doesNotMatch(script, /\beval\(|new Function\b|\bimport\(|\bfetch\(|XMLHttpRequest/);
});

test("tones play through Web Audio, with the library's own samples", () => {
    const played = [];
    const window = vm.createContext({
        WebAssembly, TextEncoder, TextDecoder, FinalizationRegistry, atob, console: { debug() {} },
        AudioContext: class {
            state = "running";
            createBuffer(channels, count, rate) {
                const samples = new Float32Array(count);
                played.push({ channels, rate, samples });
                return { getChannelData: () => samples };
            }
            createBufferSource() {
                return { connect() {}, start() { played.at(-1).started = true; } };
            }
        },
    });
    vm.runInContext(readFileSync(require.resolve("orvelsdk"), "utf8"), window);
    vm.runInContext("orvelsdk.playTone(441, 1000)", window);
    const [{ channels, rate, samples, started }] = played;
    assert.deepEqual([channels, rate, samples.length, started], [1, 44100, 44100, true]);
    assert.equal(samples[0], 0);
    const peak = Math.max(...samples);
    assert.ok(peak > 0.1 && peak <= 1 && Math.abs(samples[22000 + 25] - peak) < 0.01, String(peak));
});

test("it is small", () => {
    const size = gzipSync(readFileSync(require.resolve("orvelsdk")), { level: 9 }).length;
    assert.ok(size < 350_000, `${size} bytes`);
});

test("the version is the library's, the licences are there, and all files bear one date", () => {
    const about = require("orvelsdk/package.json");
    assert.equal(about.version, orvelsdk.version);
    const listed = execFileSync("tar", ["--utc", "--full-time", "-tvzf", tarball], { encoding: "utf8" });
    for (const name of ["LICENSE", "licences/DejaVu", "licences/nlohmann-json", "licences/fflate", "README.md"]) {
        assert.match(listed, new RegExp(` package/${name}\n`));
    }
    const rows = listed.trim().split("\n").map((row) => row.split(/ +/));
    assert.deepEqual([...new Set(rows.map((row) => row[1]))], ["0/0"]);
    assert.equal(new Set(rows.map((row) => `${row[3]} ${row[4]}`)).size, 1);
});

test("the same sources make the same files", () => folder((path) => {
    execFileSync(process.execPath, [join(SOURCES, "bindings/js/build.mjs"), join(MADE, "tools"),
                                    join(MADE, "wasm/orvelsdk.wasm"), join(path, "package")]);
    const all = readdirSync(join(path, "package"), { recursive: true }).sort();
    assert.deepEqual(readdirSync(join(MADE, "package"), { recursive: true }).sort(), all);
    for (const name of all.filter((each) => statSync(join(path, "package", each)).isFile())) {
        assert.ok(readFileSync(join(path, "package", name)).equals(readFileSync(join(MADE, "package", name))), name);
    }
}));

test("a strict compiler takes the example, and refuses what is wrong", () => folder((path) => {
    mkdirSync(join(path, "node_modules"));
    cpSync(join(MADE, "package"), join(path, "node_modules/orvelsdk"), { recursive: true });
    for (const name of ["example.mts", "example.cts"]) {
        copyFileSync(join(SOURCES, "bindings/js/tests/example.ts"), join(path, name));
    }
    writeFileSync(join(path, "shown.mts"), `import { Canvas } from "orvelsdk";
        declare const context: CanvasRenderingContext2D;
        context.putImageData(new Canvas(2, 2).imageData(), 0, 0);\n`);
    writeFileSync(join(path, "plain.mts"), `import { Canvas } from "orvelsdk";
        const { data, width }: { data: Uint8ClampedArray; width: number } = new Canvas(2, 2).imageData();
        export const first = data[width];\n`);
    const compiled = (library, ...files) => execFileSync(
        process.execPath, [join(MADE, "tools/node_modules/typescript/bin/tsc"), "--strict", "--noEmit",
                           "--module", "nodenext", "--target", "es2022", "--lib", library, ...files],
        { cwd: path, stdio: ["ignore", "inherit", "inherit"] });
    compiled("es2022,dom", "example.mts", "example.cts", "shown.mts");
    compiled("es2022", "plain.mts");
}));

test("the line of an error that nobody catches is short", () => folder((path) => {
    mkdirSync(join(path, "node_modules"));
    cpSync(join(MADE, "package"), join(path, "node_modules/orvelsdk"), { recursive: true });
    writeFileSync(join(path, "a.mjs"), 'import { Canvas } from "orvelsdk";\nnew Canvas(-1, 4);\n');
    const { status, stderr } = spawnSync(process.execPath, ["a.mjs"], { cwd: path, encoding: "utf8" });
    assert.equal(status, 1);
    assert.match(stderr, /orvelsdk\.js/);
    assert.ok(stderr.length < 4000, `${stderr.length} letters`);
}));

test("the page of the manual does what it says", () => folder((path) => {
    mkdirSync(join(path, "tree/lib/pkgconfig"), { recursive: true });
    execFileSync("python3", ["-B", join(SOURCES, "docs/blocks.py"), join(SOURCES, "docs/pages/javascript.md"),
                             "--sources", SOURCES, "--tree", join(path, "tree"), "--work", join(path, "work")],
                 { stdio: ["ignore", "inherit", "inherit"] });
}));
