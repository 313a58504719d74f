#!/usr/bin/env python3
"""The bills of materials in a folder of packages: that SPDX 2.3's required fields are there and well
formed, and that every fact is that of the package, as other programs tell it."""
import collections
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PACKAGES = pathlib.Path(sys.argv.pop(1))
IDENTIFIER = r"SPDXRef-[A-Za-z0-9.-]+"
SUMS = {"SHA1": ("sha1sum", 40), "SHA256": ("sha256sum", 64)}
DOCUMENT = {"spdxVersion": r"SPDX-2\.3", "dataLicense": r"CC0-1\.0", "SPDXID": "SPDXRef-DOCUMENT",
            "name": r"\S+", "documentNamespace": r"https://[^#\s]+"}
PACKAGE = {"SPDXID": IDENTIFIER, "name": r"\S+", "downloadLocation": "NOASSERTION",
           "licenseConcluded": r"NOASSERTION|[\w.-]+( AND [\w.-]+)*",
           "licenseDeclared": r"NOASSERTION|[\w.-]+( AND [\w.-]+)*", "copyrightText": r".+"}
FILE = {"SPDXID": IDENTIFIER, "fileName": r"\./.+", "licenseConcluded": "MIT", "copyrightText": ".+"}


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def sum_of(algorithm, path):
    return output_of(SUMS[algorithm][0], path).split()[0]


def unpack(package, folder):
    if package.suffix == ".deb":
        subprocess.run(["dpkg-deb", "-x", package, folder], check=True)
    elif package.suffix == ".whl":
        subprocess.run([sys.executable, "-m", "zipfile", "-e", package, folder], check=True)
    else:
        subprocess.run(["tar", "-xzf", package, "-C", folder], check=True)


class Bill(unittest.TestCase):
    def has(self, record, patterns):
        for field, pattern in patterns.items():
            self.assertRegex(record.get(field, ""), f"^(?:{pattern})$", field)

    def check_sums(self, record, path, algorithms):
        self.assertEqual([each["algorithm"] for each in record["checksums"]], algorithms)
        for each in record["checksums"]:
            self.assertEqual(each["checksumValue"], sum_of(each["algorithm"], path), path)

    def check_document(self, bill):
        self.has(bill, DOCUMENT)
        self.assertEqual(bill["creationInfo"]["created"], "2026-01-01T00:00:00Z")
        for creator in bill["creationInfo"]["creators"]:
            self.assertRegex(creator, "^(Organization|Tool|Person): ")
        things = bill["packages"] + bill["files"] + [bill]
        count = collections.Counter(each["SPDXID"] for each in things)
        self.assertEqual(set(count.values()), {1}, "an identifier stands for one thing")
        related = [(each["spdxElementId"], each["relatedSpdxElement"])
                   for each in bill["relationships"]]
        self.assertEqual({one for pair in related for one in pair}, set(count),
                         "everything is related to something, and to nothing else")

    def check_files(self, bill, folder):
        real = {f"./{path.relative_to(folder)}": path for path in folder.rglob("*")
                if path.is_file() and not path.is_symlink()}
        self.assertEqual({file["fileName"] for file in bill["files"]}, set(real))
        for file in bill["files"]:
            self.has(file, FILE)
            self.check_sums(file, real[file["fileName"]], ["SHA1", "SHA256"])
        sums = sorted(sum_of("SHA1", path) for path in real.values())
        joined = folder.parent / "sums"
        joined.write_text("".join(sums))
        code = bill["packages"][0]["packageVerificationCode"]["packageVerificationCodeValue"]
        self.assertEqual(code, sum_of("SHA1", joined))

    def check_packages(self, bill, path):
        first, *others = bill["packages"]
        for each in bill["packages"]:
            self.has(each, PACKAGE)
        self.assertEqual((first["packageFileName"], bill["name"]), (path.name, path.name))
        self.check_sums(first, path, ["SHA256"])
        self.assertEqual([each["filesAnalyzed"] for each in others], [False] * len(others))
        if path.suffix == ".deb":
            field = {name: output_of("dpkg-deb", "-f", path, name).strip()
                     for name in ("Package", "Version", "Depends", "Recommends")}
            self.assertEqual((first["name"], first["versionInfo"]),
                             (field["Package"], field["Version"]))
            names = re.findall(r"(?:^|[,|]) *([\w.+-]+)", f"{field['Depends']}, {field['Recommends']}")
        else:
            names = ["libc.so.6", "libgcc_s.so.1", "libm.so.6", "libstdc++.so.6"]
            names += ["libpng16.so.16", "libSDL2-2.0.so.0"] if path.suffix == ".gz" else []
        licences = {"MIT"}
        for part, licence, packages in (("CLI11", "BSD-3-Clause", ["tools", "view"]),
                                        ("DejaVu", "Bitstream-Vera", ["kit", "tools", "view"]),
                                        ("nlohmann-json", "MIT", ["screen", "tools", "view"])):
            if path.suffix == ".whl" and packages[0] == "tools":
                continue  # a part of the programs alone
            if any(name in path.name for name in packages) or path.suffix != ".deb":
                names.append(part)
                licences.add(licence)
        self.assertEqual(first["licenseConcluded"], " AND ".join(sorted(licences)))
        self.assertEqual(sorted(each["name"] for each in others), sorted(filter(None, names)))

    def test_every_bill_is_that_of_its_package(self):
        packages = sorted(path for path in PACKAGES.iterdir() if path.suffix in (".deb", ".gz", ".whl"))
        self.assertGreaterEqual(len(packages), 4)
        for path in packages:
            with self.subTest(path.name), tempfile.TemporaryDirectory() as work:
                folder = pathlib.Path(work) / "unpacked"
                folder.mkdir()
                unpack(path, folder)
                bill = json.loads(path.with_name(f"{path.name}.spdx.json").read_text())
                self.check_document(bill)
                self.check_files(bill, folder)
                self.check_packages(bill, path)

    def test_a_missing_field_a_wrong_sum_and_a_stray_file_would_be_seen(self):
        path = next(PACKAGES.glob("liborvelsdk0_*.deb"))
        text = path.with_name(f"{path.name}.spdx.json").read_text()
        with tempfile.TemporaryDirectory() as work:
            folder = pathlib.Path(work) / "unpacked"
            folder.mkdir()
            unpack(path, folder)
            bill = json.loads(text)
            del bill["documentNamespace"]
            self.assertRaises(AssertionError, self.check_document, bill)
            bill = json.loads(text)
            bill["files"][0]["checksums"][0]["checksumValue"] = "0" * 40
            self.assertRaises(AssertionError, self.check_files, bill, folder)
            (folder / "stray").touch()
            self.assertRaises(AssertionError, self.check_files, json.loads(text), folder)


if __name__ == "__main__":
    unittest.main()
