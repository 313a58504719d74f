"""Every function of the description, by its low-level name: good arguments, null, and extremes."""

import json
import re

from conftest import SOURCES

DESCRIPTION = json.loads((SOURCES / "bindings/orvel_api.json").read_text())
FUNCTIONS = [function for library in DESCRIPTION["libraries"] for function in library["functions"]]

# In a process of its own: what goes wrong in C would end this one.
PROGRAM = r"""
import ctypes, json, resource, sys
from orvelsdk import _api

resource.setrlimit(resource.RLIMIT_AS, (1 << 30, resource.RLIM_INFINITY))

NUMBERS = {"int": (-2**31, -1, 0, 1, 7, 2**31 - 1), "unsigned": (0, 1, 2**32 - 1),
           "double": (0.0, -1.0, 0.5, float("nan"), float("inf"), -1e308), "size": (0, 1),
           "enum": (-2**31, -1, 0, 2**31 - 1)}
TEXTS = (b"", b"a", b"\xff\xfe", b"x" * 1000)
# What says how much memory is given: more than there is would be the caller's lie.
ROOM = {"count", "size", "length", "stride", "duration_ms"}

theme = _api.orvel_theme()
_api.orvel_theme_default(theme)
scene = b'{"orvel": 1, "size": [20, 20], "root": {"row": [], "id": "root"}}'
objects = {"orvel_canvas": lambda: _api.kit_canvas(20, 20),
           "orvel_widget": lambda: _api.orvel_widget_button(_api.kit_canvas(20, 20), theme, b"a",
                                                            0, 0, 9, 9),
           "kit_face": lambda: _api.kit_face_fallback(_api.kit_sans_12(), _api.kit_bold_12()),
           "kit_screen": lambda: _api.kit_screen_read(scene, len(scene), None, None, None, None, 0)}
simple = {"int": ctypes.c_int, "double": ctypes.c_double}

def usual(argument):
    kind, of = argument["type"], argument.get("of")
    if kind == "object":
        return objects[of]()
    if kind == "pointer":
        return theme if of == "orvel_theme" else ctypes.pointer((simple.get(of) or getattr(_api, of))())
    if kind == "record":
        return getattr(_api, of)()
    return {"text": b"a", "double": 1.0, "size": 64}.get(
        kind, ctypes.create_string_buffer(64) if kind in ("buffer", "bytes", "memory") else 1)

def may_be_null(argument):
    return argument["type"] in ("object", "pointer", "text", "buffer", "bytes", "memory")

calls = 0
def call(name, arguments):
    global calls
    getattr(_api, name)(*arguments)
    calls += 1

for function in json.loads(sys.argv[1]):
    name, arguments = function["name"], function["arguments"]
    if "guarded" in function:  # it may raise; its guarded form is in the list
        continue
    if not any(argument["type"] == "pointer" and argument["of"] == "text" for argument in arguments):
        call(name, [usual(argument) for argument in arguments])
    call(name, [None if may_be_null(argument) else usual(argument) for argument in arguments])
    for place, argument in enumerate(arguments):
        values = [None] if may_be_null(argument) else list(NUMBERS.get(argument["type"], ()))
        if argument["type"] == "text":
            values += TEXTS
        if argument["name"] in ROOM:
            values = [value for value in values if value is None or value <= 1]
        for value in values:
            call(name, [value if at == place else usual(each) for at, each in enumerate(arguments)])
print(calls)
"""


def test_every_function_takes_good_arguments_null_and_extremes(run, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    calls = int(run(PROGRAM, json.dumps(FUNCTIONS), ORVELSDK_PATH=str(tmp_path)))
    assert len(FUNCTIONS) > 130 and calls > 1000


def test_the_low_level_has_what_the_description_has():
    from orvelsdk import _api

    for function in FUNCTIONS:
        found = getattr(_api, function["name"])
        assert len(found.argtypes) == len(function["arguments"]), function["name"]
        assert (found.restype is None) == (function["returns"]["type"] == "void"), function["name"]


def test_what_callers_choose_from_by_name_is_what_the_description_has():
    import orvelsdk

    def values_of(name, prefix):
        enum = next(enum for library in DESCRIPTION["libraries"] for enum in library["enums"]
                    if enum["name"] == name)
        return {each["name"][len(prefix):].lower(): each["value"] for each in enum["values"]}

    assert orvelsdk.KINDS == values_of("orvel_widget_kind", "ORVEL_WIDGET_")
    assert orvelsdk.CHARTS == values_of("kit_chart_kind", "KIT_CHART_")
    assert orvelsdk.FORMATS == values_of("kit_layout", "KIT_")
    assert orvelsdk.DITHERS == values_of("kit_dither", "KIT_DITHER_")
    assert orvelsdk.FACES == tuple(
        function["name"][len("kit_"):].replace("_", " ") for function in FUNCTIONS
        if function["returns"].get("of") == "kit_face" and not function["arguments"])


def test_nothing_is_called_that_may_raise_in_c():
    raising = {function["name"] for function in FUNCTIONS if function["raises"]}
    assert len(raising) > 20
    for module in (SOURCES / "bindings/python/orvelsdk").glob("*.py"):
        if module.name != "_api.py":
            assert not raising & set(re.findall(r"_api\.(\w+)", module.read_text())), module.name
