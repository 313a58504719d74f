"""A notebook, executed without a browser: a canvas shows as a picture."""

import base64
import json

import pytest
from orvelsdk import Canvas

nbconvert = pytest.importorskip("nbconvert")
pytest.importorskip("ipykernel")

CELLS = ["from orvelsdk import Canvas, Screen\ncanvas = Canvas(60, 20, '#203040')",
         "canvas.text('Hello', 4, 14, color='#ffd166')\ncanvas",
         "Screen({'orvel': 1, 'size': [50, 20], 'root': {'text': '${t}'}}, {'t': 'hi'}).render()"]


def test_a_canvas_shows_as_a_picture(tmp_path):
    cells = [{"cell_type": "code", "id": f"c{i}", "metadata": {}, "outputs": [],
              "execution_count": None, "source": source} for i, source in enumerate(CELLS)]
    kernel = {"kernelspec": {"name": "python3", "display_name": "Python 3", "language": "python"}}
    notebook = {"cells": cells, "metadata": kernel, "nbformat": 4, "nbformat_minor": 5}
    (tmp_path / "screens.ipynb").write_text(json.dumps(notebook))
    import nbformat
    from nbconvert.preprocessors import ExecutePreprocessor

    read = nbformat.read(tmp_path / "screens.ipynb", as_version=4)
    ExecutePreprocessor(timeout=120, kernel_name="python3").preprocess(
        read, {"metadata": {"path": str(tmp_path)}})
    pictures = [output["data"]["image/png"] for cell in read["cells"] for output in cell["outputs"]
                if "image/png" in output.get("data", {})]
    assert len(pictures) == 2
    expected = Canvas(60, 20, "#203040")
    expected.text("Hello", 4, 14, color="#ffd166")
    (tmp_path / "shown.png").write_bytes(base64.b64decode(pictures[0]))
    assert Canvas.open(tmp_path / "shown.png").checksum() == expected.checksum()
