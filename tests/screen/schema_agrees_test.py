#!/usr/bin/env python3
"""The schema and the reader have the same opinion of scenes.

Arguments: orvel-render, the schema, the folder of the scenes that are delivered.
"""
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

import jsonschema

RENDER, SCHEMA = sys.argv.pop(1), json.loads(pathlib.Path(sys.argv.pop(1)).read_text("utf-8"))
SCENES = pathlib.Path(sys.argv.pop(1))
VALIDATOR = jsonschema.Draft7Validator(SCHEMA)

SAMPLE = {"n": 5, "t": "word", "b": True, "list": [1, 2], "hex": "#102030"}

GOOD = [
    {"row": []}, {"column": [{"text": "a"}, {"text": 5}]}, {"stack": [], "show": -1},
    {"space": None}, {"space": 8, "grow": 2}, {"text": "${n:1|x} $${", "wrap": True, "lines": 2},
    {"text": "a", "align": "right", "face": "bold 12", "color": "quiet"}, {"picture": "none.png"},
    {"icon": "home", "size": 24, "color": "#A0b0C0"}, {"line": "border"}, {"rect": "accent"},
    {"circle": "error", "size": 9}, {"chart": "line", "values": [1, None, -2.5]},
    {"chart": "bars", "series": [{"values": "${list}", "name": "a", "color": "accent"}]},
    {"chart": "gauge", "values": ["${n}"], "range": [0, 10], "unit": " kW", "decimals": 1},
    {"button": "Go", "icon": "star", "on": True}, {"list_item": "a", "icon": "folder"},
    {"toggle": "${b}"}, {"checkbox": "a", "on": "${b}"}, {"slider": "${n}", "range": [0, 9, 0.5]},
    {"tabs": ["a", 2, "${t}"], "selected": "${n}"}, {"menu": ["${x|a}"]}, {"separator": None},
    {"separator": True}, {"panel": None}, {"panel": {"text": "a"}, "pad": [1, 2, 3, 4]},
    {"window": {"space": 1}, "title": "W"}, {"card": {"row": []}, "align": "end"},
    {"column": [{"each": "list", "as": "i", "text": "${i}"}], "scroll": 4, "gap": [1, 2]},
    {"column": [{"text": "a", "if": "n"}, {"text": "a", "if": "!b"}, {"text": "a", "if": "n<=-2.5e1"},
                {"text": "a", "if": " t == 'it' "}, {"text": "a", "if": "list[0] != null"}]},
    {"row": [], "min": [None, 4], "max": 9, "width": "${n}", "//": {"any": ["thing"]}},
    {"row": [], "theme": {"text": "#000000", "accent": "${hex}"}, "ground": "surface"},
    {"row": [], "theme": "light", "id": "größe-2_a", "name": "a row", "edge": "border"},
    {"textbox": "", "limit": 8, "secret": True}, {"search": "", "limit": "${n}", "secret": "${b}"},
    {"textbox": "", "hint": "Name", "focus": True, "disabled": False, "hover": True},
    {"stepper": 5}, {"badge": "${n}"}, {"rating": 0.5}, {"bars": [0.5, None]}, {"progress": 1},
    {"dropdown": "a", "items": ["a", "b"], "selected": "${n}"}, {"dropdown": "${t}", "items": "${list}"},
    {"radio": "a", "selected": "${t}", "value": 5}, {"list_item": "a", "selected": True, "value": "${b}"},
    {"button": "a", "key": "ctrl+alt+shift+pageup", "tip": "Words", "sound": "click.wav"},
    {"toggle": True, "key": "f12"}, {"slider": 1, "key": "ä", "tip": 5}, {"menu": [], "key": "shift++"},
    {"include": "part.json", "with": {"a": [1]}}, {"column": [{"include": "more/part.json"}]},
]

