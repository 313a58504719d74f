"""Widgets and charts: plain records that a canvas draws."""

from __future__ import annotations

import ctypes
from typing import Any, Iterable, Iterator, List, NamedTuple, Optional, Sequence, Tuple, Union

from . import _api
from ._arguments import Box, Text, box as box_of, one_of, real, reals, whole, within, words
from ._colors import ColorLike, Theme, _record
from ._errors import Error
from ._faces import FaceLike, handle_of

#: The kinds of widget.
KINDS = {name[len("ORVEL_WIDGET_"):].lower(): getattr(_api, name)
         for name in dir(_api) if name.startswith("ORVEL_WIDGET_")}
#: The kinds of chart.
CHARTS = {name: getattr(_api, f"KIT_CHART_{name.upper()}")
          for name in ("line", "area", "spark", "bars", "stacked", "gauge")}
_STATES = {"hover": _api.KIT_HOVER, "active": _api.KIT_ACTIVE, "focus": _api.KIT_FOCUS,
           "disabled": _api.KIT_DISABLED}
_MOST_SERIES = 32


def _joined(text: Union[Text, Sequence[str], None], what: str) -> Optional[bytes]:
    """Words, or items that the library wants joined by a bar."""
    if text is None or isinstance(text, (str, bytes, bytearray)):
        return None if text is None else words(text, what)
    items = [words(item, what) for item in text]
    if any(b"|" in item for item in items):
        raise ValueError(f"{what}: an item with a bar, |, would be two")
    return b"|".join(items)


def _doubles(values: Iterable[Any], what: str) -> Any:
    found = reals(values, what)
    return (ctypes.c_double * len(found))(*found)


def _face(face: Optional[FaceLike]) -> Tuple[Any, Any]:
    """The pointer for a record, and what has to live as long."""
    handle = handle_of(face)
    return (None if handle is None else handle._as_parameter_), handle


def _target(canvas: Any) -> Any:
    """What to draw on. The module of canvases is one of those that need this one."""
    if getattr(canvas, "_what", None) != "canvas":
        raise TypeError(f"what is drawn on is a Canvas, not {type(canvas).__name__}")
    return canvas._handle


def _lasting(values: Any) -> Any:
    """What can be looked at each time that it is drawn, as an iterator cannot."""
    if isinstance(values, Series):
        return values._replace(values=_lasting(values.values))
    return list(values) if isinstance(values, Iterator) else values


class Widget:
    """One widget: what it is, where it is, its words and its state.

    What is left out is zero or nothing, and a width or height of 0 is what size() says. Every
    argument is an attribute that can be set later; it is looked at when the widget is drawn.

    ``text`` of tabs and menus is a list; ``value`` is the fraction of sliders, progress bars,
    spinners and ratings, ``amount`` the number of steppers and badges and the selected item of tabs
    and menus, ``data`` the values of bars. ``active`` is on, checked, selected, open or pressed.
    ``caret`` and ``anchor`` of a text field with focus count bytes of UTF-8.
    """

    def __init__(self, kind: str, x: int = 0, y: int = 0, w: int = 0, h: int = 0, *,
                 text: Union[Text, Sequence[str], None] = None, hint: Optional[Text] = None,
                 icon: Optional[str] = None, face: Optional[FaceLike] = None, value: float = 0.0,
                 amount: int = 0, data: Optional[Iterable[Any]] = None, hover: bool = False,
                 active: bool = False, focus: bool = False, disabled: bool = False,
                 caret: int = 0, anchor: int = 0) -> None:
        self.kind, self.box = kind, Box(x, y, w, h)
        self.text, self.hint, self.icon, self.face = text, hint, icon, face
        self.value, self.amount, self.data = value, amount, data
        self.hover, self.active, self.focus, self.disabled = hover, active, focus, disabled
        self.caret, self.anchor = caret, anchor
        self._made()  # what cannot be drawn is told at once

    def _made(self) -> Tuple[Any, Any]:
        """The record, and what it borrows."""
        self.text, self.data = _lasting(self.text), _lasting(self.data)
        record = _api.kit_widget()
        record.kind = one_of(self.kind, KINDS, "widget")
        record.box = _api.kit_box(*box_of(self.box))
        record.text = _joined(self.text, "a widget's text")
        record.hint = _joined(self.hint, "a hint")
        record.icon = _joined(self.icon, "an icon's name")
        record.face, kept = _face(self.face)
        record.state = sum(bit for name, bit in _STATES.items() if getattr(self, name))
        record.amount = whole(self.amount, "an amount")
        record.value = real(self.value, "a value")
        record.caret = whole(self.caret, "a caret")
        record.anchor = whole(self.anchor, "an anchor")
        if self.data is not None:
            values = _doubles(self.data, "the data of bars")
            record.data, record.count = values, len(values)
        return record, kept

    def size(self) -> Tuple[int, int]:
        """The width and height that it wants with its words, face and value."""
        record, kept = self._made()
        w, h = ctypes.c_int(), ctypes.c_int()
        if _api.kit_size(ctypes.byref(record), ctypes.byref(w), ctypes.byref(h)) != 0:
            raise Error(f"the size of this {self.kind} cannot be told")
        del kept
        return w.value, h.value

    def draw(self, canvas: Any, theme: Any = None) -> None:
        """Draws it on a canvas, in the canvas's theme unless another one is given."""
        target, (record, kept) = _target(canvas), self._made()
        colors = canvas.theme if theme is None else Theme.of(theme)
        if _api.kit_draw(target, ctypes.byref(colors._record), ctypes.byref(record)) != 0:
            raise Error(f"this {self.kind} cannot be drawn: a negative size, an icon or image that "
                        "there is not, or too little memory")
        del kept

    def __repr__(self) -> str:
        text = "" if self.text is None else f", text={self.text!r}"
        return f"Widget({self.kind!r}, {', '.join(map(str, self.box))}{text})"


