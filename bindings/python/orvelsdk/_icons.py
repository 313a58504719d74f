"""The names of the built-in icons."""

from __future__ import annotations

import ctypes
from typing import Tuple

from . import _api


def _names() -> Tuple[str, ...]:
    count = ctypes.c_int()
    table = _api.orvel_icon_list(ctypes.byref(count))
    return tuple(table[i].decode() for i in range(count.value))


#: The built-in icons, in their fixed order.
ICONS = _names()
