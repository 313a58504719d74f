"""OrvelSDK: screens drawn in memory, the same bytes on every machine.

    >>> from orvelsdk import Canvas
    >>> canvas = Canvas(240, 144, "#161b33")
    >>> canvas.text("Hello", 18, 36, face="bold 24", color="#ffd166")
    86
    >>> canvas.save("hello.png")

Errors are exceptions: Error with the library's reason, TypeError and ValueError for arguments that
no call could take, MemoryError (OutOfMemory) where the memory is too small. Nothing ends the
interpreter.

Calls keep the interpreter's lock, so that threads may share any object; two threads that draw on
one canvas draw in turns, call by call. Processes draw at the same time.
"""

from ._api import kit_version as _kit_version
from ._arguments import Box
from ._canvas import Canvas
from ._colors import Color, Theme
from ._errors import Closed, Error, OutOfMemory
from ._faces import FACES, Face
from ._formats import DITHERS, FORMATS
from ._icons import ICONS
from ._resources import (play_music, play_sound, play_tone, set_resource_path, stop_music)
from ._hosts import Host
from ._input import Change
from ._screens import Screen
from ._widgets import CHARTS, KINDS, Chart, Series, Widget

__version__ = (_kit_version() or b"").decode()

__all__ = ["Box", "CHARTS", "Canvas", "Change", "Chart", "Closed", "Color", "DITHERS", "Error",
           "FACES", "FORMATS", "Face", "Host", "ICONS", "KINDS", "OutOfMemory", "Screen", "Series",
           "Theme", "Widget", "play_music", "play_sound", "play_tone", "set_resource_path",
           "stop_music"]
