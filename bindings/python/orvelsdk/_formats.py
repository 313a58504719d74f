"""How pixels leave a canvas."""

from __future__ import annotations

import ctypes
from typing import Any, Optional, Sequence

from . import _api
from ._arguments import Box, one_of, whole, within
from ._colors import Color, ColorLike, _record
from ._errors import Error, OutOfMemory

#: What a pixel becomes: the layouts of the kit by name.
FORMATS = {name[len("KIT_"):].lower(): getattr(_api, name)
           for name in ("KIT_RGBA", "KIT_BGRA", "KIT_RGB565_LE", "KIT_RGB565_BE", "KIT_GREY8",
                        "KIT_GREY4", "KIT_GREY2", "KIT_GREY1", "KIT_INDEX8", "KIT_INDEX4",
                        "KIT_PLANE")}
#: How colours that a format lacks are approximated.
DITHERS = {"none": _api.KIT_DITHER_NONE, "ordered": _api.KIT_DITHER_ORDERED,
           "diffused": _api.KIT_DITHER_DIFFUSED}
_WITH_PALETTE = ("index8", "index4", "plane")


def format_of(name: str, *, dither: str = "none", turns: int = 0,
              palette: Optional[Sequence[ColorLike]] = None, plane: int = 0,
              keep_alpha: bool = True) -> Any:
    """The record for kit_pixels()."""
    record = _api.kit_format()
    record.layout = one_of(name, FORMATS, "format")
    record.dither = one_of(dither, DITHERS, "dither")
    record.turns = within(whole(turns, "the turns") % 4, 0, 3, "the turns")
    record.keep_alpha = 1 if keep_alpha else 0
    if name in _WITH_PALETTE:
        if palette is None:
            raise ValueError(f"the format {name} needs a palette")
        colors = [_record(Color.of(color)) for color in palette]
        record.colors = within(len(colors), 1, 16, "the number of a palette's colours")
        array: Any = (_api.orvel_color * len(colors))(*colors)
        record.palette = array
        record.plane = within(plane, 0, len(colors) - 1, "the plane")
    return record


def write(canvas: Any, box: Box, form: Any, lead: int = 0) -> bytearray:
    """The pixels of a box, with so many bytes 0 before each row.

    Raises Error where the box does not lie on the canvas, and OutOfMemory.
    """
    sides = _api.orvel_canvas_width(canvas), _api.orvel_canvas_height(canvas)
    if not (0 <= box.x < box.x + box.w <= sides[0] and 0 <= box.y < box.y + box.h <= sides[1]):
        raise Error(f"the box {tuple(box)} does not lie on a canvas of {sides[0]} x {sides[1]}")
    width, height = (box.h, box.w) if form.turns % 2 else (box.w, box.h)
    stride = int(_api.kit_pixels_stride(ctypes.byref(form), width)) + lead
    try:
        memory = bytearray(stride * height)
        size = len(memory) - lead
        place = (ctypes.c_char * size).from_buffer(memory, lead)
        record = _api.kit_box(*box)
        if _api.kit_pixels(canvas, ctypes.byref(record), ctypes.byref(form), place, size,
                           stride) == 0:
            return memory
    except MemoryError:
        pass
    raise OutOfMemory("the memory is too small for the pixels")
