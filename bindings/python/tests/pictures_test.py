"""Pixels out: formats, files, NumPy, Pillow; and pictures read, held against Pillow."""

import io
import itertools
import random
import struct
import zlib

import numpy
import pytest
from orvelsdk import DITHERS, FORMATS, Canvas, Error, _bmp, _png
from PIL import Image

SIZES = {"rgba": 32, "bgra": 32, "rgb565_le": 16, "rgb565_be": 16, "grey8": 8, "grey4": 4, "grey2": 2,
         "grey1": 1, "index8": 8, "index4": 4, "plane": 1}
PALETTE = ["#000000", "#ffffff", "#ff0000"]


def painted(width=21, height=13, alpha=True):
    """A canvas on which nearly every pixel differs."""
    canvas = Canvas(width, height)
    for y in range(height):
        for x in range(width):
            canvas[x, y] = (x * 12 % 256, y * 19 % 256, (x * y) % 256, x * 7 % 256 if alpha else 255)
    return canvas


def test_formats_are_those_of_the_kit():
    assert set(SIZES) == set(FORMATS)
    canvas = painted()
    for form, dither, turns in itertools.product(SIZES, DITHERS, range(-1, 5)):
        width, height = (21, 13) if turns % 2 == 0 else (13, 21)
        data = canvas.pixels(form, dither=dither, turns=turns, palette=PALETTE, plane=2)
        assert len(data) == (width * SIZES[form] + 7) // 8 * height
    assert canvas.pixels()[:4] == bytes(canvas[0, 0])
    assert canvas.pixels("bgra", (3, 2, 1, 1)) == bytes(canvas[3, 2][i] for i in (2, 1, 0, 3))
    assert canvas.pixels("rgba", (3, 2, 1, 1), keep_alpha=False)[3] == 255


def test_a_format_that_there_is_not_is_refused():
    canvas = painted()
    for bad in (lambda: canvas.pixels("rgb"), lambda: canvas.pixels(None), lambda: canvas.pixels(0),
                lambda: canvas.pixels(dither="some"), lambda: canvas.pixels(turns=0.5),
                lambda: canvas.pixels(turns=2**31), lambda: canvas.pixels("index8"),
                lambda: canvas.pixels("index8", palette=[]),
                lambda: canvas.pixels("index8", palette=["#000000"] * 17),
                lambda: canvas.pixels("plane", palette=PALETTE, plane=3),
                lambda: canvas.pixels("plane", palette=["red"])):
        with pytest.raises((TypeError, ValueError)):
            bad()
    for box in ((0, 0, 0, 1), (0, 0, 22, 1), (-1, 0, 2, 2), (20, 12, 2, 1), (0, 0, 1, -1),
                (2**31 - 1, 0, 2**31 - 1, 1), (0, 0, 2**31 - 1, 2**31 - 1)):
        with pytest.raises((Error, MemoryError)):
            canvas.pixels(box=box)


def test_numpy_and_pillow_see_the_same_pixels():
    canvas = painted()
    array, image = numpy.asarray(canvas), canvas.image()
    assert array.shape == (13, 21, 4) and array.dtype == numpy.uint8
    assert array.tobytes() == image.tobytes() == canvas.pixels()
    assert image.mode == "RGBA" and image.size == (21, 13)
    assert numpy.array(canvas, dtype=float)[2, 3, 0] == canvas[3, 2].r
    array[:] = 0  # a copy
    assert canvas[3, 2].r == 36


def test_files_hold_the_pixels(tmp_path):
    for canvas in (painted(), painted(1, 1), painted(300, 2)):
        opaque = canvas.pixels(keep_alpha=False)
        for name in ("a.png", "a.bmp", "a.ppm", "A.PNG"):
            canvas.save(tmp_path / name)
            image = Image.open(tmp_path / name)
            expected = canvas.pixels() if name.lower().endswith("png") else opaque
            assert image.convert("RGBA").tobytes() == expected, name
        canvas.save(tmp_path / "a.raw")
        assert (tmp_path / "a.raw").read_bytes() == canvas.pixels()
        assert Canvas.open(tmp_path / "a.png").checksum() == canvas.checksum()
        assert canvas._repr_png_() == canvas.png() == (tmp_path / "a.png").read_bytes()
        canvas.save(str(tmp_path / "named"), format="png")
    for level in range(10):
        assert Image.open(io.BytesIO(painted().png(level))).tobytes() == painted().pixels()
    for bad in (lambda: canvas.save("a.jpeg"), lambda: canvas.save("a"), lambda: canvas.png(10),
                lambda: canvas.png(-1), lambda: canvas.save("a.png", format="gif")):
        with pytest.raises(ValueError):
            bad()
    for name in ("a.png", "a.bmp"):
        with pytest.raises((OSError, Error)):
            canvas.save(tmp_path / "no such folder" / name)


def test_a_full_disk_is_an_error():
    for form in ("png", "bmp", "ppm", "raw"):
        if form != "bmp":  # the library does not look at what becomes of its writes to a device
            with pytest.raises(OSError):
                painted().save("/dev/full", format=form)


