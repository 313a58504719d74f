#!/usr/bin/env python3
"""What scripts/mutate says of a library with mutants that are known: mutate_test.py SOURCES"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(sys.argv.pop(1)) / "scripts"

FILES = {
    "CMakeLists.txt": """cmake_minimum_required(VERSION 3.20)
project(Tiny LANGUAGES CXX)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
enable_testing()
add_subdirectory(src)
add_executable(tiny_test test.cpp)
target_link_libraries(tiny_test PRIVATE OrvelSDK)
set_target_properties(tiny_test PROPERTIES BUILD_RPATH ${PROJECT_BINARY_DIR})
add_test(NAME tiny COMMAND tiny_test)
""",
    "src/CMakeLists.txt": """add_library(OrvelSDK SHARED core/state.cpp)
set_target_properties(OrvelSDK PROPERTIES VERSION 1.0.0 SOVERSION 0
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
""",
    "src/core/state.cpp": """#include <cstddef>

int smaller(int a, int b) {
    return a < b ? a : b;  // greater or equal is noticed, less or equal the same
}

int twice(int a) { return a + a; }  // nobody calls it
""",
    "test.cpp": """int smaller(int a, int b);
int main() { return smaller(1, 2) == 1 && smaller(4, 3) == 3 ? 0 : 1; }
""",
    "scripts/equivalent_mutants.txt": """# The excuses.

core/state.cpp: return a <= b ? a : b; // greater or equal is noticed, less or equal the same
    Of two equal numbers either is the smaller.
""",
}
SURVIVOR = "survived: src/core/state.cpp:7: int twice(int a) { return a - a; } // nobody calls it"


class Mutate(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        user = [] if os.geteuid() == 0 else ["--user", "--map-root-user"]
        if subprocess.run(["unshare", *user, "--pid", "--fork", "--mount-proc", "mount", "-t", "tmpfs",
                           "none", "/dev/shm"], check=False, stderr=subprocess.DEVNULL).returncode != 0:
            raise unittest.SkipTest("this system allows no world of our own")
        cls.folder = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.folder.name)
        for name, text in FILES.items():
            (cls.root / name).parent.mkdir(parents=True, exist_ok=True)
            (cls.root / name).write_text(text, encoding="utf-8")
        for script in ("mutate", "mutants.py", "test_programs.py"):
            shutil.copy(SCRIPTS / script, cls.root / "scripts")
        for step in (["-G", "Ninja", "-S", cls.root, "-B", cls.root / "build/release"],
                     ["--build", cls.root / "build/release"]):
            subprocess.run(["cmake", *step], check=True, stdout=subprocess.DEVNULL)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def mutate(self, *arguments):
        done = subprocess.run([self.root / "scripts/mutate", *arguments], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout.splitlines()

    def test_one_is_killed_one_survives_and_one_is_excused(self):
        status, lines = self.mutate()
        self.assertIn(SURVIVOR, lines)
        self.assertEqual(lines[-2].split(), ["all", "1", "1", "1", "0"])
        self.assertEqual((lines[-1], status), ("50.0 % of 2 mutants killed", 1))
        self.assertEqual(self.mutate("--least", "50")[0], 0)  # known already

    def test_an_excuse_outlives_an_edit_elsewhere_and_not_one_of_its_line(self):
        source = self.root / "src/core/state.cpp"
        text = source.read_text(encoding="utf-8")
        self.addCleanup(source.write_text, text, encoding="utf-8")
        source.write_text("// a line more\n" + text, encoding="utf-8")
        self.assertEqual(self.mutate("--excuses"), (0, []))
        source.write_text(text.replace("a < b", "b > a"), encoding="utf-8")
        self.assertEqual(self.mutate("--excuses"), (1, [
            "excused without need: core/state.cpp: return a <= b ? a : b; "
            "// greater or equal is noticed, less or equal the same"]))


if __name__ == "__main__":
    unittest.main()
