"""Screens: what a scene describes, laid out and drawn, with values that change."""

from __future__ import annotations

import ctypes
import json
import os
import threading
import weakref
from typing import (Any, Callable, Dict, Iterable, Iterator, List, Mapping, Optional, Sequence,
                    Tuple, Union)

from . import _api
from ._arguments import Box, BoxLike, Path, box as box_of, path as path_of, whole, words
from ._canvas import Canvas
from ._colors import ColorLike
from ._errors import Error, OutOfMemory, refusal
from ._folder import SceneFolder, read_text
from ._formats import format_of
from ._handles import Handle, Owner
from ._hosts import Host, Lender
from ._input import POINTERS, Change, change_of, event_of, moment

_REASON = 1024


def _plain(value: Any) -> Any:
    """What JSON takes in place of a number or an array of NumPy's."""
    if hasattr(value, "tolist"):
        return value.tolist()
    raise TypeError(f"a value that JSON does not have: {type(value).__name__}")


def as_json(value: Any) -> bytes:
    """A value as the library takes it. NaN and infinities, which JSON lacks, are a ValueError."""
    try:
        text = json.dumps(value, allow_nan=False, default=_plain, ensure_ascii=False)
        return words(text)  # with U+FFFD for lone surrogates
    except RecursionError:
        raise ValueError("a value with too many lists in each other") from None


def _nothing() -> None:
    """The canvas before the first one."""


