#!/usr/bin/env python3
"""What calls of the Python module cost, and how long a picture takes on its way out: a table.

Start it as ./check python starts its tests: with ORVELSDK_LIBRARIES and PYTHONPATH. Each row is the
best of several rounds, since whatever else the machine does only adds."""
import io
import json
import pathlib
import timeit

import numpy
from orvelsdk import Canvas, Screen, Widget, _api

ROUNDS = 15


def best(work, number):
    """The shortest time of one call, in microseconds."""
    return min(timeit.repeat(work, number=number, repeat=ROUNDS)) / number * 1e6


def panel():
    """What is 320 x 240 and looks like a panel: words, controls, a chart."""
    scene = pathlib.Path(__file__).resolve().parent.parent / "scenes/instrument"
    return Screen.open(scene / "boiler.json", json.loads((scene / "data.json").read_text()))


def noisy():
    """A picture that cannot be compressed well, the worst for PNG."""
    numbers = numpy.random.default_rng(1).integers(0, 256, (240, 320, 4), dtype=numpy.uint8)
    return Canvas.from_pixels(320, 240, numbers.tobytes())


def rows():
    screen = panel()
    canvas = screen.render()
    assert canvas.size == (320, 240)
    pointer, color = canvas._handle, _api.orvel_color(1, 2, 3, 255)
    button = Widget("button", 10, 10, 80, 22, text="OK")
    readings = [screen.data | {"temp": 60 + i / 10} for i in range(2)]
    yield "a call of C through ctypes alone", best(
        lambda: _api.orvel_canvas_pixel(pointer, 1, 2, color), 20000)
    yield "`canvas[1, 2] = \"#010203\"`", best(lambda: canvas.__setitem__((1, 2), "#010203"), 10000)
    yield "`canvas.fill(1, 2, 3, 4, \"#010203\")`", best(lambda: canvas.fill(1, 2, 3, 4, "#010203"), 10000)
    yield "`canvas.text(\"21.5 °C\", 10, 20)`", best(lambda: canvas.text("21.5 °C", 10, 20), 2000)
    yield "`canvas.draw(button)`", best(lambda: canvas.draw(button), 1000)
    yield "`Canvas(320, 240)` and its end", best(lambda: Canvas(320, 240).close(), 1000)
    yield "`screen.render(data)` of scenes/instrument", best(lambda: screen.render(readings[0]), 100)
    canvas = screen.render()
    yield "320 × 240 to NumPy: `numpy.asarray(canvas)`", best(lambda: numpy.asarray(canvas), 100)
    yield "… to Pillow: `canvas.image()`", best(canvas.image, 100)
    yield "… to PNG bytes: `canvas.png()`", best(canvas.png, 100)
    yield "… to PNG bytes by Pillow, at the same level of zlib", best(
        lambda: canvas.image().save(io.BytesIO(), "PNG", compress_level=1), 30)
    yield "… to PNG bytes, of noise", best(noisy().png, 20)
    yield "… to RGB565: `canvas.pixels(\"rgb565_le\")`", best(lambda: canvas.pixels("rgb565_le"), 50)
    yield "… to one bit, dithered", best(lambda: canvas.pixels("grey1", dither="ordered"), 50)


def shown(microseconds):
    if microseconds < 100:
        return f"{microseconds:.2f} µs"
    return f"{microseconds / 1000:.2f} ms"


def main():
    print("| | time |\n|---|--:|")
    for name, time in rows():
        print(f"| {name} | {shown(time)} |")


if __name__ == "__main__":
    main()
