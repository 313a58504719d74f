"""The two forms of BMP file that the library writes, read by the standard library alone."""

from __future__ import annotations

import struct
from ._errors import Error
from ._png import MOST_PIXELS, Pixels

_HEADER = 54
_LIBRARY_COMPRESSION = 255


def decode(data: bytes, most: int = MOST_PIXELS) -> Pixels:
    """Raises Error with the reason for any other file."""
    if len(data) < _HEADER or data[:2] != b"BM":
        raise Error("not a BMP file")
    offset, _, width, height, _, depth, compression = struct.unpack_from("<IIiiHHI", data, 10)
    if (depth, compression) not in ((24, 0), (32, _LIBRARY_COMPRESSION)):
        raise Error("neither of the two BMP forms that the library writes")
    rows, size = abs(height), depth // 8
    if width < 1 or rows < 1:
        raise Error("a picture without pixels")
    stride = (width * size + 3) // 4 * 4
    if (len(data) - offset) // stride < rows:
        raise Error("the file ends too early")
    if width * rows > most:
        raise Error("too many pixels")
    out = bytearray(4 * width * rows)
    for y in range(rows):
        at = offset + (y if height < 0 else rows - 1 - y) * stride
        row, to = data[at:at + width * size], slice(4 * width * y, 4 * width * (y + 1))
        pixels = bytearray(4 * width)
        for channel, place in enumerate((2, 1, 0)):
            pixels[channel::4] = row[place::size]
        pixels[3::4] = row[3::4] if size == 4 else b"\xff" * width
        out[to] = pixels
    return Pixels(width, rows, bytes(out))


def encode(pixels: Pixels) -> bytes:
    """The 24-bit form, bottom row first."""
    width, height = pixels.width, pixels.height
    stride = (3 * width + 3) // 4 * 4
    out = bytearray(stride * height)
    for y in range(height):
        row = pixels.rgba[4 * width * y:4 * width * (y + 1)]
        packed = bytearray(3 * width)
        for channel in range(3):
            packed[2 - channel::3] = row[channel::4]
        at = stride * (height - 1 - y)
        out[at:at + 3 * width] = packed
    head = struct.pack("<2sIIIIIIHH", b"BM", _HEADER + len(out), 0, _HEADER, 40, width, height,
                       1, 24)
    return head + bytes(24) + bytes(out)
