// Where a node goes that is inserted into a scene: behind the one that the caret is in.
import { syntaxTree } from "@codemirror/language";

const LISTS = new Set(["row", "column", "stack"]);

function listName(state, node) {
    if (node.name !== "Array" || node.parent?.name !== "Property") return null;
    const name = node.parent.firstChild;
    return state.sliceDoc(name.from + 1, name.to - 1);
}

function firstList(state) {
    let found = null;
    syntaxTree(state).iterate({
        enter({ node }) {
            if (!found && LISTS.has(listName(state, node))) found = node;
            return !found;
        },
    });
    return found;
}

/** What to change in a scene's text so that it has one node more; null where there is no place. */
export function nodeInsertion(state, node) {
    const { head } = state.selection.main;
    let list = syntaxTree(state).resolveInner(head, -1),
        child = null;
    while (list && !LISTS.has(listName(state, list))) {
        if (list.parent?.name === "Array") child = list;
        list = list.parent;
    }
    if (!list) {
        list = firstList(state);
        child = null;
    }
    if (!list) return null;
    const text = JSON.stringify(node).replace(/":/g, '": ').replace(/,"/g, ', "');
    const last = child ?? list.getChildren("Object").at(-1);
    if (!last) return { from: list.from + 1, insert: text };
    const line = state.doc.lineAt(last.from);
    const indent = /^\s*/.exec(line.text)[0];
    return { from: last.to, insert: `,\n${indent}${text}` };
}
