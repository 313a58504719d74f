// The page: two languages, an editor, a picture, and what goes between them.
import { completeProgram, completeScene } from "./completion.js";
import { sceneProgram } from "./c_scene.js";
import { compareDrawer, insertDrawer, programDrawer, themeDrawer } from "./drawers.js";
import { makeEditor } from "./editor.js";
import { byId, element, makeTabs } from "./elements.js";
import { codeInsertion } from "./code_insertion.js";
import { nodeInsertion } from "./insertion.js";
import { makeLive } from "./live.js";
import { unpackLink } from "./link.js";
import { wireSaving } from "./saving.js";
import { show } from "./stage.js";
import { problemOf, say, showProblems } from "./telling.js";
import { Engine, runProgram, stopProgram } from "./workers.js";

const facts = JSON.parse(byId("facts").textContent);
const engine = new Engine();
const bytesOf = (base64) => Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
const started = engine.start({
    // while the page is made
    files: Object.fromEntries(
        Object.entries(facts.pictures).map(([name, base64]) => [name, bytesOf(base64)]),
    ),
});
started.catch(() => {}); // begin() says why
const state = { mode: "scene", theme: "", panel: "", dither: "ordered", own: null, canLive: false };
let presets = {};
let pictures = []; // what there is to see: { name, width, height, rgba, describe }
let programOf = () => ({ lacks: "nothing is drawn yet" }); // of a picture, in C
let turn = 0;

const shownNames = { scene: "scene.json", data: "data.json", code: "picture.js" };
const editors = {};
const places = {};
for (const [which, name] of Object.entries(shownNames)) {
    places[which] = byId("editing")
        .querySelector(".editors")
        .appendChild(element("div", { id: `editor-${which}` }));
    const complete = { scene: completeScene(facts.schema), code: completeProgram(facts) }[which];
    editors[which] = makeEditor(places[which], {
        language: which === "code" ? "javascript" : "json",
        label: name,
        complete,
        changed: later,
    });
}
const files = makeTabs(
    byId("editing").querySelector(".tabs"),
    Object.keys(places).map((which) => ({ name: shownNames[which], panel: places[which] })),
);

function mark(problems) {
    showProblems(problems, editors, (problem) => {
        files.choose(Object.keys(places).indexOf(problem.which));
        editors[problem.which].show(problem);
    });
}

/** Notes what came of using the picture, the latest first. */
function note(text) {
    const lines = byId("problems");
    lines.prepend(element("li", {}, element("button", {}, text)));
    while (lines.children.length > 50) lines.lastChild.remove();
}

const live = makeLive({
    engine,
    told: note,
    failed(why) {
        byId("live").checked = false;
        say("error", why);
    },
});

// ---- Drawing

let timer = 0;
function later() {
    clearTimeout(timer);
    timer = setTimeout(draw, state.mode === "scene" ? 150 : 500);
}

const chosenTheme = () =>
    state.theme === ""
        ? null
        : state.theme === "own"
          ? state.own
          : (facts.themes[state.theme] ?? state.theme);

/** The colours that the page's lists are drawn in. */
const themeColors = () =>
    (typeof chosenTheme() === "object" && chosenTheme()) || presets[state.theme] || presets.light;

/** The data as it is, or one of a list of them: each is a picture. */
function dataFrames() {
    const text = editors.data.text;
    if (text.trim() === "") return [null];
    try {
        const value = JSON.parse(text);
        if (Array.isArray(value) && value.length > 0)
            return value.slice(0, 120).map((each) => JSON.stringify(each));
    } catch {
        // The library says what is wrong with it.
    }
    return [text];
}

function sceneWish(data) {
    return {
        scene: editors.scene.text,
        data,
        theme: chosenTheme(),
        panel: state.panel,
        dither: state.dither,
    };
}

const lacking = (lacks) => () => ({ lacks });
const frame = () => Math.min(Number(byId("frame").value), pictures.length - 1);

