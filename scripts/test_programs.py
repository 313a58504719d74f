#!/usr/bin/env python3
"""Prints the test programs of a build, one a line with the arguments that leave out the cases with one
of the given labels: scripts/test_programs.py build/dev slow realtime no-memcheck"""
import collections
import json
import pathlib
import subprocess
import sys


def test_programs(build, left_out):
    """The commands, as lists of words. A program with nothing left to run is not among them."""
    listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=build, check=True,
                            stdout=subprocess.PIPE).stdout
    kept, skipped = collections.defaultdict(list), collections.defaultdict(list)
    for test in json.loads(listed)["tests"]:
        if "command" not in test:
            sys.exit(f"{build} is not built")
        program, *arguments = test["command"]
        if pathlib.Path(build).resolve() not in pathlib.Path(program).resolve().parents:
            continue
        properties = {each["name"]: each["value"] for each in test["properties"]}
        labels = set("+".join(properties.get("LABELS", [])).split("+"))
        rest = tuple(each for each in arguments if not each.startswith("--gtest_"))
        cases = [each.removeprefix("--gtest_filter=") for each in arguments
                 if each.startswith("--gtest_filter=")]
        (skipped if labels & set(left_out) else kept)[(program, *rest)] += cases
    for command in kept:
        filters = [f"--gtest_filter=-{':'.join(skipped[command])}"] if skipped[command] else []
        yield [*command, *filters]


if __name__ == "__main__":
    for words in test_programs(sys.argv[1], sys.argv[2:]):
        print(*words)
