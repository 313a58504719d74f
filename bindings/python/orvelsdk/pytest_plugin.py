"""Exact screenshot tests for pytest: the fixture orvel_screen.

    def test_the_panel(orvel_screen):
        orvel_screen.check(Screen.open("panel.json").render({"target": 21}), "panel")

compares with screens/panel.png beside the test's file, pixel by pixel, without a tolerance: the
library draws the same everywhere. With --orvel-approve, what differs becomes the expected picture.
At the end pytest names the files of all that differed, and the report of orvel-compare where that
program is on the path. The option orvel_screens of pytest's configuration is another name for the
folder.
"""

from __future__ import annotations

import os
import pathlib
import re
import shutil
import subprocess
from typing import Any, List, NamedTuple, Optional, Union

import pytest

from ._canvas import Canvas
from ._errors import Error
from ._files import encoded, read_picture, write_bytes
from ._panels import PANELS, changed
from ._png import Pixels
from ._screens import Screen

_NAME = re.compile(r"[\w.-]+(?:/[\w.-]+)*", re.ASCII)


class _Finding(NamedTuple):
    name: str
    what: str
    expected: pathlib.Path
    actual: Optional[pathlib.Path] = None
    difference: Optional[pathlib.Path] = None


def pytest_addoption(parser: Any) -> None:
    group = parser.getgroup("orvelsdk")
    group.addoption("--orvel-approve", action="store_true",
                    help="make the pictures that differ, and new ones, the expected ones")
    parser.addini("orvel_screens", "the folder of expected pictures beside each test's file",
                  default="screens")


def _findings(config: Any) -> List[_Finding]:
    found: List[_Finding] = config.__dict__.setdefault("_orvel_screens", [])
    return found


class OrvelScreen:
    """Compares pictures with those in a folder beside the test."""

    def __init__(self, request: Any, work: pathlib.Path) -> None:
        self._config, self._work = request.config, work
        folder = pathlib.Path(str(request.path if hasattr(request, "path") else request.fspath))
        self.folder = folder.parent / self._config.getini("orvel_screens")

    def check(self, picture: Union[Canvas, Screen], name: str) -> None:
        """Fails unless the picture of this name has just these pixels."""
        if not isinstance(name, str) or not _NAME.fullmatch(name) or ".." in name.split("/"):
            raise ValueError(f"{name!r} is no name of letters, digits, _, . and -")
        canvas = picture.render() if isinstance(picture, Screen) else picture
        if not isinstance(canvas, Canvas):
            raise TypeError(f"what is checked is a Canvas or a Screen, not {type(canvas).__name__}")
        now = Pixels(canvas.width, canvas.height, canvas.pixels())
        expected = self.folder / f"{name}.png"
        what, before = self._compared(now, expected)
        if what is None:
            return
        if self._config.getoption("--orvel-approve"):
            _save(expected, now)
            _findings(self._config).append(_Finding(name, "approved", expected))
            return
        actual = self._work / f"{name}.png"
        _save(actual, now)
        difference = None
        if before is not None and before[:2] == now[:2]:
            difference = self._work / f"{name}.difference.png"
            _save(difference, _marked(before, now))
        _findings(self._config).append(_Finding(name, what, expected, actual, difference))
        pytest.fail(f"the screen {name}: {what}", pytrace=False)

    @staticmethod
    def _compared(now: Pixels, path: pathlib.Path) -> Any:
        """What is wrong, None for nothing; and the expected picture where there is one."""
        if not path.exists():
            return "there is no expected picture; --orvel-approve makes it", None
        try:
            before = read_picture(str(path))
        except (Error, OSError) as reason:
            return f"the expected picture cannot be read: {reason}", None
        if before[:2] != now[:2]:
            return (f"{now.width} x {now.height} pixels, not {before.width} x {before.height}",
                    before)
        if before.rgba == now.rgba:
            return None, before
        pairs = zip(memoryview(before.rgba).cast("I"), memoryview(now.rgba).cast("I"))
        count = sum(a != b for a, b in pairs)
        x, y, w, h = changed(before, now, PANELS[""])
        differ = f"{count} of {now.width * now.height} pixels differ"
        return f"{differ}, in the box {x},{y} {w}x{h}", before


def _marked(before: Pixels, now: Pixels) -> Pixels:
    """What differs in red, on a faint copy of what was expected."""
    faint = bytes(192 + value // 4 for value in range(256))
    out = bytearray(before.rgba.translate(faint))
    pairs = zip(memoryview(before.rgba).cast("I"), memoryview(now.rgba).cast("I"))
    for at, (a, b) in enumerate(pairs):
        if a != b:
            out[4 * at:4 * at + 4] = b"\xff\x00\x00\xff"
    return Pixels(before.width, before.height, bytes(out))


def _save(path: pathlib.Path, pixels: Pixels) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    write_bytes(os.fspath(path), encoded(pixels, "png"))


@pytest.fixture
def orvel_screen(request: Any, tmp_path_factory: Any) -> OrvelScreen:
    """check(canvas, name) compares a canvas with the picture of that name beside the test."""
    folder = pathlib.Path(str(tmp_path_factory.getbasetemp()))
    request.config.__dict__["_orvel_report"] = folder / "orvel_report"
    return OrvelScreen(request, folder / "orvel_screens" / request.node.name.replace("/", "_"))


def _report(found: List[_Finding], config: Any) -> Optional[pathlib.Path]:
    """The page that orvel-compare writes of what failed; None where there is no such program."""
    program = shutil.which("orvel-compare")
    failed = [each for each in found if each.actual is not None]
    if program is None or not failed:
        return None
    folder = config.__dict__["_orvel_report"]
    # Tests in several folders may have screens of one name.
    common = os.path.commonpath([each.expected.parent for each in failed])
    for each in failed:
        name = each.expected.relative_to(common)
        for side, file in (("expected", each.expected), ("actual", each.actual)):
            copy = folder / side / name
            copy.parent.mkdir(parents=True, exist_ok=True)
            if file and file.exists():
                shutil.copyfile(file, copy)
    report = folder / "report.html"
    subprocess.run([program, str(folder / "expected"), str(folder / "actual"), "--report",
                    str(report)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    return report if report.exists() else None


def pytest_terminal_summary(terminalreporter: Any, config: Any) -> None:
    found = _findings(config)
    if not found:
        return
    terminalreporter.section("screens")
    for each in found:
        terminalreporter.write_line(f"{each.name}: {each.what}")
        terminalreporter.write_line(f"  expected    {each.expected}")
        if each.actual is not None:
            terminalreporter.write_line(f"  actual      {each.actual}")
        if each.difference is not None:
            terminalreporter.write_line(f"  difference  {each.difference}")
    report = _report(found, config)
    if report is not None:
        terminalreporter.write_line(f"The report: {report}")
    if any(each.actual is not None for each in found):
        terminalreporter.write_line("--orvel-approve makes what is actual the expected picture")
