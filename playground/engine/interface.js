// The interfaces as data, as much of them as the playground needs.
import description from "orvelsdk/description";

const functions = new Map(),
    records = new Map(),
    enums = new Map();
for (const library of description.libraries) {
    for (const each of library.functions) functions.set(each.name, each);
    for (const each of library.records) records.set(each.name, each.fields);
    for (const each of library.enums) enums.set(each.name, each.values);
}

export const functionNamed = (name) => functions.get(name);

/** The fields of a record; undefined for what is none. */
export const fieldsOf = (name) => records.get(name);

/** What tells how long another argument or field is, and what a reason is written to, are C's
 *  alone. */
function isForC(kind, all) {
    return kind.type === "buffer" || all.some((each) => each.length === kind.name && each !== kind);
}

/** The arguments that JavaScript passes. */
export function argumentsOf(name) {
    const all = functions.get(name)?.arguments ?? [];
    return all.filter((each) => !isForC(each, all));
}

/** The name of a value of an enum, or the names of its bits. */
export function nameOf(of, value, bits) {
    const values = enums.get(of);
    if (!values) return String(value);
    const found = values.find((each) => each.value === value);
    if (found) return found.name;
    if (!bits || value === 0) return String(value);
    const parts = values.filter((each) => value & each.value);
    const sum = parts.reduce((all, each) => all | each.value, 0);
    return sum === value ? parts.map((each) => each.name).join(" | ") : String(value);
}
