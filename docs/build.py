#!/usr/bin/env python3
"""Builds the manual from a build of the library: pictures, code blocks, pages, reference, search, links."""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

import blocks
import change_it
import cheat_sheet
import links
import reference

SOURCES = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r"^\[\[(.+)\]\]$", re.MULTILINE)
NAMED_FENCE = re.compile(r"^```(\w+) +(\S+)$", re.MULTILINE)
SCREEN = re.compile(r"\]\((\S+)\)\{: \.screen \}")
SHORT = re.compile(r"<code>([^<\n]{1,24})</code>")
PICTURE = re.compile(r'<img (src="[^"]+" alt="[^"]*" width="(\d+)")')
ROOM, PHONE = 640, 350  # pixels for pictures beside the lists of pages, and on a phone
OUTPUT_FENCE = re.compile(r"^```text\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def step(message):
    print(f"manual: {message}", flush=True)


def quiet(command, **options):
    """Runs a command; all that it says is shown if it fails."""
    done = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          stdin=subprocess.DEVNULL, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"manual: {' '.join(map(str, command))} failed:\n{done.stdout}")


def included(what, lists):
    """What stands on a page for [[NAME]], a list of the pictures' program, and [[file PATH]], one of
    the sources."""
    if what.startswith("file "):
        path = SOURCES / what.split()[1]
        return f"```{path.suffix[1:]} {path.name}\n{path.read_text(encoding='utf-8')}```"
    return (lists / f"{what}.md").read_text(encoding="utf-8")


def width_of(picture):
    data = picture.read_bytes()[:20]
    return int.from_bytes(data[16:20], "big") if data[1:4] == b"PNG" else int.from_bytes(data[6:8], "little")


def screen(name, pages):
    """How a picture is shown: each pixel as a square of as many as there is room for, or, if it is
    larger than that room, smoothed."""
    width = width_of(pages / name)
    if width > ROOM:
        return f"]({name}){{: .app }}"
    large = " .large" if width > PHONE else ""
    return f']({name}){{: .screen{large} width="{ROOM // width * width}" }}'


def staged(text, lists, pages, playground):
    """A page as the site's builder takes it: lists included, pictures sized, file names and outputs
    marked."""
    text = INCLUDE.sub(lambda match: included(match[1], lists), text)
    text = change_it.added(text) if playground else text
    text = SCREEN.sub(lambda match: screen(match[1], pages), text)
    text = OUTPUT_FENCE.sub(
        lambda match: f'<div class="output" markdown="1">\n\n```text\n{match[1]}```\n\n</div>', text)
    return NAMED_FENCE.sub(r'<p class="file"><code>\2</code></p>\n\n```\1', text)


def finished(html):
    """A page of the site: no line ends inside a short piece of code, such as behind the hyphens of an
    option, and what is to be smoothed on a phone is marked."""
    html = SHORT.sub(r'<code class="short">\1</code>', html)
    return PICTURE.sub(lambda match: f'<img class="large" {match[1]}' if int(match[2]) > PHONE else match[0],
                       html)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True,
                        help="a build of the library, its tools and orvel-manual-pictures")
    parser.add_argument("--out", type=pathlib.Path, required=True, help="the site goes to OUT/site")
    parser.add_argument("--skip-blocks", action="store_true",
                        help="do not run the pages' code blocks (their pictures must be there)")
    parser.add_argument("--playground", type=pathlib.Path,
                        help="the playground's page, which stands beside what the pages show")
    given = parser.parse_args()
    build, out = given.build.resolve(), given.out.resolve()
    pages, lists, tree = out / "pages", out / "lists", out / "tree"

    step("installing the library")
    for folder in (pages, lists, tree, out / "resources"):
        shutil.rmtree(folder, ignore_errors=True)
    for folder in (pages, lists, out / "resources/Icons"):
        folder.mkdir(parents=True)
    quiet(["cmake", "--install", build, "--prefix", tree])

    step("drawing the pictures")
    shutil.copytree(SOURCES / "share/themes", out / "resources/UI")
    quiet([build / "orvel-manual-pictures", lists, out / "resources"])
    (pages / "pictures").mkdir()
    quiet([SOURCES / "scripts/draw", build, lists])
    for picture in lists.glob("*.png"):
        picture.rename(pages / "pictures" / picture.name)

    for picture in (SOURCES / "docs/images").glob("*.gif"):
        shutil.copy(picture, pages / "pictures")

    if given.playground:
        (pages / "playground").mkdir()
        shutil.copy(given.playground, pages / change_it.PAGE)

    step("writing the reference")
    for name, text in reference.pages().items():
        (pages / name).write_text(text, encoding="utf-8")
    chromium = shutil.which("chromium") or shutil.which("chromium-browser")
    (pages / "cheat-sheet.md").write_text(
        cheat_sheet.page().replace("[[links]]", cheat_sheet.LINKS if chromium else ""),
        encoding="utf-8")
    for name in ("pdf", "png") if chromium else ():
        (pages / f"cheat-sheet.{name}").touch()  # made of the finished page

    shutil.copy(SOURCES / "SECURITY.md", pages / "security.md")

    for page in sorted((SOURCES / "docs/pages").glob("*.md")):
        work = out / "work" / page.stem
        if not given.skip_blocks and blocks.can_run(page, SOURCES):
            step(f"running {page.name}")
            blocks.run(page, SOURCES, tree, work)
        for picture in (*work.glob("*.png"), *work.glob("*.gif")):
            (pages / page.stem).mkdir(exist_ok=True)
            shutil.copy(picture, pages / page.stem)
        text = page.read_text(encoding="utf-8")
        (pages / page.name).write_text(staged(text, lists, pages, given.playground), encoding="utf-8")

    step("making the site")
    shutil.rmtree(out / "theme", ignore_errors=True)
    shutil.copytree(SOURCES / "docs/theme", out / "theme")
    version = (SOURCES / "kit/include/orvel_kit.h").read_text().split('#define KIT_VERSION "')[1].split('"')[0]
    config = (SOURCES / "docs/mkdocs.yml").read_text(encoding="utf-8")
    (out / "mkdocs.yml").write_text(f'{config}extra:\n  version: "{version}"\n', encoding="utf-8")
    quiet(["mkdocs", "build", "--strict", "--clean", "--quiet", "-f", out / "mkdocs.yml"])
    for page in (out / "site").glob("*.html"):
        page.write_text(finished(page.read_text(encoding="utf-8")), encoding="utf-8")
    if chromium:
        epoch = os.environ.get("SOURCE_DATE_EPOCH", "0")
        cheat_sheet.print_out(out / "site", chromium,
                              time.strftime("%Y%m%d%H%M%S", time.gmtime(int(epoch))))
    search = out / "site/search"
    (search / "search_index.js").write_text(  # a page in a folder may load a script, and fetch nothing
        f"const searchIndex = {(search / 'search_index.json').read_text(encoding='utf-8')};\n",
        encoding="utf-8")
    for unused in ("main.js", "worker.js", "search_index.json", "../sitemap.xml", "../sitemap.xml.gz"):
        (search / unused).unlink()
    problems = links.broken_links(out / "site")
    if problems:
        sys.exit("manual: " + "\nmanual: ".join(problems))
    step(f"the manual is {out / 'site/index.html'}")


if __name__ == "__main__":
    try:
        main()
    except blocks.Failure as failure:
        sys.exit(f"manual: {failure}")
