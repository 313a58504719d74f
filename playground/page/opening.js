// What is opened: an example, what a link holds, or what the user wrote before that.
import { byId, fillSelect } from "./elements.js";
import { facts } from "./facts.js";
import { unpackLink } from "./link.js";
import { say } from "./telling.js";

const examples = { scene: facts.scenes, javascript: facts.programs };
const FIRST = "energy/dashboard.json";

/** Opens texts in the editors and has them drawn by @p draw. */
export function makeOpening({ texts, choices, draw }) {
    let canLive = false;
    const opened = {}; // of each mode: the texts as they were, and which example they are
    const aside = []; // what was written where something else was opened, the latest last

    function sharedOf(mode) {
        const { theme, own, panel, dither } = choices.shared();
        const written = { mode, ...texts.all(mode), panel, dither };
        return mode === "scene" ? { ...written, theme, own } : written;
    }

    function isEdited(mode) {
        const all = Object.entries(texts.all(mode));
        return all.some(([which, text]) => text !== (opened[mode]?.texts[which] ?? ""));
    }

    /** Opens texts of a mode; what the user wrote instead is put aside. */
    function openTexts(mode, given, example, put = (each) => aside.push(each)) {
        if (isEdited(mode)) put({ shared: sharedOf(mode), opened: opened[mode] });
        texts.open(given);
        opened[mode] = { example, texts: texts.all(mode) };
        setMode(mode);
        byId("back").hidden = aside.length === 0;
    }

    function setMode(mode) {
        texts.setMode(mode);
        const { isScene } = texts;
        document.querySelector(`input[name="mode"][value="${mode}"]`).checked = true;
        byId("theme-field").hidden = !isScene;
        byId("live-field").hidden = !isScene || !canLive;
        if (!isScene) byId("live").checked = false;
        byId("saving").querySelector('[data-save="source"]').textContent = isScene
            ? "Scene file"
            : "Program, JavaScript";
        byId("saving").querySelector('[data-save="data"]').hidden = !isScene;
        fillSelect(
            byId("example"),
            examples[mode].map(({ name, file }) => [file, name]),
        );
        byId("example").value = opened[mode]?.example ?? "";
    }

    function openExample(file) {
        for (const [mode, all] of Object.entries(examples)) {
            const found = all.find((each) => each.file === file);
            if (!found) continue;
            openTexts(mode, found, file);
            byId("frame").value = 0;
            return draw();
        }
    }

    const text = (value) => (typeof value === "string" ? value : "");

    /** Shows what a link holds. */
    function openShared(shared, put = undefined) {
        const { scene, data, code } = shared;
        if (shared.mode === "javascript") openTexts("javascript", { code: text(code) }, "", put);
        else openTexts("scene", { scene: text(scene), data: text(data) }, "", put);
        choices.open(shared);
        return draw();
    }

    /** Shows what was put aside last; what that takes the place of comes last of all. */
    function bringBack() {
        const last = aside.pop();
        openShared(last.shared, (each) => aside.unshift(each));
        opened[texts.mode] = last.opened;
        byId("example").value = last.opened?.example ?? "";
    }

    async function openLink() {
        const end = location.hash.slice(1);
        const shared = await unpackLink(end);
        const isExample = Object.values(examples)
            .flat()
            .some(({ file }) => file === end);
        if (shared) return openShared(shared);
        if (end === "" || isExample) return openExample(end || FIRST);
        await openExample(FIRST);
        say("error", "The link holds nothing that can be read. It may have been cut.");
    }

    document.querySelectorAll('input[name="mode"]').forEach((radio) =>
        radio.addEventListener("change", () => {
            const isNew = Object.values(texts.all(radio.value)).every((each) => each === "");
            if (isNew) return openExample(radio.value === "scene" ? FIRST : "hello.js");
            setMode(radio.value);
            draw();
        }),
    );
    byId("example").addEventListener("change", () => openExample(byId("example").value));
    byId("back").addEventListener("click", bringBack);

    return {
        /** Opens what the address names; @p live is whether screens can be used. */
        async start({ live }) {
            canLive = live;
            await openLink();
            addEventListener("hashchange", openLink);
        },
        /** What a link holds. */
        shared: () => sharedOf(texts.mode),
    };
}