BAD = [
    {}, [], "row", {"rows": []}, {"row": {}}, {"row": [], "column": []}, {"row": [1]},
    {"row": [{"text": "a", "grwo": 1}]}, {"text": True}, {"text": None}, {"text": "${"}, {"text": "${a b}"},
    {"text": "a", "lines": 0}, {"text": "a", "lines": 1.5}, {"text": "a", "align": "middle"},
    {"text": "a", "color": "#12345"}, {"text": "a", "color": "red"}, {"text": "a", "size": 3},
    {"icon": "none"}, {"icon": 3}, {"rect": None}, {"space": -1}, {"space": 40000}, {"space": "a"},
    {"chart": "pie"}, {"chart": "line", "values": ["a"]}, {"chart": "line", "series": [{}]},
    {"chart": "line", "series": [{"values": [1], "colour": "accent"}]},
    {"chart": "line", "series": [{"values": [1]}], "values": [1]}, {"text": "a", "lines": 2},
    {"chart": "line", "series": [{"values": [1]}], "color": "text"}, {"chart": "line", "decimals": 10},
    {"chart": "line", "series": [{"values": [1]}] * 33}, {"slider": 1, "range": [1]},
    {"slider": 1, "range": [1, 2, 0]}, {"slider": 1, "range": [1, 2, 3, 4]}, {"slider": "a"},
    {"tabs": ["a|b"]}, {"tabs": "a"}, {"tabs": ["a"], "selected": 0.5}, {"separator": False},
    {"panel": []}, {"row": [], "pad": [1, 2, 3]}, {"row": [], "pad": "a"}, {"row": [], "gap": [1]},
    {"row": [], "min": [1, 2, 3]}, {"row": [], "width": -1}, {"row": [], "width": 1.5},
    {"row": [], "theme": {"quiet": "#000000"}}, {"row": [], "theme": {"text": "accent"}},
    {"row": [], "theme": 5}, {"row": [], "id": "a b"}, {"row": [], "id": ""}, {"row": [], "as": "i"},
    {"row": [], "if": "n"}, {"row": [], "each": "list"}, {"row": [{"text": "a", "each": "a..b"}]},
    {"row": [{"text": "a", "if": "n <"}]}, {"row": [{"text": "a", "if": "n < m"}]},
    {"row": [{"text": "a", "if": "!n == 2"}]}, {"row": [{"text": "a", "if": ""}]},
    {"dropdown": "a", "selected": 0}, {"radio": "a", "selected": 0}, {"radio": "a", "value": 0},
    {"radio": "a", "selected": None, "value": 0}, {"radio": "a", "selected": 1, "value": 0, "on": True},
    {"dropdown": "a", "items": ["a|b"]}, {"dropdown": "a", "items": ["a"], "value": 1},
    {"button": "a", "key": "ctrl+S"}, {"button": "a", "key": "shift+ctrl+s"}, {"button": "a", "key": "ctrl+"},
    {"button": "a", "key": "f13"}, {"button": "a", "key": ""}, {"button": "a", "key": " "}, {"button": "a", "key": 5},
    {"button": "a", "key": "enter "}, {"button": "a", "key": "ss"}, {"text": "a", "key": "s"}, {"text": "a", "sound": "s"},
    {"include": "../part.json"}, {"include": "/part.json"}, {"include": "a//b.json"}, {"include": ""},
    {"include": "part.json", "with": []}, {"button": "a", "on": "yes"}, {"button": "a", "hint": "b"}, {"textbox": "", "limit": 0},
    {"textbox": "", "limit": 32768}, {"search": "", "secret": "yes"}, {"text": "", "secret": True},
    {"stack": [], "justify": "between"}, {"row": [], "justify": "stretch"}, {"row": [], "scroll": "a"},
]

