"""Writes bindings/orvel_api.json, the description of the interfaces, from the headers, and what is made of it."""
import argparse
import json
import pathlib
import re
import sys

import headers
import python

ROOT = pathlib.Path(__file__).resolve().parents[2]


def description(root):
    libraries = headers.libraries(root)
    version = re.search(r"\d+\.\d+\.\d+", libraries[0]["constants"][0]["value"])[0]
    return {"about": "The interfaces of OrvelSDK, made by scripts/describe from the headers.",
            "format": 1, "version": version, "targets": headers.TARGETS, "libraries": libraries}


def made(root):
    """Every file that is made here, and its text."""
    found = description(root)
    return {"bindings/orvel_api.json": json.dumps(found, indent=1, ensure_ascii=False) + "\n",
            "bindings/python/orvelsdk/_api.py": python.low_level(found),
            "bindings/python/orvelsdk/_api.pyi": python.stub(found)}


def main():
    parser = argparse.ArgumentParser(prog="scripts/describe", description=__doc__)
    parser.add_argument("--check", action="store_true", help="write nothing; fail where a file is not up to date")
    given = parser.parse_args()
    for name, text in made(ROOT).items():
        path = ROOT / name
        if given.check:
            if not path.is_file() or path.read_text(encoding="utf-8") != text:
                sys.exit(f"describe: {name} is not what the headers say; run scripts/describe")
        else:
            path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    try:
        main()
    except headers.Problem as problem:
        sys.exit(f"describe: {problem}")
