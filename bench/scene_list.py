#!/usr/bin/env python3
"""usage: scene_list.py RENDER SCENES FOLDER

Writes what the weather scene consists of to FOLDER: list.txt, for peers that draw by calls, one shape a
line, and page.html, the same for a browser. Boxes come from orvel-render's own description.
"""
import html
import json
import pathlib
import re
import subprocess
import sys

RENDER, SCENES, FOLDER = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), pathlib.Path(sys.argv[3])
WEATHER = SCENES / "weather"
DATA = json.loads((WEATHER / "data.json").read_text("utf-8"))
BLACK, WHITE, GREY = "#000000", "#ffffff", "#808080"
shapes = []


def fill(x, y, w, h, color):
    shapes.append(("fill", x, y, w, h, color))


def text(size, bold, x, middle, anchor, color, words):
    """A line whose capitals, 73 % of its size, have their middle at a row."""
    shapes.append(("text", size, int(bold), x, round(middle + 0.365 * size), anchor, color, words))


def line(x0, y0, x1, y1, width, color):
    shapes.append(("line", x0, y0, x1, y1, width, color))


def size_of(words, w, h):
    """The size of a text, by the height of its line, and whether it is bold."""
    if h > 80:
        return 96, False
    bold = (h == 15 and not words.startswith("Updated")) or h == 23 or w == 50 or words in (
        "22", "Mo", "Tu", "We", "Th", "Fr", "Sa", "Su", "Mon", "Tue", "Wed", "Thu")
    return {15: 12, 23: 18}.get(h, 14), bold


def words_of(match):
    words, (x, y, w, h) = json.loads(match[1]), map(int, match.groups()[1:])
    size, bold = size_of(words, w, h)
    centred = w in (32, 96) or (h == 18 and y > 440)
    today = words == "22" and w == 32
    color = WHITE if x < 272 and not today else BLACK
    if words.startswith("Updated"):
        text(size, bold, x + w, y + h / 2, "end", color, words)
    else:
        text(size, bold, x + w / 2 if centred else x, y + h / 2, "middle" if centred else "start",
             color, words)


def charts():
    low, high, left, width = 2, 10, 318, 458
    temp, rain, names = (DATA["hours"][key] for key in ("temp", "rain", "names"))
    for tick in range(low, high + 1, 2):
        y = 237 - (tick - low) * 77 / (high - low)
        line(left, y, left + width, y, 1, GREY)
        text(12, False, left - 6, y, "end", BLACK, str(tick))
    places = [(left + i * width / 15, 237 - (value - low) * 77 / (high - low))
              for i, value in enumerate(temp)]
    for (x0, y0), (x1, y1) in zip(places, places[1:]):
        line(x0, y0, x1, y1, 2, BLACK)
    for i in range(0, 16, 2):
        text(12, False, places[i][0], 250, "middle", BLACK, names[i])
    for tick in (0, 50, 100):
        line(326, 350 - tick * 0.61, 776, 350 - tick * 0.61, 1, GREY)
        text(12, False, 320, 350 - tick * 0.61, "end", BLACK, str(tick))
    for i, value in enumerate(rain):
        fill(329 + 28.1 * i, 350 - value * 0.61, 21, value * 0.61, BLACK)


def pictures(match):
    x, y, side = int(match[1]), int(match[2]), int(match[3])
    name = DATA["now"]["picture"] if side == 96 else DATA["days"][(x - 296) // 96]["picture"]
    shapes.append(("image", x, y, side, WEATHER / f"ink/{name}-{side}.png"))


def page():
    body = []
    for kind, *rest in shapes:
        if kind == "fill":
            body.append('<rect x="{}" y="{}" width="{}" height="{}" fill="{}"/>'.format(*rest))
        elif kind == "line":
            body.append('<line x1="{}" y1="{}" x2="{}" y2="{}" stroke-width="{}" stroke="{}"/>'.format(*rest))
        elif kind == "image":
            body.append('<image x="{0}" y="{1}" width="{2}" height="{2}" href="file://{3}"/>'.format(*rest))
        else:
            size, bold, x, y, anchor, color, words = rest
            body.append(f'<text x="{x}" y="{y}" font-size="{size}" font-weight="{700 if bold else 400}" '
                        f'text-anchor="{anchor}" fill="{color}">{html.escape(words)}</text>')
    return ('<!DOCTYPE html><meta charset="utf-8"><style>body{margin:0}svg{display:block;'
            'font-family:"DejaVu Sans"}</style>\n<svg width="800" height="480">\n' + "\n".join(body) + "\n</svg>\n")


fill(0, 0, 800, 480, WHITE)
fill(0, 0, 272, 480, BLACK)
told = subprocess.run([RENDER, WEATHER / "mono.json", "--data", WEATHER / "data.json", "--describe"],
                      text=True, check=True, stdout=subprocess.PIPE).stdout
for row in told.splitlines():
    box = r"(\d+),(\d+) (\d+)x(\d+)$"
    rect = re.search(r"^ *rect " + box, row)
    if rect:
        x, y, w, h = map(int, rect.groups())
        fill(x, y, w, h, WHITE if x < 272 else BLACK)
    elif re.search(r'^ *text "', row):
        words_of(re.search(r'text (".*") ' + box, row))
    elif re.search("^ *picture ", row):
        pictures(re.search(r"picture (\d+),(\d+) (\d+)x", row))
charts()
FOLDER.mkdir(parents=True, exist_ok=True)
(FOLDER / "list.txt").write_text("".join("\t".join(map(str, shape)) + "\n" for shape in shapes), "utf-8")
(FOLDER / "page.html").write_text(page(), "utf-8")
