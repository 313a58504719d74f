// What is chosen above the picture: the theme, the panel and how it dithers.
import { byId, fillSelect } from "./elements.js";
import { facts } from "./facts.js";

const among = (select, value) =>
    [...select.options].some((each) => each.value === value) ? value : "";

/** The choices; @p themed gets the colours of a theme that was chosen, @p changed what was. */
export function makeChoices({ themed, changed }) {
    let presets = null; // the colours of the themes that the library has
    const chosen = { theme: "", panel: "", dither: "ordered", own: null };

    const theme = () => {
        if (chosen.theme === "") return null;
        return chosen.theme === "own" ? chosen.own : (facts.themes[chosen.theme] ?? chosen.theme);
    };
    /** The colours that the page's lists are drawn in. */
    const colors = () => {
        const now = theme();
        return now !== null && typeof now === "object" ? now : presets[now ?? "light"];
    };
    const isTheme = (value) =>
        value &&
        typeof value === "object" &&
        Object.keys(presets.light).every((role) => /^#[0-9a-f]{6}$/.test(value[role]));

    function setTheme(name) {
        if (name === "own") chosen.own ??= colors();
        chosen.theme = byId("theme").value = name;
        themed(colors());
    }

    function setPanel(panel, dither) {
        chosen.panel = byId("panel").value = panel;
        chosen.dither = byId("dither").value = dither;
        byId("dither-field").hidden = panel === "" || panel === "rgb565";
    }

    fillSelect(byId("theme"), [
        ["", "the scene's own"],
        ["dark", "dark"],
        ["light", "light"],
        ...Object.keys(facts.themes).map((name) => [name, name]),
        ["own", "edited below"],
    ]);
    fillSelect(byId("panel"), [
        ["", "screen"],
        ["mono", "one bit"],
        ["gray4", "four greys"],
        ["gray16", "sixteen greys"],
        ["red", "black, white, red"],
        ["seven", "seven colours"],
        ["rgb565", "16 bits"],
    ]);
    byId("theme").addEventListener("change", () => {
        setTheme(byId("theme").value);
        changed("theme");
    });
    for (const id of ["panel", "dither"]) {
        byId(id).addEventListener("change", () => {
            setPanel(byId("panel").value, byId("dither").value);
            changed(id);
        });
    }

    return {
        colors,
        /** What a picture is drawn with. */
        wish: () => ({ theme: theme(), panel: chosen.panel, dither: chosen.dither }),
        /** What a link holds of them. */
        shared: () => ({ ...chosen }),
        /** Begins, with what the library says. */
        start(found) {
            presets = found;
            themed(colors());
        },
        /** Chooses a theme that was edited. */
        edit(own) {
            chosen.own = own;
            chosen.theme = byId("theme").value = "own";
        },
        /** Chooses what a link holds, where there is such a thing. */
        open(shared) {
            setPanel(
                among(byId("panel"), shared.panel),
                among(byId("dither"), shared.dither) || "ordered",
            );
            if (shared.theme === undefined) return;
            chosen.own = isTheme(shared.own) ? shared.own : null;
            const name = among(byId("theme"), shared.theme);
            setTheme(name === "own" && !chosen.own ? "" : name);
        },
    };
}
