#!/usr/bin/env python3
"""What the workflows of the code host run: programs that are there, in a shell's clean language."""
import pathlib
import re
import subprocess
import sys
import unittest

import yaml

ROOT = pathlib.Path(sys.argv.pop(1))
WORKFLOWS = sorted((ROOT / ".github/workflows").glob("*.yml"))


def steps():
    for path in WORKFLOWS:
        for name, job in yaml.safe_load(path.read_text())["jobs"].items():
            for step in job["steps"]:
                yield f"{path.name}: {name}", step


class Workflows(unittest.TestCase):
    def test_run_what_shellcheck_finds_nothing_wrong_with(self):
        for place, step in steps():
            # The host fills in words, and ends a step at its first failure.
            script = "set -e\n" + re.sub(r"\$\{\{.*?\}\}", "word", step.get("run", "true"))
            with self.subTest(place, script=script):
                told = subprocess.run(["shellcheck", "-s", "bash", "-"], input=script, text=True,
                                      stdout=subprocess.PIPE)
                self.assertEqual(told.stdout, "")

    def test_run_scripts_that_are_there(self):
        called = {word for _, step in steps()
                  for word in re.findall(r"(?<!\S)(?:\./|scripts/)[\w/]+", step.get("run", ""))}
        self.assertLessEqual({"./check", "scripts/release", "scripts/package"}, called)
        for script in called:
            self.assertTrue((ROOT / script).is_file(), script)

    def test_need_jobs_that_are_there(self):
        for path in WORKFLOWS:
            jobs = yaml.safe_load(path.read_text())["jobs"]
            for name, job in jobs.items():
                self.assertLessEqual(set(job.get("needs", [])), set(jobs), f"{path.name}: {name}")


if __name__ == "__main__":
    unittest.main()
