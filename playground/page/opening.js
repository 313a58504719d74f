// What is opened: an example, or what a link holds.
import { byId, fillSelect } from "./elements.js";
import { facts } from "./facts.js";
import { unpackLink } from "./link.js";
import { say } from "./telling.js";

const examples = { scene: facts.scenes, javascript: facts.programs };
const FIRST = "energy/dashboard.json";

/** Opens texts in the editors and has them drawn by @p draw. */
export function makeOpening({ texts, choices, draw }) {
    let canLive = false;

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
    }

    function openExample(file) {
        for (const [mode, all] of Object.entries(examples)) {
            const found = all.find((each) => each.file === file);
            if (!found) continue;
            setMode(mode);
            byId("example").value = file;
            byId("frame").value = 0;
            texts.open(found);
            return draw();
        }
    }

    const text = (value) => (typeof value === "string" ? value : "");

    /** Shows what a link holds. */
    function openShared(shared) {
        const { mode = "scene", scene, data, code } = shared;
        const isScene = mode !== "javascript";
        choices.open(shared);
        texts.open(isScene ? { scene: text(scene), data: text(data) } : { code: text(code) });
        setMode(isScene ? "scene" : "javascript");
        byId("example").value = "";
        return draw();
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

    return {
        /** Opens what the address names; @p live is whether screens can be used. */
        async start({ live }) {
            canLive = live;
            await openLink();
            addEventListener("hashchange", openLink);
        },
        /** What a link holds. */
        shared() {
            const { theme, own, panel, dither } = choices.shared();
            const { mode } = texts;
            if (!texts.isScene) return { mode, ...texts.all(), panel, dither };
            return { mode, ...texts.all(), theme, own, panel, dither };
        },
    };
}
