#!/usr/bin/env python3
"""The tools' manual pages beside their --help. Arguments: a build folder and the folder of the pages."""
import pathlib
import re
import subprocess
import sys
import unittest

BUILD, PAGES = pathlib.Path(sys.argv.pop(1)), pathlib.Path(sys.argv.pop(1))


def help_of(*command):
    """What a tool says of its options, its arguments and the numbers it ends with."""
    text = subprocess.run([BUILD / command[0], *command[1:], "--help"], text=True, check=True,
                          stdout=subprocess.PIPE).stdout
    return (set(re.findall(r"(?<![\w-])--?[a-z][\w-]*", text)),
            re.findall(r"^  (\S+) TEXT(?: \.\.\.)? REQUIRED", text, re.MULTILINE),
            re.findall(r"\b\d\b", text[text.index("Exit status"):]))


class ToolPages(unittest.TestCase):
    def compare(self, tool, *commands):
        said = [help_of(tool), *[help_of(tool, command) for command in commands]]
        page = (PAGES / f"{tool}.1").read_text(encoding="utf-8")
        before, options = page.split(".Sh DESCRIPTION")
        options, statuses = options.split(".Sh EXIT STATUS")
        expected = set.union(*[one[0] for one in said])
        for part in (before, options):
            self.assertEqual({"-" + flag for flag in re.findall(r"(?:Fl|\|) (-?\w[\w-]*)", part)},
                             expected)
        self.assertEqual(re.findall(r"^\.Ar (\w+)(?: \.\.\.)?$", before, re.MULTILINE),
                         sum([one[1] for one in said], []))
        self.assertEqual(re.findall(r"^\.Cm (\w+)$", before, re.MULTILINE), list(commands))
        self.assertEqual(re.findall(r"^\.It (\d)$", statuses, re.MULTILINE), said[0][2])

    def test_of_bmp2png_tells_what_the_program_takes(self):
        self.compare("orvel-bmp2png")

    def test_of_compare_tells_what_the_program_takes(self):
        self.compare("orvel-compare")

    def test_of_render_tells_what_the_program_takes(self):
        self.compare("orvel-render")

    def test_of_theme_tells_what_the_program_takes(self):
        self.compare("orvel-theme", "check", "path")

    def test_of_view_tells_what_the_program_takes(self):
        if not (BUILD / "orvel-view").exists():
            self.skipTest("orvel-view needs SDL2")
        self.compare("orvel-view")


if __name__ == "__main__":
    unittest.main()
