#!/usr/bin/env python3
"""usage: scene_list.py RENDER SCENES FOLDER

Writes what each job of bench/scene consists of to FOLDER, for its peers: JOB.txt for those that draw by
calls, one shape a line behind the size, JOB.mvg the same for ImageMagick, and JOB.html for a browser. Boxes
come from orvel-render's own descriptions. Widgets, panels and icons are simpler than those of the library:
a box with its outline and its words, or a disc.
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


def disc(x, y, r, color):
    shapes.append(("disc", x, y, r, color))


def size_of(words, w, h):
    """The size of a text, by the height of its line, and whether it is bold."""
    if h > 80:
        return 96, False
    bold = (h == 15 and not words.startswith("Updated")) or h == 23 or w == 50 or words in (
        "22", "Mo", "Tu", "We", "Th", "Fr", "Sa", "Su", "Mon", "Tue", "Wed", "Thu")
    return {15: 12, 23: 18}.get(h, 14), bold


def words_of(words, x, y, w, h):
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


def picture(x, y, side):
    name = DATA["now"]["picture"] if side == 96 else DATA["days"][(x - 296) // 96]["picture"]
    shapes.append(("image", x, y, side, WEATHER / f"ink/{name}-{side}.png"))


def described(scene, data):
    """The rows of a scene's description: their kinds, their words and their boxes."""
    told = subprocess.run([RENDER, scene, "--data", data, "--describe"], text=True, check=True,
                          stdout=subprocess.PIPE).stdout
    for row in told.splitlines():
        kind, rest, *box = re.search(r"^ *(\w+)(.*?) (-?\d+),(-?\d+) (\d+)x(\d+)$", row).groups()
        yield kind, [json.loads(words) for words in re.findall(r'"(?:[^"\\]|\\.)*"', rest)], [*map(int, box)]


def frame(x, y, w, h):
    fill(x, y, w, h, "#f0f0f0")
    for left, top, right, bottom in ((x, y, x + w, y), (x, y + h, x + w, y + h), (x, y, x, y + h),
                                     (x + w, y, x + w, y + h)):
        line(left, top, right, bottom, 1, GREY)


def chart(x, y, w, h):
    for row in range(5):
        line(x, y + row * h / 4, x + w, y + row * h / 4, 1, GREY)
    for phase in (0, 3):
        heights = [y + 37 * (phase + i * i) % h for i in range(9)]
        for i in range(8):
            line(x + i * w / 8, heights[i], x + (i + 1) * w / 8, heights[i + 1], 2, BLACK)


def screen(scene, data):
    """A screen of widgets."""
    for kind, words, (x, y, w, h) in described(scene, data):
        if kind == "text" and words:
            text(round(0.8 * h), h in (18, 23), x, y + h / 2, "start", BLACK, words[0])
        elif kind == "icon":
            disc(x + w / 2, y + h / 2, w / 2, BLACK)
        elif kind == "chart":
            chart(x, y, w, h)
        elif kind in ("rect", "separator"):
            fill(x, y, w, h, GREY)
        elif kind not in ("row", "column", "stack", "space"):
            frame(x, y, w, h)
            text(12, False, x + w / 2, y + h / 2, "middle", BLACK, " ".join(words))


def weather():
    fill(0, 0, 272, 480, BLACK)
    for kind, words, (x, y, w, h) in described(WEATHER / "mono.json", WEATHER / "data.json"):
        if kind == "rect":
            fill(x, y, w, h, WHITE if x < 272 else BLACK)
        elif kind == "text" and words:
            words_of(words[0], x, y, w, h)
        elif kind == "picture":
            picture(x, y, w)
    charts()