/** The program of the picture that is shown, and what that picture has that C does not draw. */
function shownProgram() {
    const { text, lacks } = programOf(pictures[frame()]);
    if (!text) return { lacks };
    const parts = [];
    if (state.panel !== "") parts.push("without the panel's colours");
    if (live.isOn) parts.push("as it was before it was used");
    const note = parts.length > 0 ? `Draws the picture ${parts.join(", and ")}.` : "";
    return { note, text: note ? `/* ${note} */\n${text}` : text };
}

async function drawScene(now) {
    const drawn = [];
    try {
        for (const data of dataFrames()) {
            const wish = sceneWish(data);
            drawn.push({ name: "picture.bmp", wish, ...(await engine.ask("scene", wish)) });
            if (now !== turn) return;
        }
    } catch (reason) {
        if (now !== turn) return;
        programOf = lacking("the scene could not be drawn");
        const problem = problemOf(reason.message, "error");
        mark([problem]);
        say(
            "error",
            problem.line ? `${problem.which} line ${problem.line}: ${problem.text}` : problem.text,
        );
        return;
    }
    const notes = drawn[0].report
        .split("\n")
        .filter(Boolean)
        .map((line) => problemOf(line, "warning"));
    mark(notes);
    programOf = (picture) => ({
        text: sceneProgram({ ...picture.wish, pictures: picture.pictures }),
    });
    const count = `${notes.length} ${notes.length === 1 ? "note" : "notes"}`;
    shown(drawn, notes.length > 0 ? count : "");
    if (byId("live").checked) {
        await live.open(sceneWish(dataFrames()[Number(byId("frame").value)]));
    }
}

async function drawProgram(now) {
    say("busy", "Running …");
    const code = editors.code.text;
    const done = await runProgram(code);
    if (now !== turn || done.stopped) return;
    const said = done.said.map((text) => ({ which: null, kind: "info", text: String(text) }));
    if (done.failed !== undefined) {
        const problem = {
            which: done.place ? "code" : null,
            ...done.place,
            kind: "error",
            text: done.failed,
        };
        mark([problem, ...said]);
        say("error", done.place ? `Line ${done.place.line}: ${done.failed}` : done.failed);
        programOf = lacking("the program did not end well");
        return;
    }
    mark(said);
    programOf = () => done.program;
    if (done.pictures.length === 0) {
        say(
            "warning",
            "The program made no picture: kit_canvas() makes a canvas, kit_save_bmp() keeps it.",
        );
        return;
    }
    programPictures = done.pictures;
    await asPanel(now);
}

let programPictures = [];

/** The pictures of a program as the chosen panel shows them. */
async function asPanel(now) {
    if (state.panel === "") return shown(programPictures, "");
    const drawn = [];
    for (const picture of programPictures) {
        const wish = { picture, panel: state.panel, dither: state.dither };
        drawn.push({ name: picture.name, ...(await engine.ask("panel", wish)) });
        if (now !== turn) return;
    }
    shown(drawn, "");
}

function shown(drawn, note) {
    pictures = drawn;
    byId("frames").hidden = drawn.length < 2;
    byId("frame").max = drawn.length - 1;
    byId("frame").value = Math.min(Number(byId("frame").value), drawn.length - 1);
    const { width, height } = drawn[0];
    const what = drawn.length > 1 ? `${drawn.length} pictures of` : "Drawn,";
    say(note ? "warning" : "good", `${what} ${width} × ${height}${note ? `, ${note}` : ""}.`);
    showFrame();
    document.documentElement.dataset.drawn = String(
        Number(document.documentElement.dataset.drawn ?? 0) + 1,
    );
}

function showFrame() {
    const picture = pictures[frame()];
    byId("frame-name").textContent = `${frame() + 1} of ${pictures.length}, ${picture.name}`;
    show(picture, picture.describe);
    comparison.compare();
    if (!asC.panel.hidden) asC.draw();
}

