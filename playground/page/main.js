// The page: two languages, an editor, a picture, and what goes between them.
import { makeChoices } from "./choices.js";
import { makeDrawing } from "./drawing.js";
import { compareDrawer, insertDrawer, programDrawer, themeDrawer } from "./drawers.js";
import { byId, makeTabs } from "./elements.js";
import { pictureFiles } from "./facts.js";
import { makeLive } from "./live.js";
import { makeOpening } from "./opening.js";
import { wireSaving } from "./saving.js";
import { note, say } from "./telling.js";
import { makeTexts } from "./texts.js";
import { Engine } from "./workers.js";

const engine = new Engine();
const started = engine.start({ files: pictureFiles() }); // while the page is made
started.catch(() => {}); // begin() says why

const texts = makeTexts(() => drawing.later());
const live = makeLive({
    engine,
    told: note,
    failed(why) {
        byId("live").checked = false;
        say("error", why);
    },
});

// ---- The tools below

const comparison = compareDrawer();
const insertion = insertDrawer(engine, texts.insert);
const asC = programDrawer(() => drawing.program());
const themes = themeDrawer((theme) => {
    choices.edit(theme);
    drawing.later();
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

// ---- What is drawn

let areListsDrawn = false; // the lists of icons and widgets come after the first picture
const choices = makeChoices({
    themed(colors) {
        themes.set(colors);
        if (areListsDrawn) drawLists();
    },
    changed: (what) => (what === "theme" ? drawing.draw() : drawing.panelChanged()),
});
const drawing = makeDrawing({
    engine,
    texts,
    choices,
    live,
    seen: comparison.compare,
    told() {
        if (!asC.panel.hidden) asC.draw();
    },
});
const opening = makeOpening({ texts, choices, draw: drawing.draw });

wireSaving({
    engine,
    drawn: () => ({ pictures: drawing.pictures, program: drawing.program() }),
    source: () =>
        texts.isScene
            ? { name: "scene.json", text: texts.text("scene"), data: texts.text("data") }
            : { name: "picture.js", text: texts.text("code"), data: "" },
    shared: opening.shared,
});
byId("about").addEventListener("click", () => byId("telling").showModal());
byId("shade").addEventListener("click", () => {
    const page = document.documentElement.dataset;
    const dark = page.shade
        ? page.shade === "dark"
        : matchMedia("(prefers-color-scheme: dark)").matches;
    page.shade = dark ? "light" : "dark";
});

// ---- The start

function drawLists() {
    areListsDrawn = true;
    return insertion.draw(choices.colors()).catch((reason) => say("error", reason.message));
}

async function begin() {
    const { version, presets, live: canLive } = await started;
    byId("version").textContent = `version ${version}`;
    choices.start(presets);
    await opening.start({ live: canLive });
    setTimeout(drawLists, 300);
}

say("busy", "Starting …");
begin().catch((reason) => say("error", reason.message));