class Screen(Owner):
    """A tree of rows, columns, words, pictures, charts and widgets, and the values that it shows.

        screen = Screen.open("panel.json")
        screen.render({"target": 21}).save("panel.png")
        screen["target"] = 22            # a value
        box = screen.draw()              # what changed on screen.canvas, None where nothing did

    Names of values are paths: ``"now.temp"``, ``"days[2].name"``. A value that does not fit is an
    Error with the place in the scene, and the screen stays as it was.
    """

    _what = "screen"

    def __init__(self, scene: Union[Mapping[str, Any], str, bytes], data: Any = None, *,
                 name: str = "scene", host: Optional[Host] = None) -> None:
        text = as_json(scene) if isinstance(scene, Mapping) else scene
        if isinstance(text, str):
            text = text.encode("utf-8", "surrogatepass")
        if not isinstance(text, (bytes, bytearray)):
            raise TypeError(f"a scene is a mapping, str or bytes, not {type(scene).__name__}")
        self._read(bytes(memoryview(text)), None if data is None else as_json(data), name,
                   Host() if host is None else host)

    @classmethod
    def open(cls, path: Path, data: Any = None, *, host: Optional[Host] = None) -> "Screen":
        """Opens a scene file. Without data it shows the file's own "sample".

        Pictures, themes, fonts and included scenes are files in its folder, unless there is a host.
        """
        name = os.fsdecode(path_of(path))
        screen = cls.__new__(cls)
        screen._read(read_text(name), None if data is None else as_json(data), name,
                     SceneFolder(name) if host is None else host)
        return screen

    def _read(self, text: bytes, data: Optional[bytes], name: str, host: Host) -> None:
        if not isinstance(host, Host):
            raise TypeError(f"a host is a Host, not {type(host).__name__}")
        self._turn, self._inside = threading.RLock(), False
        self._canvas: Optional[Canvas] = None
        self._shown: Callable[[], Optional[Handle]] = _nothing  # a weak one, of the last canvas
        lender = self._lender = Lender(host)
        why = ctypes.create_string_buffer(_REASON)
        memory: Any = text
        self._own = None
        found = lender.call(_api.kit_screen_read, memory, len(text), words(name),
                            None if data is None else words(data, "the data"),
                            ctypes.byref(lender.record), why, len(why))
        self._own = Handle(found, _api.kit_screen_close, lender) if found else None
        if not found:
            raise refusal(why, "the scene was refused")

    def _call(self, function: Any, *arguments: Any) -> Any:
        with self._turn:
            if self._inside:
                raise Error("the function of a host must not call the screen that asks it")
            self._inside = True
            try:
                return self._lender.call(function, self._handle, *arguments)
            finally:
                self._inside = False

    def _try(self, function: Any, *arguments: Any) -> None:
        why = ctypes.create_string_buffer(_REASON)
        if self._call(function, *arguments, why, len(why)) != 0:
            raise refusal(why, "the screen refused this")

    def _told(self, function: Any, *arguments: Any) -> str:
        text = self._call(function, *arguments)
        if text is None:
            raise OutOfMemory("the memory is too small to tell what the screen shows")
        return text.decode("utf-8", "replace")  # type: ignore[no-any-return]

    # ---- Size

    @property
    def size(self) -> Tuple[int, int]:
        """The width and height, in pixels."""
        w, h = ctypes.c_int(), ctypes.c_int()
        self._call(_api.kit_screen_size, ctypes.byref(w), ctypes.byref(h))
        return w.value, h.value

    def resize(self, width: int, height: int) -> None:
        """Lays the screen out anew for this size, 1 to 32767 pixels each."""
        self._try(_api.kit_screen_resize, whole(width, "the width"), whole(height, "the height"))

    # ---- Values

    def __setitem__(self, name: str, value: Any) -> None:
        self._try(_api.kit_screen_set, words(name, "a name"), as_json(value))

    def _set_json(self, name: bytes, text: bytes) -> None:
        self._try(_api.kit_screen_set, name, text)

    def __getitem__(self, name: str) -> Any:
        text = self._call(_api.kit_screen_get, words(name, "a name"))
        if text is None:
            raise KeyError(name)
        return json.loads(text)

    def __contains__(self, name: str) -> bool:
        return self._call(_api.kit_screen_get, words(name, "a name")) is not None

    def __iter__(self) -> Iterator[str]:
        return iter(self.data)

    @property
    def data(self) -> Dict[str, Any]:
        """All values. Setting it replaces them all."""
        return self[""]  # type: ignore[no-any-return]

    @data.setter
    def data(self, values: Any) -> None:
        self[""] = values

    def update(self, values: Mapping[str, Any]) -> None:
        """Sets one value after the other."""
        for name, value in values.items():
            self[name] = value

    # ---- The tree

    def add(self, parent: str, node: Mapping[str, Any], at: int = -1) -> None:
        """Adds a node, written as in a scene, to a row, column or stack, before its child number
        at, or at the end."""
        self._try(_api.kit_screen_add, words(parent, "an id"), whole(at, "a place"), as_json(node))

    def remove(self, id: str) -> None:
        """Removes a node with all below it."""
        self._try(_api.kit_screen_remove, words(id, "an id"))

    def change(self, id: Optional[str], key: str, value: Any) -> None:
        """Sets a key of a node, or of the scene where the id is None; None removes the key."""
        self._try(_api.kit_screen_change, None if id is None else words(id, "an id"),
                  words(key, "a key"), None if value is None else as_json(value))

    # ---- Drawing

    @property
    def canvas(self) -> Canvas:
        """The screen's own canvas, which draw() draws on."""
        size = self.size
        if self._canvas is None or self._canvas.closed or self._canvas.size != size:
            self._canvas = Canvas(*size)
        return self._canvas

    def draw(self, canvas: Optional[Canvas] = None) -> Optional[Box]:
        """Draws what changed since the last time, and returns the box that holds it; None where
        nothing did. On another canvas than the last time, it draws everything."""
        with self._turn:
            on = self.canvas if canvas is None else canvas
            if not isinstance(on, Canvas):
                raise TypeError(f"what is drawn on is a Canvas, not {type(on).__name__}")
            target = on._handle
            if self._shown() is not target:
                self.expose()
            record = _api.kit_box()
            if self._call(_api.kit_screen_draw, target, ctypes.byref(record)) != 0:
                raise OutOfMemory("the memory is too small to draw the screen")
            self._shown = weakref.ref(target)
        drawn = Box(record.x, record.y, record.w, record.h)
        return drawn if drawn.w > 0 and drawn.h > 0 else None

    def render(self, data: Any = None) -> Canvas:
        """All of the screen, with this data where some is given, on a canvas of its own."""
        with self._turn:
            if data is not None:
                self.data = data
            canvas = Canvas(*self.size)
            self.draw(canvas)
        return canvas

    def changes(self, updates: Iterable[Mapping[str, Any]]) -> Iterator[Box]:
        """Sets each mapping of values in turn, draws on the screen's canvas, and yields the boxes
        that changed: first all of it."""
        first = self.draw()
        if first is not None:
            yield first
        for values in updates:
            self.update(values)
            box = self.draw()
            if box is not None:
                yield box

    def expose(self, box: Optional[BoxLike] = None) -> None:
        """Has the next draw() draw this box, too; everything when there is none."""
        record = None if box is None else ctypes.byref(_api.kit_box(*box_of(box)))
        self._call(_api.kit_screen_expose, record)

    # ---- Input

    def send(self, kind: str, x: int = 0, y: int = 0, *, key: Union[str, int] = 0,
             modifiers: Iterable[str] = (), text: str = "", dx: int = 0, dy: int = 0,
             button: int = 0, caret: int = 0, now: Optional[int] = None) -> None:
        """One event: "move", "press", "release", "leave", "wheel", "key", "text", "compose",
        "paste", "blur", "focus" or "time". Keys have names, "enter" or "f5", or are characters;
        modifiers are "shift", "ctrl", "alt". Times are in milliseconds; without one it is now."""
        fields = {"key": key, "modifiers": modifiers, "text": text, "dx": dx, "dy": dy,
                  "button": button, "caret": caret}
        event = event_of(kind, x, y, fields)
        if self._call(_api.kit_screen_send, ctypes.byref(event), moment(now)) != 0:
            raise OutOfMemory("the memory is too small for this event")

    def click(self, x: int, y: int, *, now: Optional[int] = None) -> None:
        """A press and a release at one place."""
        self.send("press", x, y, now=now)
        self.send("release", x, y, now=now)

    def pending(self) -> Iterator[Change]:
        """The changes that came of events since the last time, oldest first."""
        record = _api.kit_change()
        while True:
            with self._turn:
                if self._call(_api.kit_screen_next, ctypes.byref(record)) != 1:
                    return
                change = change_of(record)
            yield change

    def wait(self, now: Optional[int] = None) -> Optional[int]:
        """In how many milliseconds time matters by itself, and a "time" is due; None: it does
        not."""
        ms = self._call(_api.kit_screen_wait, moment(now))
        return None if ms < 0 else int(ms)

    def focus(self, id: Optional[str]) -> None:
        """Gives the keyboard to the node with this id; to none for None."""
        text = None if id is None else words(id, "an id")
        if self._call(_api.kit_screen_focus, text) != 0:
            raise KeyError(id)

    @property
    def caret(self) -> Optional[Box]:
        """Where the caret of the text field with the keyboard stands; None where there is none."""
        record = _api.kit_box()
        if self._call(_api.kit_screen_caret, ctypes.byref(record)) != 0:
            return None
        return Box(record.x, record.y, record.w, record.h)

    @property
    def pointer(self) -> str:
        """The shape of the pointer where it is: "arrow", "hand" or "text"."""
        return POINTERS[self._call(_api.kit_screen_pointer)]

    # ---- What is there

    def describe(self) -> str:
        """One line for each node that shows: its role, name, value, states, id and box."""
        return self._told(_api.kit_screen_describe)

    def report(self, format: str = "rgba", *, dither: str = "none",
               palette: Optional[Sequence[ColorLike]] = None) -> List[str]:
        """What a careful look would find wrong, one line for each; empty when there is nothing.

        Contrast is that of the colours of a panel, which takes what Canvas.pixels() writes in this
        format.
        """
        panel = format_of(format, dither=dither, palette=palette)
        return self._told(_api.kit_screen_report_on, ctypes.byref(panel)).splitlines()

    def box(self, id: str) -> Optional[Box]:
        """Where a node lies on the screen; None where there is none or nothing of it shows."""
        record = _api.kit_box()
        if self._call(_api.kit_screen_box, words(id, "an id"), ctypes.byref(record)) != 0:
            return None
        return Box(record.x, record.y, record.w, record.h)

    def __repr__(self) -> str:
        return "<Screen, closed>" if self.closed else "<Screen {} x {}>".format(*self.size)