async function draw() {
    live.close();
    clearTimeout(timer);
    const now = ++turn;
    stopProgram();
    try {
        await (state.mode === "scene" ? drawScene(now) : drawProgram(now));
    } catch (reason) {
        if (now === turn) say("error", reason.message);
    }
    if (now === turn && !asC.panel.hidden) asC.draw();
}

// ---- The tools below

function put(view, change) {
    view.dispatch({
        changes: change,
        selection: { anchor: change.from + change.insert.trimEnd().length },
        scrollIntoView: true,
        userEvent: "input",
    });
    view.focus();
}

function insert({ node, code }) {
    if (state.mode === "javascript") {
        const { view } = editors.code;
        return put(view, codeInsertion(view.state, code));
    }
    const change = nodeInsertion(editors.scene.view.state, node);
    if (!change) return say("error", "The scene has no row, column or stack to insert into.");
    files.choose(0);
    put(editors.scene.view, change);
}

const comparison = compareDrawer();
const insertion = insertDrawer(engine, insert);
const asC = programDrawer(shownProgram);
const themes = themeDrawer((theme) => {
    state.own = theme;
    byId("theme").value = state.theme = "own";
    later();
});
const drawers = [insertion, themes, comparison, asC];
byId("drawers").append(...drawers.map(({ panel }) => panel));
const tools = makeTabs(byId("tools"), drawers, (which) => {
    if (drawers[which] === asC) asC.draw();
});

// A file that is dropped anywhere is compared with; the browser would leave the page for it.
for (const kind of ["dragover", "drop"]) {
    addEventListener(kind, (event) => {
        if (!event.dataTransfer?.types.includes("Files")) return;
        event.preventDefault();
        if (kind !== "drop") return;
        tools.choose(drawers.indexOf(comparison));
        comparison.take(event.dataTransfer.files[0]);
    });
}

// ---- The controls

function options(select, all) {
    select.replaceChildren(
        ...all.map(([value, label]) => element("option", { value, textContent: label })),
    );
}

function setMode(mode) {
    state.mode = mode;
    document.querySelector(`input[name="mode"][value="${mode}"]`).checked = true;
    const isScene = mode === "scene";
    files.buttons.forEach((button, i) => {
        button.hidden = isScene === (i === 2);
    });
    files.choose(isScene ? 0 : 2);
    byId("theme-field").hidden = !isScene;
    byId("live-field").hidden = !isScene || !state.canLive;
    if (!isScene) byId("live").checked = false;
    byId("saving").querySelector('[data-save="source"]').textContent = isScene
        ? "Scene file"
        : "Program, JavaScript";
    byId("saving").querySelector('[data-save="data"]').hidden = !isScene;
    options(
        byId("example"),
        isScene
            ? facts.scenes.map(({ name, file }) => [file, name])
            : facts.programs.map(({ name, file }) => [file, name]),
    );
}

function openExample(file) {
    const scene = facts.scenes.find((each) => each.file === file);
    const code = facts.programs.find((each) => each.file === file);
    if (!scene && !code) return;
    setMode(scene ? "scene" : "javascript");
    byId("example").value = file;
    byId("frame").value = 0;
    if (scene) {
        editors.scene.open(scene.scene);
        editors.data.open(scene.data);
    } else {
        editors.code.open(code.code);
    }
    return draw();
}

function setPanel(panel, dither) {
    state.panel = byId("panel").value = panel;
    state.dither = byId("dither").value = dither;
    byId("dither-field").hidden = panel === "" || panel === "rgb565";
}

function setTheme(theme) {
    state.theme = byId("theme").value = theme;
    if (!presets.light) return;
    themes.set(themeColors());
    insertion.draw(themeColors());
}

options(byId("theme"), [
    ["", "the scene's own"],
    ["dark", "dark"],
    ["light", "light"],
    ...Object.keys(facts.themes).map((name) => [name, name]),
    ["own", "edited below"],
]);
options(byId("panel"), [
    ["", "screen"],
    ["mono", "one bit"],
    ["gray4", "four greys"],
    ["gray16", "sixteen greys"],
    ["red", "black, white, red"],
    ["seven", "seven colours"],
    ["rgb565", "16 bits"],
]);

