#!/usr/bin/env python3
"""security_page_test.py SOURCES: every sentence of SECURITY.md is an item of its own and names tests that
exist; nothing is said beside the items; the newest version is the one that is repaired."""
import pathlib
import re
import sys

ITEM = re.compile(r"\n- ((?:(?!\n- )[^<])*)(?:<!--([^>]*)-->)?")
TEST = re.compile(r"\nTEST(?:_F|_P)?\((\w+), *(\w+)\)")


def statements(page):
    """The items of the page's lists, each with the names of its tests."""
    return [(sentence, (tests or "").split()) for sentence, tests in ITEM.findall(page)]


def prose(page):
    """What the page says outside of its lists, between the two headings."""
    rest = re.sub(r"\n- [^<]*<!--[^>]*-->", "", page[page.index("\n## "):])
    return re.sub(r"\n## [^\n]*", "", rest.split("\n## If you find a hole")[0]).strip()


def problems(page, existing, version):
    found = statements(page)
    if len(found) <= 20:
        yield f"only {len(found)} items"
    for sentence, tests in found:
        if not tests:
            yield f"no test: {sentence}"
        if re.search(r"[.!?]\s+[A-Z`]", sentence):
            yield f"more than a sentence: {sentence}"
        yield from (f"no such test: {name}" for name in tests if name not in existing)
    if prose(page):
        yield f"beside the items: {prose(page)}"
    row = f"| {version.rpartition('.')[0]} | yes |\n"
    if row not in page.partition("## Supported versions\n")[2] or page.count("| yes |") != 1:
        yield f"not the one version that is repaired: {row}"


def main():
    sources = pathlib.Path(sys.argv[1])
    page = (sources / "SECURITY.md").read_text(encoding="utf-8")
    existing = {".".join(names) for path in (sources / "tests").rglob("*.cpp")
                for names in TEST.findall(path.read_text(encoding="utf-8"))}
    version = re.search(r'#define KIT_VERSION "(.*)"', (sources / "kit/include/orvel_kit.h").read_text())[1]
    found = list(problems(page, existing, version))

    # What is wrong would be seen.
    bad = page.replace("\n- ", "\n- Two. Sentences. <!-- A.B\n C.D -->\nMore.\n- None.\n- ", 1)
    for word in ("no test: None.", "more than a sentence: Two. S", "no such test: A.B", "no such test: C.D",
                 "beside the items: More.", "not the one version"):
        if not any(problem.startswith(word) for problem in problems(bad, existing, "9.8.7")):
            found.append(f"not seen: {word}")
    sys.exit("\n".join(found) or 0)


if __name__ == "__main__":
    main()
