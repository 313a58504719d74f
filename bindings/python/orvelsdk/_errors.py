"""What calls raise."""

from __future__ import annotations


class Error(Exception):
    """The library refused a call; the text says why."""


class OutOfMemory(Error, MemoryError):
    """The memory was too small for what was asked."""


class Closed(Error, ValueError):
    """The object was closed before the call."""


def refusal(why: object, otherwise: str) -> Error:
    """What to raise for a reason that a call left in a buffer."""
    reason = getattr(why, "value", b"").decode("utf-8", "replace") or otherwise
    return OutOfMemory(reason) if reason.endswith("out of memory") else Error(reason)
