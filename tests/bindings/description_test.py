#!/usr/bin/env python3
"""usage: description_test.py SOURCES CC NM LIBRARY...

That bindings/orvel_api.json is true of the headers, as compilers see them, and of the libraries."""
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCES, CC, NM, *LIBRARIES = sys.argv[1:]
del sys.argv[1:]
SOURCES = pathlib.Path(SOURCES)
API = json.loads((SOURCES / "bindings/orvel_api.json").read_text(encoding="utf-8"))
INCLUDE = [f"-I{SOURCES / 'include'}", f"-I{SOURCES / 'kit/include'}"]
EXPORTS = {"OrvelSDK": "tests/whole", "OrvelKit": "tests/kit", "OrvelScreen": "tests/screen"}


def run(*command):
    done = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          check=False)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}:\n{done.stdout}")
    return done.stdout


def every_function():
    return {each["name"]: each for library in API["libraries"] for each in library["functions"]}


def functions(library):
    return {each["name"] for each in library["functions"]}


def numbers(target):
    """Every size, alignment, offset and value of the description: the C for it, its number."""
    for library in API["libraries"]:
        for record in library["records"]:
            name = record["name"]
            yield f"sizeof({name})", record["size"][target]
            # No operator of C99 tells an alignment; a byte before the record does.
            yield f"offsetof(struct {{ char c; {name} r; }}, r)", record["align"][target]
            for field in record["fields"]:
                yield f"offsetof({name}, {field['name']})", field["offset"][target]
        for enum in library["enums"]:
            for each in enum["values"]:
                yield f"(long long)({each['name']})", each["value"]


class Names(unittest.TestCase):
    def test_functions_are_those_that_each_library_is_to_export(self):
        for library in API["libraries"]:
            path = SOURCES / EXPORTS[library["name"]] / "exports.txt"
            listed = re.findall(r"^(?:orvel|kit)_\w+$", path.read_text(encoding="utf-8"), re.M)
            self.assertEqual(functions(library), set(listed), library["name"])

    def test_functions_are_those_that_the_built_libraries_export(self):
        built = {pathlib.Path(file).name[len("lib"):].split(".")[0]: file for file in LIBRARIES}
        self.assertIn("OrvelKit", built)
        for library in API["libraries"]:
            if library["name"] in built:
                symbols = re.findall(r" T (?:_?)(orvel_\w+|kit_\w+)$",
                                     run(NM, "-g", built[library["name"]]), re.M)
                self.assertEqual(functions(library), set(symbols), library["name"])

    def test_functions_have_the_prefix_of_their_library(self):
        for library in API["libraries"]:
            for name in functions(library):
                self.assertTrue(name.startswith(library["prefix"]), name)

    def test_every_guarded_form_is_of_a_function_that_raises(self):
        every = every_function()
        guarding = [each for each in every.values() if "guards" in each]
        self.assertGreater(len(guarding), 8)
        for each in guarding:
            self.assertTrue(every[each["guards"]]["raises"], each["name"])
            self.assertEqual(every[each["guards"]]["guarded"], each["name"])
            self.assertEqual(each["raises"], [])

    def test_who_frees_takes(self):
        every = every_function()
        for each in every.values():
            if each["returns"].get("ownership") == "caller":
                taker = every[each["returns"]["free"]]["arguments"][0]
                self.assertEqual(taker["of"], each["returns"]["of"])
                self.assertEqual(taker["ownership"], "taken")


class Layout(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def test_numbers_are_those_of_a_64_bit_program(self):
        if run(CC, "-dumpmachine").split("-")[0] in ("i686", "i386", "arm", "armv7l"):
            self.skipTest("this compiler is for 32 bits")
        expected = list(numbers("64"))
        self.assertGreater(len(expected), 130)
        lines = "\n".join(f'    printf("%lld\\n", (long long)({c}));' for c, _ in expected)
        program = self.folder / "layout.c"
        program.write_text("#include <orvel_screen.h>\n#include <stddef.h>\n#include <stdio.h>\n"
                           f"int main(void) {{\n{lines}\n    return 0;\n}}\n")
        run(CC, *INCLUDE, program, "-o", self.folder / "layout")
        told = run(self.folder / "layout").split()
        self.assertEqual([(c, str(number)) for c, number in expected],
                         list(zip([c for c, _ in expected], told)))

    def test_numbers_are_those_of_a_wasm32_program(self):
        clang = shutil.which("clang")
        if not clang:
            self.skipTest("clang is missing")
        (self.folder / "stddef.h").write_text(
            "typedef __SIZE_TYPE__ size_t;\n#define offsetof(t, m) __builtin_offsetof(t, m)\n")
        lines = "\n".join(f'_Static_assert({c} == {number}, "{c}");'
                          for c, number in numbers("wasm32"))
        program = self.folder / "layout.c"
        program.write_text(f"#include <stddef.h>\n#include <orvel_screen.h>\n{lines}\n")
        compile_it = [clang, "--target=wasm32", "-std=c11", "-nostdinc", "-fsyntax-only",
                      f"-I{self.folder}", *INCLUDE]
        run(*compile_it, program)
        program.write_text(program.read_text() + '_Static_assert(sizeof(kit_box) == 4, "");\n')
        with self.assertRaises(AssertionError):  # so that the compiler does look
            run(*compile_it, program)

    def test_constants_are_those_of_the_preprocessor(self):
        for library in API["libraries"]:
            for each in library["constants"]:
                program = self.folder / "constant.c"
                program.write_text(f"#include <orvel_screen.h>\nvalue {each['name']}\n")
                told = re.search(r"^value (.*)$", run(CC, *INCLUDE, "-E", program), re.M)[1]
                value = f'"{each["value"]}"' if each["type"] == "text" else str(each["value"])
                self.assertEqual(told, value, each["name"])


if __name__ == "__main__":
    unittest.main()
