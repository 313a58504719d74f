"""What Python draws is what C draws, byte for byte."""

import re
import subprocess
import sys

import blocks
import pytest
from conftest import BUILD, SOURCES
from orvelsdk import Canvas, Chart, Series, Theme, Widget


def page_program(page, name):
    """A program of the manual."""
    return next(block.text for block in blocks.blocks_of(SOURCES / "docs/pages" / page)
                if block.name == name)


def same_file(folder, expected, canvas):
    canvas.save(folder / "python.bmp")
    assert (folder / "python.bmp").read_bytes() == (folder / expected).read_bytes()


def test_hello(built):
    folder = built((SOURCES / "examples/hello.c").read_text())
    night, far, near, light = (22, 27, 51), (52, 64, 105), "#202848", "#ffd166"
    canvas = Canvas(240, 144, night)
    canvas.disc(186, 44, 25, light)
    canvas.disc(175, 37, 22, night)
    canvas.triangle(-30, 144, 84, 66, 192, 144, far)
    canvas.triangle(90, 144, 186, 90, 285, 144, near)
    canvas.text("Hello", 18, 36, "bold 24", light)
    canvas.text("Good night, hills", 19, 56, color=light)
    canvas.rect(0, 0, 240, 144, light)
    same_file(folder, "hello.bmp", canvas)


def test_first_screen(built):
    folder = built(page_program("first-screen.md", "screen.c"))
    canvas = Canvas(320, 240, "background")
    watts = [0.2, 0.3, 0.3, 0.5, 0.9, 0.8, 0.6, 0.4, 0.3, 0.2, 0.2, 0.1]
    canvas.text("Lights", 12, 24, "bold 18")
    for widget in (Widget("list_item", 12, 36, 140, 26, text="Kitchen", icon="sun", active=True),
                   Widget("list_item", 12, 62, 140, 26, text="Bedroom", icon="moon"),
                   Widget("list_item", 12, 88, 140, 26, text="Garden", icon="cloud"),
                   Widget("card", 164, 36, 144, 78),
                   Widget("toggle", 264, 48, 32, 16, active=True),
                   Widget("slider", 176, 86, 120, 16, value=0.7),
                   Widget("bars", 12, 124, 296, 56, data=watts),
                   Widget("button", 208, 188, 100, 22, text="All off", hover=True),
                   Widget("statusbar", 0, 218, 320, 22, text="3 rooms")):
        canvas.draw(widget)
    canvas.text("Ceiling", 176, 60)
    canvas.text("70 % for 2 hours", 12, 204)
    same_file(folder, "screen.bmp", canvas)


def test_chart(built):
    folder = built(page_program("charts.md", "power.c"))
    canvas = Canvas(400, 200, "surface", theme="light")
    canvas.draw(Chart("bars", [Series([0, 0.2, 2.2, 4.3, 4.2, 1.1], "Solar"),
                               Series([0.6, 1.7, 1.2, 1.9, 1.2, 3.1], "Use")],
                      16, 12, 368, 176, axes=True, legend=True, unit=" kW",
                      labels=["0:00", "4:00", "8:00", "12:00", "16:00", "20:00"]))
    same_file(folder, "power.bmp", canvas)


def test_theme(built, tmp_path):
    (tmp_path / "resources").mkdir()
    (tmp_path / "resources/UI").symlink_to(SOURCES / "share/themes")
    folder = built((SOURCES / "bindings/tests/themed.c").read_text())
    theme = Theme.open(SOURCES / "share/themes/forest.json")
    canvas = Canvas(200, 60, "background", theme=theme)
    canvas.widget("tabs", 5, 5, 190, 24, text=["One", "Two"], amount=1)
    canvas.widget("progress", 5, 40, 190, 12, value=0.5, theme=theme.copy(accent=(255, 0, 0)))
    same_file(folder, "themed.bmp", canvas)


@pytest.mark.parametrize("theme", sorted(path.name for path in (SOURCES / "share/themes").iterdir()))
def test_every_theme_file_reads_as_the_library_reads_it(theme, tmp_path, run):
    program = ("import sys, orvelsdk; orvelsdk.set_resource_path(sys.argv[1]);"
               "print(orvelsdk.Theme.load(sys.argv[3]) == orvelsdk.Theme.open(sys.argv[2]))")
    (tmp_path / "UI").symlink_to(SOURCES / "share/themes")
    path = SOURCES / "share/themes" / theme
    assert run(program, str(tmp_path), str(path), theme) == "True\n"


def lines():
    """What the README of the scenes draws them by."""
    readme = (SOURCES / "scenes/README.md").read_text()
    return [line.split()[1:] for line in re.findall("^ {4}(orvel-render .*)$", readme, re.M)]


@pytest.mark.parametrize("line", lines(), ids=lambda line: line[0])
@pytest.mark.parametrize("form", ["bmp", "ppm", "raw"])
def test_scenes(line, form, tmp_path):
    for name, program in (("c", [str(BUILD / "orvel-render")]),
                          ("python", [sys.executable, "-m", "orvelsdk"])):
        subprocess.run([*program, *line[:-1], str(tmp_path / f"{name}.{form}")], check=True,
                       cwd=SOURCES / "scenes")
    assert (tmp_path / f"c.{form}").read_bytes() == (tmp_path / f"python.{form}").read_bytes()


@pytest.mark.parametrize("line", lines(), ids=lambda line: line[0])
def test_scenes_have_the_golden_pixels(line, tmp_path):
    subprocess.run([sys.executable, "-m", "orvelsdk", *line[:-1], str(tmp_path / "drawn.png")],
                   check=True, cwd=SOURCES / "scenes")
    golden = Canvas.open(SOURCES / "tests/golden/scenes" / line[-1])
    assert Canvas.open(tmp_path / "drawn.png").checksum() == golden.checksum()
