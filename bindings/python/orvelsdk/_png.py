"""PNG files by the standard library alone: written as they come out, read in all forms of 8 bits.
"""

from __future__ import annotations

import struct
import zlib
from typing import Iterator, List, NamedTuple, Optional, Tuple

from ._errors import Error

SIGNATURE = b"\x89PNG\r\n\x1a\n"
MOST_PIXELS = 64 << 20
_CHANNELS = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}  # by the colour type
_DEPTHS = {0: (1, 2, 4, 8), 2: (8,), 3: (1, 2, 4, 8), 4: (8,), 6: (8,)}
_ADAM7 = ((0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2),
          (0, 1, 1, 2))


class Pixels(NamedTuple):
    """Red, green, blue and alpha of every pixel, rows top first."""

    width: int
    height: int
    rgba: bytes


def _chunk(kind: bytes, data: bytes) -> bytes:
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def encode(width: int, height: int, rows: bytes, level: int = 1) -> bytes:
    """A file of RGBA from rows that each begin with a byte 0, the filter that changes nothing."""
    header = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    return b"".join((SIGNATURE, _chunk(b"IHDR", header),
                     _chunk(b"IDAT", zlib.compress(rows, level)), _chunk(b"IEND", b"")))


def rows_of(pixels: Pixels) -> bytes:
    """The rows that encode() takes."""
    stride = 4 * pixels.width
    return b"".join(b"\0" + pixels.rgba[at:at + stride]
                    for at in range(0, stride * pixels.height, stride))


def _chunks(data: bytes) -> Iterator[Tuple[bytes, bytes]]:
    at = len(SIGNATURE)
    while at + 12 <= len(data):
        (size,) = struct.unpack_from(">I", data, at)
        kind, end = data[at + 4:at + 8], at + 8 + size
        if end + 4 > len(data):
            break
        if zlib.crc32(data[at + 4:end]) != struct.unpack_from(">I", data, end)[0]:
            raise Error(f"the chunk {kind!r} is damaged")
        yield kind, data[at + 8:end]
        if kind == b"IEND":
            return
        at = end + 4
    raise Error("the file ends too early")


class _Header(NamedTuple):
    width: int
    height: int
    depth: int
    color: int
    interlaced: bool

    def row_bytes(self, width: int) -> int:
        return (width * self.depth * _CHANNELS[self.color] + 7) // 8

    def passes(self) -> Iterator[Tuple[int, int, int, int, int, int]]:
        """Of each pass: its first pixel, the steps between its pixels, its size."""
        for x, y, dx, dy in _ADAM7 if self.interlaced else ((0, 0, 1, 1),):
            width, height = (self.width - x + dx - 1) // dx, (self.height - y + dy - 1) // dy
            if width > 0 and height > 0:
                yield x, y, dx, dy, width, height


def _header(data: bytes, most: int) -> _Header:
    if len(data) != 13:
        raise Error("a header of another length")
    width, height, depth, color, method, filters, interlace = struct.unpack(">IIBBBBB", data)
    if color in _DEPTHS and depth == 16:
        raise Error("16 bits a channel; only PNG files of up to 8 are read")
    if depth not in _DEPTHS.get(color, ()) or method or filters or interlace > 1:
        raise Error("a form that PNG does not have")
    if not 0 < width < 1 << 31 or not 0 < height < 1 << 31:
        raise Error("a picture without pixels")
    if width * height > most:
        raise Error("too many pixels")
    return _Header(width, height, depth, color, interlace == 1)


def _inflate(data: bytes, size: int) -> bytes:
    try:
        unpacker = zlib.decompressobj()
        found = unpacker.decompress(data, size)
    except zlib.error as reason:
        raise Error(f"damaged: {reason}") from None
    if len(found) < size:
        raise Error("the pixels end too early")
    return found


