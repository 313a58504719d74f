#!/usr/bin/env python3
"""usage: describe_test.py SOURCES

That what scripts/describe writes is up to date, and that it guesses nothing: where a comment does
not say what a binding has to know, or says what cannot be, it stops and tells where."""
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCES = pathlib.Path(sys.argv.pop(1))
sys.dont_write_bytecode = True
sys.path.insert(0, str(SOURCES / "bindings/describe"))
import description  # noqa: E402
import facts  # noqa: E402
HEADERS = ("include/orvel.h", "kit/include/orvel_kit.h", "kit/include/orvel_screen.h")
# A header, what is replaced in it and by what, and the end of what is then said.
WRONG = (
    ("orvel.h", "- canvas, theme, widget: borrowed; null is refused.", "",
     "orvel_canvas_destroy: canvas: nothing is said of its null (orvel_canvas*)"),
    ("orvel.h", "- path, name: borrowed; null is refused.", "- path, name: borrowed.",
     "orvel_set_resource_path: path: nothing is said of its null (const char*)"),
    ("orvel.h", "- amount, count: a number.", "- count: a number.",
     "orvel_widget_set_amount: amount: nothing is said of its unit (int)"),
    ("orvel.h", "- result: the caller's, for orvel_widget_destroy(), or null.", "",
     "orvel_widget_window: result: nothing is said of its ownership (orvel_widget*)"),
    ("orvel.h", "for orvel_widget_destroy(), or null.", "for orvel_widget_destroy().",
     "orvel_widget_window: result: nothing is said of its null (orvel_widget*)"),
    ("orvel.h", "- values: borrowed, @p count of them; null is refused.",
     "- values: borrowed, @p amount of them; null is refused.",
     "orvel_widget_set_data: values: there is no argument amount"),
    ("orvel.h", "- values: borrowed, @p count of them; null is refused.",
     "- values: written, @p count of them; null is refused.",
     "orvel_widget_set_data: values: written, but it is a const double*"),
    ("orvel.h", "@p value is a\n * number of any size.", "It counts.",
     "orvel_widget_stepper: value: a fraction, but it is an int"),
    ("orvel.h", "@param count  written", "@param counted  written",
     "orvel_icon_list: it has no argument counted"),
    ("orvel.h", " Shown by button, slider, textbox.", "",
     "orvel_widget_set_hover: nothing is said of the kinds that show it"),
    ("orvel.h", "Shown by button,", "Shown by buton,",
     "orvel_widget_set_hover: shown by ORVEL_WIDGET_BUTON, which is no kind"),
    ("orvel.h", "- on: 0 or 1.", "- off: 0 or 1.",
     "orvel_widget_set_hover: on: nothing is said of its unit (int)"),
    ("orvel.h", "- text: borrowed;", "- text, words: borrowed;",
     "a rule for words, which nothing is called"),
    ("orvel_kit.h", ", @p size of its bytes; may be null, which gets none", "; may be null",
     "why: nothing is said of its length (char*)"),
    ("orvel_kit.h", "/**< a kit_layout */", "/**< a layout */",
     "kit_format: layout: nothing is said of its unit (int)"),
    ("orvel_kit.h", "/**< a kit_layout */", "/**< a kit_lay */",
     "kit_format: kit_lay is no enumeration"),
    ("orvel_kit.h", "orvel_theme_save(), guarded", "orvel_theme_keep(), guarded",
     "kit_theme_save: there is no orvel_theme_keep"),
    ("orvel_kit.h", "@p count of them; NaN", "@p many of them; NaN",
     "kit_series: values: there is no field many"),
    ("orvel_screen.h", "- result: 0; -1 with the reason.", "",
     "kit_screen_resize: result: nothing is said of its unit (int)"),
    ("orvel_screen.h", "- length: written, in bytes; never null.", "",
     "kit_screen_host: include: length: nothing is said of its ownership (size_t*)"),
    ("orvel_screen.h", "typedef struct kit_screen kit_screen;", "typedef struct kit_screen other;",
     "must use 'struct' tag"),
)
DRIFT = "describe: bindings/orvel_api.json is not what the headers say; run scripts/describe\n"


