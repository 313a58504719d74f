// Makes the one page of the playground: node build.js TOOLS BUNDLER PACKAGE OUTPUT. TOOLS is where
// npm has installed what package-lock.json names, BUNDLER where it has what the package orvelsdk is
// made with, and PACKAGE the folder of that package.
import { createHash } from "node:crypto";
import { existsSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";

const here = dirname(fileURLToPath(import.meta.url));
const root = dirname(here);
const [tools, bundler, binding, output] = process.argv.slice(2).map((path) => resolve(path));
const esbuild = createRequire(join(bundler, "package.json"))("esbuild");
const read = (...path) => readFileSync(join(root, ...path), "utf8");
const json = (...path) => JSON.parse(read(...path));

/** The engine is made of the package orvelsdk and of the description of the interfaces. */
const orvelsdk = {
    name: "orvelsdk",
    setup(build) {
        build.onResolve({ filter: /^orvelsdk$/ }, () => ({ path: join(binding, "orvelsdk.mjs") }));
        build.onResolve({ filter: /^orvelsdk\/description$/ }, () => ({
            path: "orvel_api.json",
            namespace: "facts",
        }));
        build.onLoad({ filter: /.*/, namespace: "facts" }, () => ({
            contents: JSON.stringify(withoutWords(json("bindings/orvel_api.json"))),
            loader: "json",
        }));
    },
};

function withoutWords(value) {
    if (Array.isArray(value)) return value.map(withoutWords);
    if (value === null || typeof value !== "object") return value;
    const dropped = new Set([
        "comment",
        "about",
        "targets",
        "offset",
        "size",
        "align",
        "c",
        "unit",
        "raises",
        "shown_by",
        "section",
        "header",
        "prefix",
    ]);
    return Object.fromEntries(
        Object.entries(value)
            .filter(
                ([name, each]) =>
                    !dropped.has(name) ||
                    (Array.isArray(each) && name !== "raises" && name !== "shown_by"),
            )
            .map(([name, each]) => [name, withoutWords(each)]),
    );
}

const packages = new Set(); // of npm, that went into the page

async function bundle(entry) {
    const built = await esbuild.build({
        entryPoints: [join(here, entry)],
        bundle: true,
        write: false,
        format: "iife",
        minify: true,
        keepNames: true, // messages name classes
        target: "es2022",
        charset: "utf8",
        legalComments: "none",
        nodePaths: [join(tools, "node_modules")],
        plugins: [orvelsdk],
        logLevel: "error",
        metafile: true,
    });
    for (const path of Object.keys(built.metafile.inputs)) {
        const found = /node_modules\/((?:@[^/]*\/)?[^/]*)\//.exec(path);
        if (found) packages.add(found[1]);
    }
    return built.outputFiles[0].text;
}

/** The manual's colours, for either shade that the page may be switched to. */
function shades() {
    const [light, dark] = [...read("docs/theme/css/style.css").matchAll(/:root \{([^}]*)\}/g)].map(
        (each) => each[1],
    );
    const wrong = ["--wrong: #b3123b;", "--wrong: #f58ba6;"];
    return `:root { color-scheme: light; ${light} ${wrong[0]} }
@media (prefers-color-scheme: dark) {
:root:not([data-shade="light"]) { color-scheme: dark; ${dark} ${wrong[1]} } }
:root[data-shade="dark"] { color-scheme: dark; ${dark} ${wrong[1]} }
`;
}

const title = (text) => text.replace(/_/g, " ").replace(/^./, (letter) => letter.toUpperCase());

function scenes() {
    const found = [];
    for (const folder of readdirSync(join(root, "scenes"), { withFileTypes: true })) {
        if (!folder.isDirectory()) continue;
        for (const name of readdirSync(join(root, "scenes", folder.name)).sort()) {
            if (!name.endsWith(".json") || name === "data.json") continue;
            const of = name.slice(0, -".json".length);
            found.push({
                name: `${title(folder.name)}: ${of}`,
                file: `${folder.name}/${name}`,
                scene: read("scenes", folder.name, name),
                data: read("scenes", folder.name, "data.json"),
            });
        }
    }
    return found.sort((a, b) => (a.file < b.file ? -1 : 1));
}