def _unfilter(row: bytearray, above: bytes, kind: int, step: int) -> None:
    if kind == 1:
        for i in range(step, len(row)):
            row[i] = (row[i] + row[i - step]) & 255
    elif kind == 2:
        for i, up in enumerate(above):
            row[i] = (row[i] + up) & 255
    elif kind == 3:
        for i, up in enumerate(above):
            left = row[i - step] if i >= step else 0
            row[i] = (row[i] + (left + up) // 2) & 255
    elif kind == 4:
        _undo_paeth(row, above, step)
    elif kind != 0:
        raise Error("a filter that PNG does not have")


def _undo_paeth(row: bytearray, above: bytes, step: int) -> None:
    for i, b in enumerate(above):
        a, c = (row[i - step], above[i - step]) if i >= step else (0, 0)
        from_a, from_b, from_c = abs(b - c), abs(a - c), abs(a + b - 2 * c)
        nearest = a if from_a <= from_b and from_a <= from_c else b if from_b <= from_c else c
        row[i] = (row[i] + nearest) & 255


def _samples(row: bytes, depth: int, count: int) -> bytes:
    """Each sample as a byte of its own."""
    if depth == 8:
        return row
    mask, shifts = (1 << depth) - 1, range(8 - depth, -1, -depth)
    return bytes(byte >> shift & mask for byte in row for shift in shifts)[:count]


class _Colors:
    """What the samples of a row mean."""

    def __init__(self, header: _Header, palette: Optional[bytes], clear: Optional[bytes]) -> None:
        self.color, self.depth = header.color, header.depth
        self.transparent: Optional[Tuple[int, ...]] = None
        if header.color == 3:
            if not palette or len(palette) % 3 or len(palette) > 768:
                raise Error("a palette that PNG does not have")
            alphas = (clear or b"") + b"\xff" * 256
            self.count = len(palette) // 3
            colors = [palette[channel::3].ljust(256, b"\0") for channel in range(3)]
            self.tables = (*colors, alphas[:256])
        elif clear is not None and header.color in (0, 2):
            count = _CHANNELS[header.color]
            if len(clear) != 2 * count:
                raise Error("a transparent colour that PNG does not have")
            self.transparent = struct.unpack(f">{count}H", clear)

    def rgba(self, samples: bytes) -> bytes:
        width = len(samples) // _CHANNELS[self.color]
        out = bytearray(4 * width)
        if self.color == 3:
            if max(samples) >= self.count:
                raise Error("a colour that is not in the palette")
            for channel, table in enumerate(self.tables):
                out[channel::4] = samples.translate(table)
            return bytes(out)
        grey, alpha = self.color in (0, 4), self.color in (4, 6)
        step = _CHANNELS[self.color]
        scale = bytes(min(255, i * (255 // ((1 << self.depth) - 1))) for i in range(256))
        for channel in range(3):
            out[channel::4] = samples[0 if grey else channel::step].translate(scale)
        out[3::4] = samples[step - 1::step] if alpha else b"\xff" * width
        if self.transparent is not None:
            for x in range(width):
                if tuple(samples[x * step:(x + 1) * step]) == self.transparent:
                    out[4 * x + 3] = 0
        return bytes(out)


def _rows(header: _Header, colors: _Colors, data: bytes) -> bytes:
    channels = _CHANNELS[header.color]
    step = max(1, channels * header.depth // 8)
    out = bytearray(4 * header.width * header.height)
    pixels = memoryview(out).cast("I")
    at = 0
    for x, y, dx, dy, width, height in header.passes():
        size = header.row_bytes(width)
        above: bytes = bytes(size)
        for line in range(height):
            row = bytearray(data[at + 1:at + 1 + size])
            _unfilter(row, above, data[at], step)
            found = colors.rgba(_samples(row, header.depth, width * channels))
            start = (y + line * dy) * header.width
            pixels[start + x:start + header.width:dx] = memoryview(found).cast("I")
            above, at = bytes(row), at + 1 + size
    return bytes(out)


def decode(data: bytes, most: int = MOST_PIXELS) -> Pixels:
    """Reads a still picture of up to 8 bits a channel. Raises Error with the reason for others."""
    if data[:8] != SIGNATURE:
        raise Error("not a PNG file")
    header: Optional[_Header] = None
    palette: Optional[bytes] = None
    clear: Optional[bytes] = None
    parts: List[bytes] = []
    for kind, content in _chunks(data):
        if kind == b"IHDR" and header is None:
            header = _header(content, most)
        elif header is None:
            raise Error("a file without a header")
        elif kind == b"acTL" and not parts:
            raise Error("an animation; only still pictures are read")
        elif kind == b"PLTE":
            palette = content
        elif kind == b"tRNS":
            clear = content
        elif kind == b"IDAT":
            parts.append(content)
        elif kind[:1].isupper() and kind != b"IEND":
            raise Error(f"a chunk {kind!r} that is not known")
    if header is None:
        raise Error("a file without a header")
    size = sum(height * (1 + header.row_bytes(width))
               for _, _, _, _, width, height in header.passes())
    colors = _Colors(header, palette, clear)
    rows = _rows(header, colors, _inflate(b"".join(parts), size))
    return Pixels(header.width, header.height, rows)
