#!/usr/bin/env python3
"""Looks after links: those of a static site and, as a program, those of Markdown files to other files."""
import html.parser
import pathlib
import re
import sys
import urllib.parse

MARKDOWN_LINK = re.compile(r'\]\(([^)\s]+)\)|\b(?:src|href)="([^"]+)"')


class Page(html.parser.HTMLParser):
    """What a page links to, loads, and can be linked to in."""

    def __init__(self, path):
        super().__init__()
        self.path, self.anchors, self.links, self.loads = path, {""}, [], []
        self.without_text = []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if "id" in given:
            self.anchors.add(given["id"])
        if tag == "a" and "href" in given:
            self.links.append(given["href"])
        elif tag == "link" and "href" in given:
            self.loads.append(given["href"])
        self.loads += [given[name] for name in ("src", "srcset") if name in given]
        if tag == "img" and "alt" not in given:
            self.without_text.append(given.get("src"))


def broken_links(folder):
    """What is wrong with the links of all pages in @p folder, one line each."""
    pages = {path: Page(path) for path in sorted(pathlib.Path(folder).rglob("*.html"))}
    problems = [] if pages else [f"{folder}: no pages"]
    for path, page in pages.items():
        for target in page.links + page.loads:
            url = urllib.parse.urlsplit(target)
            if url.scheme or url.netloc:
                if target in page.loads and url.scheme != "data":
                    problems.append(f"{path.name}: loads {target} from elsewhere")
                continue
            file = (path.parent / urllib.parse.unquote(url.path)).resolve() if url.path else path
            if not file.is_file():
                problems.append(f"{path.name}: there is no {target}")
            elif file.parent.name == "playground":
                pass  # behind its # stands what it shows
            elif file.suffix == ".html" and urllib.parse.unquote(url.fragment) not in pages[file].anchors:
                problems.append(f"{path.name}: there is no place {target}")
        problems += [f"{path.name}: the picture {source} has no words" for source in page.without_text]
    return problems


def broken_markdown_links(page):
    """The links of a Markdown file that lead to no file, one line each."""
    problems = []
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        for match in MARKDOWN_LINK.finditer(line):
            url = urllib.parse.urlsplit(match[1] or match[2])
            if not url.scheme and not (page.parent / urllib.parse.unquote(url.path)).exists():
                problems.append(f"{page.name}:{number}: there is no {url.path}")
    return problems


if __name__ == "__main__":
    found = [problem for name in sys.argv[1:]
             for problem in broken_markdown_links(pathlib.Path(name))]
    sys.exit("\n".join(found) or 0)
