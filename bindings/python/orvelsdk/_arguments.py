"""What callers pass, checked before it becomes a number or bytes of C.

ctypes cuts numbers that are too large and ends texts at a NUL without a word; here both are errors.
"""

from __future__ import annotations

import operator
import os
import re
from typing import Any, Iterable, Mapping, NamedTuple, Sequence, Tuple, Union

_LOWEST, _HIGHEST = -(2**31), 2**31 - 1
_SURROGATES = re.compile("[\ud800-\udfff]")

Text = Union[str, bytes]
Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]


def one_of(name: str, table: Mapping[str, int], what: str) -> int:
    """What a name of the table stands for."""
    if not isinstance(name, str):
        raise TypeError(f"the {what} is a name, not {type(name).__name__}")
    if name not in table:
        raise ValueError(f"there is no {what} {name!r}; there are {', '.join(table)}")
    return table[name]


class Box(NamedTuple):
    """A rectangle [x, x + w) x [y, y + h), in pixels. Empty when a side is below 1."""

    x: int
    y: int
    w: int
    h: int

    def cut(self, width: int, height: int) -> "Box":
        """What of it lies on a canvas of this size."""
        left, top = max(self.x, 0), max(self.y, 0)
        right, bottom = min(self.x + self.w, width), min(self.y + self.h, height)
        return Box(left, top, max(right - left, 0), max(bottom - top, 0))


BoxLike = Union[Box, Sequence[int]]


def whole(value: Any, what: str = "a coordinate") -> int:
    """An int of C."""
    if type(value) is not int:
        try:
            value = operator.index(value)
        except TypeError:
            raise TypeError(f"{what} is a whole number, not {type(value).__name__}") from None
    if not _LOWEST <= value <= _HIGHEST:
        raise ValueError(f"{what} does not fit into 32 bits: {value}")
    return int(value)


def within(value: Any, low: int, high: int, what: str) -> int:
    """A whole number from low to high."""
    number = whole(value, what)
    if not low <= number <= high:
        raise ValueError(f"{what} is {number}, not {low} to {high}")
    return number


def real(value: Any, what: str) -> float:
    """A number with a fraction; NaN and infinities are numbers, too."""
    if isinstance(value, (str, bytes)):
        raise TypeError(f"{what} is a number, not {type(value).__name__}")
    try:
        return float(value)
    except (TypeError, ValueError):
        raise TypeError(f"{what} is a number, not {type(value).__name__}") from None


def reals(values: Iterable[Any], what: str) -> Tuple[float, ...]:
    """Several numbers; None is NaN, a missing one."""
    if isinstance(values, (str, bytes)):
        raise TypeError(f"{what} are numbers, not {type(values).__name__}")
    if not isinstance(values, Iterable):
        raise TypeError(f"{what} are several numbers, not one {type(values).__name__}")
    return tuple(float("nan") if value is None else real(value, what) for value in values)


def _without_nul(encoded: bytes, what: str) -> bytes:
    if b"\0" in encoded:
        raise ValueError(f"{what} has a NUL in it, where a text of C would end")
    return encoded


def words(text: Text, what: str = "a text") -> bytes:
    """UTF-8; a lone surrogate, which has none, shows as U+FFFD. Bytes are taken as they are."""
    if isinstance(text, str):
        try:
            return _without_nul(text.encode(), what)
        except UnicodeEncodeError:
            return _without_nul(_SURROGATES.sub("\ufffd", text).encode(), what)
    if isinstance(text, (bytes, bytearray)):
        return _without_nul(bytes(text), what)
    raise TypeError(f"{what} is str or bytes, not {type(text).__name__}")


def path(value: Path, what: str = "a path") -> bytes:
    """The bytes of a file's name."""
    return _without_nul(os.fsencode(value), what)


def box(value: BoxLike, what: str = "a box") -> Box:
    """Four whole numbers: x, y, w, h."""
    try:
        x, y, w, h = value
    except (TypeError, ValueError):
        raise TypeError(f"{what} is four whole numbers: x, y, w, h") from None
    return Box(whole(x, what), whole(y, what), whole(w, what), whole(h, what))