document.querySelectorAll('input[name="mode"]').forEach((radio) =>
    radio.addEventListener("change", () => {
        const wasEmpty = editors[radio.value === "scene" ? "scene" : "code"].text === "";
        if (wasEmpty) openExample(radio.value === "scene" ? facts.scenes[0].file : "hello.js");
        else {
            setMode(radio.value);
            draw();
        }
    }),
);
byId("example").addEventListener("change", () => openExample(byId("example").value));
byId("theme").addEventListener("change", () => {
    if (byId("theme").value === "own") state.own ??= themeColors();
    setTheme(byId("theme").value);
    draw();
});
for (const id of ["panel", "dither"]) {
    byId(id).addEventListener("change", () => {
        setPanel(byId("panel").value, byId("dither").value);
        if (state.mode === "scene" || programPictures.length === 0) draw();
        else asPanel(++turn);
    });
}
byId("frame").addEventListener("input", () => (byId("live").checked ? draw() : showFrame()));
byId("live").addEventListener("change", draw);
byId("shade").addEventListener("click", () => {
    const page = document.documentElement.dataset;
    const dark = page.shade
        ? page.shade === "dark"
        : matchMedia("(prefers-color-scheme: dark)").matches;
    page.shade = dark ? "light" : "dark";
});

// ---- Files and links

wireSaving({
    engine,
    drawn: () => ({ pictures, program: shownProgram() }),
    source: () =>
        state.mode === "scene"
            ? { name: "scene.json", text: editors.scene.text, data: editors.data.text }
            : { name: "picture.js", text: editors.code.text, data: "" },
    shared() {
        const { mode, theme, own, panel, dither } = state;
        if (mode === "javascript") return { mode, code: editors.code.text, panel, dither };
        const texts = { scene: editors.scene.text, data: editors.data.text };
        return { mode, ...texts, theme, own, panel, dither };
    },
});
byId("about").addEventListener("click", () => byId("telling").showModal());

const text = (value) => (typeof value === "string" ? value : "");
const among = (select, value) =>
    [...select.options].some((each) => each.value === value) ? value : "";
const isTheme = (value) =>
    value &&
    typeof value === "object" &&
    Object.keys(presets.light).every((role) => /^#[0-9a-f]{6}$/.test(value[role]));

/** Shows what a link holds. */
function openShared(shared) {
    state.own = isTheme(shared.own) ? shared.own : null;
    setPanel(
        among(byId("panel"), text(shared.panel)),
        among(byId("dither"), text(shared.dither)) || "ordered",
    );
    if (shared.mode === "javascript") {
        editors.code.open(text(shared.code));
        setMode("javascript");
    } else {
        editors.scene.open(text(shared.scene));
        editors.data.open(text(shared.data));
        setMode("scene");
        const theme = among(byId("theme"), text(shared.theme));
        setTheme(theme === "own" && !state.own ? "" : theme);
    }
    byId("example").value = "";
    draw();
}

async function openLink() {
    const end = location.hash.slice(1);
    const shared = await unpackLink(end);
    if (shared) openShared(shared);
    else if (end !== "" && facts.scenes.concat(facts.programs).every(({ file }) => file !== end)) {
        await openExample(facts.scenes[0].file);
        say("error", "The link holds nothing that can be read. It may have been cut.");
    } else openExample(end || "energy/dashboard.json");
}

// ---- The start

async function begin() {
    const { version, presets: found, live: canLive } = await started;
    presets = found;
    state.canLive = canLive;
    byId("version").textContent = `version ${version}`;
    themes.set(themeColors());
    await openLink();
    addEventListener("hashchange", openLink);
    setTimeout(
        () => insertion.draw(themeColors()).catch((reason) => say("error", reason.message)),
        300,
    );
}

say("busy", "Starting …");
begin().catch((reason) => say("error", reason.message));
