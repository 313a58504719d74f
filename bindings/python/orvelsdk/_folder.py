"""The files beside a scene."""

from __future__ import annotations

import os
import stat
from typing import Any, Callable, Dict, List, Optional, Union

from . import _api, _bmp, _png
from ._arguments import words
from ._canvas import Canvas
from ._colors import Theme
from ._errors import Error
from ._faces import Face
from ._hosts import Host

MOST_PIXELS = 16 << 20  # of one picture
_MOST_IN_FOLDER = 64 << 20  # of all of them
MOST_TEXT = 16 << 20


def read_text(path: str, shown: Optional[str] = None) -> bytes:
    """The bytes of a text file of up to 16 MiB."""
    with open(path, "rb") as file:
        text = file.read(MOST_TEXT + 1)
    if len(text) > MOST_TEXT:
        raise Error(f"{shown or path}: larger than {MOST_TEXT >> 20} MiB")
    return text


class SceneFolder(Host):
    """Serves PNG and BMP pictures, theme files, BDF fonts and scenes from the folder of a scene.

    Nothing outside the folder is read, by a link neither. ``refused`` says of each name that could
    not be had why, ``files`` what was looked for.
    """

    def __init__(self, scene: str) -> None:
        super().__init__()
        self._written = scene[: scene.rfind("/") + 1]
        self._folder = os.path.realpath(self._written or ".")
        self._found: Dict[str, Any] = {}
        self._pixels = 0
        self.files: List[str] = []
        self.refused: Dict[str, str] = {}

    def picture(self, name: str) -> Optional[Canvas]:
        return self._once("picture", name, self._read_picture)  # type: ignore[no-any-return]

    def theme(self, name: str) -> Optional[Theme]:
        if name in ("dark", "light"):
            return None  # the library's own
        return self._once("theme", name, self._read_theme)  # type: ignore[no-any-return]

    def face(self, name: str) -> Optional[Face]:
        if _api.kit_face_named(words(name)) or "." not in name:  # as the names of files have
            return None
        return self._once("face", name, Face.open)  # type: ignore[no-any-return]

    def include(self, name: str) -> Union[str, bytes, None]:
        # It comes as what the scene is called, up to the last slash, and the name from there.
        if self._written and name.startswith(self._written):
            name = name[len(self._written):]
        return self._once("scene", name, read_text)  # type: ignore[no-any-return]

    def add_theme(self, path: str) -> None:
        """Reads a theme file from anywhere, to be had by its path."""
        self._found["theme " + path] = Theme.read(read_text(path), path)

    def explained(self, reason: str) -> str:
        """A reason, with what is known about the name in it."""
        for name in sorted(self.refused):
            if f'"{name}"' in reason:
                return f"{reason} ({self.refused[name]})"
        return reason

    def _once(self, kind: str, name: str, read: Callable[[str], Any]) -> Any:
        key = f"{kind} {name}"
        if key not in self._found:
            self._found[key] = None
            try:
                self._found[key] = read(self._resolved(name))
            except (Error, OSError, ValueError, MemoryError) as reason:
                self.refused[name] = getattr(reason, "strerror", None) or str(reason)
        return self._found[key]

    def _resolved(self, name: str) -> str:
        parts = name.split("/")
        if not name or name.startswith("/") or ".." in parts:
            raise Error("only files in the scene's folder can be used")
        path = os.path.join(self._folder, name)
        self.files.append(path)
        real = os.path.realpath(path)
        mode = os.stat(path).st_mode
        if os.path.commonpath([self._folder, real]) != self._folder:
            raise Error("leads out of the scene's folder")
        if not stat.S_ISREG(mode):
            raise Error("not a file")
        return real

    def _read_picture(self, path: str) -> Canvas:
        with open(path, "rb") as file:
            data = file.read()
        pixels = (_bmp if data[:2] == b"BM" else _png).decode(data, MOST_PIXELS)
        self._pixels += pixels.width * pixels.height
        if self._pixels > _MOST_IN_FOLDER:
            self._pixels -= pixels.width * pixels.height
            raise Error("more than 64 million pixels together with the scene's other pictures")
        return Canvas.from_pixels(*pixels)

    @staticmethod
    def _read_theme(path: str) -> Theme:
        return Theme.read(read_text(path), os.path.basename(path))
