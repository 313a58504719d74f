"""Events that screens take, and the changes that come of them."""

from __future__ import annotations

import json
import time
from typing import Any, Dict, Iterable, NamedTuple, Optional, Union

from . import _api
from ._arguments import one_of, whole, words

EVENTS: Dict[str, int] = {
    name[len("KIT_EVENT_"):].lower(): getattr(_api, name)
    for name in dir(_api) if name.startswith("KIT_EVENT_")}
KEYS: Dict[str, int] = {
    name[len("KIT_KEY_"):].lower().replace("_", ""): getattr(_api, name)
    for name in dir(_api) if name.startswith("KIT_KEY_")}
MODIFIERS: Dict[str, int] = {
    "shift": _api.KIT_MOD_SHIFT, "ctrl": _api.KIT_MOD_CONTROL, "alt": _api.KIT_MOD_ALT}
POINTERS = ("arrow", "hand", "text")
_CHANGES = ("value", "press", "copy", "paste", "sound")


class Change(NamedTuple):
    """What came of an event: "value", "press", "copy", "paste" or "sound"."""

    kind: str
    id: str
    name: str
    value: Any


def key_of(key: Union[str, int]) -> int:
    """A key by its name, "enter" or "f5", by its character, or by its number."""
    if not isinstance(key, str):
        return whole(key, "a key")
    if key == "space":
        return ord(" ")
    return ord(key) if len(key) == 1 else one_of(key, KEYS, "key")


def modifiers_of(names: Iterable[str]) -> int:
    """Several modifiers in one number."""
    if isinstance(names, str):
        raise TypeError("modifiers are several names, not one text")
    return sum(one_of(name, MODIFIERS, "modifier") for name in set(names))


def moment(now: Optional[int]) -> int:
    """A time in milliseconds; that of this process where none is given."""
    if now is None:
        return time.monotonic_ns() // 1_000_000
    if type(now) is not int:
        raise TypeError(f"a time is a whole number of milliseconds, not {type(now).__name__}")
    if not -(2**63) <= now < 2**63:
        raise ValueError(f"a time does not fit into 64 bits: {now}")
    return now


def event_of(kind: str, x: int, y: int, fields: Dict[str, Any]) -> Any:
    """The record of an event."""
    event = _api.kit_screen_event(kind=one_of(kind, EVENTS, "event"), x=whole(x), y=whole(y))
    event.key = key_of(fields["key"])
    event.modifiers = modifiers_of(fields["modifiers"])
    event.text = words(fields["text"], "the text")
    event.dx, event.dy = (whole(fields[name], "a turn") for name in ("dx", "dy"))
    event.button, event.caret = whole(fields["button"]), whole(fields["caret"])
    return event


def change_of(record: Any) -> Change:
    """A change, with its value as Python has it."""
    texts = [text.decode("utf-8", "replace") for text in (record.id, record.name, record.value)]
    return Change(_CHANGES[record.kind], texts[0], texts[1], json.loads(texts[2]))
