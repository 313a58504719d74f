#!/usr/bin/env python3
"""Runs every code block of a page, in order, in one folder, as a reader would.

    ```c NAME    (any language and a name)   the block is written to the file NAME
    ```sh                                    the block is run by bash, which stops at the first failure
    ```text                                  exactly what the block of commands before it prints

The folder starts with one thing in it: orvelsdk, the sources. A block of any other kind is an error:
nothing on a page goes untried.
"""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

FENCE = re.compile(r"^```(\w*)(?: +(\S+))?$")
# A page may install packages. Here this asks the package manager whether it would.
SUDO = """#!/bin/sh
if [ "$1 $2" = "apt install" ]; then
    shift 2
    exec apt-get install --simulate --no-install-recommends "$@"
fi
echo "sudo: the pages have no other use for it: $*" >&2
exit 1
"""


class Failure(Exception):
    pass


class Block:
    def __init__(self, line, language, name, text):
        self.line, self.language, self.name, self.text = line, language, name, text


def blocks_of(page):
    """The fenced blocks of a Markdown file."""
    found, opening, lines = [], None, []
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        if opening is None and line.startswith("```"):
            match = FENCE.match(line)
            if not match:
                raise Failure(f"{page.name}:{number}: cannot read this fence: {line}")
            opening, lines = (number, match[1], match[2]), []
        elif opening is not None and line == "```":
            found.append(Block(*opening, "\n".join(lines) + "\n"))
            opening = None
        elif opening is not None:
            lines.append(line)
    if opening is not None:
        raise Failure(f"{page.name}:{opening[0]}: this block has no end")
    return found


def environment(tree, tools):
    """The reader's, with the library installed in @p tree, and nothing to be heard."""
    library = next(tree.rglob("pkgconfig")).parent  # lib, lib64 or lib and the processor's name
    return os.environ | {
        "PATH": f"{tools}:{tree / 'bin'}:{os.environ['PATH']}",
        "PKG_CONFIG_PATH": str(library / "pkgconfig"),
        "CMAKE_PREFIX_PATH": str(tree),
        "LD_LIBRARY_PATH": str(library),
        "DYLD_LIBRARY_PATH": str(library),
        "PULSE_SERVER": "unix:/nonexistent",
        "PIPEWIRE_REMOTE": "nonexistent",
        "LC_ALL": "C.UTF-8",
    }


def run(page, sources, tree, work):
    """Runs the blocks of @p page in the folder @p work, made afresh."""
    with tempfile.TemporaryDirectory() as folder:
        # Pages write $(pkg-config ...) without quotes, as people do: no blanks in this path.
        installed = pathlib.Path(folder) / "installed"
        installed.symlink_to(tree)
        run_blocks(page, sources, installed, work)


def run_blocks(page, sources, tree, work):
    shutil.rmtree(work, ignore_errors=True)
    tools = work / ".tools"
    tools.mkdir(parents=True)
    (tools / "sudo").write_text(SUDO)
    (tools / "sudo").chmod(0o755)
    (work / "orvelsdk").symlink_to(sources)
    printed = None
    for block in blocks_of(page):
        where = f"{page.name}:{block.line}"
        if block.name:
            file = work / block.name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(block.text, encoding="utf-8")
        elif block.language == "sh":
            done = subprocess.run(
                ["bash", "-euo", "pipefail", "-c", block.text], cwd=work, text=True,
                env=environment(tree, tools), stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
            if done.returncode != 0:
                raise Failure(f"{where}: status {done.returncode}\n{done.stdout}{done.stderr}")
            printed = done.stdout
        elif block.language == "text":
            if printed is None:
                raise Failure(f"{where}: output without commands before it")
            if printed != block.text:
                raise Failure(f"{where}: not what is printed, which is:\n{printed}")
        else:
            raise Failure(f"{where}: a block that is neither a named file, sh nor text")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("--sources", type=pathlib.Path, required=True, help="the project")
    parser.add_argument("--tree", type=pathlib.Path, required=True, help="an installed tree")
    parser.add_argument("--work", type=pathlib.Path, required=True, help="a folder to work in")
    given = parser.parse_args()
    try:
        run(given.page, given.sources.resolve(), given.tree.resolve(), given.work.resolve())
    except (Failure, OSError) as failure:
        sys.exit(f"blocks: {failure}")


if __name__ == "__main__":
    main()
