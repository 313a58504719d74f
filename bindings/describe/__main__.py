"""Writes bindings/orvel_api.json, the description of the interfaces, and what is made of it, from
what the headers say."""
import argparse
import pathlib
import sys

import description
import facts

ROOT = pathlib.Path(__file__).resolve().parents[2]


def main():
    parser = argparse.ArgumentParser(prog="scripts/describe", description=__doc__)
    parser.add_argument("--check", action="store_true",
                        help="write nothing; fail where a file is not up to date")
    given = parser.parse_args()
    for name, text in description.files(ROOT).items():
        path = ROOT / name
        if not given.check:
            path.write_text(text, encoding="utf-8")
        elif not path.is_file() or path.read_text(encoding="utf-8") != text:
            sys.exit(f"describe: {name} is not what the headers say; run scripts/describe")


if __name__ == "__main__":
    try:
        main()
    except facts.Problem as problem:
        sys.exit(f"describe: {problem}")
