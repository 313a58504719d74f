"""The cheat sheet: the interfaces on one page, from bindings/orvel_api.json, and by Chromium as PDF and picture."""
import base64
import html
import re
import sys

import interface
import reference

sys.path.insert(0, str(interface.SOURCES / "tests/tools"))
from browser import Browser  # noqa: E402  (found by the line above)

A4 = {"paperWidth": 297 / 25.4, "paperHeight": 210 / 25.4}  # inches, landscape
WIDTH, HEIGHT = 1123, 794  # pixels, of the same shape
LINKS = "Also as [PDF](cheat-sheet.pdf), A4, and as a [picture](cheat-sheet.png).\n"


def link(page, name):
    return f'<a href="{page.replace(".md", ".html")}#{name}">{name}</a>'


def call(page, function):
    arguments = ", ".join(each["name"] for each in function["arguments"])
    result = function["returns"]
    plain = result["c"] == "void" or result.get("unit") == "status"
    returns = "" if plain else f' → {html.escape(result["c"].replace("const ", ""))}'
    return f"<li>{link(page, function['name'])}({arguments}){returns}</li>"


def types(page, library):
    lines = []
    for each in library["records"]:
        fields = ", ".join(one["name"] for one in each["fields"] if one["name"] != "reserved")
        lines.append(f"<li>{link(page, each['name'])} {{{fields}}}</li>")
    for each in library["enums"]:
        names = [value["name"] for value in each["values"]]
        lines.append(f"<li>{link(page, each['name'])} {', '.join(names)}</li>")
    return lines


def page():
    """The page as Markdown; what holds the lists is HTML."""
    parts = ["# Cheat sheet", "", "[[links]]", '<div class="cheat">', ""]
    for library in interface.libraries():
        target = reference.PAGES[library["header"]]
        for name, functions in interface.sections(library):
            lines = [call(target, each) for each in functions]
            parts.append(f"<section><h2>{library['header']}: {name}</h2><ul>{''.join(lines)}</ul></section>")
        parts.append(f"<section><h2>{library['header']}: types</h2><ul>"
                     f"{''.join(types(target, library))}</ul></section>")
    return "\n".join([*parts, "</div>", ""])


def print_out(site, program, date):
    """Writes the page as PDF, one sheet of A4, and as a picture. @p date is D:YYYYMMDDHHMMSS."""
    browser = Browser(program)
    try:
        browser.open(site / "cheat-sheet.html", WIDTH, HEIGHT)
        # On paper links lead nowhere, and they would tell the folder of the site.
        browser.ask("document.querySelectorAll('.cheat a').forEach((a) => a.removeAttribute('href'))")
        pdf = base64.b64decode(browser.call("Page.printToPDF", preferCSSPageSize=True, **A4)["data"])
        browser.call("Emulation.setEmulatedMedia", media="print")
        browser.call("Emulation.setDeviceMetricsOverride", width=WIDTH, height=HEIGHT,
                     deviceScaleFactor=2, mobile=False)
        browser.screenshot(site / "cheat-sheet.png")
    finally:
        browser.close()
    pages = len(re.findall(rb"/Type\s*/Page\b", pdf))
    if pages != 1:
        raise RuntimeError(f"the cheat sheet takes {pages} pages")
    dated = re.sub(rb"(/(?:Creation|Mod)Date \(D:)\d{14}", rb"\g<1>" + date.encode(), pdf)
    (site / "cheat-sheet.pdf").write_bytes(dated)
