"""What a screen asks for by name: pictures, themes, faces, other scenes."""

from __future__ import annotations

import ctypes
import functools
import sys
import threading
from typing import Any, Callable, Dict, List, Optional, Union

from . import _api
from ._canvas import Canvas
from ._colors import Theme
from ._faces import Face


class Host:
    """Gives a screen what it asks for by name, each by a function that returns None where it knows
    no such thing: ``Host(picture=pictures.get)``. A subclass may have them as methods.

    They must not call the screen, which is an Error. What they raise comes out of the call that led
    to it. What they return is kept until the screen is closed, so the same name best gets the same.
    """

    def __init__(self, *, picture: Optional[Callable[[str], Optional[Canvas]]] = None,
                 theme: Optional[Callable[[str], Optional[Theme]]] = None,
                 face: Optional[Callable[[str], Optional[Face]]] = None,
                 include: Optional[Callable[[str], Union[str, bytes, None]]] = None) -> None:
        self._functions: Dict[str, Any] = {"picture": picture, "theme": theme, "face": face,
                                           "include": include}

    def picture(self, name: str) -> Optional[Canvas]:
        """A picture, for nodes of the kind picture; pixels with alpha 0 do not show."""
        return self._asked("picture", name)  # type: ignore[no-any-return]

    def theme(self, name: str) -> Optional[Theme]:
        """A theme, beside dark and light."""
        return self._asked("theme", name)  # type: ignore[no-any-return]

    def face(self, name: str) -> Optional[Face]:
        """A face, beside those of the kit."""
        return self._asked("face", name)  # type: ignore[no-any-return]

    def include(self, name: str) -> Union[str, bytes, None]:
        """The text of a scene file."""
        return self._asked("include", name)  # type: ignore[no-any-return]

    def _asked(self, what: str, name: str) -> Any:
        function = getattr(self, "_functions", {}).get(what)
        return None if function is None else function(name)


class Lender:
    """The host as the library calls it. Keeps what it lent for as long as the screen is there."""

    def __init__(self, host: Host) -> None:
        self._host = host
        self._lent: Dict[int, Any] = {}
        self._inner: List[Any] = []
        self._caught: Optional[BaseException] = None
        self.record = _api.kit_screen_host()
        for name, lend in (("picture", self._picture), ("theme", self._theme),
                           ("face", self._face), ("include", self._include)):
            kind: Any = type(getattr(self.record, name))
            setattr(self.record, name, kind(self._answering(lend, kind._argtypes_)))

    def _answering(self, lend: Any, kinds: Any) -> Any:
        """What ctypes shall call in place of lend.

        What a function of C returns where Python raises is anything. An interrupt raises before the
        first line of any function of Python, where it cannot be caught. So the answer is left in a
        cell, and what reads it afterwards is not a line of Python: getattr(cell, "value").
        """
        cell, form = ctypes.c_void_p(), ctypes.PYFUNCTYPE(ctypes.c_int, *kinds)

        def answer(*arguments: Any) -> int:
            try:
                cell.value = None
                cell.value = lend(*arguments)
            except BaseException as error:  # it must not pass through the library
                self._caught = error
            return 0

        inner = form(answer)
        address: Any = ctypes.cast(inner, ctypes.c_void_p).value
        asked: Any = form(address)
        asked.restype = functools.partial(getattr, cell, "value")
        self._inner.append(inner)
        return asked

    def call(self, function: Any, *arguments: Any) -> Any:
        """Calls the library, and raises what a function of the host raised meanwhile."""
        before = sys.unraisablehook
        listens = threading.current_thread() is threading.main_thread()  # others see no interrupt

        def unraisable(about: Any) -> None:
            if "Lender._answering" in f"{about.object} {about.err_msg}":
                self._caught = about.exc_value or about.exc_type()
            else:
                before(about)

        try:
            if listens:
                sys.unraisablehook = unraisable
            result = function(*arguments)
        finally:
            if listens:
                sys.unraisablehook = before
        caught, self._caught = self._caught, None
        if caught is not None:
            raise caught
        return result

    def _ask(self, what: str, name: Optional[bytes], wanted: Any) -> Any:
        found = getattr(self._host, what)((name or b"").decode("utf-8", "replace"))
        if found is not None and not isinstance(found, wanted):
            kind = wanted if isinstance(wanted, type) else wanted[0]
            raise TypeError(f"a host's {what} is a {kind.__name__} or None, "
                            f"not {type(found).__name__}")
        return found

    def _keep(self, lent: Any) -> Any:
        self._lent[id(lent)] = lent
        return lent

    def _picture(self, _: Any, name: Optional[bytes]) -> Optional[int]:
        return self._address(self._ask("picture", name, Canvas))

    def _face(self, _: Any, name: Optional[bytes]) -> Optional[int]:
        return self._address(self._ask("face", name, Face))

    def _address(self, lent: Any) -> Optional[int]:
        if lent is None or lent.closed:
            return None
        handle = self._keep(lent._handle)
        return ctypes.cast(handle._as_parameter_, ctypes.c_void_p).value

    def _theme(self, _: Any, name: Optional[bytes]) -> Optional[int]:
        theme = self._ask("theme", name, Theme)
        return None if theme is None else ctypes.addressof(self._keep(theme._record))

    def _include(self, _: Any, name: Optional[bytes], length: Any) -> Optional[int]:
        text = self._ask("include", name, (str, bytes))
        if text is None:
            return None
        data = text.encode("utf-8", "surrogatepass") if isinstance(text, str) else text
        self._text = ctypes.create_string_buffer(data, len(data) + 1)  # until the next one
        length[0] = len(data)
        return ctypes.addressof(self._text)
