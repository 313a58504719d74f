// An editor: CodeMirror in a shadow root, where its styles are sheets and not elements, which the
// page's policy would have to let in.
import {
    autocompletion,
    closeBrackets,
    closeBracketsKeymap,
    completionKeymap,
} from "@codemirror/autocomplete";
import { defaultKeymap, history, historyKeymap, indentWithTab } from "@codemirror/commands";
import { javascript } from "@codemirror/lang-javascript";
import { json } from "@codemirror/lang-json";
import {
    bracketMatching,
    foldGutter,
    foldKeymap,
    HighlightStyle,
    indentOnInput,
    indentUnit,
    syntaxHighlighting,
} from "@codemirror/language";
import { lintGutter, setDiagnostics } from "@codemirror/lint";
import { highlightSelectionMatches, searchKeymap } from "@codemirror/search";
import { EditorState } from "@codemirror/state";
import {
    drawSelection,
    EditorView,
    highlightActiveLine,
    highlightActiveLineGutter,
    keymap,
    lineNumbers,
} from "@codemirror/view";
import { tags } from "@lezer/highlight";

const colors = HighlightStyle.define([
    { tag: [tags.propertyName, tags.definition(tags.variableName)], color: "var(--name)" },
    { tag: [tags.string, tags.special(tags.string)], color: "var(--string)" },
    { tag: [tags.number, tags.bool, tags.null], color: "var(--number)" },
    { tag: [tags.keyword, tags.operatorKeyword, tags.modifier], color: "var(--keyword)" },
    { tag: tags.comment, color: "var(--comment)", fontStyle: "italic" },
]);

const look = EditorView.theme({
    "&": {
        height: "100%",
        color: "var(--strong)",
        backgroundColor: "var(--background)",
        fontSize: "13px",
    },
    "&.cm-focused": { outline: "2px solid var(--link)", outlineOffset: "-2px" },
    ".cm-scroller": {
        fontFamily: 'ui-monospace, "SF Mono", Menlo, "DejaVu Sans Mono", monospace',
        lineHeight: "1.5",
    },
    ".cm-content": { caretColor: "var(--strong)", padding: "8px 0" },
    ".cm-cursor": { borderLeftColor: "var(--strong)", borderLeftWidth: "2px" },
    ".cm-gutters": { backgroundColor: "var(--surface)", color: "var(--comment)", border: "0" },
    ".cm-activeLine, .cm-activeLineGutter": {
        backgroundColor: "color-mix(in srgb, var(--accent) 9%, transparent)",
    },
    [`&.cm-focused > .cm-scroller > .cm-selectionLayer .cm-selectionBackground,
       .cm-selectionBackground`]: {
        backgroundColor: "color-mix(in srgb, var(--accent) 28%, transparent) !important",
    },
    ".cm-matchingBracket, &.cm-focused .cm-matchingBracket": {
        backgroundColor: "color-mix(in srgb, var(--accent) 25%, transparent)",
    },
    ".cm-tooltip": {
        backgroundColor: "var(--surface)",
        color: "var(--strong)",
        border: "1px solid var(--border)",
    },
    ".cm-tooltip-autocomplete ul li[aria-selected]": {
        backgroundColor: "var(--link)",
        color: "var(--background)",
    },
    ".cm-completionDetail": { color: "inherit", fontStyle: "normal", opacity: "0.85" },
    ".cm-panels": { backgroundColor: "var(--surface)", color: "var(--strong)" },
    ".cm-textfield, .cm-button": {
        background: "var(--code)",
        color: "var(--strong)",
        border: "1px solid var(--border)",
    },
    ".cm-diagnostic": { fontFamily: "inherit" },
    ".cm-foldPlaceholder": { background: "var(--code)", border: "0", color: "var(--strong)" },
});

/**
 * Types over a selection here and not in the browser, which would keep the look of what was there
 * by styles in the text, which the page's policy refuses aloud.
 */
const typingOver = EditorView.domEventHandlers({
    beforeinput(event, view) {
        const { from, to, empty } = view.state.selection.main,
            text = event.data;
        if (event.inputType !== "insertText" || event.isComposing || empty || text === null)
            return false;
        const insert = () =>
            view.state.update(view.state.replaceSelection(text), { userEvent: "input.type" });
        const handlers = view.state.facet(EditorView.inputHandler);
        if (!handlers.some((handle) => handle(view, from, to, text, insert)))
            view.dispatch(insert());
        return true;
    },
});

/**
 * An editor in @p place.
 *
 * @param language  "json" or "javascript".
 * @param complete  a source of completions.
 * @param changed   called after each edit of the user's.
 */
export function makeEditor(place, { language, label, complete, changed }) {
    const root = place.attachShadow({ mode: "open" });
    const box = root.appendChild(document.createElement("div"));
    box.style.height = "100%";
    let quiet = false;
    const extensions = [
        lineNumbers(),
        foldGutter(),
        lintGutter(),
        history(),
        drawSelection(),
        indentOnInput(),
        bracketMatching(),
        closeBrackets(),
        highlightActiveLine(),
        highlightActiveLineGutter(),
        highlightSelectionMatches(),
        autocompletion({ override: complete ? [complete] : undefined }),
        indentUnit.of(language === "json" ? "  " : "    "),
        EditorState.tabSize.of(4),
        language === "json" ? json() : javascript(),
        syntaxHighlighting(colors),
        look,
        typingOver,
        keymap.of([
            ...closeBracketsKeymap,
            ...defaultKeymap,
            ...searchKeymap,
            ...historyKeymap,
            ...foldKeymap,
            ...completionKeymap,
            indentWithTab,
        ]),
        EditorView.contentAttributes.of({ "aria-label": label, tabindex: "0" }),
        EditorView.updateListener.of((update) => {
            if (update.docChanged && !quiet) changed();
        }),
    ];
    const view = new EditorView({ root, parent: box, state: EditorState.create({ extensions }) });
    return {
        view,
        get text() {
            return view.state.doc.toString();
        },
        /** Begins with a new text at its beginning, without a history. */
        open(text) {
            quiet = true;
            view.setState(EditorState.create({ doc: text, extensions }));
            quiet = false;
            view.scrollDOM.scrollTo(0, 0);
        },
        /** Marks problems: { line, column, kind, text }. */
        mark(problems) {
            const diagnostics = problems.map((problem) => {
                const from = placeOf(view.state.doc, problem);
                const word = view.state.wordAt(from);
                const to =
                    word && word.from === from
                        ? word.to
                        : Math.min(from + 1, view.state.doc.length);
                return { from, to, severity: problem.kind, message: problem.text };
            });
            view.dispatch(setDiagnostics(view.state, diagnostics));
        },
        show(problem) {
            view.dispatch({
                selection: { anchor: placeOf(view.state.doc, problem) },
                scrollIntoView: true,
            });
            view.focus();
        },
    };
}

/** Columns are counted in bytes, as the library counts them. */
function placeOf(doc, { line, column }) {
    const row = doc.line(Math.min(Math.max(line, 1), doc.lines));
    const before = new TextDecoder().decode(
        new TextEncoder().encode(row.text).subarray(0, column - 1),
    );
    return row.from + Math.min(before.length, row.length);
}
