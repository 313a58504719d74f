"""Finds the three shared libraries and loads them."""

from __future__ import annotations

import ctypes
import ctypes.util
import importlib
import os
import pathlib
import sys
from typing import Dict, Iterator

from ._errors import Error

#: Names a folder with the libraries, that of a build for instance. It goes before all other places.
VARIABLE = "ORVELSDK_LIBRARIES"

_loaded: Dict[str, ctypes.CDLL] = {}


def _file_names(name: str) -> Iterator[str]:
    if sys.platform == "darwin":
        yield f"lib{name}.dylib"
    else:
        yield f"lib{name}.so.0"
        yield f"lib{name}.so"


def _places(name: str) -> Iterator[str]:
    folder = os.environ.get(VARIABLE)
    own = pathlib.Path(__file__).resolve().parent
    for place in ([pathlib.Path(folder)] if folder else [own / "lib", own]):
        for file in _file_names(name):
            if (place / file).is_file():
                yield str(place / file)
    if not folder:
        yield from _file_names(name)  # wherever the system looks
        found = ctypes.util.find_library(name)
        if found:
            yield found


def _in_the_main_interpreter() -> bool:
    """Whether this is no subinterpreter: ctypes answers C's calls back in the main one."""
    for module in ("_interpreters", "_xxsubinterpreters"):  # from 3.13 on, and before
        try:
            interpreters = importlib.import_module(module)
        except ImportError:
            continue
        return bool(interpreters.get_current() == interpreters.get_main())
    return True


def load(name: str) -> ctypes.CDLL:
    """The library ``OrvelSDK``, ``OrvelKit`` or ``OrvelScreen``.

    Looked for in the folder that ORVELSDK_LIBRARIES names and, where it names none, inside this
    package, beside its modules, and where the system has its libraries.

    Calls keep the interpreter's lock: no two of them run at the same time, so that threads may
    share objects, and nothing is freed while a call uses it.
    """
    if not getattr(sys, "_is_gil_enabled", lambda: True)():
        raise ImportError("orvelsdk relies on the interpreter's lock: start it as python -X gil=1")
    if not _in_the_main_interpreter():
        raise ImportError("orvelsdk works in the main interpreter alone")
    if name in _loaded:
        return _loaded[name]
    reasons = []
    for place in _places(name):
        try:
            _loaded[name] = ctypes.PyDLL(place)
            return _loaded[name]
        except OSError as reason:
            reasons.append(str(reason))
    where = os.environ.get(VARIABLE)
    told = "; ".join(reasons) or f"there is no {next(_file_names(name))} in {where}"
    raise Error(f"the library {name} cannot be loaded: {told}")