class Series(NamedTuple):
    """One row of values for a chart; None and NaN are missing ones."""

    values: Sequence[Optional[float]]
    name: str = ""
    color: Optional[ColorLike] = None


SeriesLike = Union[Series, Sequence[Optional[float]]]


def _series(row: SeriesLike, theme: Theme) -> Any:
    given = row if isinstance(row, Series) else Series(row)
    values = _doubles(given.values, "a chart's values")
    record = _api.kit_series()
    record.values, record.count = values, len(values)
    record.name = words(given.name, "a series' name")
    if given.color is not None:
        record.color = _record(theme.color(given.color))
    return record


class Chart:
    """A chart: ``Chart("bars", [[1, 2, 3]], 0, 0, 200, 100, axes=True)``.

    Each series is a list of numbers, or a Series with a name and a colour. ``low`` and ``high`` are
    the range; without them it is found from the values.
    """

    def __init__(self, kind: str, series: Iterable[SeriesLike], x: int, y: int, w: int, h: int, *,
                 low: float = 0.0, high: float = 0.0, axes: bool = False,
                 labels: Optional[Sequence[str]] = None, legend: bool = False, decimals: int = 0,
                 unit: Text = "", face: Optional[FaceLike] = None) -> None:
        self.kind, self.box = kind, Box(x, y, w, h)
        self.series: List[SeriesLike] = list(series)
        self.low, self.high, self.decimals = low, high, decimals
        self.axes, self.labels, self.legend = axes, labels, legend
        self.unit, self.face = unit, face
        self._made(Theme())  # what cannot be drawn is told at once

    def _made(self, theme: Theme) -> Tuple[Any, Any]:
        self.series[:], self.labels = map(_lasting, self.series), _lasting(self.labels)
        rows = [_series(row, theme) for row in self.series]
        if len(rows) > _MOST_SERIES:
            raise ValueError(f"a chart has {_MOST_SERIES} series at the most, not {len(rows)}")
        array: Any = (_api.kit_series * max(len(rows), 1))(*rows)
        record = _api.kit_chart()
        record.kind = one_of(self.kind, CHARTS, "chart")
        record.box = _api.kit_box(*box_of(self.box))
        record.series, record.count = array, len(rows)
        record.low, record.high = real(self.low, "a range"), real(self.high, "a range")
        record.parts = ((_api.KIT_CHART_AXES if self.axes else 0)
                        | (_api.KIT_CHART_LABELS if self.labels is not None else 0)
                        | (_api.KIT_CHART_LEGEND if self.legend else 0))
        record.decimals = within(self.decimals, 0, 9, "the decimals")
        record.unit = words(self.unit, "a unit")
        record.labels = _joined(self.labels, "the labels")
        record.face, kept = _face(self.face)
        return record, (rows, array, kept)

    def draw(self, canvas: Any, theme: Any = None) -> None:
        """Draws it on a canvas, in the canvas's theme unless another one is given."""
        target = _target(canvas)
        colors = canvas.theme if theme is None else Theme.of(theme)
        record, kept = self._made(colors)
        if _api.kit_chart_draw(target, ctypes.byref(colors._record), ctypes.byref(record)) != 0:
            raise Error("this chart cannot be drawn: a box with a side below 0 or above 32767, a "
                        "range that is upside down or not finite, or too little memory")
        del kept

    def __repr__(self) -> str:
        return f"Chart({self.kind!r}, {len(self.series)} series, {', '.join(map(str, self.box))})"
