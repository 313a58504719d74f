"""The panels that pictures go to: what of a picture they show, and the bytes that they take."""

from __future__ import annotations

from typing import Iterator, List, NamedTuple, Optional, Tuple

from ._canvas import Canvas
from ._colors import Color
from ._png import Pixels


class Panel(NamedTuple):
    """``pixels`` is how many of them have their bits in one byte."""

    format: str
    pixels: int
    palette: Optional[Tuple[Color, ...]] = None


_BLACK, _WHITE, _RED = Color(0, 0, 0), Color(255, 255, 255), Color(255, 0, 0)

PANELS = {
    "": Panel("rgba", 1),
    "mono": Panel("grey1", 8),
    "gray4": Panel("grey2", 4),
    "gray16": Panel("grey4", 2),
    "rgb565": Panel("rgb565_le", 1),
    "red": Panel("plane", 8, (_BLACK, _WHITE, _RED)),
    # In the order of their numbers in panels of seven colours.
    "seven": Panel("index4", 2, (_BLACK, _WHITE, Color(0, 255, 0), Color(0, 0, 255), _RED,
                                 Color(255, 255, 0), Color(255, 128, 0))),
}


class Outlet(NamedTuple):
    """How a canvas goes out."""

    panel: Panel
    dither: str = "none"
    turns: int = 0


def panel_bytes(canvas: Canvas, outlet: Outlet) -> bytes:
    """The bytes that the panel takes; the planes one after another."""
    panel = outlet.panel
    planes = (0, 2) if panel.format == "plane" else (0,)
    return b"".join(canvas.pixels(panel.format, dither=outlet.dither, turns=outlet.turns,
                                  palette=panel.palette, plane=plane, keep_alpha=False)
                    for plane in planes)


def _greys(depth: int) -> List[bytes]:
    """What each byte of several greys shows, as RGBA."""
    white = (1 << depth) - 1
    return [b"".join(bytes([(byte >> shift & white) * 255 // white] * 3 + [255])
                     for shift in range(8 - depth, -1, -depth)) for byte in range(256)]


def _of_565(low: int, high: int) -> bytes:
    value = low | high << 8
    red, green, blue = value >> 11, value >> 5 & 63, value & 31
    return bytes(((red * 255 + 15) // 31, (green * 255 + 31) // 63, (blue * 255 + 15) // 31, 255))


def _shown(rows: Iterator[bytes], panel: Panel, width: int) -> Iterator[bytes]:
    if panel.palette is not None:
        colors = [bytes(color) for color in panel.palette]
        for row in rows:
            yield b"".join([colors[number] for number in row])
    elif panel.format == "rgb565_le":
        known = {}
        for row in rows:
            for pair in zip(row[::2], row[1::2]):
                if pair not in known:
                    known[pair] = _of_565(*pair)
            yield b"".join([known[pair] for pair in zip(row[::2], row[1::2])])
    else:
        table = _greys(8 // panel.pixels)
        for row in rows:
            yield b"".join([table[byte] for byte in row])[:4 * width]


def panel_picture(canvas: Canvas, outlet: Outlet) -> Pixels:
    """What the panel then shows, opaque."""
    panel = outlet.panel
    width, height = canvas.size if outlet.turns % 2 == 0 else canvas.size[::-1]
    form = panel.format if panel.palette is None else "index8"
    data = canvas.pixels(form, dither=outlet.dither, turns=outlet.turns, palette=panel.palette,
                         keep_alpha=False)
    if form == "rgba":
        return Pixels(width, height, data)
    stride = len(data) // height
    rows = (data[at:at + stride] for at in range(0, len(data), stride))
    return Pixels(width, height, b"".join(_shown(rows, panel, width)))


def scaled(pixels: Pixels, scale: int) -> Pixels:
    """Every pixel as a square."""
    out, stride = [], 4 * pixels.width
    for at in range(0, len(pixels.rgba), stride):
        row = memoryview(pixels.rgba)[at:at + stride].cast("I")
        wide = bytearray(stride * scale)
        numbers = memoryview(wide).cast("I")
        for place in range(scale):
            numbers[place::scale] = row
        out.append(bytes(wide) * scale)
    return Pixels(pixels.width * scale, pixels.height * scale, b"".join(out))


def changed(before: Pixels, now: Pixels, panel: Panel) -> Tuple[int, int, int, int]:
    """The box in which two pictures differ, widened to whole bytes of the panel's; all of the new
    one when the two have different sizes, empty when nothing differs."""
    if before[:2] != now[:2]:
        return 0, 0, now.width, now.height
    left, top, right, bottom, stride = now.width, now.height, 0, 0, 4 * now.width
    for y in range(now.height):
        one, other = (each.rgba[stride * y:stride * (y + 1)] for each in (before, now))
        if one == other:
            continue
        pairs = zip(memoryview(one).cast("I"), memoryview(other).cast("I"))
        columns = [x for x, (a, b) in enumerate(pairs) if a != b]
        left, right = min(left, columns[0]), max(right, columns[-1] + 1)
        top, bottom = min(top, y), y + 1
    if bottom == 0:
        return 0, 0, 0, 0
    left -= left % panel.pixels
    right = min(-(-right // panel.pixels) * panel.pixels, now.width)
    return left, top, right - left, bottom - top
