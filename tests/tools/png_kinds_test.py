#!/usr/bin/env python3
"""PNG files of every kind, as orvel-compare reads them and as Pillow does.

Argument: orvel-compare. Each file is compared with the same pixels, as Pillow reads them, written as a BMP
file of the library's 32 bits."""
import itertools
import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

from PIL import Image

COMPARE = sys.argv.pop(1)
GREY, COLOUR, PALETTE, GREY_ALPHA, COLOUR_ALPHA = 0, 2, 3, 4, 6
CHANNELS = {GREY: 1, COLOUR: 3, PALETTE: 1, GREY_ALPHA: 2, COLOUR_ALPHA: 4}
DEPTHS = {GREY: (1, 2, 4, 8), COLOUR: (8,), PALETTE: (1, 2, 4, 8), GREY_ALPHA: (8,), COLOUR_ALPHA: (8,)}
ADAM7 = ((0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def packed(samples, depth):
    """Samples as a row of bytes, high bits first."""
    bits = 0
    for sample in samples:
        bits = bits << depth | sample
    count = len(samples) * depth
    size = (count + 7) // 8
    return (bits << (8 * size - count)).to_bytes(size, "big")


def filtered(rows, bytes_per_pixel, which):
    """Rows with the PNG filter @p which(number of the row) each."""
    out, above = bytearray(), bytes(len(rows[0])) if rows else b""
    for number, row in enumerate(rows):
        kind = which(number)
        out.append(kind)
        for i, byte in enumerate(row):
            left = row[i - bytes_per_pixel] if i >= bytes_per_pixel else 0
            up = above[i]
            corner = above[i - bytes_per_pixel] if i >= bytes_per_pixel else 0
            guess = left + up - corner
            paeth = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))[2]
            out.append((byte - (0, left, up, (left + up) // 2, paeth)[kind]) & 255)
        above = row
    return bytes(out)


class Kind:
    """One file, made from random samples."""

    def __init__(self, colour, depth, interlaced, transparent, seed):
        chance = random.Random(seed)
        self.colour, self.depth, self.interlaced = colour, depth, interlaced
        self.width, self.height = chance.randint(1, 21), chance.randint(1, 19)
        most = 2 ** depth - 1
        self.palette = [[chance.randrange(256) for _ in range(3)] for _ in range(2 ** depth)]
        self.alphas = [chance.randrange(256) for _ in range(chance.randint(1, 2 ** depth))]
        self.pixels = [[[chance.randint(0, most) for _ in range(CHANNELS[colour])]
                        for _ in range(self.width)] for _ in range(self.height)]
        self.key = chance.choice(chance.choice(self.pixels)) if transparent else None
        self.chance = chance

    def rows(self, left, top, across, down):
        return [packed(sum(row[left::across], []), self.depth) for row in self.pixels[top::down]]

    def png(self):
        passes = ADAM7 if self.interlaced else ((0, 0, 1, 1),)
        size = max(1, CHANNELS[self.colour] * self.depth // 8)
        data = b"".join(filtered(self.rows(*step), size, lambda _: self.chance.randrange(5))
                        for step in passes if self.width > step[0] and self.height > step[1])
        parts = [chunk(b"IHDR", struct.pack(">IIBBBBB", self.width, self.height, self.depth, self.colour,
                                            0, 0, int(self.interlaced))),
                 chunk(b"gAMA", struct.pack(">I", 100000))]  # stored values count all the same
        if self.colour == PALETTE:
            parts.append(chunk(b"PLTE", bytes(sum(self.palette, []))))
        if self.key and self.colour == PALETTE:
            parts.append(chunk(b"tRNS", bytes(self.alphas)))
        elif self.key:
            parts.append(chunk(b"tRNS", b"".join(struct.pack(">H", sample) for sample in self.key)))
        compressed = zlib.compress(data)
        half = len(compressed) // 2
        parts += [chunk(b"tEXt", b"Comment\0none"), chunk(b"IDAT", compressed[:half]),
                  chunk(b"IDAT", compressed[half:]), chunk(b"IEND", b"")]
        return b"\x89PNG\r\n\x1a\n" + b"".join(parts)


def with_pillow(path):
    """Rows of red, green, blue and alpha."""
    with Image.open(path) as image:
        key = image.info.get("transparency")
        if image.mode in ("1", "L") and isinstance(key, int):
            # Pillow scales samples of few bits to 255 but not the transparent one.
            raise NotImplementedError
        return list(image.convert("RGBA").getdata()), image.size


def bmp(pixels, size):
    width, height = size
    body = bytes(itertools.chain.from_iterable((b, g, r, a) for r, g, b, a in pixels))
    return (struct.pack("<2sIIIIiiHHIIiiII", b"BM", 54 + len(body), 0, 54, 40, width, -height, 1, 32, 255,
                        len(body), 0, 0, 0, 0) + body)


class PngKinds(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.expected, self.actual = pathlib.Path(folder.name) / "expected", pathlib.Path(folder.name) / "actual"
        self.expected.mkdir()
        self.actual.mkdir()

    def compare(self):
        done = subprocess.run([COMPARE, self.expected, self.actual], text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.returncode, done.stdout + done.stderr

    def test_files_of_every_kind_have_the_pixels_that_pillow_sees(self):
        count = 0
        for colour in DEPTHS:
            for depth, interlaced, transparent, seed in itertools.product(
                    DEPTHS[colour], (False, True), (False, True), range(6)):
                if transparent and colour in (GREY, GREY_ALPHA, COLOUR_ALPHA):
                    continue  # grey has a test of its own; with alpha there is no such chunk
                name = f"{colour}-{depth}-{interlaced}-{transparent}-{seed}"
                path = self.actual / f"{name}.png"
                path.write_bytes(Kind(colour, depth, interlaced, transparent, name).png())
                (self.expected / f"{name}.bmp").write_bytes(bmp(*with_pillow(path)))
                count += 1
        self.assertEqual(self.compare(), (0, f"{count} pictures: {count} equal\n"))
        self.assertGreater(count, 150)

    def test_a_transparent_grey_is_transparent(self):
        for depth in DEPTHS[GREY]:
            kind = Kind(GREY, depth, False, True, f"grey {depth}")
            most = 2 ** depth - 1
            (self.actual / f"{depth}.png").write_bytes(kind.png())
            pixels = [(255 * one[0] // most,) * 3 + (0 if one == kind.key else 255,)
                      for row in kind.pixels for one in row]
            (self.expected / f"{depth}.bmp").write_bytes(bmp(pixels, (kind.width, kind.height)))
        self.assertEqual(self.compare(), (0, "4 pictures: 4 equal\n"))

    def test_a_number_without_a_colour_is_refused(self):
        for interlaced in (False, True):
            kind = Kind(PALETTE, 2, interlaced, False, "short")
            kind.palette = kind.palette[:3]
            kind.pixels[-1][-1] = [3]
            (self.actual / "short.png").write_bytes(kind.png())
            Image.new("L", (3, 3)).save(self.expected / "short.png")
            status, said = self.compare()
            self.assertEqual(status, 2)
            self.assertIn(f"{self.actual}/short.png: a colour that is not in the palette", said)

    def test_pillow_reads_what_is_approved(self):
        chance = random.Random(5)
        for number in range(60):
            size = chance.randint(1, 30), chance.randint(1, 30)
            few = [tuple(chance.randrange(256) for _ in range(4)) for _ in range(chance.randint(1, 400))]
            pixels = [chance.choice(few)[:3] + (255,) if number % 2 else chance.choice(few)
                      for _ in range(size[0] * size[1])]
            (self.actual / f"{number}.bmp").write_bytes(bmp(pixels, size))
            subprocess.run([COMPARE, self.expected / f"{number}.png", self.actual / f"{number}.bmp", "--approve"],
                           check=True, stdout=subprocess.DEVNULL)
            self.assertEqual(with_pillow(self.expected / f"{number}.png"), (pixels, size))

    def test_16_bits_are_refused(self):
        Image.new("I;16", (3, 3)).save(self.actual / "deep.png")
        Image.new("L", (3, 3)).save(self.expected / "deep.png")
        self.assertEqual(self.compare(), (2, "1 picture: 0 equal, 1 unreadable\norvel-compare: "
                                          f"{self.actual}/deep.png: 16 bits a channel; only PNG files of up "
                                          "to 8 are compared\n"))


if __name__ == "__main__":
    unittest.main()
