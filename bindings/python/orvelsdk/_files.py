"""Pictures in files."""

from __future__ import annotations

import os
import stat
import sys

from . import _bmp, _png
from ._errors import Error
from ._png import Pixels


def read_picture(path: str) -> Pixels:
    """A PNG file of up to 8 bits a channel or a BMP file of the library's."""
    with open(path, "rb") as file:
        data = file.read()
    try:
        return _bmp.decode(data) if data[:2] == b"BM" else _png.decode(data)
    except Error as reason:
        raise Error(f"{path}: {reason}") from None


def _channels(pixels: Pixels) -> bytes:
    rgb = bytearray(3 * pixels.width * pixels.height)
    for channel in range(3):
        rgb[channel::3] = pixels.rgba[channel::4]
    return bytes(rgb)


def _pbm(pixels: Pixels) -> bytes:
    """One bit a pixel, black is 1; the picture is black and white."""
    width, rows = pixels.width, []
    dark = pixels.rgba[0::4].translate(bytes(b"1"[0] if value < 128 else b"0"[0]
                                             for value in range(256)))
    for at in range(0, len(dark), width):
        bits = dark[at:at + width].ljust((width + 7) // 8 * 8, b"0")
        rows.append(int(bits, 2).to_bytes(len(bits) // 8, "big"))
    return b"P4\n%d %d\n" % pixels[:2] + b"".join(rows)


def encoded(pixels: Pixels, form: str) -> bytes:
    """A file of the form png, bmp, ppm or pbm."""
    if form == "bmp":
        return _bmp.encode(pixels)
    if form == "ppm":
        return b"P6\n%d %d\n255\n" % pixels[:2] + _channels(pixels)
    if form == "pbm":
        return _pbm(pixels)
    return _png.encode(pixels.width, pixels.height, _png.rows_of(pixels), 6)


def write_bytes(path: str, data: bytes) -> None:
    """Writes a file in one step, where it is a file; - is the standard output."""
    if path == "-":
        sys.stdout.buffer.write(data)
        sys.stdout.buffer.flush()
        return
    try:
        old = os.lstat(path)
    except OSError:
        old = None
    if old is not None and not stat.S_ISREG(old.st_mode):
        with open(path, "wb") as file:
            file.write(data)
        return
    part = f"{path}.{os.getpid()}.part"
    try:
        with open(part, "wb") as file:
            file.write(data)
        if old is not None:
            os.chmod(part, stat.S_IMODE(old.st_mode))
        os.replace(part, path)
    except OSError as reason:
        if os.path.exists(part):
            os.unlink(part)
        raise OSError(reason.errno, reason.strerror, path) from None
