// Where a call goes that is inserted into a program, and what it names: the program's own canvas,
// while there is one, and a theme that is filled by then.
import { ensureSyntaxTree, syntaxTree } from "@codemirror/language";

const MAKES = /^(kit_canvas|orvel_canvas_create)$/;
const ENDS = /^(kit_save_bmp|orvel_canvas_save_bmp\w*|orvel_canvas_destroy)$/;
const FILLS = /^orvel_theme_(default|light)$/;
const FUNCTIONS = /^(Function|ArrowFunction|Method|Class)/;

/** What stands at the top of a program, outside of functions. */
class Outline {
    constructor(state) {
        this.state = state;
        const tree = ensureSyntaxTree(state, state.doc.length, 500) ?? syntaxTree(state);
        this.statements = [];
        for (let each = tree.topNode.firstChild; each; each = each.nextSibling) {
            if (!each.name.endsWith("Comment")) this.statements.push(each);
        }
        this.variables = new Map(); // by name: the statement that declares each
        for (const each of this.statements.filter(({ name }) => name === "VariableDeclaration")) {
            for (const variable of each.getChildren("VariableDefinition")) {
                this.variables.set(this.text(variable), each);
            }
        }
    }

    text(node) {
        return this.state.sliceDoc(node.from, node.to);
    }

    /** Those calls of functions so named that are given a variable of the top, or a part of one. */
    calls(names) {
        const found = [];
        for (const statement of this.statements) {
            statement.cursor().iterate(({ node }) => {
                if (FUNCTIONS.test(node.name)) return false;
                if (node.name !== "CallExpression") return true;
                if (!names.test(this.text(node.firstChild))) return true;
                const given = node.getChild("ArgList")?.firstChild?.nextSibling;
                const of = given ? this.text(given) : "";
                const root = /^[\w$]+(?=(\.[\w$]+)*$)/.exec(of)?.[0];
                if (this.variables.has(root)) found.push({ of, root, statement });
                return true;
            });
        }
        return found;
    }

    /** The canvas of the program: { of, root }. */
    canvas() {
        for (const [name, statement] of this.variables) {
            for (const variable of statement.getChildren("VariableDefinition")) {
                const value = variable.nextSibling?.nextSibling;
                const isCall = value?.name === "CallExpression" && this.text(variable) === name;
                if (isCall && MAKES.test(this.text(value.firstChild)))
                    return { of: name, root: name };
            }
        }
        return this.calls(ENDS)[0];
    }

    /** A name that the program does not have. */
    free(name) {
        const text = this.state.doc.toString();
        for (let i = 1; ; i++) {
            const found = i === 1 ? name : `${name}${i}`;
            if (!new RegExp(`\\b${found}\\b`).test(text)) return found;
        }
    }

    /** Behind the statement that the caret is in, where the canvas is there; else where it ends. */
    place({ of, root }) {
        const made = this.variables.get(root);
        const end = this.calls(ENDS).find(
            ({ of: ended, statement }) => ended === of && statement.from >= made.to,
        );
        const { head } = this.state.selection.main;
        const here = this.statements.findLast(({ from }) => from <= head);
        const isBetween = here && here.from >= made.from && !(end && here.to > end.statement.from);
        if (isBetween) return { at: this.behind(here), isBehind: true };
        return end
            ? { at: end.statement.from, isBehind: false }
            : { at: this.state.doc.length, isBehind: true };
    }

    behind(statement) {
        const line = this.state.doc.lineAt(statement.to);
        const rest = line.text.slice(statement.to - line.from);
        return /^\s*(\/\/.*)?$/.test(rest) ? line.to : statement.to;
    }
}

/** What to change in a program so that it makes one call more; @p code writes the call. */
export function codeInsertion(state, code) {
    const outline = new Outline(state);
    const canvas = outline.canvas();
    const { at, isBehind } = canvas
        ? outline.place(canvas)
        : { at: state.doc.length, isBehind: true };
    const name = canvas?.of ?? outline.free("canvas");
    const filled = outline.calls(FILLS).findLast(({ statement }) => statement.to <= at);
    const theme = filled?.of ?? outline.free("theme");
    const lines = [];
    if (!filled) lines.push(`const ${theme} = {};`, `orvel_theme_default(${theme});`);
    if (!canvas) {
        lines.push(`const ${name} = kit_canvas(240, 144);`);
        lines.push(`orvel_canvas_clear(${name}, ${theme}.background);`);
    }
    lines.push(code(name, theme));
    if (!canvas) lines.push(`kit_save_bmp(${name}, "inserted.bmp");`);
    const text = lines.join("\n");
    const isFresh = state.sliceDoc(state.doc.lineAt(at).from, at).trim() === "";
    return { from: at, insert: isBehind ? `${isFresh ? "" : "\n"}${text}` : `${text}\n` };
}
