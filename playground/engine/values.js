// Values as C writes them: a list fills the fields of a record in their order, "#rrggbb" is a
// colour.
import { argumentsOf, fieldsOf } from "./interface.js";

function colorFrom(text) {
    const digits = /^#([0-9a-f]{6})([0-9a-f]{2})?$/i.exec(text);
    if (!digits) throw new TypeError(`"${text}" is no colour; "#1e66f5" is one`);
    const all = parseInt(digits[1], 16);
    return {
        r: all >> 16,
        g: (all >> 8) & 255,
        b: all & 255,
        a: digits[2] ? parseInt(digits[2], 16) : 255,
    };
}

function recordLike(of, value) {
    if (typeof value === "string" && of === "orvel_color") return colorFrom(value);
    if (value === null || typeof value !== "object") return value;
    const fields = fieldsOf(of);
    if (Array.isArray(value)) {
        if (value.length > fields.length) throw new TypeError(`${of} has ${fields.length} fields`);
        return Object.fromEntries(
            value.map((each, i) => [fields[i].name, valueLike(fields[i], each)]),
        );
    }
    // The record itself where nothing in it has to be made: those that keep it look at it later.
    const parts = fields.filter((field) => field.name in value);
    const made = parts.map((field) => [field.name, valueLike(field, value[field.name])]);
    if (made.every(([name, each]) => each === value[name])) return value;
    if (of === "orvel_theme") return Object.assign(value, Object.fromEntries(made));
    return { ...value, ...Object.fromEntries(made) };
}

const WHOLE = new Set(["int", "unsigned", "size", "enum", "byte"]);

/** As C converts it: what is behind the point is cut off, and true is 1. */
function wholeLike(value) {
    if (typeof value === "boolean") return Number(value);
    return typeof value === "number" && Number.isFinite(value) ? Math.trunc(value) : value;
}

function valueLike(kind, value) {
    if (WHOLE.has(kind.type)) return wholeLike(value);
    if (kind.type === "record") return recordLike(kind.of, value);
    if (kind.type !== "pointer" || !fieldsOf(kind.of)) return value;
    if (kind.length && Array.isArray(value))
        return sameOr(
            value,
            value.map((each) => recordLike(kind.of, each)),
        );
    return recordLike(kind.of, value);
}

function sameOr(before, after) {
    return after.every((each, i) => each === before[i]) ? before : after;
}

/** The arguments of a call. */
export function likeC(name, args) {
    const kinds = argumentsOf(name);
    return args.map((value, i) => (kinds[i] ? valueLike(kinds[i], value) : value));
}
