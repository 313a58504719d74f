// What could stand where the caret is: from the schema of scenes, and from the functions of C.
import { pickedCompletion } from "@codemirror/autocomplete";
import { syntaxTree } from "@codemirror/language";

let schema = {};
const follow = (part) =>
    part?.$ref ? follow(schema.definitions[part.$ref.split("/").at(-1)]) : part;

/** All that a schema allows, alternatives one by one. */
function alternatives(part, depth = 0) {
    const here = follow(part);
    if (!here || depth > 8) return [];
    const inner = [...(here.anyOf ?? []), ...(here.oneOf ?? []), ...(here.allOf ?? [])];
    return [here, ...inner.flatMap((each) => alternatives(each, depth + 1))];
}

/** Those objects of a schema that have the keys that are there already, if any has. */
function objects(parts, keys) {
    const all = parts.flatMap((part) => alternatives(part)).filter((part) => part.properties);
    const kinds = all.filter((part) => part.required?.some((key) => keys.includes(key)));
    return kinds.length > 0 ? kinds : all;
}

const nameOf = (state, property) => {
    const text = state.sliceDoc(property.firstChild.from, property.firstChild.to);
    return text.replace(/^"|"$/g, "");
};

function keysOf(state, object) {
    return object.getChildren("Property").map((property) => nameOf(state, property));
}

/** What the schema says of a value of the tree. */
function partsOf(state, node) {
    if (!node || node.name === "JsonText") return [schema];
    const { parent } = node;
    if (parent.name === "Property") {
        const object = parent.parent,
            name = nameOf(state, parent);
        return objects(partsOf(state, object), keysOf(state, object)).flatMap(
            (part) => part.properties[name] ?? [],
        );
    }
    if (parent.name === "Array") {
        return partsOf(state, parent)
            .flatMap((part) => alternatives(part))
            .flatMap((part) => part.items ?? []);
    }
    return parent.name === "JsonText" ? [schema] : partsOf(state, parent);
}

/** Puts a text in place of the whole word that is there, its closing quotation mark, too. */
function put(text) {
    return (view, completion, from, to) => {
        const word = syntaxTree(view.state).resolveInner(from, 1);
        const end =
            word.name === "PropertyName" || word.name === "String" ? Math.max(to, word.to) : to;
        view.dispatch({
            changes: { from, to: end, insert: text },
            selection: { anchor: from + text.length },
            annotations: pickedCompletion.of(completion),
            userEvent: "input.complete",
        });
    };
}

function wordsOf(parts) {
    const found = new Map();
    for (const part of parts.flatMap((each) => alternatives(each))) {
        const values =
            part.enum ??
            ("const" in part ? [part.const] : part.type === "boolean" ? [true, false] : []);
        for (const value of values) found.set(JSON.stringify(value), part.description ?? "");
    }
    return [...found].map(([label]) => ({ label, apply: put(label), type: "constant" }));
}

function keyOptions(parts, keys, colon) {
    const found = new Map();
    for (const part of objects(parts, keys)) {
        for (const [key, value] of Object.entries(part.properties)) {
            if (!keys.includes(key))
                found.set(key, {
                    text: follow(value)?.description,
                    kind: part.required?.includes(key),
                });
        }
    }
    return [...found].map(([key, { text, kind }]) => ({
        label: `"${key}"`,
        apply: put(colon ? `"${key}": ` : `"${key}"`),
        detail: text,
        type: kind ? "class" : "property",
        boost: kind ? 1 : 0,
    }));
}

/** A source of completions for scenes. */
export function completeScene(given) {
    schema = given;
    return ({ state, pos, explicit }) => {
        const before = syntaxTree(state).resolveInner(pos, -1);
        const word = before.name === "PropertyName" || before.name === "String" ? before : null;
        if (!word && !explicit && !/[{,:[]\s*$/.test(state.sliceDoc(Math.max(0, pos - 40), pos)))
            return null;
        const from = word ? word.from : pos;
        if (!word || word.name === "PropertyName") {
            const object = word ? word.parent.parent : enclosing(before);
            if (object?.name === "Object" && (word || /[{,]\s*$/.test(state.sliceDoc(0, pos)))) {
                const keys = keysOf(state, object).filter(
                    (key) => !word || key !== nameOf(state, word.parent),
                );
                const colon = !/^\s*:/.test(
                    state.sliceDoc(word?.to ?? pos, (word?.to ?? pos) + 20),
                );
                return {
                    from,
                    options: keyOptions(partsOf(state, object), keys, colon),
                    validFor: /^"?\w*"?$/,
                };
            }
        }
        const options = wordsOf(word ? partsOf(state, word) : valueParts(state, before));
        return options.length > 0 ? { from, options, validFor: /^"?[\w #-]*"?$/ } : null;
    };
}

const enclosing = (node) => {
    let found = node;
    while (found && found.name !== "Object" && found.name !== "Array") found = found.parent;
    return found;
};

/** What may stand behind a colon or in a list, where nothing stands yet. */
function valueParts(state, node) {
    let found = node;
    while (found && !["Property", "Array", "Object"].includes(found.name)) found = found.parent;
    if (found?.name === "Array") {
        return partsOf(state, found)
            .flatMap((part) => alternatives(part))
            .flatMap((part) => part.items ?? []);
    }
    if (found?.name !== "Property") return [];
    return objects(partsOf(state, found.parent), keysOf(state, found.parent)).flatMap(
        (part) => part.properties[nameOf(state, found)] ?? [],
    );
}

/** A source of completions for programs. */
export function completeProgram({ functions, constants }) {
    const options = [
        ...functions.map(([label, names, info]) => ({
            label,
            detail: `(${names})`,
            info,
            type: "function",
            apply: `${label}(`,
        })),
        ...constants.map((label) => ({ label, type: "constant" })),
    ];
    return (context) => {
        const word = context.matchBefore(/[A-Za-z_]\w*/);
        if (!word && !context.explicit) return null;
        if (word && word.to - word.from < 2 && !context.explicit) return null;
        return { from: word?.from ?? context.pos, options, validFor: /^\w*$/ };
    };
}
