#!/usr/bin/env python3
"""usage: bash_3_test.py SOURCES

That no script uses what bash 3.2, the one of macOS, does not know or takes otherwise."""
import pathlib
import re
import sys
import unittest

SOURCES = pathlib.Path(sys.argv.pop(1))
LATER = {  # what came after 3.2, each with a line that has it
    r"\b(mapfile|readarray|coproc)\b": "mapfile -t lines",
    r"\b(declare|local|typeset) +-[a-zA-Z]*[An]": "local -A table",
    r"\$\{\w+(\[[^]]*\])?(,|\^)": "echo ${name,,}",
    r"\$\{[^}\s]*@[A-Za-z]\}": "echo ${name@Q}",
    r"\$\{\w+: ?\w+: ?-\d": "echo ${name:0:-1}",
    r"\$\{\w+\[-\d": "echo ${list[-1]}",
    r"&>>|\|&|;;?&": "make |& tee log",
    r"\bwait +-n\b": "wait -n",
    r"\[\[? +-[vR] ": "[[ -v name ]]",
    r"printf.*%\(": "printf '%(%F)T'",
    r"\b(EPOCHSECONDS|EPOCHREALTIME|BASHPID|SRANDOM)\b": "echo $EPOCHSECONDS",
    r"shopt +-s +(globstar|lastpipe|inherit_errexit)": "shopt -s globstar",
    r"\bread +(-\w+ +)*-\w*[Ni]\b": "read -N 3 name",
    r"\{-?\w+\.\.-?\w+\.\.": "echo {1..9..2}",
    r"\bexec +\{": "exec {file}<name",
    r"\\[uU][0-9a-fA-F]": "printf '\\u00df'",
    r"\$\([^)]*\bcase\b": "echo $(case $1 in a) echo b ;; esac)",
}
ARRAY = re.compile(r'(?<!\+)"\$\{(\w+)\[@\]\}"')


def scripts():
    for path in sorted(SOURCES.rglob("*")):
        inside = path.relative_to(SOURCES).parts
        if inside[0] in ("build", "demo-output", ".git") or not path.is_file():
            continue
        with open(path, "rb") as file:
            if re.match(rb"#!.*\bbash\n", file.readline()):
                yield path


def findings(text):
    """What bash 3.2 would stumble over, line by line."""
    may_be_empty = set(re.findall(r'(\w+)=\((?:"\$@")?\)', text))
    for number, line in enumerate(text.splitlines(), 1):
        code = re.sub(r"(^|\s)#.*", "", line)
        for pattern in LATER:
            if re.search(pattern, code):
                yield f"{number}: {line.strip()}"
        for name in ARRAY.findall(code):
            if name in may_be_empty:  # to expand it is an error under `set -u`
                yield f"{number}: {name} may be empty: {line.strip()}"


class Bash3(unittest.TestCase):
    def test_every_script_is_in_its_language(self):
        found = list(scripts())
        self.assertGreater(len(found), 15)
        for path in found:
            with self.subTest(path.relative_to(SOURCES)):
                self.assertEqual(list(findings(path.read_text(encoding="utf-8"))), [])

    def test_what_came_later_would_be_seen(self):
        for pattern, line in LATER.items():
            self.assertTrue(re.search(pattern, line), pattern)
            self.assertEqual(len(list(findings(line))), 1, line)

    def test_an_array_that_may_be_empty_would_be_seen(self):
        self.assertEqual(len(list(findings('list=()\nrun "${list[@]}"\n'))), 1)
        self.assertEqual(len(list(findings('list=("$@")\nrun "${list[@]}"\n'))), 1)
        self.assertEqual(list(findings('list=()\nrun ${list[@]+"${list[@]}"}\n')), [])
        self.assertEqual(list(findings('list=(a b)\nrun "${list[@]}"\n')), [])


if __name__ == "__main__":
    unittest.main()
