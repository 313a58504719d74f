"""python -m orvelsdk says and writes what orvel-render does."""

import json
import re
import subprocess
import sys
import time

import pytest
from conftest import BUILD, SOURCES
from orvelsdk import Canvas

SCENE = {"orvel": 1, "size": [60, 30], "sample": {"n": 3, "name": "a"},
         "root": {"row": [{"text": "${n:1}"}, {"text": "${name|-}", "id": "name"}], "gap": 4}}
COMMANDS = [[str(BUILD / "orvel-render")], [sys.executable, "-m", "orvelsdk"]]


@pytest.fixture
def folder(tmp_path):
    (tmp_path / "scene.json").write_text(json.dumps(SCENE))
    (tmp_path / "data.json").write_text('{"n": 2.25, "name": "ö"}')
    (tmp_path / "wrong.json").write_text('{"n": "much"}')
    (tmp_path / "broken.json").write_text('{"n": ')
    (tmp_path / "lost.json").write_text(json.dumps(
        {"orvel": 1, "size": [9, 9], "root": {"picture": "none.png"}}))
    (tmp_path / "include.json").write_text(json.dumps(
        {"orvel": 1, "size": [60, 30], "root": {"include": "scene.json", "with": {"n": 1}}}))
    (tmp_path / "outside.json").write_text('{"orvel": 1, "root": {"include": "../scene.json"}}')
    (tmp_path / "moss.json").write_text((SOURCES / "share/themes/forest.json").read_text())
    Canvas(60, 30, "#ffffff").save(tmp_path / "before.png")
    return tmp_path


def both(folder, words, stdin=b""):
    """What each of the two did: status, output, error without the program's name."""
    told = []
    for command in COMMANDS:
        done = subprocess.run([*command, *words], cwd=folder, input=stdin, capture_output=True)
        told.append((done.returncode, done.stdout, done.stderr.partition(b": ")[2]))
    return told


@pytest.mark.parametrize("words", [line.split() for line in """
scene.json --sample --describe
scene.json --data data.json --describe
scene.json --data data.json --set n=5 --set name=true --describe
scene.json --set n=1 --set name="quoted" --describe
scene.json --sample --set n=-1.55 --describe
scene.json --data - --describe
scene.json --sample --size 100x50 --describe
include.json --describe
scene.json --sample --check
scene.json --sample --size 8x8 --check
scene.json --data data.json --data data.json --size 8x8 --check
lost.json --check
lost.json --check --panel mono --dither ordered
scene.json --sample --check --panel mono
scene.json --sample --check --panel seven --dither diffused
scene.json --sample --check --panel red
scene.json --sample --theme light --panel mono --check
scene.json --sample --panel seven --dither diffused --theme moss.json --check
scene.json --sample --panel red --dither ordered --check
scene.json --sample --set n="5 --describe
scene.json --sample --set n=[1 --describe
scene.json --sample --set name={ --describe
scene.json --sample -o - --format ppm
scene.json --sample -o - --format raw --panel mono
scene.json --sample -o - --format pbm --rotate 90
scene.json --sample -o - --format bmp --scale 3 --theme moss.json
scene.json --sample -o - --format ppm --theme light
scene.json --sample -o out.bmp --changed-from before.png
scene.json --sample -o out.bmp --changed-from before.png --panel mono --rotate 270
scene.json --sample -o out.bmp --changed-from none.png
lost.json -o out.bmp
scene.json --sample
scene.json --sample --check -o out.png
scene.json --data data.json --data data.json --describe
scene.json --data data.json --sample --describe
- --data - --describe
- --watch --describe
scene.json --sample -o out.gif
scene.json --sample -o out
scene.json --sample -o out.pbm --panel seven
scene.json --sample -o out.raw --scale 2
scene.json --sample -o - --describe
scene.json --sample -o out.png --size 0x5
scene.json --sample -o out.png --size 5
scene.json --sample -o out.png --size 99999x1
scene.json --sample -o out.png --size 30000x30000
scene.json --describe
scene.json --data wrong.json --describe
scene.json --data broken.json --describe
scene.json --data none.json --describe
none.json --describe
outside.json --describe
data.json --describe
scene.json --sample --set n --describe
scene.json --sample --set n=x --describe
scene.json --sample --set =x --describe
scene.json --sample --set n=[1, --describe
scene.json --sample --set n={} --describe
scene.json --sample --set n="x --describe
scene.json --data data.json --set n=x --describe
scene.json --sample -o none/out.png
scene.json --sample --describe --changed-from before.png
scene.json --sample -o out.png --dither ordered
scene.json --sample -o scene.json --format bmp
scene.json --data data.json -o data.json --format bmp
""".strip().splitlines()], ids=" ".join)
def test_the_two_say_and_do_the_same(folder, words):
    c, python = both(folder, words, b'{"n": 7}')
    c = (*c[:2], c[2].replace(b"--describe, --check or --events", b"--describe or --check"))
    assert python == c
    if c[0] == 2:
        assert c[2].count(b"\n") == 1


@pytest.mark.parametrize("words, told", [
    (["scene.json", "--colour"], "unknown option --colour"), (["a", "b", "c"], "too many arguments: b c"),
    ([], "SCENE is required"), (["scene.json", "--panel", "nine"], "--panel"),
    (["scene.json", "--scale", "17"], "--scale"), (["scene.json", "--rotate", "45"], "--rotate"),
    (["scene.json", "--data"], "--data")])
def test_mistakes_are_named_in_one_line(folder, words, told):
    c, python = both(folder, words)
    assert python[0] == c[0] == 2 and python[1] == b""
    assert told in python[2].decode() and python[2].count(b"\n") == 1


def test_help_names_every_option_of_the_manual_page(run):
    page = (SOURCES / "tools/man/orvel-render.1").read_text()
    told = run("", "-m", "orvelsdk", "--help")
    options = re.findall(r"^\.It Fl (?:\w , Fl )?(-[\w-]+)", page, re.M)
    assert len(options) > 15
    programs_own = {"-completion", "-events", "-changes"}
    for option in options:
        assert f"-{option} " in told.replace("\n", " ").replace("]", " ") or option in programs_own, option
    assert run("", "-m", "orvelsdk", "--version") == "0.2.0\n"


def test_watch_draws_again_when_a_file_changes(folder):
    program = subprocess.Popen([*COMMANDS[1], "scene.json", "--data", "data.json", "-o", "out.png",
                                "--watch"], cwd=folder)
    try:
        def drawn(expected):
            for _ in range(200):
                if (folder / "out.png").exists():
                    if (Canvas.open(folder / "out.png").checksum() != before) is expected:
                        return True
                time.sleep(0.05)
            return False

        before = ""
        assert drawn(True)
        before = Canvas.open(folder / "out.png").checksum()
        (folder / "data.json").write_text('{"n": 9}')
        assert drawn(True)
    finally:
        program.terminate()
        program.wait()


def test_a_full_standard_output_is_an_error(folder):
    with open("/dev/full", "wb") as full:
        done = subprocess.run([*COMMANDS[1], "scene.json", "--sample", "-o", "-"], cwd=folder,
                              stdout=full, stderr=subprocess.PIPE)
    assert done.returncode == 2 and b"No space left" in done.stderr
