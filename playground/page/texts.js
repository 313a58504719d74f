// What is written: the scene and its data, or the program, each in an editor behind a tab.
import { completeProgram, completeScene } from "./completion.js";
import { codeInsertion } from "./code_insertion.js";
import { makeEditor } from "./editor.js";
import { byId, element, makeTabs } from "./elements.js";
import { facts } from "./facts.js";
import { nodeInsertion } from "./insertion.js";
import { say, showProblems } from "./telling.js";

const NAMES = { scene: "scene.json", data: "data.json", code: "picture.js" };
const ORDER = Object.keys(NAMES);
const ofMode = { scene: ["scene", "data"], javascript: ["code"] };

function put(view, change) {
    view.dispatch({
        changes: change,
        selection: { anchor: change.from + change.insert.trimEnd().length },
        scrollIntoView: true,
        userEvent: "input",
    });
    view.focus();
}

/** The editors; @p changed is called after each edit of the user's. */
export function makeTexts(changed) {
    let mode = "scene";
    const editors = {};
    const complete = { scene: completeScene(facts.schema), code: completeProgram(facts) };
    const panels = ORDER.map((which) => {
        const panel = element("div", { id: `editor-${which}` });
        byId("editing").querySelector(".editors").append(panel);
        editors[which] = makeEditor(panel, {
            language: which === "code" ? "javascript" : "json",
            label: NAMES[which],
            complete: complete[which],
            changed,
        });
        return { name: NAMES[which], panel };
    });
    const files = makeTabs(byId("editing").querySelector(".tabs"), panels);
    const choose = (which) => files.choose(ORDER.indexOf(which));

    return {
        get mode() {
            return mode;
        },
        get isScene() {
            return mode === "scene";
        },
        /** What the editor of that name has. */
        text: (which) => editors[which].text,
        /** The texts of a mode by name; of the present one where none is given. */
        all: (of = mode) =>
            Object.fromEntries(ofMode[of].map((which) => [which, editors[which].text])),
        setMode(next) {
            mode = next;
            files.buttons.forEach((button, i) => {
                button.hidden = !ofMode[mode].includes(ORDER[i]);
            });
            choose(ofMode[mode][0]);
        },
        /** Begins with new texts: those of the editors that @p given has. */
        open(given) {
            for (const which of ORDER) if (which in given) editors[which].open(given[which]);
        },
        mark(problems) {
            showProblems(problems, editors, (problem) => {
                choose(problem.which);
                editors[problem.which].show(problem);
            });
        },
        /** Inserts what a list of the page offers. */
        insert({ node, code }) {
            const { view } = editors[mode === "scene" ? "scene" : "code"];
            if (mode === "javascript") return put(view, codeInsertion(view.state, code));
            const change = nodeInsertion(view.state, node);
            if (!change) {
                return say("error", "The scene has no row, column or stack to insert into.");
            }
            choose("scene");
            put(view, change);
        },
    };
}
