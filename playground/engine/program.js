// The calls of a program, written down as a program of C.
import { api } from "orvelsdk";
import { fieldsOf, functionNamed, nameOf } from "./interface.js";

const MOST_CALLS = 20000;
const encoder = new TextEncoder();

/** A text as C writes it, in lines as it has them; no question marks may be a trigraph. */
export function literal(text) {
    const plain = typeof text === "string" ? text : new TextDecoder().decode(text);
    const safe = new TextDecoder().decode(encoder.encode(plain));
    const written = safe
        .replace(/["\\]/g, "\\$&")
        .replace(/\?(?=\?)/g, "?\\")
        .replace(/[\0-\x09\x0b-\x1f\x7f]/g, octal)
        .replace(/\n(?=.)/gs, '\\n"\n        "')
        .replace(/\n$/, "\\n");
    return `"${written}"`;
}

function octal(letter) {
    return `\\${letter.charCodeAt(0).toString(8).padStart(3, "0")}`;
}

function real(value) {
    if (Number.isNaN(value)) return "NAN";
    if (!Number.isFinite(value)) return value > 0 ? "INFINITY" : "-INFINITY";
    const text = Object.is(value, -0) ? "-0" : String(value);
    return /[.e]/.test(text) ? text : `${text}.0`;
}

function whole(kind, value) {
    const number = Number(value ?? 0);
    if (kind.of) return nameOf(kind.of, number, kind.type === "unsigned");
    return number === -2147483648 ? "(-2147483647 - 1)" : String(number);
}

const isNothing = (value) => value === undefined || value === null;

const DESTROYS = {
    orvel_canvas: "orvel_canvas_destroy",
    orvel_widget: "orvel_widget_destroy",
    kit_face: "kit_face_close",
    kit_screen: "kit_screen_close",
};

/** A program of C that grows call by call. */
export class Program {
    constructor() {
        this.lines = [];
        this.names = new Map(); // of objects, in the order in which they were made
        this.counts = {};
        this.themes = new Map(); // of records, and what they last held
        this.saves = 0;
        this.lacks = null;
    }

    /** Notes a call that is about to be made; what it returns is called with its result. */
    before(name, args) {
        const kind = functionNamed(name);
        if (!kind || !this.matters(kind)) return () => {};
        if (kind.returns.ownership === "static") {
            const call = `${name}(${this.passed(kind, args).join(", ")})`;
            return (found) => found && this.names.set(found, call);
        }
        this.follow();
        const call = `${name}(${this.passed(kind, args).join(", ")})`;
        const taken = kind.arguments.findIndex((each) => each.ownership === "taken");
        return (found) => {
            if (/_save_bmp/.test(name)) this.kept(call);
            else if (kind.returns.type === "object") this.made(kind.returns.of, found, call);
            else this.add(`${call};`);
            if (taken >= 0) this.names.delete(args[taken]);
        };
    }

    /** Whether a call changes what is drawn; the others' results are in what follows them. */
    matters(kind) {
        return (
            kind.returns.type === "object" ||
            /_save_bmp/.test(kind.name) ||
            kind.arguments.some((each) => each.type === "object" && !each.const)
        );
    }

    add(line) {
        if (this.lines.length >= MOST_CALLS) {
            this.lacks ??= `the program makes more than ${MOST_CALLS} calls`;
            return;
        }
        this.lines.push(`    ${line}`);
    }

    kept(call) {
        this.saves++;
        this.add(`if (${call} != 0) status = 1;`);
    }

    made(of, found, call) {
        if (found === null) return;
        const word = of.replace(/^(orvel|kit)_/, "");
        const name = `${word}${(this.counts[word] = (this.counts[word] ?? 0) + 1)}`;
        this.names.set(found, name);
        this.add(`${of}* ${name} = ${call};`);
        if (of === "orvel_canvas" || of === "kit_screen") this.add(`if (!${name}) return 1;`);
    }

    /** The arguments as C wants them, the lengths and the room for reasons, too. */
    passed(kind, args) {
        const lengths = {};
        let next = 0;
        const isLength = (each) =>
            kind.arguments.some((other) => other !== each && other.length === each.name);
        for (const each of kind.arguments) {
            if (each.type === "buffer") lengths[each.length] = "0";
        }
        const given = new Map();
        for (const each of kind.arguments) {
            if (each.type === "buffer" || isLength(each)) continue;
            given.set(each, args[next++]);
            if (each.length) lengths[each.length] = String(lengthOf(each, given.get(each)));
        }
        return kind.arguments.map((each) => {
            if (each.type === "buffer") return "NULL";
            return given.has(each) ? this.value(each, given.get(each)) : lengths[each.name];
        });
    }

    value(kind, value) {
        switch (kind.type) {
            case "int":
            case "unsigned":
            case "size":
            case "enum":
            case "byte":
                return whole(kind, value);
            case "double":
                return real(Number(value ?? 0));
            case "text":
                return isNothing(value) ? "NULL" : literal(value);
            case "bytes":
                return isNothing(value) ? "NULL" : literal(value);
            case "object":
                return isNothing(value) ? "NULL" : (this.names.get(value) ?? "NULL");
            case "record":
                return `(${kind.of}){${this.fields(kind.of, value)}}`;
            case "pointer":
                return this.pointer(kind, value);
            default:
                return "NULL";
        }
    }

    pointer(kind, value) {
        if (isNothing(value)) return "NULL";
        if (kind.of === "kit_screen_host") {
            this.lacks ??= "a host's functions have no form in C here";
            return "NULL";
        }
        if (kind.of === "orvel_theme") return `&${this.theme(value)}`;
        if (kind.length) return this.list(kind, value);
        if (kind.of === "int") return "NULL";
        return `&(${kind.of}){${this.fields(kind.of, value)}}`;
    }

    list(kind, values) {
        if (values.length === 0) return "NULL";
        const each = (value) =>
            kind.of === "double" ? real(value) : `{${this.fields(kind.of, value)}}`;
        return `(const ${kind.of}[]){${Array.from(values, each).join(", ")}}`;
    }

    /** What is not zero of a record; the plain ones without names, as people write them. */
    fields(of, record) {
        const fields = fieldsOf(of);
        if (of === "orvel_color" || of === "kit_box") {
            return fields.map((field) => String(Number(record?.[field.name] ?? 0))).join(", ");
        }
        const lengths = new Set(fields.map((field) => field.length)); // the lists' own count
        const parts = [];
        for (const field of fields) {
            const value = record?.[field.name];
            if (isNothing(value) || value === 0 || lengths.has(field.name)) continue;
            parts.push(`.${field.name} = ${this.field(field, value)}`);
            if (field.length) parts.push(`.${field.length} = ${value.length}`);
        }
        return parts.join(", ") || "0";
    }

    field(field, value) {
        return field.type === "record"
            ? `{${this.fields(field.of, value)}}`
            : this.value(field, value);
    }

    /** The variable of a theme, which holds what the record holds now. */
    theme(record) {
        const known = this.themes.get(record);
        if (known) return known.name;
        const name = `theme${this.themes.size + 1}`;
        const held = JSON.stringify(record);
        this.themes.set(record, { name, held: themeOf(record) });
        const preset = ["default", "light"].find((each) => {
            const theme = {};
            api[`orvel_theme_${each}`](theme);
            return JSON.stringify(theme) === held;
        });
        if (preset) {
            this.add(`orvel_theme ${name};`);
            this.add(`orvel_theme_${preset}(&${name});`);
        } else {
            this.add(`orvel_theme ${name} = {${this.fields("orvel_theme", record)}};`);
        }
        return name;
    }

    /** Writes down what changed in themes: widgets look at theirs whenever they are drawn. */
    follow() {
        for (const [record, known] of this.themes) {
            const now = themeOf(record);
            for (const [role, color] of Object.entries(now)) {
                if (color === known.held[role]) continue;
                this.add(`${known.name}.${role} = (orvel_color){${color}};`);
            }
            known.held = now;
        }
    }

    save(canvas, path) {
        this.kept(`kit_save_bmp(${this.names.get(canvas)}, ${literal(path)})`);
    }

    /** The whole program, or why there is none. */
    text() {
        if (this.lacks) return { lacks: this.lacks };
        if (this.saves === 0) return { lacks: "the program draws no picture" };
        const body = [...this.lines];
        for (const [object, name] of [...this.names].reverse()) {
            const of = Object.keys(DESTROYS).find((each) => object instanceof api[each]);
            if (/^\w+$/.test(name)) body.push(`    ${DESTROYS[of]}(${name});`);
        }
        const math = /\b(NAN|INFINITY)\b/.test(body.join("\n")) ? "#include <math.h>\n" : "";
        return {
            text:
                `#include <orvel_screen.h>\n${math}\nint main(void) {\n    int status = 0;\n` +
                `${body.join("\n")}\n    return status;\n}\n`,
        };
    }
}

function themeOf(record) {
    return Object.fromEntries(
        fieldsOf("orvel_theme").map(({ name }) => {
            const { r = 0, g = 0, b = 0, a = 0 } = record[name] ?? {};
            return [name, `${r}, ${g}, ${b}, ${a}`];
        }),
    );
}

function lengthOf(kind, value) {
    if (isNothing(value)) return 0;
    return kind.type === "bytes" && typeof value === "string"
        ? encoder.encode(value).length
        : value.length;
}
