"""Reads what C says of the interfaces out of the headers, by libclang."""
import pathlib
import re

from clang import cindex
from clang.cindex import CursorKind, TypeKind

import comments
from facts import Problem

# The interfaces, lowest first: the library, its header, the prefix of its names.
LIBRARIES = (("OrvelSDK", "include/orvel.h", "orvel_"),
             ("OrvelKit", "kit/include/orvel_kit.h", "kit_"),
             ("OrvelScreen", "kit/include/orvel_screen.h", "kit_screen_"))
# Whose sizes and offsets are told. All 64-bit targets of the libraries have those of the first.
TARGETS = {"64": "x86_64-unknown-linux-gnu", "wasm32": "wasm32-unknown-unknown"}
# All that the headers take from elsewhere, so that no target needs headers of its own.
STDDEF = "typedef __SIZE_TYPE__ size_t;\n"
NUMBERS = {TypeKind.INT: "int", TypeKind.UINT: "unsigned", TypeKind.LONGLONG: "int64",
           TypeKind.DOUBLE: "double", TypeKind.UCHAR: "byte", TypeKind.VOID: "void"}


def parsed(root, header, target):
    """The translation unit of @p header alone, as C for @p target."""
    include = "/orvel-describe"
    unit = cindex.Index.create().parse(
        str(root / header),
        args=["-xc", "-std=c99", f"--target={target}", "-nostdinc", f"-I{include}",
              f"-I{root / 'include'}", f"-I{root / 'kit/include'}"],
        unsaved_files=[(f"{include}/stddef.h", STDDEF)],
        options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    for diagnostic in unit.diagnostics:
        raise Problem(f"{header}:{diagnostic.location.line}: {diagnostic.spelling}")
    return unit


def spelled(kind):
    """A type as the headers write it: const orvel_canvas*."""
    return re.sub(r"\bunsigned int\b", "unsigned", re.sub(r" (\*+)", r"\1", kind.spelling))


def number_or_name(kind):
    """The neutral name of a type that is no pointer, and the declaration that it names."""
    if kind.spelling.removeprefix("const ") == "size_t":
        return "size", None
    plain = kind.get_canonical()
    if plain.kind in NUMBERS:
        return NUMBERS[plain.kind], None
    if plain.kind == TypeKind.ENUM:
        return "enum", plain.get_declaration().spelling
    if plain.kind == TypeKind.RECORD:
        declaration = plain.get_declaration()
        return ("record" if declaration.is_definition() else "object"), declaration.spelling
    raise Problem(f"no neutral name for the type {kind.spelling}")


def pointed(to):
    """The neutral name of a pointer, and what it leads to."""
    plain = to.get_canonical()
    if plain.kind == TypeKind.FUNCTIONPROTO:
        return "function", None
    if plain.kind == TypeKind.CHAR_S:
        return ("text" if plain.is_const_qualified() else "buffer"), None
    if plain.kind == TypeKind.VOID:
        return ("bytes" if plain.is_const_qualified() else "memory"), None
    if plain.kind == TypeKind.POINTER:
        return "pointer", "text"
    name, of = number_or_name(to)
    return ("object", of) if name == "object" else ("pointer", of or name)


def type_of(kind):
    """A type as the description has it."""
    plain = kind.get_canonical()
    if plain.kind == TypeKind.CONSTANTARRAY:
        return {**type_of(plain.element_type), "c": spelled(kind), "array": plain.element_count}
    if plain.kind == TypeKind.POINTER:
        to = kind.get_pointee() if kind.kind == TypeKind.POINTER else plain.get_pointee()
        name, of = pointed(to)
        constant = to.is_const_qualified() and name in ("object", "pointer")
        found = {"c": spelled(kind), "type": name, **({"of": of} if of else {})}
        return {**found, "const": True} if constant else found
    name, of = number_or_name(kind)
    return {"c": spelled(kind), "type": name, **({"of": of} if of else {})}


def arguments_of(cursor):
    return [{"name": each.spelling, **type_of(each.type)}
            for each in cursor.get_children() if each.kind == CursorKind.PARM_DECL]


def comment_of(function):
    """A function's comment, which may also stand behind it."""
    if function.raw_comment:
        return comments.body(function.raw_comment)
    text = pathlib.Path(function.location.file.name).read_text(encoding="utf-8")
    behind = re.match(r"; */\*\*<.*?\*/", text[function.extent.end.offset:], re.DOTALL)
    return comments.body(behind[0].lstrip("; ")) if behind else ""


def function_of(cursor):
    return {"name": cursor.spelling, "comment": comment_of(cursor),
            "line": cursor.extent.start.line, "arguments": arguments_of(cursor),
            "returns": type_of(cursor.result_type)}


def field_of(cursor, record):
    found = {"name": cursor.spelling, **type_of(cursor.type),
             "offset": record.get_offset(cursor.spelling) // 8,
             "comment": comments.body(cursor.raw_comment)}
    if found["type"] == "function":
        called = cursor.type.get_canonical().get_pointee()
        found["arguments"] = arguments_of(cursor)
        found["returns"] = type_of(called.get_result())
    return found


def record_of(cursor):
    kind = cursor.type
    return {"name": cursor.spelling, "comment": comments.body(cursor.raw_comment),
            "size": kind.get_size(), "align": kind.get_align(),
            "fields": [field_of(each, kind) for each in kind.get_fields()]}


def enum_of(cursor):
    return {"name": cursor.spelling, "comment": comments.body(cursor.raw_comment),
            "values": [{"name": each.spelling, "value": each.enum_value,
                        "comment": comments.body(each.raw_comment)}
                       for each in cursor.get_children()]}


def constants_of(text):
    """The macros that stand for a value, which are no declarations to libclang."""
    found = re.findall(r'/\*\*((?:(?!\*/).)*)\*/\n#define (\w+) ("[^"]*"|-?\d+)\n', text,
                       re.DOTALL)
    return [{"name": name, "type": "text" if value[0] == '"' else "int",
             "value": value.strip('"') if value[0] == '"' else int(value),
             "comment": comments.body(f"/**{comment}*/")} for comment, name, value in found]


def is_object(cursor):
    kind = cursor.underlying_typedef_type
    return kind.get_canonical().kind == TypeKind.RECORD and number_or_name(kind)[0] == "object"


def interface(root, header, target):
    """Everything that @p header declares, by kind."""
    found = {"objects": [], "records": [], "enums": [], "functions": []}
    for cursor in parsed(root, header, target).cursor.get_children():
        if not cursor.location.file or pathlib.Path(cursor.location.file.name) != root / header:
            continue
        if cursor.kind == CursorKind.FUNCTION_DECL:
            found["functions"].append(function_of(cursor))
        elif cursor.kind == CursorKind.STRUCT_DECL and cursor.is_definition():
            found["records"].append(record_of(cursor))
        elif cursor.kind == CursorKind.TYPEDEF_DECL and is_object(cursor):
            found["objects"].append({"name": cursor.spelling,
                                     "comment": comments.body(cursor.raw_comment)})
        elif cursor.kind == CursorKind.ENUM_DECL:
            found["enums"].append(enum_of(cursor))
    return found


def with_both_layouts(records, others):
    """@p records with a size, alignment and offsets for each target."""
    for record, other in zip(records, others):
        for key in ("size", "align"):
            record[key] = dict(zip(TARGETS, (record[key], other[key])))
        for field, same in zip(record["fields"], other["fields"]):
            field["offset"] = dict(zip(TARGETS, (field["offset"], same["offset"])))
    return records


def library(root, name, header, prefix):
    text = (root / header).read_text(encoding="utf-8")
    found, other = (interface(root, header, target) for target in TARGETS.values())
    found["records"] = with_both_layouts(found["records"], other["records"])
    return {"name": name, "header": pathlib.Path(header).name, "prefix": prefix,
            "places": comments.places(text),
            "comment": comments.body(re.search(r"/\*\*.*?\*/", text, re.DOTALL)[0]),
            "constants": constants_of(text), **found}


def libraries(root):
    return [library(root, *each) for each in LIBRARIES]
