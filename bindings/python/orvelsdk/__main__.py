"""python -m orvelsdk: draws a scene to a file, as orvel-render does."""

from __future__ import annotations

import argparse
import json
import os
import sys
import time
from typing import Any, List, NoReturn, Optional, Tuple

from . import _png, __version__
from ._canvas import Canvas
from ._errors import Error, OutOfMemory
from ._files import encoded, read_picture, write_bytes
from ._folder import MOST_PIXELS, SceneFolder, read_text
from ._panels import PANELS, Outlet, changed, panel_bytes, panel_picture, scaled
from ._png import MOST_PIXELS as MOST_WRITTEN
from ._screens import Screen, as_json

_FORMATS = ("png", "bmp", "ppm", "pbm", "raw")
_NOTHING = b'{"orvel": 1, "size": [1, 1], "root": {"column": []}}'


class Failure(Exception):
    """What ends the program, in one line."""


def _fail(message: str) -> None:
    print(f"orvelsdk: {message}", file=sys.stderr)


class _Parser(argparse.ArgumentParser):
    def error(self, message: str) -> NoReturn:
        _fail(f"{message} (python -m orvelsdk --help tells more)")
        sys.exit(2)


def _parser() -> _Parser:
    parser = _Parser(prog="python -m orvelsdk", allow_abbrev=False,
                     description="Draws a scene, a screen described in a JSON file, with the "
                                 "values given.",
                     epilog="Exit status: 0 when all is well, 1 when --check found something, 2 on "
                            "an error.")
    add = parser.add_argument
    add("scene", nargs="?", metavar="SCENE", help="the scene file; - is the standard input")
    add("--data", action="append", default=[], metavar="FILE",
        help="a JSON file of the values to show; - as above")
    add("--set", action="append", default=[], dest="values", metavar="NAME=VALUE",
        help="one value more")
    add("--sample", action="store_true", help="show the scene's own sample values")
    add("-o", "--output", default="", metavar="FILE",
        help="the picture: .png, .bmp, .ppm, .pbm or .raw; - is the standard output")
    add("--format", choices=_FORMATS, help="what to write, whatever the file is called")
    add("--size", metavar="WIDTHxHEIGHT", help="another size than the scene's")
    add("--theme", metavar="FILE", help="dark, light or a theme file")
    add("--scale", type=int, choices=range(1, 17), default=1, metavar="1-16",
        help="make every pixel a square of this side")
    add("--panel", choices=[name for name in PANELS if name], help="the panel that shows it")
    add("--dither", choices=("none", "ordered", "diffused"), default="none",
        help="how to approximate colours that the panel lacks")
    add("--rotate", type=int, choices=(0, 90, 180, 270), default=0, help="degrees clockwise")
    add("--changed-from", dest="previous", metavar="FILE",
        help="print X Y WIDTH HEIGHT of what differs from this earlier PNG or BMP")
    add("--describe", action="store_true", help="print what the screen shows, line by line")
    add("--check", action="store_true", help="print what is cut, lost, faint or too small")
    add("--watch", action="store_true", help="draw again whenever a file of it changes")
    add("--version", action="version", version=__version__)
    return parser


def _parsed(words: Optional[List[str]]) -> argparse.Namespace:
    parser = _parser()
    wishes, strangers = parser.parse_known_args(words)
    for word in strangers:
        if word.startswith("-") and len(word) > 1:
            parser.error(f"unknown option {word}")
    if strangers:
        parser.error(f"too many arguments: {' '.join(strangers)}")
    if wishes.scene is None:
        parser.error("SCENE is required")
    return wishes


def _sides(text: str) -> Tuple[int, int]:
    width, _, height = text.partition("x")
    digits = all(side.isascii() and side.isdigit() and len(side) <= 5 for side in (width, height))
    if not digits or int(width) < 1 or int(height) < 1:
        raise Failure(f"--size {text}: expected WIDTHxHEIGHT, 800x480 for instance")
    return int(width), int(height)


def _same_file(one: str, other: str) -> bool:
    try:
        return "-" not in (one, other) and os.path.samefile(one, other)
    except OSError:
        return False