class Tree:
    """A copy of what the generator reads, and the generator."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        for name in HEADERS:
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCES / name, self.folder / name)
        shutil.copytree(SOURCES / "bindings", self.folder / "bindings",
                        ignore=shutil.ignore_patterns("__pycache__"))
        (self.folder / "scripts").mkdir()
        shutil.copy(SOURCES / "scripts/describe", self.folder / "scripts")

    def replace(self, header, old, new):
        path = next(self.folder / name for name in HEADERS if name.endswith(f"/{header}"))
        text = path.read_text(encoding="utf-8")
        if text.count(old) < 1:
            raise AssertionError(f"{header} has no {old!r}")
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def describe(self, *arguments):
        done = subprocess.run([self.folder / "scripts/describe", *arguments], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        return done.returncode, done.stdout

    def files(self):
        return {path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}

    def description(self):
        return json.loads((self.folder / "bindings/orvel_api.json").read_text(encoding="utf-8"))


class Describe(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, folder)
        self.tree = Tree(folder)

    def test_what_is_checked_in_is_what_it_writes(self):
        self.assertEqual(self.tree.describe("--check"), (0, ""))
        before = self.tree.files()
        self.assertEqual(self.tree.describe(), (0, ""))
        self.assertEqual(before, self.tree.files())

    def test_drift_fails_and_says_what_to_run(self):
        self.tree.replace("orvel.h", "Sets every pixel to", "Gives every pixel")
        self.assertEqual(self.tree.describe("--check"), (1, DRIFT))
        self.assertEqual(self.tree.describe(), (0, ""))
        self.assertEqual(self.tree.describe("--check"), (0, ""))
        path = self.tree.folder / "bindings/python/orvelsdk/_api.py"
        path.write_text(path.read_text(encoding="utf-8") + "\n", encoding="utf-8")
        status, said = self.tree.describe("--check")
        self.assertEqual((status, "_api.py is not" in said), (1, True))

    def test_nothing_is_guessed(self):
        for header, old, new, expected in WRONG:
            with self.subTest(old=old):
                tree = Tree(tempfile.mkdtemp(dir=self.tree.folder))
                tree.replace(header, old, new)
                with self.assertRaises(facts.Problem) as raised:
                    description.description(tree.folder)
                self.assertRegex(str(raised.exception), rf"\A[\w./]+:.*{re.escape(expected)}")

    def test_what_is_missing_is_said_in_one_line(self):
        self.tree.replace("orvel.h", "- on: 0 or 1.", "")
        status, said = self.tree.describe()
        self.assertEqual(status, 1)
        self.assertRegex(said, r"\Adescribe: orvel.h: orvel_\w+: on: nothing is said of .*\n\Z")

    def test_a_new_function_is_described(self):
        self.tree.replace("orvel_kit.h", "/* ---- Widgets ---- */", (
            "/** Counts words.\n *  @param most  a number; may be anything.\n"
            " *  @return the number of words. */\n"
            "ORVEL_API int kit_words(const char* text, int most);\n\n/* ---- Widgets ---- */"))
        self.assertEqual(self.tree.describe(), (0, ""))
        kit = self.tree.description()["libraries"][1]
        found = next(each for each in kit["functions"] if each["name"] == "kit_words")
        self.assertEqual(found, {
            "name": "kit_words", "comment": "Counts words.", "section": "Words", "raises": [],
            "arguments": [
                {"name": "text", "c": "const char*", "type": "text", "ownership": "borrowed",
                 "null": True},
                {"name": "most", "c": "int", "type": "int", "unit": "number",
                 "comment": "a number; may be anything."}],
            "returns": {"c": "int", "type": "int", "unit": "number",
                        "comment": "the number of words."}})
        low = (self.tree.folder / "bindings/python/orvelsdk/_api.py").read_text(encoding="utf-8")
        self.assertRegex(low, r'kit_words = .*\n.*"kit_words", c_int, \[c_char_p, c_int\],\n')

    def test_every_argument_and_result_that_needs_it_is_told(self):
        for library in self.tree.description()["libraries"]:
            for each in library["functions"]:
                for thing in (*each["arguments"], each["returns"]):
                    if thing["c"].endswith("*"):
                        self.assertLessEqual({"ownership", "null"}, set(thing), each["name"])
                    elif re.fullmatch(r"int|unsigned|size_t|long long|double", thing["c"]):
                        self.assertIn("unit", thing, each["name"])


if __name__ == "__main__":
    unittest.main()
