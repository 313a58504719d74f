"""Writes the low level of JavaScript, in TypeScript: every name of the description, each call with
its arguments checked and laid into the memory of WebAssembly."""
import re
import textwrap

from javascript_records import (NUMBERS, Records, argument_type, calls_back, comment, record_text,
                                result_type)

LISTS = ("bytes", "memory")

HEAD = """// The interfaces of OrvelSDK in C, for JavaScript.
//
// Made by scripts/describe from bindings/orvel_api.json: edit the headers, and run it. Names and
// order are those of C. Left out are the room for a reason, which comes as an exception, and what
// only tells how long something is. Records are plain objects, and what they lack is 0; an object
// of the library is freed by its function, or when nothing holds it any more.

import * as Pass from "./arguments.js";
import type { Given, Memory, Out, Reals, Text } from "./arguments.js";
import { refusal } from "./errors.js";
import { asked, hostsLend, Lender } from "./hosts.js";
import type { Asked } from "./hosts.js";
import * as Room from "./memory.js";
import * as Objects from "./objects.js";
import type { Cell } from "./objects.js";
"""
REASON = 1024


def wrapped(head, words, tail, indent=""):
    """@p head, the words with commas between, and @p tail: in one line, or a word a line."""
    line = f"{head}{', '.join(words)}{tail}"
    if len(indent + line) < 100:
        return line
    return f"{head}\n" + "".join(f"{indent}    {word},\n" for word in words) + indent + tail


