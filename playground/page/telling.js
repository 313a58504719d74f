// What the page and the library say, in words and at the place in the text.
import { byId, element } from "./elements.js";

/** Says how it stands, in the line below the editor. */
export function say(kind, text) {
    byId("state").dataset.kind = kind;
    byId("state").textContent = text;
}

/** Notes what came of using the picture, the latest first. */
export function note(text) {
    const lines = byId("problems");
    lines.prepend(element("li", {}, element("button", {}, text)));
    while (lines.children.length > 50) lines.lastChild.remove();
}

/** A line of the library's, "scene:3:14: what is wrong", as a problem. */
export function problemOf(line, kind) {
    const found = /^(scene|data):(\d+):(\d+): (.*)$/s.exec(line);
    if (!found) return { which: null, kind, text: line };
    return {
        which: found[1],
        line: Number(found[2]),
        column: Number(found[3]),
        kind,
        text: found[4],
    };
}

/** Marks problems in the editors and lists them; @p go shows the place of one that is clicked. */
export function showProblems(problems, editors, go) {
    for (const [which, editor] of Object.entries(editors)) {
        editor.mark(problems.filter((each) => each.which === which && each.line));
    }
    byId("problems").replaceChildren(
        ...problems.map((each) => {
            const place = each.line
                ? [element("code", { textContent: `${each.which}:${each.line}:${each.column}` })]
                : [];
            const button = element("button", {}, ...place, each.text);
            button.addEventListener("click", () => {
                if (each.line) go(each);
            });
            return element("li", {}, button);
        }),
    );
}
