// Makes the folder of the package from the sources, the module of WebAssembly and the types:
//     node build.mjs TOOLS WASM FOLDER
// TOOLS is where npm has installed what package.json beside this file names.
import { execFileSync } from "node:child_process";
import { copyFileSync, cpSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { deflateRawSync } from "node:zlib";

const [tools, wasm, folder] = process.argv.slice(2).map((each) => resolve(each));
const here = dirname(fileURLToPath(import.meta.url));
const sources = join(here, "../..");
const require = createRequire(join(tools, "package.json"));
const esbuild = require("esbuild");

const header = readFileSync(join(sources, "kit/include/orvel_kit.h"), "utf8");
const version = /^#define KIT_VERSION "(.*)"$/m.exec(header)[1];

/** Where the bundler finds what is not beside the sources. */
const places = {
    name: "places",
    setup(build) {
        build.onResolve({ filter: /^fflate$/ }, () => ({
            path: join(tools, "node_modules/fflate/esm/browser.js"),
            sideEffects: false,
        }));
        build.onResolve({ filter: /\.deflate$/ }, () => ({ path: wasm, namespace: "deflated" }));
        build.onLoad({ filter: /.*/, namespace: "deflated" }, () => ({
            contents: deflateRawSync(readFileSync(wasm), { level: 9 }),
            loader: "base64",
        }));
    },
};

async function bundle(name, format, more) {
    await esbuild.build({
        entryPoints: [join(here, "src/index.ts")],
        outfile: join(folder, name),
        bundle: true,
        format,
        platform: "neutral",
        target: "es2022",
        charset: "utf8",
        legalComments: "none",
        minifySyntax: true,
        minifyWhitespace: true,
        lineLimit: 200,  // node shows the whole line of an error that nobody catches
        banner: { js: `/* OrvelSDK ${version}; see LICENSE and licences/. */` },
        plugins: [places],
        tsconfigRaw: "{}",
        logLevel: "warning",
        ...more,
    });
}

function types() {
    const tsc = join(tools, "node_modules/typescript/bin/tsc");
    const into = join(folder, "types");
    execFileSync(process.execPath, [tsc, "-p", here, "--outDir", into], { stdio: "inherit" });
    cpSync(into, join(folder, "types-esm"), { recursive: true });
    cpSync(join(folder, "types-esm"), join(into, "esm"), { recursive: true });
    rmSync(join(folder, "types-esm"), { recursive: true });
    writeFileSync(join(into, "esm/package.json"), '{ "type": "module" }\n');
}

/** In node, both kinds of module lead to one: a Canvas of either is a Canvas of both. */
function nodeModule() {
    const names = Object.keys(require(join(folder, "orvelsdk.js"))).sort();
    writeFileSync(join(folder, "node.mjs"), 'import orvelsdk from "./orvelsdk.js";\n' +
        `export const {\n${names.map((name) => `    ${name},\n`).join("")}} = orvelsdk;\n`);
}

function texts() {
    const about = JSON.parse(readFileSync(join(here, "package.in.json"), "utf8"));
    writeFileSync(join(folder, "package.json"),
                  JSON.stringify({ ...about, version }, undefined, 2) + "\n");
    copyFileSync(join(here, "README.md"), join(folder, "README.md"));
    copyFileSync(join(sources, "LICENSE"), join(folder, "LICENSE"));
    mkdirSync(join(folder, "licences"));
    for (const [name, path] of [["DejaVu", join(sources, "kit/words/faces/LICENSE-DejaVu")],
                                ["nlohmann-json", join(sources, "packaging/licences/nlohmann-json")],
                                ["fflate", join(tools, "node_modules/fflate/LICENSE")]]) {
        copyFileSync(path, join(folder, "licences", name));
    }
}

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
texts();
types();
await bundle("orvelsdk.mjs", "esm", {});
await bundle("orvelsdk.js", "iife", {
    globalName: "orvelsdk",
    footer: { js: 'if (typeof module === "object" && module.exports) module.exports = orvelsdk;' },
});
nodeModule();
