"""What holds an object of the library."""

from __future__ import annotations

import ctypes
from typing import Any, Callable, Dict, Optional, Type

from ._errors import Closed


class _Address(int):
    """Where an object of the library lies, which ends with this.

    The collector of cycles is kept from seeing it. So it goes when what refers to it is taken
    apart, which is after every ``__del__`` that could still call with it.
    """

    __slots__ = ()


def _address(pointer: Any, release: Callable[[Any], Any]) -> _Address:
    kind, cast = type(pointer), ctypes.cast
    if kind not in _kinds:
        def end(self: int) -> None:
            release(cast(int(self), kind))

        _kinds[kind] = type("_Address", (_Address,), {"__slots__": (), "__del__": end})
    address = _kinds[kind](ctypes.addressof(pointer.contents))
    _untrack(address)
    return address


_untrack = ctypes.pythonapi["PyObject_GC_UnTrack"]
_untrack.argtypes, _untrack.restype = [ctypes.py_object], None
_kinds: Dict[type, Type[_Address]] = {}  # by the object's, for each of which there is one release


class Handle:
    """Owns an object of the library, and releases it when nobody refers to this any more.

    Whoever calls with it holds it for as long as the call lasts, whatever other threads close
    meanwhile. What the object borrows is kept with it. Without ``release`` it owns nothing.
    """

    __slots__ = ("_address", "_as_parameter_", "kept", "__weakref__")

    def __init__(self, pointer: Any, release: Optional[Callable[[Any], Any]], *kept: Any) -> None:
        self._as_parameter_ = pointer
        if release is not None:
            self._address = _address(pointer, release)
        self.kept = kept

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

    def __reduce__(self) -> Any:  # what the module copy asks for, too
        raise TypeError(f"a {self._what} can be neither pickled nor copied by the module copy")

    def __enter__(self) -> Any:
        self._handle  # noqa: B018  (closed ones raise)
        return self

    def __exit__(self, *about: object) -> None:
        self.close()