class Call:
    """One function: the lines before the call, what is passed, and the lines after it."""

    def __init__(self, function, records):
        self.function, self.records = function, records
        self.before, self.passed, self.after, self.kept = [], [], [], []
        self.shown, self.screen, self.taken, self.first = [], None, [], []
        self.arguments = function["arguments"]
        self.result = function["returns"]
        self.lengths = {each["length"]: each["name"] for each in self.arguments
                        if "length" in each}
        if self.result["type"] == "record":
            self.before.append(f"const result = Room.allot({records.size(self.result['of'])});")
            self.passed.append("result")
        for argument in self.arguments:
            self.add(argument)

    def add(self, argument):
        name, kind, of = argument["name"], argument["type"], argument.get("of")
        if name in self.lengths:
            self.passed.append(f"{self.lengths[name]}_length")
            return
        if kind == "buffer":
            self.before += [f"const {name} = Room.allot({REASON});", f"Room.bytes[{name}] = 0;",
                            f"const {name}_length = {REASON};"]
            self.passed.append(name)
            return
        if name == self.result.get("length"):
            self.before.append(f"const {name} = Room.allot(4);")
            self.passed.append(name)
            return
        self.shown.append(argument)
        if kind == "object":
            self.add_object(argument)
        elif kind == "pointer":
            self.add_pointer(argument)
        elif kind in LISTS or kind == "record":
            check = {"bytes": "data", "memory": "memory", "record": "value"}[kind]
            self.add_laid(argument, check)
        elif kind == "text":
            self.passed.append(f'Pass.text({name}, "{name}")')
        else:
            self.passed.append(f'Pass.{NUMBERS[kind][1]}({name}, "{name}")'
                               + (" as unknown as number" if kind == "int64" else ""))

    def add_laid(self, argument, check):
        name, of = argument["name"], argument.get("of")
        if check in ("given", "value"):
            self.passed.append(f'Pass.{check}({name}, {self.records.size(of)}, put_{of})')
            return
        self.before.append(f'const [{name}_at, {name}_length] = Pass.{check}({name}, "{name}");')
        self.passed.append(f"{name}_at")
        if check == "memory":
            end = f"{name}_at + {name}_length"
            self.after.append(f"{name}?.set(Room.bytes.subarray({name}_at, {end}));")

    def add_object(self, argument):
        name, of, owner = argument["name"], argument["of"], argument["ownership"]
        if owner == "taken" and len(self.arguments) == 1:
            self.taken.append((name, of))
            return
        if of == "kit_screen":
            self.screen = name
            self.before.append(f'screen_cell = Objects.use({name}, {of}, "{name}");')
            self.passed.append("screen_cell?.address ?? 0")
            return
        if owner == "kept":
            self.kept.append(f'Objects.keep({name}, {of}, "{name}")')
        if owner == "taken":
            self.taken.append((name, of))
            self.before.append(f'Objects.givable({name}, {of}, "{name}");')
        self.passed.append(f'Objects.object({name}, {of}, "{name}")')

    def add_pointer(self, argument):
        name, of, owner = argument["name"], argument["of"], argument["ownership"]
        if self.records.is_host(of):
            self.first.append(f"const lender = {name} ? new Lender({name}) : undefined;")
            self.before.append(f"const {name}_at = lender === undefined ? 0 : "
                            f"lender.lay(Room.allot({self.records.size(of)}));")
            self.passed.append(f"{name}_at")
            self.kept.append("lender")
        elif owner == "kept":
            size = self.records.size(of)
            self.first.append(f"const {name}_kept = Objects.Shared.of({name}, {size}, put_{of});")
            self.passed.append(f"{name}_kept?.address ?? 0")
            self.kept.append(f"{name}_kept")
        elif of not in self.records and "length" in argument:
            self.before.append(f'const [{name}_at, {name}_length] = Pass.reals({name}, "{name}");')
            self.passed.append(f"{name}_at")
        elif owner in ("written", "changed"):
            self.add_written(name, of, owner)
        else:
            self.add_laid(argument, "given")

    def add_written(self, name, of, owner):
        size = self.records.size(of) if of in self.records else 4
        laid = f'Pass.room({name}, "{name}", {size})' if owner == "written" else \
            f'Pass.given({name}, {size}, put_{of})'
        self.before.append(f"const {name}_at = {laid};")
        self.passed.append(f"{name}_at")
        read = f"Object.assign({name}, get_{of}({name}_at))" if of in self.records else \
            f"{name}.value = Room.view.getInt32({name}_at, true)"
        self.after.append(f"if ({name}_at !== 0 && {name}) {read};")

    # The lines that follow the call.

    def conversion(self):
        result, kind = self.result, self.result["type"]
        if kind == "object":
            return f"Objects.lent(found, {result['of']})"
        if kind == "record":
            return f"get_{result['of']}(result)"
        if kind == "text":
            return "told(found)"
        if kind == "pointer":
            return f"list(found, Room.view.getInt32({result['length']}, true))"
        if kind == "int64":
            return "Number(found)"
        return "found >>> 0" if NUMBERS[kind][0] == "Uint32" else "found"

    def lines(self):
        name = self.function.get("guarded", self.function["name"])
        call = f"Room.wasm.{name}!("
        has_reason = any(each["type"] == "buffer" for each in self.arguments)
        kind = self.result["type"]
        yield from self.before
        call = call if kind in ("void", "record") else f"const found = {call}"
        yield wrapped(call, self.passed, ");", "        ")
        yield from self.after
        for taken, of in self.taken:
            others = "".join(f"if ({each['name']} !== {taken}) " for each in self.shown
                             if each["type"] == "object" and each["name"] != taken)
            yield f'{others}Objects.gone({taken});'
        if has_reason:
            bad = "found === 0" if kind == "object" else "found !== 0"
            yield "asked();"
            yield f'if ({bad}) throw refusal(Room.textAt(why), "{self.function["name"]} failed");'
        elif self.screen:
            yield "asked();"
        if kind == "object" and self.result["ownership"] == "caller":
            words = ["found", self.result["of"], f'"{self.result["free"]}"', *self.kept]
            yield wrapped("return Objects.made(", words, ");", "        ")
        elif kind != "void":
            yield f"return {self.conversion()};"

    def text(self):
        function = self.function
        words = [f"{each['name']}: {argument_type(each, self.records)}" for each in self.shown]
        head = wrapped(f"export function {function['name']}(", words,
                       f"): {result_type(self.result)} {{") + "\n"
        lines = list(self.lines())
        finish = ["Room.leave(mark);"]
        first = [*self.first, "const mark = Room.enter();"]
        for kept in self.kept:
            if kept == "lender" or kept.endswith("_kept"):
                finish.insert(0, f"{kept}?.settle();")
        if self.screen:
            first.append("let screen_cell: Cell | undefined;")
            finish.insert(0, "Objects.idle(screen_cell);")
        body = "".join(f"        {line}\n" for line in lines)
        start = "".join(f"    {line}\n" for line in first)
        ending = "".join(f"        {line}\n" for line in finish)
        return (f"\n{comment(function_text(function, self.shown))}{head}{start}    try {{\n{body}"
                f"    }} catch (reason) {{\n        throw Room.refused(reason);\n"
                f"    }} finally {{\n{ending}    }}\n}}\n")


