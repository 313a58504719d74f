#!/usr/bin/env python3
"""What completes the tools' arguments in bash, zsh and fish, tried in these. Argument: a build folder."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

BUILD = pathlib.Path(sys.argv.pop(1))
TOOLS = {"orvel-bmp2png": [], "orvel-compare": [], "orvel-theme": ["check", "path"]}


def run(*command, **options):
    return subprocess.run(command, text=True, check=True, stdout=subprocess.PIPE, **options).stdout


def options_of(*command):
    """The long options that a tool's --help names at the starts of lines."""
    text = run(BUILD / command[0], *command[1:], "--help")
    return set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", text, re.MULTILINE))


class Completions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.files = {}
        for tool in TOOLS:
            for shell in ("bash", "zsh", "fish"):
                file = self.folder / f"{tool}.{shell}"
                file.write_text(run(BUILD / tool, "--completion", shell), encoding="utf-8")
                self.files[tool, shell] = file

    def needs(self, shell):
        if not shutil.which(shell):
            self.skipTest(f"{shell} is not installed; scripts/bootstrap check installs it on Linux")

    def in_bash(self, tool, *words):
        script = ('. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); compopt() { :; }; '
                  f'_{tool.replace("-", "_")} 2>/dev/null; printf "%s\\n" "${{COMPREPLY[@]}}"')
        return set(run("bash", "-c", script, "", self.files[tool, "bash"], tool, *words).split())

    def in_zsh(self, tool, *words):
        """The specifications that zsh's own _arguments would be given."""
        script = ('_arguments() { print -rl -- "$@" }; compdef() { : }; source "$1"; shift; '
                  f'words=("$@"); CURRENT=$#; _{tool.replace("-", "_")}')
        text = run("zsh", "-f", "-c", script, "", self.files[tool, "zsh"], tool, *words)
        return set(re.findall(r"^(--[\w-]+)\[", text, re.MULTILINE)), text

    def in_fish(self, tool, *words):
        line = " ".join([tool, *words])
        script = f'complete -e -c {tool}; source {self.files[tool, "fish"]}; complete -C "{line}"'
        text = run("fish", "--no-config", "-c", script, env={"HOME": str(self.folder), "PATH": "/usr/bin:/bin"},
                   cwd=self.folder)
        return {row.split("\t")[0] for row in text.splitlines()}

    def test_bash_knows_every_option_and_command(self):
        for tool, commands in TOOLS.items():
            self.assertEqual({w for w in self.in_bash(tool, "--") if w.startswith("--")}, options_of(tool))
            self.assertEqual(self.in_bash(tool, ""), set(commands))
            for command in commands:
                self.assertEqual(self.in_bash(tool, command, "--"), options_of(tool, command))
        self.assertEqual(self.in_bash("orvel-compare", "a", "b", "--re"), {"--report"})
        self.assertEqual(self.in_bash("orvel-theme", "--completion", ""), {"bash", "zsh", "fish"})

    def test_zsh_knows_every_option_and_command(self):
        self.needs("zsh")
        for tool, commands in TOOLS.items():
            found, text = self.in_zsh(tool, "")
            self.assertEqual(found, options_of(tool))
            if commands:
                self.assertIn(f"1:command:({' '.join(commands)})", text)
            for command in commands:
                self.assertEqual(self.in_zsh(tool, command, "")[0], options_of(tool, command))

    def test_zsh_finds_the_installed_file(self):
        self.needs("zsh")
        installed = self.folder / "functions"
        installed.mkdir()
        for tool in TOOLS:
            shutil.copy(self.files[tool, "zsh"], installed / f"_{tool}")
            script = ('_arguments() { print -rl -- "$@" }; compdef() { print never }; fpath=("$1"); shift; '
                      f'autoload -Uz _{tool}; words=("$@"); CURRENT=$#; _{tool}')
            text = run("zsh", "-f", "-c", script, "", installed, tool, "")
            self.assertEqual(set(re.findall(r"^(--[\w-]+)\[", text, re.MULTILINE)), options_of(tool))
            self.assertNotIn("never", text)

    def test_fish_knows_every_option_and_command(self):
        self.needs("fish")
        for tool, commands in TOOLS.items():
            self.assertEqual({w for w in self.in_fish(tool, "--") if w.startswith("--")}, options_of(tool))
            for command in commands:
                self.assertIn(command, self.in_fish(tool, ""))
                self.assertEqual({w for w in self.in_fish(tool, command, "--") if w.startswith("--")},
                                 options_of(tool, command))
        self.assertEqual(self.in_fish("orvel-theme", "--completion", ""), {"bash", "zsh", "fish"})

    def test_files_are_completed(self):
        self.needs("fish")
        (self.folder / "masks.txt").touch()
        self.assertEqual(self.in_fish("orvel-compare", "--mask", "ma"), {"masks.txt"})
        self.assertEqual(self.in_fish("orvel-bmp2png", "ma"), {"masks.txt"})
        self.assertEqual(self.in_fish("orvel-bmp2png", "--scale", "ma"), set())


if __name__ == "__main__":
    unittest.main()
