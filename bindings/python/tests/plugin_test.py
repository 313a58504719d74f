"""The fixture orvel_screen, in runs of pytest of its own."""

import os
import subprocess
import sys

import pytest
from conftest import BUILD
from orvelsdk import Canvas

TEST = """
from orvelsdk import Canvas, Screen
import pytest

def test_dot(orvel_screen):
    canvas = Canvas(20, 10, "#336699")
    canvas[DOT] = "#ff0000"
    orvel_screen.check(canvas, "dot")

def test_screen(orvel_screen):
    screen = Screen({"orvel": 1, "size": [30, 12], "root": {"text": "${t}"}}, {"t": "ab"})
    orvel_screen.check(screen, "deep/screen-1")

@pytest.mark.parametrize("name", ["", "..", "../out", "/tmp/x", "a/../b", "a b", "a\\n", 5, None, "é"])
def test_names(orvel_screen, name):
    with pytest.raises(ValueError):
        orvel_screen.check(Canvas(1, 1), name)

def test_kinds(orvel_screen):
    for bad in (None, b"png", "dot"):
        with pytest.raises(TypeError):
            orvel_screen.check(bad, "dot")
"""


@pytest.fixture
def run_tests(tmp_path):
    def run(*options, dot="3, 4", path=""):
        (tmp_path / "dots_test.py").write_text(TEST.replace("DOT", dot))
        done = subprocess.run([sys.executable, "-m", "pytest", "-p", "orvelsdk.pytest_plugin", "-p",
                               "no:cacheprovider", "-q", "--basetemp", str(tmp_path / "work"),
                               *options, "dots_test.py"], cwd=tmp_path, capture_output=True, text=True,
                              env=os.environ | {"PATH": str(path)})
        return done.returncode, done.stdout

    return run


def test_pictures_are_made_compared_and_approved(run_tests, tmp_path):
    status, told = run_tests()
    assert status == 1 and "2 failed" in told
    assert "the screen dot: there is no expected picture; --orvel-approve makes it" in told
    assert not (tmp_path / "screens").exists()
    status, told = run_tests("--orvel-approve")
    assert status == 0 and "dot: approved" in told and "deep/screen-1: approved" in told
    dot = tmp_path / "screens/dot.png"
    assert Canvas.open(dot)[3, 4] == (255, 0, 0, 255)
    assert (tmp_path / "screens/deep/screen-1.png").exists()
    status, told = run_tests()
    assert status == 0 and "screens" not in told
    old = dot.read_bytes()
    status, told = run_tests("--orvel-approve")
    assert status == 0 and "approved" not in told and dot.read_bytes() == old


def test_what_differs_is_told_to_the_pixel(run_tests, tmp_path):
    run_tests("--orvel-approve")
    status, told = run_tests(dot="7, 4")
    assert status == 1
    assert "the screen dot: 2 of 200 pixels differ, in the box 3,4 5x1" in told
    lines = [line.split(maxsplit=1) for line in told.splitlines() if line.startswith("  ")]
    files = {line[0]: line[1] for line in lines if len(line) == 2}
    assert files["expected"] == str(tmp_path / "screens/dot.png")
    assert Canvas.open(files["actual"])[7, 4] == (255, 0, 0, 255)
    marked = Canvas.open(files["difference"])
    red = [(x, y) for y in range(10) for x in range(20) if marked[x, y] == (255, 0, 0, 255)]
    assert red == [(3, 4), (7, 4)]


@pytest.mark.parametrize("change", ["one step of one channel", "alpha alone", "the size", "damage"])
def test_small_changes_are_found(run_tests, tmp_path, change):
    run_tests("--orvel-approve")
    file = tmp_path / "screens/dot.png"
    expected = Canvas.open(file)
    if change == "damage":
        file.write_bytes(file.read_bytes()[:-20])
    else:
        if change == "the size":
            expected = Canvas(20, 11)
        else:
            expected[0, 0] = "#336698" if change.startswith("one") else "#336699fe"
        expected.save(file)
    status, told = run_tests()
    assert status == 1 and "1 failed" in told
    said = {"the size": "20 x 10 pixels, not 20 x 11", "damage": "cannot be read"}
    assert said.get(change, "1 of 200 pixels differ, in the box 0,0 1x1") in told


def test_the_folder_has_the_name_that_the_configuration_says(run_tests, tmp_path):
    (tmp_path / "pytest.ini").write_text("[pytest]\norvel_screens = pictures\n")
    run_tests("--orvel-approve")
    assert (tmp_path / "pictures/dot.png").exists()


def test_the_report_is_written_where_its_program_is_on_the_path(run_tests, tmp_path):
    run_tests("--orvel-approve")
    (tmp_path / "screens/deep/screen-1.png").unlink()
    assert "The report" not in run_tests(dot="7, 4")[1]
    status, told = run_tests(dot="7, 4", path=BUILD)
    assert status == 1
    report = told.split("The report: ")[1].splitlines()[0]
    page = open(report, encoding="utf-8").read()
    assert "<h1>2 of 2 pictures not as expected</h1>" in page
    assert "<h2>dot</h2>" in page and "<h2>deep/screen-1</h2>" in page
    assert page.count("2 of 200 pixels differ") == 1 and "unexpected</span> there, but not expected" in page
    assert "The report" not in run_tests("--orvel-approve", dot="7, 4", path=BUILD)[1]
    assert "The report" not in run_tests(dot="7, 4", path=BUILD)[1]
