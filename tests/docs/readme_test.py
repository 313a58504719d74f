#!/usr/bin/env python3
"""usage: readme_test.py SOURCES

README.md is short, hides nothing, and shows the files of examples/ as they are."""
import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
SOURCES = pathlib.Path(sys.argv.pop(1))
sys.path.insert(0, str(SOURCES / "docs"))
import blocks  # noqa: E402  (found by the line above)


class Readme(unittest.TestCase):
    def test_is_short_and_hides_nothing(self):
        text = (SOURCES / "README.md").read_text(encoding="utf-8")
        self.assertLessEqual(text.count("\n"), 150)
        self.assertNotIn("<!--", text)

    def test_shows_the_examples_as_they_are(self):
        shown = {block.name: block.text for block in blocks.blocks_of(SOURCES / "README.md") if block.name}
        self.assertEqual(sorted(shown), ["kitchen.c", "kitchen.json", "kitchen.py"])
        for name, text in shown.items():
            self.assertEqual(text, (SOURCES / "examples" / name).read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