def _settle(wishes: argparse.Namespace) -> None:
    """Fills in what follows from the options; what does not go together is a Failure."""
    wishes.size = None if wishes.size is None else _sides(wishes.size)
    told = wishes.describe or wishes.check
    if not wishes.output and not told:
        raise Failure("nothing to do without -o, --describe or --check")
    if wishes.check and (wishes.output or wishes.watch):
        raise Failure("--check draws nothing")
    if len(wishes.data) > 1 and not wishes.check:
        raise Failure("several --data go with --check only")
    if wishes.data and wishes.sample:
        raise Failure("--data and --sample exclude each other")
    dashes = wishes.data.count("-") + (wishes.scene == "-")
    if dashes > 1:
        raise Failure("the standard input can be read once only")
    if dashes and wishes.watch:
        raise Failure("--watch reads again, which the standard input cannot")
    if wishes.format is None:
        wishes.format = os.path.splitext(wishes.output)[1][1:] or "png"
    if wishes.format not in _FORMATS:
        raise Failure(f"{wishes.output}: not .png, .bmp, .ppm, .pbm or .raw; --format says which")
    if wishes.format == "pbm" and wishes.panel is None:
        wishes.panel = "mono"
    if wishes.format == "pbm" and wishes.panel != "mono":
        raise Failure("a .pbm is for --panel mono only")
    if wishes.format == "raw" and wishes.scale > 1:
        raise Failure("--scale is not for raw bytes")
    if wishes.output == "-" and (told or wishes.previous is not None):
        raise Failure("the standard output cannot take a picture and lines of text")
    if not wishes.output and wishes.previous is not None:
        raise Failure("--changed-from goes with -o only")
    if wishes.dither != "none" and wishes.panel is None:
        raise Failure("--dither goes with --panel only")
    for file in (*wishes.data, wishes.scene, wishes.theme):
        if file and _same_file(file, wishes.output):
            raise Failure(f"{wishes.output}: would be written over {file}")
    wishes.outlet = Outlet(PANELS[wishes.panel or ""], wishes.dither, wishes.rotate // 90)


def _text_of(path: str) -> bytes:
    return sys.stdin.buffer.read() if path == "-" else read_text(path)


def _set(screen: Screen, pair: str) -> None:
    """NAME=VALUE, where a value that is no JSON is a text, unless it begins as lists do."""
    name, equals, value = pair.partition("=")
    if not equals or not name:
        raise Failure(f"--set {pair}: expected NAME=VALUE")
    raw = os.fsencode(value)
    try:
        screen._set_json(os.fsencode(name), raw)
    except Error as first:
        if value[:1] in ("[", "{", '"'):
            raise Failure(f"--set {pair}: {first}") from None
        try:
            screen._set_json(os.fsencode(name), json.dumps(value, ensure_ascii=False).encode(
                "utf-8", "surrogateescape"))
        except Error as reason:
            raise Failure(f"--set {pair}: {reason}") from None


def _about_data(path: Optional[str], reason: str) -> str:
    """A reason that calls the data by the name of their file."""
    if not path or not reason.startswith("data:"):
        return reason
    return ("standard input" if path == "-" else path) + reason[len("data"):]


def _data_of(wishes: argparse.Namespace, path: Optional[str]) -> bytes:
    text = _text_of(path) if path else b"{}"
    if not wishes.values:
        return text
    values = _opened(_NOTHING, text, "values", SceneFolder(""))
    for pair in wishes.values:
        _set(values, pair)
    return as_json(values.data)


def _opened(text: bytes, data: Optional[bytes], name: str, folder: SceneFolder) -> Screen:
    screen = Screen.__new__(Screen)
    screen._read(text, data, name, folder)
    return screen


def _screen(wishes: argparse.Namespace, path: Optional[str]) -> Tuple[Screen, SceneFolder]:
    folder = SceneFolder(wishes.scene)
    name = "standard input" if wishes.scene == "-" else wishes.scene
    text = _text_of(wishes.scene)
    try:
        data = None if wishes.sample else _data_of(wishes, path)
        screen = _opened(text, data, name, folder)
    except OutOfMemory:
        raise
    except Error as error:
        reason = _about_data(path, folder.explained(str(error)))
        none = not wishes.sample and not path and not wishes.values
        if none and " in the data" in reason:
            reason += " (--sample shows the scene's own)"
        raise Failure(reason) from None
    for pair in wishes.values if wishes.sample else ():
        _set(screen, pair)
    if wishes.theme is not None:
        if wishes.theme not in ("dark", "light"):
            folder.add_theme(wishes.theme)
        screen.change(None, "theme", wishes.theme)
    if wishes.size is not None:
        try:
            screen.resize(*wishes.size)
        except Error as reason:
            raise Failure("--size {}x{}: {}".format(*wishes.size, reason)) from None
    return screen, folder


def _drawn(screen: Screen) -> Canvas:
    width, height = screen.size
    if width * height > MOST_PIXELS:
        raise Failure(f"a screen of {width} x {height} pixels is too large: 16 million are the "
                      "most")
    return screen.render()


def _write(wishes: argparse.Namespace, canvas: Canvas) -> None:
    picture = panel_picture(canvas, wishes.outlet)
    if picture.width * picture.height > MOST_WRITTEN // wishes.scale ** 2:
        raise Failure(f"{wishes.output}: more than 64 million pixels")
    if wishes.scale > 1:
        picture = scaled(picture, wishes.scale)
    if wishes.previous is not None:
        before = _png.Pixels(0, 0, b"")
        if os.path.exists(wishes.previous):
            before = read_picture(wishes.previous)
        print(*changed(before, picture, wishes.outlet.panel))
    raw = wishes.format == "raw"
    write_bytes(wishes.output, panel_bytes(canvas, wishes.outlet) if raw
                else encoded(picture, wishes.format))


def _render(wishes: argparse.Namespace, screen: Screen, folder: SceneFolder) -> int:
    if wishes.describe:
        sys.stdout.write(screen.describe())
    if wishes.output:
        _write(wishes, _drawn(screen))
        for line in screen.report():
            # Drawn without it. Within a text of the scene, the quote would have a backslash.
            if ': unknown: there is no "' in line:
                _fail(folder.explained(line.replace(": unknown: ", ": ", 1)))
    return 0


def _check(wishes: argparse.Namespace) -> int:
    status = 0
    for path in wishes.data or [None]:
        panel = wishes.outlet.panel
        found = _screen(wishes, path)[0].report(panel.format, dither=wishes.dither,
                                                palette=panel.palette)
        if found:
            status = 1
            if len(wishes.data) > 1:
                print(f"with {path}:")
            print("\n".join(found))
    return status


def _traces(files: List[str]) -> List[Any]:
    """When the files were last written, and how large they are."""
    found: List[Any] = []
    for file in files:
        try:
            about = os.stat(file)
            found.append((file, about.st_mtime_ns, about.st_size))
        except OSError:
            found.append((file, None))
    return found


def _files_of(wishes: argparse.Namespace, path: Optional[str]) -> List[str]:
    """Everything that the scene is made of."""
    known = [wishes.scene] + [file for file in (path, wishes.theme) if file]
    try:
        return known + _screen(wishes, path)[1].files
    except (Failure, Error, OSError):
        return known


def _watch(wishes: argparse.Namespace, path: Optional[str]) -> NoReturn:
    while True:
        files = _files_of(wishes, path)
        before = _traces(files)  # looked at first: what is written meanwhile is drawn next
        try:
            _render(wishes, *_screen(wishes, path))
        except (Failure, Error, OSError) as reason:
            _fail(_one_line(reason))
        sys.stdout.flush()
        while _traces(files) == before:
            time.sleep(0.1)


def _one_line(reason: BaseException) -> str:
    if isinstance(reason, OSError) and reason.strerror:
        name = reason.filename if isinstance(reason.filename, str) else "standard output"
        return f"{name}: {reason.strerror}"
    return str(reason)


def main(words: Optional[List[str]] = None) -> int:
    """Runs the program; returns the status to end with."""
    wishes = _parsed(words)
    try:
        _settle(wishes)
        if wishes.check:
            return _check(wishes)
        path = wishes.data[0] if wishes.data else None
        if wishes.watch:
            _watch(wishes, path)
        return _render(wishes, *_screen(wishes, path))
    except MemoryError:
        _fail("the memory is too small")
    except KeyboardInterrupt:
        return 130
    except (Failure, Error, OSError) as reason:
        _fail(_one_line(reason))
    return 2


if __name__ == "__main__":
    sys.exit(main())
