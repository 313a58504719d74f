"""Writes the records of C for JavaScript, in TypeScript: their types, and what lays them into the
memory of WebAssembly and reads them there."""

TARGET = "wasm32"
# By type: what the view of memory reads and writes, the check, and its type in TypeScript.
NUMBERS = {"int": ("Int32", "int"), "enum": ("Int32", "int"), "unsigned": ("Uint32", "unsigned"),
           "size": ("Uint32", "unsigned"), "double": ("Float64", "real"),
           "int64": ("BigInt64", "wide")}


def comment(text, indent=""):
    lines = [line.rstrip() for line in text.replace("*/", "* /").splitlines()]
    if not lines:
        return ""
    if len(lines) == 1 and len(indent + lines[0]) < 92:
        return f"{indent}/** {lines[0]} */\n"
    rows = [f"{indent} * {line}".rstrip() for line in lines]
    return "\n".join([f"{indent}/**", *rows, f"{indent} */"]) + "\n"


def calls_back(record):
    return any(field["type"] == "function" for field in record["fields"])


class Records:
    """The records of all libraries, by name."""

    def __init__(self, description):
        self.all = {each["name"]: each for library in description["libraries"]
                    for each in library["records"]}

    def __contains__(self, name):
        return name in self.all

    def size(self, name):
        return self.all[name]["size"][TARGET]

    def is_host(self, name):
        return name in self.all and calls_back(self.all[name])


def fields_of(record):
    """Those that a caller sets: neither the reserved ones nor what a list knows by itself."""
    counted = {field.get("length") for field in record["fields"]}
    return [field for field in record["fields"]
            if field["name"] not in counted and field.get("ownership") != "nothing"]


# ---- Types

def field_type(field):
    kind, of = field["type"], field.get("of")
    if kind == "record":
        return of
    if kind == "object":
        return f"{of} | null"
    if kind == "text":
        return "Text"
    if kind == "pointer":
        return "Reals" if of == "double" else f"readonly {of}[] | null"
    return "number"


def argument_type(argument, records):
    kind, of = argument["type"], argument.get("of")
    if kind == "record":
        return f"Given<{of}>"
    if kind == "object":
        return f"{of} | null"
    if kind == "pointer" and records.is_host(of):
        return "Asked | null"
    if kind == "pointer" and of in records:
        written = argument["ownership"] in ("written", "changed")
        return f"{'Partial' if written else 'Given'}<{of}> | null"
    if kind == "pointer":
        return "Reals" if "length" in argument else "Out"
    return {"text": "Text", "bytes": "Text", "memory": "Memory"}.get(kind, "number")


def result_type(result):
    kind = result["type"]
    if kind == "object":
        return f"{result['of']} | null"
    if kind == "record":
        return result["of"]
    if kind == "pointer":
        return "string[]"
    return {"void": "void", "text": "string | null"}.get(kind, "number")


# ---- Records

def put_field(record, field, records):
    """Writes a field of the record @p from, which is there, to its place."""
    name, kind, of = field["name"], field["type"], field.get("of")
    value, place = f"from.{name}", f"at + {field['offset'][TARGET]}"
    what = f'"{record}.{name}"'
    if kind in NUMBERS:
        access, check = NUMBERS[kind]
        return [f"Room.view.set{access}({place}, Pass.{check}({value} ?? 0, {what}), true);"]
    if kind == "byte":
        return [f"Room.bytes[{place}] = byte({value} ?? 0, {what});"]
    if kind == "record":
        return [f"put_{of}({place}, {value} ?? NONE);"]
    if kind == "text":
        return [f"Room.view.setUint32({place}, Pass.text({value}, {what}), true);"]
    if kind == "object":
        return [f"Room.view.setUint32({place}, Objects.object({value}, {of}, {what}), true);"]
    found = (f"Pass.reals({value}, {what})" if of == "double" else
             f"Pass.records({value}, {what}, {records.size(of)}, put_{of})")
    return [f"const [{name}, {name}_count] = {found};",
            f"Room.view.setUint32({place}, {name}, true);",
            f"Room.view.setUint32(at + @{field['length']}@, {name}_count, true);"]


def covered(record, records):
    """Whether its fields take up every byte of it."""
    sizes = {"byte": 1, "double": 8, "int64": 8}
    return record["size"][TARGET] == sum(
        records.size(field["of"]) if field["type"] == "record" else sizes.get(field["type"], 4)
        for field in fields_of(record))


def put_record(record, records):
    name = record["name"]
    lines = [line for field in fields_of(record) for line in put_field(name, field, records)]
    for field in record["fields"]:
        lines = [line.replace(f"@{field['name']}@", str(field["offset"][TARGET]))
                 for line in lines]
    body = "".join(f"    {line}\n" for line in lines)
    clear = "" if covered(record, records) else \
        f"    Room.bytes.fill(0, at, at + {record['size'][TARGET]});\n"
    return (f"\nfunction put_{name}(at: number, from: Given<{name}>): void {{\n"
            f"    Pass.record(from, \"a {name}\");\n"
            f"{clear}{body}}}\n")


def get_field(field):
    kind, place = field["type"], f"at + {field['offset'][TARGET]}"
    if kind == "byte":
        return f"Room.view.getUint8({place})"
    if kind == "record":
        return f"get_{field['of']}({place})"
    if kind == "text":
        return f"told(Room.view.getUint32({place}, true))"
    read = f"Room.view.get{NUMBERS[kind][0]}({place}, true)"
    return f"Number({read})" if kind == "int64" else read


def readable(record):
    return all(field["type"] in ("byte", "record", "text", *NUMBERS) for field in fields_of(record))


def get_record(record):
    name = record["name"]
    rows = "".join(f"        {each['name']}: {get_field(each)},\n" for each in fields_of(record))
    return f"\nfunction get_{name}(at: number): {name} {{\n    return {{\n{rows}    }};\n}}\n"


def record_text(record, records):
    name = record["name"]
    rows = "".join(comment(field["comment"], "    ") + f"    {field['name']}: {field_type(field)};\n"
                   for field in fields_of(record))
    text = f"\n{comment(record['comment'])}export interface {name} {{\n{rows}}}\n"
    text += put_record(record, records)
    return text + (get_record(record) if readable(record) else "")
