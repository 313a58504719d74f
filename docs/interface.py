"""The interfaces as data, bindings/orvel_api.json, for the pages and manual pages that are made from it."""
import json
import pathlib
import re
import sys
import textwrap

SOURCES = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(SOURCES / "bindings/describe"))
import comments  # noqa: E402  (found by the line above)


def libraries():
    """The three, lowest first, with what each section of the header begins with."""
    found = json.loads((SOURCES / "bindings/orvel_api.json").read_text(encoding="utf-8"))
    for library in found["libraries"]:
        header = next(SOURCES.glob(f"*/{library['header']}"), None)
        text = (header or SOURCES / "kit/include" / library["header"]).read_text(encoding="utf-8")
        library["introductions"], section = {}, ""
        for block in comments.BLOCK.findall(text):
            heading = comments.HEADING.fullmatch(block)
            section = heading[1] if heading else section
            if section and not heading:
                told = library["introductions"].setdefault(section, [])
                told.append(comments.plain(comments.body(block)))
    return found["libraries"]


def sections(library):
    """The sections of a header with their functions, in its order."""
    found = {}
    for function in library["functions"]:
        found.setdefault(function["section"] or "Version", []).append(function)
    return found.items()


def named(c_type, name):
    """What C writes for something of a type: the name inside of those that go around it."""
    if "(*)" in c_type:
        return c_type.replace("(*)", f"(*{name})")
    base, bracket, rest = c_type.partition("[")
    return f"{base} {name}{bracket}{rest}"


def declaration(function, width=76):
    """A function as C declares it, broken between its parameters."""
    arguments = [named(each["c"], each["name"]).replace(" ", "\0")
                 for each in function["arguments"]]
    text = f"{named(function['returns']['c'], function['name'])}({', '.join(arguments) or 'void'});"
    return textwrap.fill(text.replace(" ", "\0", text.count(" ", 0, text.index("("))), width,
                         subsequent_indent="    ", break_long_words=False).replace("\0", " ")


def as_lists(text):
    """A comment with its lists as Markdown takes them: an empty line before, four blanks a level."""
    lines, indent = [], ""
    for line in text.splitlines():
        item = re.match(r"( *)- ", line)
        if item:
            indent = "    " if len(item[1]) < 3 else "        "
            if lines and lines[-1] and not re.match(r" *- ", lines[-1]) and len(indent) == 4 \
                    and not lines[-1].startswith("    "):
                lines.append("")
            line = indent[4:] + line.lstrip()
        elif indent and line.startswith(" "):
            line = indent + line.lstrip()
        else:
            indent = ""
        lines.append(line)
    return "\n".join(lines)
