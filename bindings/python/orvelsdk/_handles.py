"""What holds an object of the library."""

from __future__ import annotations

from typing import Any, Callable

from ._errors import Closed


class Handle:
    """Owns an object of the library, and releases it when nobody refers to this any more.

    Whoever calls with it holds it for as long as the call lasts, whatever other threads close
    meanwhile. What the object borrows is kept with it.
    """

    __slots__ = ("_as_parameter_", "_release", "kept", "__weakref__")

    def __init__(self, pointer: Any, release: Callable[[Any], Any], *kept: Any) -> None:
        self._as_parameter_ = pointer
        self._release = release
        self.kept = kept

    def __del__(self) -> None:
        release = getattr(self, "_release", None)
        if release is not None:
            release(self._as_parameter_)

    def __reduce__(self) -> Any:
        raise TypeError("an object of the library can be neither copied nor pickled")


class Owner:
    """An object that can be closed, by a call or by ``with``."""

    _own: Any = None
    _what = "object"

    @property
    def _handle(self) -> Any:  # a Handle, which ctypes takes for the pointer
        handle = self._own
        if handle is None:
            raise Closed(f"the {self._what} is closed")
        return handle

    @property
    def closed(self) -> bool:
        """Whether it can be used no more."""
        return self._own is None

    def close(self) -> None:
        """Gives the memory back, at once unless something still borrows it. Twice does no harm."""
        self._own = None

    def __enter__(self) -> Any:
        self._handle  # noqa: B018  (closed ones raise)
        return self

    def __exit__(self, *about: object) -> None:
        self.close()
