"""The wheel: installed without network in an empty environment, and for the platform that it names."""

import email
import os
import re
import subprocess
import sys
import zipfile

import pytest
from conftest import BUILD, SOURCES
from orvelsdk import Canvas

HELLO = """
import orvelsdk, pathlib, sys
canvas = orvelsdk.Canvas(240, 144, "#161b33")
canvas.text("Hello", 18, 36, face="bold 24", color="#ffd166")
canvas.save("hello.png")
screen = orvelsdk.Screen({"orvel": 1, "root": {"text": "a"}}).render()
loaded = pathlib.Path("/proc/self/maps").read_text()
ours = {line.split()[-1] for line in loaded.splitlines() if "libOrvel" in line}
inside = pathlib.Path(orvelsdk.__file__).parent / "lib"
print(len(ours), all(pathlib.Path(path).parent == inside for path in ours), canvas.checksum())
"""


@pytest.fixture(scope="module")
def wheel(tmp_path_factory):
    folder = tmp_path_factory.mktemp("wheel")
    subprocess.run([str(SOURCES / "packaging/make_wheel"), str(BUILD), str(folder)], check=True,
                   env=os.environ | {"SOURCE_DATE_EPOCH": "1767225600"})
    return next(folder.glob("*.whl"))


def test_it_serves_an_empty_environment_without_network(wheel, tmp_path):
    python = tmp_path / "empty/bin/python"
    subprocess.run([sys.executable, "-m", "venv", str(tmp_path / "empty")], check=True)
    environment = {"PATH": os.environ["PATH"], "HOME": str(tmp_path)}
    subprocess.run([str(python), "-m", "pip", "install", "-q", "--no-index",
                    "--disable-pip-version-check", str(wheel)], check=True, env=environment)
    told = subprocess.run([str(python), "-c", HELLO], check=True, cwd=tmp_path, env=environment,
                          stdout=subprocess.PIPE, text=True).stdout
    assert told == f"3 True {Canvas.open(tmp_path / 'hello.png').checksum()}\n"
    told = subprocess.run([str(python), "-m", "orvelsdk", "--sample", "-o", str(tmp_path / "home.png"),
                           str(SOURCES / "scenes/home/dashboard.json")],
                          cwd=tmp_path, env=environment)
    assert told.returncode == 0 and Canvas.open(tmp_path / "home.png").size == (1024, 600)


def test_its_platform_has_every_version_that_it_needs(wheel, tmp_path):
    with zipfile.ZipFile(wheel) as file:
        about = email.message_from_string(file.read("orvelsdk-0.2.0.dist-info/WHEEL").decode())
        file.extractall(tmp_path)
    tag = re.fullmatch(r"orvelsdk-0\.2\.0-(py3-none-manylinux_2_(\d+)_(\w+))\.whl", wheel.name)
    assert about["Tag"] == tag[1] and about["Root-Is-Purelib"] == "false"
    assert tag[3] == os.uname().machine
    told = subprocess.run(["objdump", "-T", *map(str, (tmp_path / "orvelsdk/lib").iterdir())],
                          check=True, stdout=subprocess.PIPE, text=True).stdout
    needed = {tuple(map(int, number.split("."))) for number in re.findall(r"GLIBC_([\d.]+)", told)}
    assert len(needed) > 3 and max(needed) <= (2, int(tag[2]))


def test_a_library_that_no_platform_promises_is_refused(tmp_path):
    maker = {"__name__": "maker", "__file__": str(SOURCES / "packaging/make_wheel")}
    exec((SOURCES / "packaging/make_wheel").read_text(), maker)
    (tmp_path / "b.c").write_text("int b(void) { return 0; }")
    for name, more in (("a", ["-l:libpng16.so.16", "-Wl,--no-as-needed"]), ("b", [])):
        subprocess.run(["cc", "-shared", "-fPIC", str(tmp_path / "b.c"), "-Wl,--no-as-needed", *more,
                        "-o", str(tmp_path / f"lib{name}.so")], check=True)
    assert maker["platform"]([tmp_path / "libb.so"]).startswith("manylinux_2_17_")
    with pytest.raises(SystemExit, match="liba.so needs libpng16.so.16"):
        maker["platform"]([tmp_path / "liba.so"])


def test_the_same_sources_make_the_same_bytes(wheel, tmp_path):
    subprocess.run([str(SOURCES / "packaging/make_wheel"), str(BUILD), str(tmp_path)], check=True,
                   env=os.environ | {"SOURCE_DATE_EPOCH": "1767225600"}, umask=0o077)
    assert (tmp_path / wheel.name).read_bytes() == wheel.read_bytes()


def test_pytest_finds_the_fixture_by_it(wheel):
    with zipfile.ZipFile(wheel) as file:
        points = file.read("orvelsdk-0.2.0.dist-info/entry_points.txt").decode()
        assert points == "[pytest11]\norvelsdk = orvelsdk.pytest_plugin\n"
        assert "orvelsdk/pytest_plugin.py" in file.namelist()