def test_from_pixels():
    canvas = painted()
    assert Canvas.from_pixels(21, 13, canvas.pixels()).checksum() == canvas.checksum()
    assert Canvas.from_pixels(21, 13, numpy.asarray(canvas)).checksum() == canvas.checksum()
    assert canvas.copy().checksum() == canvas.checksum()
    for bad in (b"", b"1234", b"0" * (21 * 13 * 4 + 1)):
        with pytest.raises(ValueError):
            Canvas.from_pixels(21, 13, bad)
    for bad in (None, "text", 5):
        with pytest.raises(TypeError):
            Canvas.from_pixels(1, 1, bad)


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png_of(width, height, depth, color, interlaced, numbers):
    """A PNG file of random samples with random filters."""
    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[color]
    data = bytearray()
    passes = ((0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2),
              (0, 1, 1, 2)) if interlaced else ((0, 0, 1, 1),)
    for x, y, dx, dy in passes:
        wide, high = -(-(width - x) // dx), -(-(height - y) // dy)
        if wide > 0 and high > 0:
            for _ in range(high):
                data.append(numbers.randrange(5))
                data += numbers.randbytes((wide * channels * depth + 7) // 8)
    parts = [chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, depth, color, 0, 0, interlaced))]
    if color == 3:
        parts.append(chunk(b"PLTE", numbers.randbytes(3 * 256 if depth == 8 else 3 << depth)))
        parts.append(chunk(b"tRNS", numbers.randbytes(numbers.randrange(1, 1 << depth))))
    elif color in (0, 2) and numbers.random() < 0.5:
        parts.append(chunk(b"tRNS", struct.pack(f">{channels}H", *[0] * channels)))
    return (_png.SIGNATURE + b"".join(parts) + chunk(b"tEXt", b"a\0b")
            + chunk(b"IDAT", zlib.compress(bytes(data))) + chunk(b"IEND", b""))


FORMS = [(depth, color) for color, depths in ((0, (1, 2, 4, 8)), (2, (8,)), (3, (1, 2, 4, 8)),
                                              (4, (8,)), (6, (8,))) for depth in depths]


@pytest.mark.parametrize("depth, color", FORMS)
@pytest.mark.parametrize("interlaced", [0, 1])
def test_png_files_are_read_as_pillow_reads_them(depth, color, interlaced):
    numbers = random.Random(depth * 100 + color * 10 + interlaced)
    for _ in range(12):
        width, height = numbers.randrange(1, 20), numbers.randrange(1, 20)
        file = png_of(width, height, depth, color, interlaced, numbers)
        pixels = _png.decode(file)
        expected = Image.open(io.BytesIO(file)).convert("RGBA")
        assert pixels == (width, height, expected.tobytes())


@pytest.mark.parametrize("mode", ["damaged", "cut", "random"])
def test_hostile_png_files_are_errors(mode):
    numbers = random.Random(len(mode))
    for _ in range(300):
        file = bytearray(png_of(9, 9, *numbers.choice(FORMS), numbers.randrange(2), numbers))
        if mode == "cut":
            del file[numbers.randrange(len(file)):]
        elif mode == "damaged":
            file[numbers.randrange(8, len(file) - 12)] ^= numbers.randrange(1, 256)
        else:
            file = bytearray(_png.SIGNATURE + numbers.randbytes(200))
        with pytest.raises(Error):
            _png.decode(bytes(file))


def test_a_small_file_of_a_huge_picture_is_refused_at_once():
    header = chunk(b"IHDR", struct.pack(">IIBBBBB", 2**31 - 1, 2**31 - 1, 8, 6, 0, 0, 0))
    with pytest.raises(Error, match="too many pixels"):
        _png.decode(_png.SIGNATURE + header + chunk(b"IDAT", b"") + chunk(b"IEND", b""))
    bomb = zlib.compress(bytes(1 << 24), 9)
    header = chunk(b"IHDR", struct.pack(">IIBBBBB", 2, 2, 8, 6, 0, 0, 0))
    file = _png.SIGNATURE + header + chunk(b"IDAT", bomb) + chunk(b"IEND", b"")
    assert _png.decode(file).rgba == bytes(16)


def test_hostile_bmp_files_are_errors():
    numbers = random.Random(5)
    good = _bmp.encode(_png.Pixels(5, 4, numbers.randbytes(80)))
    assert _bmp.decode(good).width == 5
    for _ in range(2000):
        file = bytearray(good)
        for _ in range(numbers.randrange(1, 4)):
            file[numbers.randrange(2, 54)] = numbers.choice((0, 1, 127, 128, 255))
        try:
            pixels = _bmp.decode(bytes(file))
            assert len(pixels.rgba) == 4 * pixels.width * pixels.height
        except Error as reason:
            assert str(reason)


def test_hostile_bitmaps_of_the_resources_are_errors(tmp_path, run):
    folder = tmp_path / "Icons"
    folder.mkdir()
    files = {"empty": b"", "short": b"BM" + bytes(20)}
    for name, width, depth in (("negative", -2, 32), ("huge", 0x20000000, 32), ("other", 5, 7)):
        files[name] = struct.pack("<2sIIIIiiHHI", b"BM", 0, 0, 54, 40, width, 5, 1, depth, 0) + bytes(99)
    for name, data in files.items():
        (folder / f"{name}.bmp").write_bytes(data)
    run(f"""
import orvelsdk, pytest
orvelsdk.set_resource_path({str(tmp_path)!r})
for name in {list(files)!r}:
    with pytest.raises(orvelsdk.Error):
        orvelsdk.Canvas(9, 9).bitmap(name + ".bmp", 0, 0)
with pytest.raises(orvelsdk.Error):
    orvelsdk.Canvas(9, 9).bitmap("none", 0, 0)
""")