def hello():
    """What examples/hello.c draws."""
    night, far, near, light = "#161b33", "#344069", "#202848", "#ffd166"
    fill(0, 0, 240, 144, night)
    disc(186, 44, 25, light)
    disc(175, 37, 22, night)
    shapes.append(("triangle", -30, 144, 84, 66, 192, 144, far))
    shapes.append(("triangle", 90, 144, 186, 90, 285, 144, near))
    shapes.append(("text", 24, 1, 18, 36, "start", light, "Hello"))
    shapes.append(("text", 12, 0, 19, 56, "start", light, "Good night, hills"))
    for x0, y0, x1, y1 in ((0, 0, 239, 0), (0, 143, 239, 143), (0, 0, 0, 143), (239, 0, 239, 143)):
        line(x0, y0, x1, y1, 1, light)


def page(w, h):
    body = []
    for kind, *rest in shapes:
        if kind == "fill":
            body.append('<rect x="{}" y="{}" width="{}" height="{}" fill="{}"/>'.format(*rest))
        elif kind == "line":
            body.append('<line x1="{}" y1="{}" x2="{}" y2="{}" stroke-width="{}" stroke="{}"/>'.format(*rest))
        elif kind == "disc":
            body.append('<circle cx="{}" cy="{}" r="{}" fill="{}"/>'.format(*rest))
        elif kind == "triangle":
            body.append('<polygon points="{},{} {},{} {},{}" fill="{}"/>'.format(*rest))
        elif kind == "image":
            body.append('<image x="{0}" y="{1}" width="{2}" height="{2}" href="file://{3}"/>'.format(*rest))
        else:
            size, bold, x, y, anchor, color, words = rest
            body.append(f'<text x="{x}" y="{y}" font-size="{size}" font-weight="{700 if bold else 400}" '
                        f'text-anchor="{anchor}" fill="{color}">{html.escape(words)}</text>')
    return ('<!DOCTYPE html><meta charset="utf-8"><style>body{margin:0}svg{display:block;'
            f'font-family:"DejaVu Sans"}}</style>\n<svg width="{w}" height="{h}">\n' + "\n".join(body) +
            "\n</svg>\n")


def commands():
    """The same for ImageMagick."""
    rows = []
    for kind, *rest in shapes:
        if kind == "fill":
            x, y, w, h, color = rest
            if h >= 1:
                rows.append(f"stroke none fill {color} rectangle {x},{y} {x + w - 1},{y + h - 1}")
        elif kind == "line":
            rows.append("stroke {5} stroke-width {4} line {0},{1} {2},{3}".format(*rest))
        elif kind == "disc":
            x, y, r, color = rest
            rows.append(f"stroke none fill {color} circle {x},{y} {x + r},{y}")
        elif kind == "triangle":
            rows.append("stroke none fill {6} polygon {0},{1} {2},{3} {4},{5}".format(*rest))
        elif kind == "image":
            rows.append("image over {0},{1} {2},{2} '{3}'".format(*rest))
        else:
            size, bold, x, y, anchor, color, words = rest
            words = re.sub(r"(['\\])", r"\\\1", words)
            rows.append(f"stroke none fill {color} font DejaVu-Sans{'-Bold' * bold} font-size {size} "
                        f"text-anchor {anchor} text {x},{y} '{words}'")
    return "\n".join(rows) + "\n"


JOBS = {
    "hello": (240, 144, hello),
    "dashboard": (800, 480, lambda: screen(SCENES / "energy/dashboard.json", SCENES / "energy/data.json")),
    "settings": (800, 600, lambda: screen(SCENES / "settings/page.json", SCENES / "settings/data.json")),
    "weather": (800, 480, weather),
}
FOLDER.mkdir(parents=True, exist_ok=True)
for job, (width, height, draw) in JOBS.items():
    shapes.clear()
    fill(0, 0, width, height, WHITE)
    draw()
    listed = [("size", width, height), *shapes]
    (FOLDER / f"{job}.txt").write_text("".join("\t".join(map(str, row)) + "\n" for row in listed), "utf-8")
    (FOLDER / f"{job}.html").write_text(page(width, height), "utf-8")
    (FOLDER / f"{job}.mvg").write_text(commands(), "utf-8")
