"""A picture in memory, and everything that is drawn on it."""

from __future__ import annotations

import contextlib
import ctypes
import hashlib
import importlib
import os
import struct
from typing import Any, Iterable, Iterator, Optional, Sequence, Tuple

from . import _api, _formats, _png
from ._arguments import (Box, BoxLike, Path, Text, box as box_of, one_of, path as path_of, whole,
                         words)
from ._colors import Color, ColorLike, Theme, ThemeLike, _color, _record
from ._errors import Error, OutOfMemory
from ._faces import FaceLike, handle_of
from ._files import encoded, read_picture
from ._handles import Handle, Owner
from ._icons import ICONS
from ._widgets import Chart, SeriesLike, Widget

_ALIGNS = {"left": _api.KIT_LEFT, "center": _api.KIT_CENTRE, "centre": _api.KIT_CENTRE,
           "right": _api.KIT_RIGHT}


class Canvas(Owner):
    """A picture of so many pixels, opaque black or all of one colour.

    What lies outside is dropped, and nothing is blended. Where a colour is asked for, three or four
    numbers, ``"#rrggbb"``, a Color and a role of the canvas's theme such as ``"accent"`` will do.
    ``with Canvas(...) as canvas:`` gives its memory back at the end of the block.
    """

    _what = "canvas"

    def __init__(self, width: int, height: int, ground: Optional[ColorLike] = None, *,
                 theme: ThemeLike = "dark") -> None:
        self._theme = Theme.of(theme)
        width, height = whole(width, "the width"), whole(height, "the height")
        if width < 1 or height < 1:
            raise ValueError(f"a canvas has at least one pixel, not {width} x {height}")
        self._take(_api.kit_canvas(width, height))
        if ground is not None:
            self.clear(ground)

    def _take(self, pointer: Any) -> None:
        if not pointer:
            raise OutOfMemory("the memory is too small for the canvas")
        self._own = Handle(pointer, _api.orvel_canvas_destroy)
        self._size = (int(_api.orvel_canvas_width(pointer)), int(_api.orvel_canvas_height(pointer)))

    @classmethod
    def from_pixels(cls, width: int, height: int, rgba: Any, *,
                    theme: ThemeLike = "dark") -> "Canvas":
        """A canvas that shows red, green, blue and alpha of every pixel, rows top first."""
        canvas = cls(width, height, theme=theme)
        pixels = memoryview(rgba).cast("B")
        if len(pixels) != 4 * canvas.width * canvas.height:
            raise ValueError(f"{len(pixels)} bytes are not {width} x {height} pixels of four")
        numbers = memoryview(bytes(pixels)).cast("I")
        for y in range(canvas.height):
            _put_row(canvas._handle, y, numbers[y * width:(y + 1) * width])
        return canvas

    @classmethod
    def open(cls, path: Path, *, theme: ThemeLike = "dark") -> "Canvas":
        """A canvas that shows a PNG file of up to 8 bits a channel, or a BMP of the library's."""
        return cls.from_pixels(*read_picture(os.fsdecode(path_of(path))), theme=theme)

    @property
    def width(self) -> int:
        """How many pixels lie side by side."""
        return self._size[0]

    @property
    def height(self) -> int:
        """How many pixels lie above each other."""
        return self._size[1]

    @property
    def size(self) -> Tuple[int, int]:
        """The width and the height."""
        return self._size

    @property
    def theme(self) -> Theme:
        """What is drawn in; it can be set to another Theme, or to a name."""
        return self._theme

    @theme.setter
    def theme(self, theme: ThemeLike) -> None:
        self._theme = Theme.of(theme)

    def copy(self) -> "Canvas":
        """Another canvas with the same pixels and theme."""
        other = type(self)(self.width, self.height, theme=self.theme)
        other.paste(self, 0, 0)
        return other

    def _to(self, color: ColorLike) -> Any:
        return _record(self.theme.color(color) if isinstance(color, str) else color)

    # ---- Shapes

    def clear(self, color: ColorLike = "background") -> None:
        """Makes every pixel this colour."""
        _api.orvel_canvas_clear(self._handle, self._to(color))

    def __getitem__(self, place: Tuple[int, int]) -> Color:
        """The pixel; all zero outside."""
        x, y = place
        return _color(_api.orvel_canvas_pixel_get(self._handle, whole(x), whole(y)))

    def __setitem__(self, place: Tuple[int, int], color: ColorLike) -> None:
        x, y = place
        _api.orvel_canvas_pixel(self._handle, whole(x), whole(y), self._to(color))

    def line(self, x0: int, y0: int, x1: int, y1: int, color: ColorLike = "text") -> None:
        """A line of single pixels, both ends included."""
        _api.orvel_canvas_line(self._handle, whole(x0), whole(y0), whole(x1), whole(y1),
                               self._to(color))

    def rect(self, x: int, y: int, w: int, h: int, color: ColorLike = "text") -> None:
        """The outline of a box, one pixel thick, inside it."""
        _api.orvel_canvas_rect(self._handle, whole(x), whole(y), whole(w), whole(h),
                               self._to(color))

    def fill(self, x: int, y: int, w: int, h: int, color: ColorLike = "text") -> None:
        """A filled box."""
        _api.orvel_canvas_fill_rect(self._handle, whole(x), whole(y), whole(w), whole(h),
                                    self._to(color))

    def circle(self, cx: int, cy: int, r: int, color: ColorLike = "text") -> None:
        """The outline of a circle."""
        _api.orvel_canvas_circle(self._handle, whole(cx), whole(cy), whole(r), self._to(color))

    def disc(self, cx: int, cy: int, r: int, color: ColorLike = "text") -> None:
        """A filled circle."""
        _api.orvel_canvas_fill_circle(self._handle, whole(cx), whole(cy), whole(r),
                                      self._to(color))

    def triangle(self, x0: int, y0: int, x1: int, y1: int, x2: int, y2: int,
                 color: ColorLike = "text") -> None:
        """A filled triangle."""
        _api.orvel_canvas_fill_triangle(self._handle, whole(x0), whole(y0), whole(x1), whole(y1),
                                        whole(x2), whole(y2), self._to(color))

    # ---- Words

    def text(self, text: Text, x: int, baseline: int, face: Optional[FaceLike] = None,
             color: ColorLike = "text") -> int:
        """One line whose letters stand on the row baseline. Returns the x at which it ends."""
        return int(_api.kit_text_draw(self._handle, handle_of(face), words(text), whole(x),
                                      whole(baseline), self._to(color)))

    def text_box(self, text: Text, box: BoxLike, face: Optional[FaceLike] = None,
                 align: str = "left", color: ColorLike = "text") -> bool:
        """One line in a box, with an ellipsis where it is too wide. Returns whether it was cut."""
        return int(_api.kit_text_box(self._handle, handle_of(face), words(text),
                                     _api.kit_box(*box_of(box)),
                                     one_of(align, _ALIGNS, "alignment"),
                                     self._to(color))) == 1

    def text_wrap(self, text: Text, box: BoxLike, face: Optional[FaceLike] = None,
                  align: str = "left", color: ColorLike = "text") -> int:
        """A paragraph in a box, from its top. Returns the lines that all of it takes."""
        return int(_api.kit_text_wrap(self._handle, handle_of(face), words(text),
                                      _api.kit_box(*box_of(box)),
                                      one_of(align, _ALIGNS, "alignment"), self._to(color)))

    def signs(self, text: Text, x: int, y: int, color: ColorLike = "text") -> None:
        """The library's own 5 x 7 signs, which cannot be read; (x, y) is the top left corner."""
        _api.orvel_text_draw(self._handle, words(text), whole(x), whole(y), self._to(color))

    # ---- Pictures

    def icon(self, name: str, x: int, y: int, size: int, color: ColorLike = "text") -> None:
        """A built-in icon, cut to its square."""
        if _api.kit_icon(self._handle, words(name, "an icon's name"), whole(x), whole(y),
                         whole(size, "a size"), self._to(color)) != 0:
            if name not in ICONS:
                raise Error(f"there is no icon {name!r}; orvelsdk.ICONS lists them")
            raise Error(f"the icon {name!r} cannot be drawn {size} pixels wide")

    def bitmap(self, name: str, x: int, y: int) -> None:
        """The BMP file of the resource folder "Icons", at its own size."""
        if _api.kit_bitmap(self._handle, path_of(name), whole(x), whole(y)) != 0:
            raise Error(f"the bitmap {name!r} of the resource folder Icons cannot be drawn")

    def paste(self, other: "Canvas", x: int, y: int, part: Optional[BoxLike] = None, *,
              stamp: bool = False) -> None:
        """Copies another canvas, or a part of it, to (x, y); as a stamp, what has alpha above 0."""
        if not isinstance(other, Canvas):
            raise TypeError(f"what is pasted is a Canvas, not {type(other).__name__}")
        box = None if part is None else ctypes.byref(_api.kit_box(*box_of(part)))
        call = _api.kit_stamp if stamp else _api.kit_copy
        if call(self._handle, whole(x), whole(y), other._handle, box) != 0:
            raise OutOfMemory("the memory is too small to copy these pixels")

    @contextlib.contextmanager
    def clip(self, x: int, y: int, w: int, h: int) -> Iterator[Optional["Canvas"]]:
        """A canvas that shows this box alone; what is drawn on it within ``with`` comes back here.

        The box is cut to the canvas first: ``inside.origin`` is its corner, to be subtracted from
        coordinates. None where nothing of it is on the canvas.
        """
        record = _api.kit_box(*box_of((x, y, w, h)))
        found = _api.kit_clip_begin(self._handle, ctypes.byref(record))
        if not found:
            cut = Box(record.x, record.y, record.w, record.h).cut(self.width, self.height)
            if cut.w > 0 and cut.h > 0:
                raise OutOfMemory("the memory is too small for this part of the canvas")
            yield None
            return
        inside = _Clip.__new__(_Clip)
        inside._theme, inside.origin = self._theme, (record.x, record.y)
        inside._take(found)
        with inside:
            yield inside
            if not inside.closed:
                self.paste(inside, record.x, record.y)

    # ---- Widgets and charts

    def draw(self, what: Any, theme: Optional[ThemeLike] = None) -> None:
        """Draws a Widget or a Chart, in this canvas's theme unless another one is given."""
        if not isinstance(what, (Widget, Chart)):
            raise TypeError(f"what is drawn is a Widget or a Chart, not {type(what).__name__}")
        what.draw(self, theme)

    def widget(self, kind: str, x: int, y: int, w: int = 0, h: int = 0, *,
               theme: Optional[ThemeLike] = None, **words_and_state: Any) -> None:
        """Draws a widget at once; the keywords are those of Widget."""
        Widget(kind, x, y, w, h, **words_and_state).draw(self, theme)

    def chart(self, kind: str, series: Iterable[SeriesLike], x: int, y: int, w: int, h: int, *,
              theme: Optional[ThemeLike] = None, **parts: Any) -> None:
        """Draws a chart at once; the keywords are those of Chart."""
        Chart(kind, series, x, y, w, h, **parts).draw(self, theme)

    # ---- Pixels out

    def pixels(self, format: str = "rgba", box: Optional[BoxLike] = None, *, dither: str = "none",
               turns: int = 0, palette: Optional[Sequence[ColorLike]] = None, plane: int = 0,
               keep_alpha: bool = True) -> bytes:
        """The pixels of a box as a file or panel wants them.

        ``format`` is rgba, bgra, rgb565_le, rgb565_be, grey8, grey4, grey2, grey1, index8, index4
        or plane, the last three with a palette; ``dither`` none, ordered or diffused; ``turns`` are
        quarters clockwise.
        """
        form = _formats.format_of(format, dither=dither, turns=turns, palette=palette, plane=plane,
                                  keep_alpha=keep_alpha)
        return bytes(_formats.write(self._handle, self._box(box), form))

    def _box(self, box: Optional[BoxLike]) -> Box:
        return Box(0, 0, self.width, self.height) if box is None else box_of(box)

    def png(self, level: int = 1) -> bytes:
        """A PNG file in memory; the level, 0 to 9, is that of zlib."""
        if not 0 <= whole(level, "the level") <= 9:
            raise ValueError(f"the level of zlib is 0 to 9, not {level}")
        rows = _formats.write(self._handle, self._box(None), _RGBA, lead=1)
        return _png.encode(self.width, self.height, rows, level)

    def save(self, path: Path, format: Optional[str] = None) -> None:
        """Writes .png, .bmp (24 bits), .ppm or .raw (RGBA), as the name or the format says."""
        name = path_of(path)
        kind = format if format is not None else os.path.splitext(os.fsdecode(name))[1][1:].lower()
        if kind == "bmp":
            self._save_bmp(name)
            return
        if kind == "png":
            data = self.png()
        elif kind == "ppm":
            data = encoded(_png.Pixels(self.width, self.height, self.pixels()), kind)
        elif kind == "raw":
            data = self.pixels()
        else:
            raise ValueError(f"{os.fsdecode(name)}: not .png, .bmp, .ppm or .raw; format= tells")
        with open(name, "wb") as file:
            file.write(data)

    def _save_bmp(self, name: bytes) -> None:
        if _api.kit_save_bmp(self._handle, name) != 0:
            raise Error(f"{os.fsdecode(name)} cannot be written")
        whole_size = 54 + (3 * self.width + 3) // 4 * 4 * self.height
        if os.path.isfile(name) and os.path.getsize(name) != whole_size:
            raise Error(f"{os.fsdecode(name)} could not be written to its end")

    def image(self) -> Any:
        """The picture for Pillow, in the mode RGBA."""
        Image: Any = importlib.import_module("PIL.Image")  # asked for here alone

        rgba = _formats.write(self._handle, self._box(None), _RGBA)
        return Image.frombuffer("RGBA", self.size, rgba, "raw", "RGBA", 0, 1)

    def __array__(self, dtype: Any = None, copy: Optional[bool] = None) -> Any:
        """The picture for NumPy: rows, columns, four channels. Always a copy."""
        numpy: Any = importlib.import_module("numpy")  # asked for by NumPy alone

        if copy is False:
            raise ValueError("the pixels of a canvas come out as a copy")
        rgba = _formats.write(self._handle, self._box(None), _RGBA)
        array = numpy.frombuffer(rgba, numpy.uint8).reshape(self.height, self.width, 4)
        return array if dtype is None else array.astype(dtype)

    def _repr_png_(self) -> bytes:
        """What a notebook shows."""
        return self.png()

    def checksum(self) -> str:
        """SHA-256 of the size and of every pixel's four bytes: the same on every machine."""
        found = hashlib.sha256(struct.pack("<II", *self.size))
        found.update(_formats.write(self._handle, self._box(None), _RGBA))
        return found.hexdigest()

    def __repr__(self) -> str:
        return f"<Canvas {self.width} x {self.height}{', closed' if self.closed else ''}>"


class _Clip(Canvas):
    """A part of a canvas while it is drawn on."""

    origin: Tuple[int, int] = (0, 0)


_RGBA = _formats.format_of("rgba")


def _put_row(canvas: Any, y: int, row: memoryview) -> None:
    """Fills each run of equal pixels."""
    pixels = row.tolist()
    start, end = 0, len(pixels)
    while start < end:
        number, stop = pixels[start], start + 1
        while stop < end and pixels[stop] == number:
            stop += 1
        color = _api.orvel_color.from_buffer_copy(struct.pack("=I", number))
        _api.orvel_canvas_fill_rect(canvas, start, y, stop - start, 1, color)
        start = stop


