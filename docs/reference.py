"""Writes the pages of the reference, one for each header, and the cheat sheet."""
import re

import interface

PAGES = {"orvel.h": "reference.md", "orvel_kit.h": "reference-kit.md",
         "orvel_screen.h": "reference-screen.md"}
CODE = re.compile(r"(`[^`]*`)")
NAME = re.compile(r"\b((?:orvel|kit)_\w*[a-z\d])(\(\))?")
SPECIAL = re.compile(r"([\\*_\[\]<>#])")


def places(libraries):
    """Where each function, record, enumeration and object is told of."""
    return {thing["name"]: PAGES[library["header"]] for library in libraries
            for kind in ("functions", "records", "enums", "objects") for thing in library[kind]}


def kind_link(kind):
    """A kind of widget, linked to its pictures."""
    words = kind.removeprefix("ORVEL_WIDGET_").lower()
    return f"[{words.replace('_', ' ')}](widgets.md#{words.replace('_', '-')})"


class Words:
    """Turns comments into Markdown, with names as links."""

    def __init__(self, libraries):
        self.places = places(libraries)

    def linked(self, match):
        name, call = match[1], match[2] or ""
        if name not in self.places:
            return SPECIAL.sub(r"\\\1", match[0])
        return f"[`{name}{call}`]({self.places[name]}#{name})"

    def inline(self, text):
        """A part of a line without backquotes."""
        out, end = "", 0
        for match in NAME.finditer(text):
            out += SPECIAL.sub(r"\\\1", text[end:match.start()]) + self.linked(match)
            end = match.end()
        return out + SPECIAL.sub(r"\\\1", text[end:])

    def of(self, text):
        parts = CODE.split(interface.as_lists(text))
        return "".join(part if part.startswith("`") else self.inline(part) for part in parts)

    def cell(self, text):
        return " ".join(self.of(text).split()).replace("|", "&#124;")


def table(head, rows):
    lines = ["", "| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return [*lines, *("| " + " | ".join(row) + " |" for row in rows), ""]


def function(words, each):
    page = [f"### {each['name']} {{: #{each['name']} }}", "", "```c", interface.declaration(each),
            "```", "", words.of(each["comment"]), ""]
    rows = [(f"`{one['name']}`", words.cell(one["comment"]))
            for one in each["arguments"] if "comment" in one]
    if "comment" in each["returns"]:
        rows.append(("returns", words.cell(each["returns"]["comment"])))
    if rows:
        page += table(("Argument", "Meaning"), rows)
    notes = []
    if "kind" in each:
        notes.append(f"Pictures: {kind_link(each['kind'])}.")
    if "shown_by" in each:
        notes.append("Pictures: " + ", ".join(map(kind_link, each["shown_by"])) + ".")
    if "guarded" in each:
        notes.append(f"Guarded form: {words.inline(each['guarded'] + '()')}.")
    return [*page, " ".join(notes), ""]


def record(words, each):
    rows = [(f"`{interface.named(field['c'], field['name'])}`", words.cell(field["comment"]))
            for field in each["fields"]]
    return [f"### {each['name']} {{: #{each['name']} }}", "", words.of(each["comment"]),
            *table(("Field", "Meaning"), rows)]


def enumeration(words, each):
    rows = [(f"`{value['name']}`", str(value["value"]), words.cell(value["comment"]))
            for value in each["values"]]
    if each["name"] == "orvel_widget_kind":
        rows = [(row[0], row[1], kind_link(row[0][1:-1])) for row in rows]
    return [f"### {each['name']} {{: #{each['name']} }}", "", words.of(each["comment"]),
            *table(("Name", "Number", "Meaning"), rows)]


def page_of(words, library):
    title, _, rules = library["comment"].partition("\n\n")
    page = [f"# {library['header']}", "", words.of(title.split("\n", 1)[1]), "",
            "## House rules", "", words.of(rules), ""]
    types = [*library["objects"], *library["records"], *library["enums"]]
    page += ["## Types", ""] if types else []
    for each in library["objects"]:
        page += [f"### {each['name']} {{: #{each['name']} }}", "", words.of(each["comment"]), ""]
    for each in library["records"]:
        page += record(words, each)
    for each in library["enums"]:
        page += enumeration(words, each)
    for name, functions in interface.sections(library):
        page += [f"## {name} {{: #section-{name.lower().replace(' ', '-')} }}", ""]
        page += [words.of(text) + "\n" for text in library["introductions"].get(name, [])]
        for each in functions:
            page += function(words, each)
    return "\n".join(page)


def pages():
    """Every page's name and text."""
    libraries = interface.libraries()
    words = Words(libraries)
    return {PAGES[library["header"]]: page_of(words, library) for library in libraries}