HEADS = [
    (True, {"orvel": 1}), (True, {"orvel": 1, "size": [1, 32767], "face": "mono 12"}),
    (True, {"orvel": 1.0, "theme": {"text": "#ffffff"}, "//": 1, "$schema": "x", "sample": {"n": []}}),
    (False, {}), (False, {"orvel": 2}), (False, {"orvel": "1"}), (False, {"orvel": 1, "size": [0, 1]}),
    (False, {"orvel": 1, "size": [1]}), (False, {"orvel": 1, "size": 5}), (False, {"orvel": 1, "colour": 1}),
    (False, {"orvel": 1, "sample": []}), (False, {"orvel": 1, "theme": ["dark"]}),
]

# Values for any key. Names that only data, hosts or folders know are not among them.
POOL = [None, True, False, 0, 1, 24, -3, 2.5, 40000, "", "start", "center", "left", "#102030", "#1020", "accent",
        "home", [], [1, 2], [1, 2, 3], [1, 2, 3, 4], ["a"], [None, 3], {}, {"text": "#000000"}]
LEFT_OUT = {"each", "as", "face", "theme", "include", "with", "//"}


def scene(root, **head):
    return {"orvel": 1, "sample": SAMPLE, **head, "root": root}


class SchemaAgrees(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.path = pathlib.Path(cls.folder.name) / "scene.json"
        (cls.path.parent / "more").mkdir()
        for part in ("part.json", "more/part.json"):
            (cls.path.parent / part).write_text('{"orvel": 1, "root": {"space": 1}}', encoding="utf-8")

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def read(self, document):
        """What the reader says against a scene; empty when it takes it."""
        self.path.write_text(json.dumps(document), encoding="utf-8")
        done = subprocess.run([RENDER, self.path, "--sample", "--describe"], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        self.assertIn(done.returncode, (0, 2), done.stderr)
        return done.stderr

    def compare(self, document, good=None):
        said = self.read(document)
        errors = [error.message for error in VALIDATOR.iter_errors(document)]
        with self.subTest(json.dumps(document)):
            self.assertEqual(said == "", not errors, f"the reader: {said or 'good'}, the schema: {errors[:1]}")
            if good is not None:
                self.assertEqual(said == "", good, said)
        return said == ""

    def test_on_scenes_written_by_hand(self):
        for root in GOOD:
            self.compare(scene(root), True)
        for root in BAD:
            if root not in ({"text": "${"}, {"text": "${a b}"}):  # the schema does not read references
                self.compare(scene(root), False)
        for good, head in HEADS:
            self.compare({"root": {"space": 1}, **head}, good)
        self.compare({"orvel": 1}, False)
        self.compare([], False)

    def test_on_any_value_of_any_key(self):
        draw, taken = random.Random(1), 0
        kinds = [each["$ref"].rpartition("/")[2] for each in SCHEMA["definitions"]["node"]["anyOf"]]
        first = {}
        for kind in kinds:
            schema = {"$ref": f"#/definitions/{kind}", "definitions": SCHEMA["definitions"]}
            fits = [value for value in POOL if jsonschema.Draft7Validator(schema).is_valid({kind: value})]
            if fits and kind != "include":  # of a file that would have to be there
                first[kind] = fits[0]
        cases = [(kind, key, value) for kind in first for value in POOL
                 for key in SCHEMA["definitions"][kind]["properties"] if key not in LEFT_OUT]
        count = min(7 * int(os.environ.get("ORVEL_SWEEP_PERCENT", "100")), len(cases))
        for kind, key, value in draw.sample(cases, count):
            taken += self.compare(scene({"column": [{kind: first[kind], key: value}]}))
        self.assertGreater(taken, count // 7)

    def test_on_the_scenes_that_are_delivered(self):
        scenes = sorted(path for path in SCENES.glob("*/*.json") if path.name != "data.json")
        self.assertGreater(len(scenes), 5)
        for path in scenes:
            self.assertEqual(list(VALIDATOR.iter_errors(json.loads(path.read_text("utf-8")))), [], path)


if __name__ == "__main__":
    unittest.main()
