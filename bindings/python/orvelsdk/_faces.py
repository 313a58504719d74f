"""Letters."""

from __future__ import annotations

import ctypes
import os
import re
from functools import lru_cache
from typing import Any, Optional, Union

from . import _api
from ._arguments import Path, Text, path as path_of, whole, words
from ._errors import Error, refusal
from ._handles import Handle, Owner

#: The faces that the kit carries: each has a function, kit_sans_11.
FACES = tuple(" ".join(name.split("_")[1:]) for name in vars(_api)
              if re.fullmatch(r"kit_[a-z]+_[0-9]+", name))


class Face(Owner):
    """Letters of one design in one size: ``Face("bold 18")``, or a font's by Face.open()."""

    _what = "face"

    def __init__(self, name: str = "sans 12") -> None:
        found = _api.kit_face_named(words(name, "a face's name"))
        if not found:
            raise Error(f"there is no face {name!r}; there are {', '.join(FACES)}")
        self._own = Handle(found, None)  # the library's own, for as long as it is loaded
        self._name = name

    @classmethod
    def _made(cls, pointer: Any, name: str, *kept: Any) -> "Face":
        face = cls.__new__(cls)
        face._own = Handle(pointer, _api.kit_face_close, *kept)
        face._name = name
        return face

    @classmethod
    def of(cls, value: "FaceLike") -> "Face":
        """A face as it is, or the one so called."""
        if isinstance(value, Face):
            return value
        if isinstance(value, str):
            return cls(value)
        raise TypeError(f"a face is a Face or a name, not {type(value).__name__}")

    @classmethod
    def open(cls, path: Path) -> "Face":
        """Reads a bitmap font in the format BDF."""
        why = ctypes.create_string_buffer(512)
        found = _api.kit_face_open(path_of(path), why, len(why))
        return cls._made(_or_raise(found, why), os.fsdecode(path_of(path)))

    @classmethod
    def read(cls, font: bytes) -> "Face":
        """As open(), from memory."""
        if not isinstance(font, (bytes, bytearray)):
            raise TypeError(f"a font is bytes, not {type(font).__name__}")
        memory: Any = bytes(memoryview(font))
        why = ctypes.create_string_buffer(512)
        found = _api.kit_face_read(memory, len(memory), why, len(why))
        return cls._made(_or_raise(found, why), "font")

    def fallback(self, second: "FaceLike") -> "Face":
        """A face that takes from the second one what this one lacks; at most 8 come together."""
        first, behind = self._handle, handle_of(second)
        found = _api.kit_face_fallback(first, behind)
        if not found:
            raise Error("more than 8 faces cannot come together")
        return Face._made(found, f"{self._name} + {Face.of(second)._name}", first, behind)

    @property
    def ascent(self) -> int:
        """Rows above the baseline's."""
        return int(_api.kit_face_ascent(self._handle))

    @property
    def descent(self) -> int:
        """The baseline's row and those below."""
        return int(_api.kit_face_descent(self._handle))

    @property
    def line(self) -> int:
        """From one baseline to the next."""
        return int(_api.kit_face_line(self._handle))

    @property
    def cap(self) -> int:
        """The height of a capital letter."""
        return int(_api.kit_face_cap(self._handle))

    def __contains__(self, letter: Union[str, int]) -> bool:
        if isinstance(letter, str):
            letter = ord(letter)
        code = whole(letter, "a character's code")
        return code >= 0 and bool(_api.kit_face_has(self._handle, code))

    def width(self, text: Text) -> int:
        """The width of a line in pixels."""
        return int(_api.kit_text_width(self._handle, words(text)))

    def missing(self, text: Text) -> int:
        """How many characters of the text show as U+FFFD for want of a letter."""
        return int(_api.kit_text_missing(self._handle, words(text)))

    def x_of(self, text: str, characters: int) -> int:
        """The width of so many characters of a line, the place of a caret there."""
        start = words(text)[: len(words(text[: max(whole(characters, "a place"), 0)]))]
        return int(_api.kit_text_x(self._handle, words(text), len(start)))

    def at(self, text: str, x: int) -> int:
        """How many characters of a line come before the place that is nearest to x."""
        encoded = words(text)
        offset = _api.kit_text_at(self._handle, encoded, whole(x))
        return len(encoded[:offset].decode("utf-8", "replace"))

    def __repr__(self) -> str:
        return f"Face({self._name!r})"


FaceLike = Union[str, Face]


def _or_raise(found: Any, why: Any) -> Any:
    if not found:
        raise refusal(why, "the font was refused")
    return found


@lru_cache(maxsize=64)
def _named(name: str) -> Any:
    return Face(name)._handle


def handle_of(face: Optional[FaceLike]) -> Any:
    """What to call with; None is the face of the library's choice."""
    if face is None:
        return None
    return _named(face) if isinstance(face, str) else Face.of(face)._handle
