#!/usr/bin/env python3
"""Writes manual pages of section 3: one for each function, and one for each header with its rules."""
import argparse
import gzip
import pathlib
import re

import interface


def escaped(text):
    """Words as mdoc takes them, arguments in italics."""
    text = text.replace("\\", "\\e")
    text = re.sub(r"`([^`]*)`", r"\\fI\1\\fR", text)
    return re.sub(r"^([.'])", r"\\&\1", text, flags=re.MULTILINE)


def paragraphs(text):
    """A comment: its paragraphs, its lists without their levels, and indented lines as they are."""
    lines, listed, literal = [], False, False
    for line in text.splitlines():
        item = re.match(r" *- (.*)", line)
        as_it_is = not listed and not item and line.startswith("    ")
        if as_it_is and not literal and lines and lines[-1] == ".Pp":
            lines.pop()  # the display makes room itself
        if as_it_is != literal:
            lines.append(".Bd -literal -offset indent" if as_it_is else ".Ed")
            literal = as_it_is
        if as_it_is:
            lines.append(escaped(line[4:]))
            continue
        if item and not listed:
            lines.append(".Bl -bullet")
        elif listed and not item and not line.startswith(" "):
            lines.append(".El")
        listed = bool(item) or (listed and line.startswith(" "))
        if item:
            lines += [".It", escaped(item[1])]
        elif line.strip():
            lines.append(escaped(line.strip()))
        else:
            lines.append(".Pp")
    return lines + ([".El"] if listed else []) + ([".Ed"] if literal else [])


def head(library, name, about):
    """What a page begins with."""
    return [".Dd " + library["date"], f".Dt {name.upper()} 3", f".Os OrvelSDK {library['version']}",
            ".Sh NAME", f".Nm {name}", f".Nd {escaped(' '.join(about.split()))}",
            ".Sh LIBRARY", f"lib{library['name']} ({library['header']}; pkg-config {library['name'].lower()})"]


def first_sentence(text):
    return re.split(r"(?<=[^.\d])[.:;](?:\s|$)", text, maxsplit=1)[0]


def function_page(library, each):
    introductions = library["introductions"].get(each["section"], [])
    told = each["comment"] or each["returns"].get("comment") or "\n".join(introductions)
    about = first_sentence(told)
    lines = head(library, each["name"], about.replace("`", ""))
    lines += [".Sh SYNOPSIS", f".In {library['header']}", f'.Ft "{each["returns"]["c"]}"', f".Fo {each['name']}"]
    lines += [f'.Fa "{interface.named(one["c"], one["name"])}"' for one in each["arguments"]]
    lines += [".Fc", ".Sh DESCRIPTION"]
    for text in [each["comment"]] if each["comment"] else introductions:
        lines += paragraphs(text)
    told = [one for one in each["arguments"] if "comment" in one]
    if told:
        lines += [".Bl -tag -width Ds"]
        for one in told:
            lines += [f".It Fa {one['name']}", escaped(one["comment"])]
        lines += [".El"]
    if "comment" in each["returns"]:
        lines += [".Sh RETURN VALUES", escaped(each["returns"]["comment"])]
    others = [each[key] for key in ("guarded", "guards") if key in each]
    lines += [".Sh SEE ALSO"] + [f".Xr {name} 3 ," for name in others]
    return [*lines, f".Xr {library['header']} 3", ""]


def header_page(library):
    title, _, rules = library["comment"].partition("\n\n")
    lines = head(library, library["header"], first_sentence(title.split("\n", 1)[1]))
    lines += [".Sh DESCRIPTION", *paragraphs(rules)]
    for name, functions in interface.sections(library):
        lines += [f".Ss {name}"]
        for text in library["introductions"].get(name, []):
            lines += paragraphs(text) + [".Pp"]
        names = [f".Xr {each['name']} 3" for each in functions]
        lines += [f"{name} ," for name in names[:-1]] + names[-1:]
    return [*lines, ""]


def pages():
    """Every page's name and text."""
    date = re.search(r"^\.Dd (.*)$", (interface.SOURCES / "tools/man/orvel-render.1").read_text("utf-8"),
                     re.MULTILINE)[1]
    for library in interface.libraries():
        library["version"], library["date"] = library["constants"][0]["value"], date
        yield library, library["header"], header_page(library)
        for each in library["functions"]:
            yield library, each["name"], function_page(library, each)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path, help="gets a folder for each library")
    parser.add_argument("--gzip", action="store_true", help="compress them, as Debian does")
    given = parser.parse_args()
    for library, name, lines in pages():
        folder = given.folder / library["name"].lower()
        folder.mkdir(parents=True, exist_ok=True)
        text = "\n".join(lines).encode("utf-8")
        path = folder / f"{name}.3{'.gz' if given.gzip else ''}"
        path.write_bytes(gzip.compress(text, 9, mtime=0) if given.gzip else text)


if __name__ == "__main__":
    main()
