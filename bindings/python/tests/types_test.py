"""The annotations: mypy in its strict mode finds nothing in the module, and something in its misuse."""

import importlib.util
import subprocess
import sys

import pytest
from conftest import SOURCES

USE = """
from orvelsdk import Canvas, Screen, Theme
canvas = Canvas(20, 10, "#ffffff", theme=Theme.light())
canvas.text("a", 1, 9, face="bold 12", color=(1, 2, 3))
data: bytes = Screen.open("scene.json").render({"a": 1}).png()
"""
MISUSE = """
canvas.text(5, "1", 9)
canvas.no_such()
"""


@pytest.mark.skipif(importlib.util.find_spec("mypy") is None, reason="mypy is not here")
def test_types(tmp_path):
    (tmp_path / "use.py").write_text(USE + MISUSE)
    done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(tmp_path),
                           str(SOURCES / "bindings/python/orvelsdk"), str(tmp_path / "use.py")],
                          capture_output=True, text=True)
    lines = done.stdout.splitlines()
    assert [line.split("[")[-1] for line in lines[:-1]] == ["arg-type]", "arg-type]", "attr-defined]"]
