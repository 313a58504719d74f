"""Writes the low level of Python: every name of the description, for ctypes."""
import keyword
import textwrap

TYPES = {"int": "c_int", "unsigned": "c_uint", "size": "c_size_t", "int64": "c_longlong",
         "double": "c_double", "byte": "c_ubyte", "enum": "c_int", "text": "c_char_p",
         "buffer": "POINTER(c_char)", "bytes": "c_void_p", "memory": "c_void_p", "void": "None"}
# What a caller may pass, and what comes back.
TAKES = {"int": "int", "unsigned": "int", "size": "int", "int64": "int", "double": "float",
         "byte": "int", "enum": "int", "text": "bytes | None", "buffer": "_Memory | None",
         "bytes": "_Memory | bytes | None", "memory": "_Memory | None"}
GIVES = {**TAKES, "bytes": "int | None", "memory": "int | None", "buffer": "_Pointer[c_char]",
         "void": "None"}

HEAD = '''"""{title}

Made by scripts/describe from bindings/orvel_api.json: edit the headers, and run it. Texts are
bytes. Records are Structures with the names of C; what only the library sees into, an object, is a
Structure without fields, handled by its POINTER alone. None is null.
"""
'''
IMPORTS = '''from ctypes import (CFUNCTYPE, POINTER, Structure, c_char, c_char_p, c_double, c_int,
                    c_longlong, c_size_t, c_ubyte, c_uint, c_void_p)

from ._load import load


def _function(library, name, result, arguments, text):
    found = getattr(library, name)
    found.restype, found.argtypes, found.__doc__ = result, arguments, text
    return found
'''
STUB_IMPORTS = '''from ctypes import (Array, Structure, _Pointer, c_char, c_char_p, c_double,
                    c_int, c_size_t, c_ubyte, c_void_p)
from typing import Any, TypeVar, Union

_T = TypeVar("_T")
_Memory = Union[Array[Any], _Pointer[Any], c_void_p, int]
# What is passed where C takes a pointer: that, an array, the thing itself, or its byref().
_To = Union[_Pointer[_T], Array[_T], _T, Any, None]
'''


def ctype(kind, result_of_callback=False):
    """The type of ctypes. The results of callbacks may not be pointers of a kind."""
    name = kind["type"]
    if name == "record":
        base = kind["of"]
    elif name in ("object", "pointer"):
        base = f"POINTER({TYPES.get(kind['of'], kind['of'])})"
    elif name == "function":
        words = [ctype(kind["returns"], True)] + [ctype(each) for each in kind["arguments"]]
        base = f"CFUNCTYPE({', '.join(words)})"
    else:
        base = TYPES[name]
    if result_of_callback and name in ("object", "pointer", "text"):
        base = "c_void_p"
    return f"{base} * {kind['array']}" if "array" in kind else base


def quoted(text, indent=""):
    """A docstring."""
    lines = text.replace("\\", "\\\\").replace('"""', "'''").splitlines()
    if not lines:
        return '""""""'
    end = "" if not lines[-1].endswith('"') else " "
    return '"""' + ("\n" + indent).join(lines).replace(f"\n{indent}\n", "\n\n") + end + '"""'


def wrapped(head, words, tail):
    """@p head, the words with commas between, and @p tail, in lines of less than 100 columns."""
    whole = ", ".join(word.replace(" ", "\0") for word in words) + tail.replace(" ", "\0")
    indent = " " * (head.index("[" if "[" in head else "(") + 1)
    lines = textwrap.fill(head + whole, 99, subsequent_indent=indent, break_long_words=False,
                          break_on_hyphens=False)
    return lines.replace("\0", " ")


def record_text(record):
    rows = [f"{field['name']}: {field['comment']}" for field in record["fields"]
            if field["comment"]]
    rows = [textwrap.fill(row, 92, subsequent_indent="    ") for row in rows]
    return "\n".join([record["comment"], *([""] if rows and record["comment"] else []), *rows])


