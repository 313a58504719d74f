"""Looks after the links of a static site."""
import html.parser
import pathlib
import urllib.parse


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
                if target in page.loads:
                    problems.append(f"{path.name}: loads {target} from elsewhere")
                continue
            file = (path.parent / urllib.parse.unquote(url.path)).resolve() if url.path else path
            if not file.is_file():
                problems.append(f"{path.name}: there is no {target}")
            elif file.suffix == ".html" and urllib.parse.unquote(url.fragment) not in pages[file].anchors:
                problems.append(f"{path.name}: there is no place {target}")
        problems += [f"{path.name}: the picture {source} has no words" for source in page.without_text]
    return problems
