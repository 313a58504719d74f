"""Colours and themes."""

from __future__ import annotations

import json
import os
from functools import lru_cache
from typing import Any, Dict, Iterator, NamedTuple, Tuple, Union

from . import _api
from ._arguments import Path, path as path_of, within
from ._errors import Error

ROLES = tuple(field[0] for field in _api.orvel_theme._fields_)


class Color(NamedTuple):
    """Red, green, blue and alpha, 0 to 255 each. Alpha is stored, never blended."""

    r: int
    g: int
    b: int
    a: int = 255

    @classmethod
    def of(cls, value: "ColorLike") -> "Color":
        """A colour from ``"#rrggbb"``, ``"#rrggbbaa"``, or three or four numbers."""
        if isinstance(value, str):
            return _from_text(value)
        try:
            channels = tuple(value)
        except TypeError:
            raise TypeError(f"a colour is a text or numbers, not {type(value).__name__}") from None
        if len(channels) not in (3, 4):
            raise ValueError(f"a colour has three or four numbers, not {len(channels)}")
        return cls(*(within(channel, 0, 255, "a channel") for channel in channels))

    def __str__(self) -> str:
        digits = f"#{self.r:02x}{self.g:02x}{self.b:02x}"
        return digits if self.a == 255 else f"{digits}{self.a:02x}"

    def mix(self, to: "ColorLike", percent: int) -> "Color":
        """The colour that far on the way to another one, in percent."""
        part = within(percent, 0, 100, "a percent")
        return _color(_api.kit_mix(_record(self), _record(to), part))

    @property
    def grey(self) -> int:
        """Its lightness, 0 to 255."""
        return int(_api.kit_grey(_record(self)))


ColorLike = Union[str, Color, Tuple[int, int, int], Tuple[int, int, int, int]]


@lru_cache(maxsize=512)
def _from_text(text: str) -> Color:
    digits = text[1:]
    if text[:1] == "#" and len(digits) in (6, 8) and digits.isascii() and digits.isalnum():
        try:
            return Color(*bytes.fromhex(digits))
        except ValueError:
            pass
    raise ValueError(f'{text!r} is no colour like "#1e66f5" and no role of the theme')


@lru_cache(maxsize=512)
def _exact_record(r: int, g: int, b: int, a: int) -> Any:
    return _api.orvel_color(r, g, b, a)


def _record(value: ColorLike) -> Any:
    """The record of C. It is shared, so nobody writes to it."""
    return _exact_record(*Color.of(value))


def _color(record: Any) -> Color:
    return Color(record.r, record.g, record.b, record.a)