/** The pictures beside the scenes, by the names that scenes give them. */
function pictures(folder = "scenes", name = "") {
    const found = {};
    const inside = readdirSync(join(root, folder), { withFileTypes: true });
    for (const each of inside.sort((a, b) => (a.name < b.name ? -1 : 1))) {
        const path = `${folder}/${each.name}`;
        if (each.isDirectory())
            Object.assign(found, pictures(path, folder === "scenes" ? "" : `${name}${each.name}/`));
        else if (each.name.endsWith(".png"))
            found[`${name}${each.name}`] = readFileSync(join(root, path)).toString("base64");
    }
    return found;
}

function programs() {
    return readdirSync(join(here, "examples"))
        .sort()
        .map((file) => ({
            name: title(file.slice(0, -".js".length)),
            file,
            code: read("playground/examples", file),
        }));
}

const { libraries } = json("bindings/orvel_api.json");
const every = (what) => libraries.flatMap((library) => library[what]);
const named = (what, name) => every(what).find((each) => each.name === name);

/** The values of an enum by their words: KIT_KEY_PAGE_UP by "pageup". */
function valuesOf(name) {
    const word = (value) => value.name.replace(/^KIT_[A-Z]+_/, "").replaceAll("_", "");
    const { values } = named("enums", name);
    return Object.fromEntries(values.map((each) => [word(each).toLowerCase(), each.value]));
}

function facts() {
    const themes = Object.fromEntries(
        readdirSync(join(root, "share/themes"))
            .sort()
            .map((file) => [file.slice(0, -".json".length), json("share/themes", file)]),
    );
    const functions = every("functions").map(({ name, arguments: all, comment }) => {
        const shown = all.filter(
            (each) =>
                each.type !== "buffer" &&
                !all.some((other) => other !== each && other.length === each.name),
        );
        return [name, shown.map((each) => each.name).join(", "), comment.split(/(?<=\.)\s/)[0]];
    });
    const constants = every("enums").flatMap((each) => each.values.map(({ name }) => name));
    return {
        scenes: scenes(),
        pictures: pictures(),
        programs: programs(),
        themes,
        schema: json("share/schemas/orvel-scene-1.json"),
        functions,
        constants,
        roles: named("records", "orvel_theme").fields.map(({ name }) => name),
        events: valuesOf("kit_event_kind"),
        changes: valuesOf("kit_change_kind"),
        keys: valuesOf("kit_key"),
        modifiers: valuesOf("kit_modifier"),
    };
}

/** The licences of all that is in the page. */
function licences() {
    const all = [["OrvelSDK", read("LICENSE")]];
    for (const name of readdirSync(join(binding, "licences")).sort()) {
        all.push([name, readFileSync(join(binding, "licences", name), "utf8")]);
    }
    for (const name of [...packages].sort()) {
        all.push([name, readFileSync(join(tools, "node_modules", name, "LICENSE"), "utf8")]);
    }
    return all
        .map(([name, words]) => `${name}\n\n${words.trim()}\n`)
        .join("\n\n")
        .replace(/&/g, "&amp;")
        .replace(/</g, "&lt;");
}

const hash = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;
const asData = (text) => text.replace(/<(?=\/script|!--|script)/gi, "\\x3c");

const style = (shades() + read("playground/page/page.css")).replace(/\s*\n\s*/g, "\n");
const script = asData(await bundle("page/main.js"));
const engine = asData(await bundle("engine/engine.js"));
const drawing = Buffer.from(read("playground/page/icon.svg").trim());
const icon = `data:image/svg+xml;base64,${drawing.toString("base64")}`;
const policy = [
    "default-src 'none'",
    "connect-src 'none'",
    `script-src ${hash(script)} 'wasm-unsafe-eval'`,
    `style-src ${hash(style)}`,
    "worker-src blob:",
    "img-src data: blob:",
    "base-uri 'none'",
    "form-action 'none'",
].join("; ");
const parts = {
    policy,
    icon,
    licences: licences(),
    style,
    engine,
    script,
    facts: JSON.stringify(facts()).replace(/</g, "\\u003c"),
};
const page = read("playground/page/index.html").replace(/\{\{(\w+)\}\}/g, (_, name) => parts[name]);
if (!existsSync(output)) mkdirSync(output, { recursive: true });
writeFileSync(join(output, "index.html"), page);
const kB = (size) => `${Math.round(size / 1000)} kB`;
console.log(
    `playground: ${join(output, "index.html")}, ${kB(page.length)}, ` +
        `compressed ${kB(gzipSync(page).length)}`,
);