def function_text(function):
    rows = [*((each["name"], each) for each in function["arguments"]),
            ("Returns", function["returns"])]
    rows = [textwrap.fill(f"{name}: {each['comment']}", 95, subsequent_indent="    ")
            for name, each in rows if "comment" in each]
    if function["raises"]:
        instead = f": call {function['guarded']}()" if "guarded" in function else ""
        rows.append("Where it raises, the process ends" + instead + ".")
    parts = [function["comment"], "\n".join(rows)]
    return "\n\n".join(part for part in parts if part)


def classes(library):
    for item in library["objects"]:
        yield f"\n\nclass {item['name']}(Structure):\n    {quoted(item['comment'], '    ')}\n"
    for record in library["records"]:
        fields = ",\n                ".join(f'("{each["name"]}", {ctype(each)})'
                                                for each in record["fields"])
        text = quoted(record_text(record), "    ")
        yield f"\n\nclass {record['name']}(Structure):\n    {text}\n    _fields_ = [{fields}]\n"


def constants(library):
    yield "\n\n"
    for item in library["constants"]:
        value = f"b\"{item['value']}\"" if item["type"] == "text" else item["value"]
        yield f"{item['name']} = {value}\n"
    for enum in library["enums"]:
        yield "".join(f"{each['name']} = {each['value']}\n" for each in enum["values"])


def functions(library):
    yield f'\n_{library["name"]} = load("{library["name"]}")\n'
    for function in library["functions"]:
        head = f'{function["name"]} = _function('
        first = f'_{library["name"]}, "{function["name"]}", {ctype(function["returns"])}, ['
        types = [ctype(each) for each in function["arguments"]]
        line = head + "\n" + wrapped("    " + first, types, "],")
        yield f'{line}\n    {quoted(function_text(function))})\n'


def low_level(description):
    """The text of _api.py."""
    text = HEAD.format(title="The interfaces of OrvelSDK in C, for ctypes.") + IMPORTS
    for library in description["libraries"]:
        text += "".join([*classes(library), *constants(library), *functions(library)])
    return text


def stub_name(name):
    return name + "_" if keyword.iskeyword(name) else name


def stub_type(kind, names):
    if kind["type"] == "record":
        return kind["of"]
    if kind["type"] in ("object", "pointer"):
        of = TYPES.get(kind["of"], kind["of"])
        if names is GIVES:
            return f"_Pointer[{of}]"
        if kind["type"] == "object":
            return f"_Pointer[{of}] | None"
        return f"_To[{of}]"
    return names[kind["type"]]


def stub_function(function):
    words = [f'{stub_name(each["name"])}: {stub_type(each, TAKES)}'
             for each in function["arguments"]]
    words += ["/"] if words else []
    tail = f') -> {stub_type(function["returns"], GIVES)}: ...'
    return wrapped(f'def {function["name"]}(', words, tail) + "\n"


def stub_field(field):
    if "array" in field or field["type"] == "function":
        return "Any"
    return stub_type(field, GIVES)


def stub_classes(library):
    for item in library["objects"]:
        yield f"\nclass {item['name']}(Structure): ...\n"
    for record in library["records"]:
        rows = "".join(f"    {each['name']}: {stub_field(each)}\n" for each in record["fields"])
        words = [f"{each['name']}: Any = ..." for each in record["fields"]]
        taken = any(each["name"] == "self" for each in record["fields"])
        words = ["this" if taken else "self", *words]
        start = wrapped("def __init__(", words, ") -> None: ...")
        yield (f"\nclass {record['name']}(Structure):\n{rows}"
               f"{textwrap.indent(start, '    ')}\n")


def stub(description):
    """The text of _api.pyi."""
    text = HEAD.format(title="The types of _api.py.") + STUB_IMPORTS
    for library in description["libraries"]:
        text += "".join(stub_classes(library)) + "\n"
        text += "".join(f"{each['name']}: {'bytes' if each['type'] == 'text' else 'int'}\n"
                        for each in library["constants"])
        for enum in library["enums"]:
            text += "".join(f"{each['name']}: int\n" for each in enum["values"])
        text += "".join(stub_function(each) for each in library["functions"])
    return text