class Theme:
    """Nine colours that widgets, charts and screens are drawn in.

    ``Theme()`` is the dark one. Each colour is an attribute, ``theme.accent = "#fe640b"`` sets one,
    as a keyword does: ``Theme.light(accent="#fe640b")``.
    """

    __slots__ = ("_record",)

    background: Color
    surface: Color
    text: Color
    accent: Color
    border: Color
    button: Color
    button_hover: Color
    button_text: Color
    error: Color

    def __init__(self, **colors: ColorLike) -> None:
        object.__setattr__(self, "_record", _api.orvel_theme())
        _api.orvel_theme_default(self._record)
        self._set(colors)

    @classmethod
    def dark(cls, **colors: ColorLike) -> "Theme":
        """The dark theme, with other colours where they are given."""
        return cls(**colors)

    @classmethod
    def light(cls, **colors: ColorLike) -> "Theme":
        """The light theme, with other colours where they are given."""
        theme = cls()
        _api.orvel_theme_light(theme._record)
        theme._set(colors)
        return theme

    @classmethod
    def of(cls, value: "ThemeLike") -> "Theme":
        """A theme as it is, or the one called ``"dark"`` or ``"light"``."""
        if isinstance(value, Theme):
            return value
        if value == "dark":
            return cls.dark()
        if value == "light":
            return cls.light()
        if isinstance(value, str):
            raise ValueError(f"there is no theme {value!r}: dark, light, or Theme.open(path)")
        raise TypeError(f"a theme is a Theme or a name, not {type(value).__name__}")

    @classmethod
    def open(cls, path: Path) -> "Theme":
        """Reads a theme file: a JSON object with the nine colours as ``"#rrggbb"``."""
        with open(path_of(path), "rb") as file:
            text = file.read(_LARGEST + 1)
        return cls.read(text, name=os.fsdecode(path_of(path)))

    @classmethod
    def read(cls, text: Union[str, bytes], name: str = "theme") -> "Theme":
        """As open(), from memory; reasons begin with the name."""
        if len(text) > _LARGEST:
            raise Error(f"{name}: larger than a theme can be")
        try:
            found = json.loads(text, object_pairs_hook=lambda pairs: _each_once(pairs, name))
        except (ValueError, RecursionError) as reason:
            raise Error(f"{name}: {reason}") from None
        if not isinstance(found, dict):
            raise Error(f"{name}: found no object of nine colours")
        theme = cls()
        for role in ROLES:
            value = found.get(role)
            if not isinstance(value, str) or len(value) != 7:
                raise Error(f'{name}: {role}: found {value!r}, expected a colour like "#1e66f5"')
            try:
                setattr(theme, role, value)
            except ValueError as reason:
                raise Error(f"{name}: {role}: {reason}") from None
        return theme

    @classmethod
    def load(cls, name: str) -> "Theme":
        """Reads a file of the resource folder "UI" over the dark theme, as orvel_theme_load()."""
        theme = cls()
        if _api.kit_theme_load(theme._record, path_of(name)) != 0:
            raise Error(f"there is no theme {name!r} in the resource folder UI")
        return theme

    def save(self, name: str) -> None:
        """Writes the file of the resource folder "UI"."""
        if _api.kit_theme_save(self._record, path_of(name)) != 0:
            raise Error(f"the theme {name!r} cannot be written to the resource folder UI")

    def copy(self, **colors: ColorLike) -> "Theme":
        """The same colours, but for those given."""
        theme = type(self)(**{role: getattr(self, role) for role in ROLES})
        theme._set(colors)
        return theme

    def color(self, value: ColorLike) -> Color:
        """A colour, or that of the role so called."""
        if isinstance(value, str) and value in ROLES:
            return _color(getattr(self._record, value))
        return Color.of(value)

    def _set(self, colors: Dict[str, ColorLike]) -> None:
        for role, color in colors.items():
            setattr(self, role, color)

    def __getattr__(self, role: str) -> Color:
        if role not in ROLES:
            raise AttributeError(f"a theme has no {role!r}")
        return _color(getattr(self._record, role))

    def __setattr__(self, role: str, color: ColorLike) -> None:
        if role not in ROLES:
            raise AttributeError(f"a theme has no {role!r}")
        setattr(self._record, role, _record(color))

    def __iter__(self) -> Iterator[Tuple[str, Color]]:
        return iter([(role, getattr(self, role)) for role in ROLES])

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Theme):
            return NotImplemented
        return bytes(self._record) == bytes(other._record)

    __hash__ = None  # type: ignore[assignment]  # its colours change

    def __reduce__(self) -> Any:
        return _theme_of, (dict(self),)

    def __repr__(self) -> str:
        colors = ", ".join(f"{role}={str(color)!r}" for role, color in self)
        return f"Theme({colors})"


ThemeLike = Union[str, Theme]
_LARGEST = 1 << 20


def _theme_of(colors: Dict[str, ColorLike]) -> Theme:
    return Theme(**colors)


def _each_once(pairs: Any, name: str) -> Dict[str, Any]:
    found: Dict[str, Any] = {}
    for key, value in pairs:
        if key in found:
            raise ValueError(f"{key}: given more than once")
        found[key] = value
    return found
