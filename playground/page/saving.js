// Files to save and links to share.
import { byId, copyText, saveFile } from "./elements.js";
import { packLink } from "./link.js";
import { movingPng } from "./png.js";
import { current } from "./stage.js";
import { say } from "./telling.js";

/**
 * Has the menu save and the button share what there is: @p drawn gives the pictures and the program
 * of C, @p source the name and text of what is written and its data, @p shared what a link holds.
 */
export function wireSaving({ engine, drawn, source, shared }) {
    const fileOf = (kind, { width, height, rgba }) =>
        engine.ask(kind, { picture: { width, height, rgba } });
    wireMenu(makeSaves(fileOf, drawn, source));
    byId("share").addEventListener("click", async () => {
        const end = await packLink(shared());
        history.replaceState(null, "", `#${end}`);
        byId("link").value = location.href;
        byId("linking").showModal();
        byId("link").select();
        const copied = await copyText(location.href);
        byId("linked").textContent = copied ? "Copied." : "Copy it from here.";
    });
}

const fileTypes = { png: "image/png", bmp: "image/bmp" };

function makeSaves(fileOf, drawn, source) {
    const picture = async (kind) => {
        const bytes = await fileOf(kind, current());
        saveFile(`picture.${kind}`, new Blob([bytes], { type: fileTypes[kind] }));
    };
    return {
        png: () => picture("png"),
        bmp: () => picture("bmp"),
        async apng() {
            const { pictures } = drawn(),
                [first] = pictures,
                all = [];
            const wanted = Number(byId("delay").value) || 200;
            for (const each of pictures) {
                if (each.width !== first.width || each.height !== first.height) continue;
                all.push(await fileOf("png", each));
            }
            saveFile("picture.png", movingPng(all, first, Math.min(Math.max(wanted, 20), 5000)));
        },
        source: () => saveFile(source().name, new Blob([source().text])),
        data: () => saveFile("data.json", new Blob([source().data])),
        c() {
            const { text, lacks } = drawn().program;
            if (text) saveFile("picture.c", new Blob([text]));
            else say("error", `There is no program of C: ${lacks}.`);
        },
    };
}

function wireMenu(saves) {
    byId("saving").addEventListener("click", async ({ target }) => {
        const run = saves[target.dataset?.save];
        if (!run) return;
        byId("saving").hidePopover();
        try {
            await run();
        } catch (reason) {
            say("error", reason.message);
        }
    });
    byId("saving").addEventListener("toggle", ({ newState }) => {
        if (newState !== "open") return;
        const box = byId("save").getBoundingClientRect(),
            menu = byId("saving");
        menu.style.top = `${box.bottom + 4}px`;
        menu.style.left = `${Math.max(4, Math.min(box.left, innerWidth - menu.offsetWidth - 4))}px`;
    });
}
