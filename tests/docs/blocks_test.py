#!/usr/bin/env python3
"""docs/blocks.py: what it runs, and that nothing gets past it. The first argument is the folder docs."""
import os
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, sys.argv.pop(1))
import blocks  # noqa: E402  (found by the line above)

TABLE = "| Page | Command | Why not |\n|---|---|---|\n"


class Blocks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.sources = pathlib.Path(folder.name).resolve() / "the sources"
        self.work = self.sources / "build/work"
        (self.sources / "docs/pages").mkdir(parents=True)
        (self.sources / "build/lib/pkgconfig").mkdir(parents=True)
        (self.sources / ".gitignore").write_text("/build/\n")
        (self.sources / "docs/not-run.md").write_text(TABLE)

    def run_page(self, text, name="docs/pages/page.md"):
        page = self.sources / name
        page.write_text(text, encoding="utf-8")
        blocks.run(page, self.sources, self.sources / "build", self.work)

    def refused(self, text, why, name="docs/pages/page.md"):
        with self.assertRaisesRegex(blocks.Failure, why):
            self.run_page(text, name)

    def test_a_named_block_is_a_file_and_commands_print_what_follows(self):
        self.run_page("```c here/a.c\nint a;\n```\n\n```sh\ncat here/a.c\n```\n\n```text\nint a;\n```\n")

    def test_other_output_is_refused(self):
        self.refused("```sh\necho one\n```\n```text\ntwo\n```\n", "page.md:4: not what is printed")

    def test_output_without_commands_is_refused(self):
        self.refused("```text\ntwo\n```\n", "page.md:1: output without commands")

    def test_the_first_command_that_fails_is_told(self):
        self.refused("```sh\nfalse | true\ntrue\n```\n", "page.md:1: status 1")

    def test_a_block_that_is_no_file_and_not_run_is_refused(self):
        self.refused("```c\nint a;\n```\n", "page.md:1: a block that is neither")
        self.refused("```\nls\n```\n", "page.md:1: a block that is neither")

    def test_a_fence_of_another_shape_is_refused(self):
        for fence in ("   ```sh", "~~~sh", "````sh", "``` {.sh}"):
            self.refused(f"{fence}\nls\n", "page.md:1: cannot read this fence")

    def test_a_block_without_an_end_is_refused(self):
        self.refused("```sh\nls\n", "page.md:1: this block has no end")

    def test_blocks_in_comments_run(self):
        self.refused("<!--\n```sh\nexit 3\n```\n-->\n", "page.md:2: status 3")

    def test_a_page_of_the_manual_finds_the_sources_beside_it(self):
        self.run_page("```sh\ntest -f orvelsdk/.gitignore\n```\n")

    def test_a_page_at_the_top_is_in_a_copy_of_the_sources_without_builds(self):
        self.run_page("```sh\ntest -f .gitignore\ntest ! -e build\necho >mine\n```\n", "README.md")
        self.assertFalse((self.sources / "mine").exists())

    def test_a_listed_command_is_not_run_whatever_is_said_beside_it(self):
        (self.sources / "docs/not-run.md").write_text(TABLE + "| README.md | `exit 3` | it fails |\n")
        self.run_page("```sh\nexit 3   # because\necho done\n```\n```text\ndone\n```\n", "README.md")

    def test_a_command_is_listed_for_one_page(self):
        (self.sources / "README.md").touch()
        (self.sources / "docs/not-run.md").write_text(TABLE + "| README.md | `exit 3` | it fails |\n")
        self.refused("```sh\nexit 3\n```\n", "page.md:1: status 3")

    def test_a_listed_command_that_is_on_no_page_is_refused(self):
        (self.sources / "docs/not-run.md").write_text(TABLE + "| README.md | `exit 3` | it fails |\n")
        self.refused("```sh\nexit\n```\n", "not on README.md: exit 3", "README.md")

    def test_a_listed_command_needs_a_page_and_a_reason(self):
        for row in ("| README.md | `exit 3` |  |", "| NONE.md | `exit 3` | it fails |"):
            (self.sources / "docs/not-run.md").write_text(f"{TABLE}{row}\n")
            self.refused("", "not-run.md: a row that is not", "README.md")

    def test_root_installs_nothing_for_good(self):
        self.refused("```sh\nsudo rm -r /nonexistent\n```\n", "no other use for it: rm -r /nonexistent")

    def on_a_mac(self, text):
        """What is printed where bash, as macOS starts it, loses DYLD_LIBRARY_PATH."""
        tools = self.sources / "mac"
        tools.mkdir()
        (tools / "sandbox-exec").write_text(
            '#!/bin/sh\n[ "$1" = -p ] || exit 9\nprofile=$2\nshift 2\n'
            'unset DYLD_LIBRARY_PATH\nPROFILE=$profile exec "$@"\n')
        (tools / "sandbox-exec").chmod(0o755)
        variables = os.environ | {"PATH": f"{tools}:{os.environ['PATH']}",
                                  "LD_LIBRARY_PATH": "/a folder/lib", "DYLD_LIBRARY_PATH": "/lost"}
        return blocks.run_commands(text, "page.md:1", self.sources, variables, "darwin")

    def test_on_a_mac_programs_find_the_library_although_bash_does_not_hand_its_path_on(self):
        printed = self.on_a_mac("bash -c 'echo $DYLD_LIBRARY_PATH'\n")
        self.assertEqual(printed, "/a folder/lib\n")

    def test_on_a_mac_no_player_is_heard(self):
        self.assertIn('(deny process-exec (literal "/usr/bin/afplay"))',
                      self.on_a_mac('echo "$PROFILE"\n'))


if __name__ == "__main__":
    unittest.main()
