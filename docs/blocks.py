#!/usr/bin/env python3
"""Runs every code block of a page, in order, in one folder, as a reader would.

    ```c NAME    (any language and a name)   the block is written to the file NAME
    ```sh                                    the block is run by bash, which stops at the first failure
    ```text                                  exactly what the block of commands before it prints

A page of the manual starts with one thing in its folder: orvelsdk, the sources. A page at the top of the
sources, such as README.md, starts in a copy of them. Blocks in <!-- comments --> run too. A block of any
other kind is an error, and only the commands of docs/not-run.md are left out: nothing goes untried.
"""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

FENCE = re.compile(r"^```(?:(\w+)(?: +([\w./-]+))?)?$")
LOOKS_LIKE_A_FENCE = re.compile(r"^\s*(```|~~~)")
NOT_RUN_ROW = re.compile(r"^\| (\S+) \| `([^`]+)` \| \S.* \|$")
# A page may install packages: here this asks the package manager whether it would. It may install a
# build: here this puts it into a folder of its own.
SUDO = """#!/bin/sh
case "$1 $2" in
"apt install")
    shift 2
    command -v apt-get >/dev/null || exit 0
    exec apt-get install --simulate --no-install-recommends "$@"
    ;;
"cmake --install")
    DESTDIR=$(dirname "$0")/root exec "$@"
    ;;
"ldconfig ")
    PATH=$PATH:/sbin:/usr/sbin exec ldconfig -n "$(dirname "$0")/root/usr/local/lib"
    ;;
esac
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
        if opening is None and LOOKS_LIKE_A_FENCE.match(line):
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


def not_run(sources, page):
    """The commands of @p page that docs/not-run.md leaves out."""
    rows = (sources / "docs/not-run.md").read_text(encoding="utf-8").splitlines()
    matches = [NOT_RUN_ROW.match(row) for row in rows if row.startswith("| ")]
    del matches[0]  # the heading
    for match in matches:
        if not match or not (sources / match[1]).is_file():
            raise Failure("not-run.md: a row that is not `page, command, reason`")
    return {match[2] for match in matches if sources / match[1] == page}


def without(commands, text):
    """The lines of @p text that are not among @p commands, and those that are, without comments."""
    kept, left_out = [], set()
    for line in text.splitlines(keepends=True):
        command = line.split("  #")[0].strip()
        if command in commands:
            left_out.add(command)
        else:
            kept.append(line)
    return "".join(kept), left_out


def environment(tree, tools):
    """The reader's, with the library installed in @p tree, and nothing to be heard."""
    library = next(tree.rglob("pkgconfig")).parent  # lib, lib64 or lib and the processor's name
    return os.environ | {
        "PATH": f"{tools}:{tree / 'bin'}:{os.environ['PATH']}",
        "PKG_CONFIG_PATH": str(library / "pkgconfig"),
        "CMAKE_PREFIX_PATH": str(tree),
        "LD_LIBRARY_PATH": str(library),
        "PULSE_SERVER": "unix:/nonexistent",
        "PIPEWIRE_REMOTE": "nonexistent",
        "SDL_VIDEODRIVER": "dummy",
        "LC_ALL": "C.UTF-8",
        "CMAKE_BUILD_PARALLEL_LEVEL": str(os.cpu_count()),
    }


def can_run(page, sources):
    """Whether what a page needs is here. ./check js makes the package of the page on JavaScript, and runs
    that page."""
    return page.name != "javascript.md" or (sources / "build/js/package").is_dir()


def python(sources):
    """Where Python finds the module, as if its wheel was installed."""
    return {"PYTHONPATH": str(sources / "bindings/python"), "PYTHONDONTWRITEBYTECODE": "1"}


def run(page, sources, tree, work):
    """Runs the blocks of @p page in the folder @p work, made afresh."""
    with tempfile.TemporaryDirectory() as folder:
        # Pages write $(pkg-config ...) without quotes, as people do: no blanks in this path.
        installed = pathlib.Path(folder) / "installed"
        installed.symlink_to(tree)
        run_blocks(page, sources, installed, work)


def run_blocks(page, sources, tree, work):
    shutil.rmtree(work, ignore_errors=True)
    if page.parent == sources:
        copy_sources(sources, work)
    else:
        work.mkdir(parents=True)
        (work / "orvelsdk").symlink_to(sources)
    if (sources / "build/js/package").is_dir():  # as if npm had installed it
        (work / "node_modules").mkdir()
        (work / "node_modules/orvelsdk").symlink_to(sources / "build/js/package")
    tools = work / ".tools"
    tools.mkdir()
    (tools / "sudo").write_text(SUDO)
    (tools / "sudo").chmod(0o755)
    skipped, skipping = set(), not_run(sources, page)
    printed = None
    for block in blocks_of(page):
        where = f"{page.name}:{block.line}"
        if block.name:
            file = work / block.name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(block.text, encoding="utf-8")
        elif block.language == "sh":
            commands, left_out = without(skipping, block.text)
            skipped |= left_out
            printed = run_commands(commands, where, work, environment(tree, tools) | python(sources),
                                   sys.platform)
        elif block.language == "text":
            if printed is None:
                raise Failure(f"{where}: output without commands before it")
            if printed != block.text:
                raise Failure(f"{where}: not what is printed, which is:\n{printed}")
        else:
            raise Failure(f"{where}: a block that is neither a named file, sh nor text")
    if skipped != skipping:
        raise Failure(f"not-run.md: not on {page.name}: {', '.join(sorted(skipping - skipped))}")


def copy_sources(sources, work):
    """What a clone of the project holds: neither its builds nor its history."""
    ignored = {line.strip("/") for line in (sources / ".gitignore").read_text().split()} | {".git"}
    shutil.copytree(sources, work, symlinks=True, ignore=lambda folder, names:
                    ignored if pathlib.Path(folder) == sources else set())


def shell_on(platform, library_path):
    """The command that runs a block, and what goes before the block."""
    shell = ["bash", "-euo", "pipefail", "-c"]
    if platform != "darwin":
        return shell, ""
    # A Mac's own programs, bash among them, are started without DYLD_LIBRARY_PATH, so the block sets it.
    # Its player makes itself heard wherever the library's root is: it must not start.
    quiet = '(version 1)(allow default)(deny process-exec (literal "/usr/bin/afplay"))'
    return ["sandbox-exec", "-p", quiet, *shell], f"export DYLD_LIBRARY_PATH='{library_path}'\n"


def run_commands(text, where, work, variables, platform):
    shell, first = shell_on(platform, variables["LD_LIBRARY_PATH"])
    done = subprocess.run([*shell, first + text], cwd=work, text=True,
                          env=variables, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if done.returncode != 0:
        raise Failure(f"{where}: status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("--sources", type=pathlib.Path, required=True, help="the project")
    parser.add_argument("--tree", type=pathlib.Path, required=True, help="an installed tree")
    parser.add_argument("--work", type=pathlib.Path, required=True, help="a folder to work in")
    given = parser.parse_args()
    try:
        run(given.page.resolve(), given.sources.resolve(), given.tree.resolve(), given.work.resolve())
    except (Failure, OSError) as failure:
        sys.exit(f"blocks: {failure}")


if __name__ == "__main__":
    main()
