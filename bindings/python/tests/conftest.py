"""Where the tests find the project and a build of it."""

import os
import pathlib
import subprocess
import sys

import pytest

SOURCES = pathlib.Path(__file__).resolve().parents[3]
BUILD = pathlib.Path(os.environ["ORVELSDK_LIBRARIES"]).resolve()
sys.path.insert(0, str(SOURCES / "docs"))  # blocks.py, which reads the manual's pages

#: Nothing is heard, and no server is looked for.
QUIET = {"PULSE_SERVER": "unix:/nonexistent", "PIPEWIRE_REMOTE": "nonexistent"}
os.environ.update(QUIET)


@pytest.fixture
def run():
    """Runs Python in a process of its own; returns what it wrote, and fails when it was killed."""

    def run_python(program, *arguments, status=0, **variables):
        done = subprocess.run([sys.executable, *(["-c", program] if program else []), *arguments],
                              capture_output=True, text=True, timeout=300, errors="replace",
                              env=os.environ | variables)
        assert done.returncode == status, f"status {done.returncode}\n{done.stdout}{done.stderr}"
        return done.stdout

    return run_python


@pytest.fixture
def built(tmp_path):
    """Compiles a program in C with the three libraries, runs it in an empty folder, returns that."""

    def build_and_run(source, name="program"):
        file = tmp_path / f"{name}.c"
        file.write_text(source)
        command = ["cc", "-std=c99", str(file), "-o", str(tmp_path / name)]
        command += [f"-I{SOURCES / folder}" for folder in ("include", "kit/include")]
        command += [f"-L{BUILD}", f"-Wl,-rpath,{BUILD}", "-lOrvelScreen", "-lOrvelKit", "-lOrvelSDK"]
        subprocess.run(command, check=True)
        subprocess.run([str(tmp_path / name)], check=True, cwd=tmp_path)
        return tmp_path

    return build_and_run