def freeing(function):
    """A function that frees an object, which may have to wait for what needs it."""
    argument = function["arguments"][0]
    name, of = argument["name"], argument["of"]
    return (f"\n{comment(function['comment'])}export function {function['name']}"
            f"({name}: {of} | null): void {{\n    Objects.take({name}, {of}, \"{name}\");\n}}\n")


def function_text(function, shown):
    names = [each["name"] for each in shown]
    rows = [f"@param {each['name']} {each['comment']}" for each in function["arguments"]
            if "comment" in each and each["name"] in names]
    if "comment" in function["returns"]:
        rows.append(f"@returns {function['returns']['comment']}")
    rows = [textwrap.fill(row, 92, subsequent_indent="    ") for row in rows]
    parts = [function["comment"], "\n".join(rows)]
    return "\n\n".join(part for part in parts if part)


def constants(library):
    yield "\n"
    for item in library["constants"]:
        value = f'"{item["value"]}"' if item["type"] == "text" else item["value"]
        yield f"export const {item['name']} = {value};\n"
    for enum in library["enums"]:
        for each in enum["values"]:
            yield comment(each["comment"]) + f"export const {each['name']} = {each['value']};\n"


def function(each, records):
    one = each["arguments"][0] if len(each["arguments"]) == 1 else {}
    return freeing(each) if one.get("ownership") == "taken" else Call(each, records).text()


def library_text(library, records):
    for item in library["objects"]:
        yield f"\n{comment(item['comment'])}export class {item['name']} extends Objects.Handle {{\n" \
              f'    declare private readonly is: "{item["name"]}";\n}}\n'
    for record in library["records"]:
        if not calls_back(record):
            yield record_text(record, records)
    yield from constants(library)
    for each in library["functions"]:
        yield function(each, records)


SMALL = """
const NONE = {}; // in place of a record that lacks

function byte(value: number, what: string): number {
    if ((value & 255) !== value) {
        Pass.int(value, what);
        throw new RangeError(`${what} is ${value}, not 0 to 255`);
    }
    return value;
}

function told(address: number): string | null {
    return address === 0 ? null : Room.textAt(address);
}

function list(address: number, count: number): string[] {
    return Array.from({ length: count },
                      (_, i) => Room.textAt(Room.view.getUint32(address + 4 * i, true)));
}
"""


def used(text):
    """@p text without the writers and readers of records that no call needs."""
    def kept(match):
        return match[0] if len(re.findall(rf"\b{match[1]}\b", text)) > 1 else ""

    found = re.sub(r"\nfunction ((?:put|get)_\w+)\(.*?\n}\n", kept, text, flags=re.DOTALL)
    return found if found == text else used(found)


def low_level(description):
    """The text of api.ts."""
    records = Records(description)
    text = HEAD + SMALL
    for library in description["libraries"]:
        text += "".join(library_text(library, records))
    size = records.size("orvel_theme")
    text += ("\nhostsLend({\n    picture: orvel_canvas,\n    face: kit_face,\n"
             f"    themeSize: {size},\n"
             "    putTheme: (at, theme) => put_orvel_theme(at, theme),\n});\n")
    return used(text)
