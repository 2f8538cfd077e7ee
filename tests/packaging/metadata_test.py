#!/usr/bin/env python3
"""metadata_test.py BUILD: what the desktop is told of the program is sound, and its parts agree."""
import configparser
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
PACKAGING = HOUSE / "packaging"
METAINFO = PACKAGING / "org.lineara.Lineara.metainfo.xml"
MIME = {"mime": "http://www.freedesktop.org/standards/shared-mime-info"}
FAMILY_TYPE = "application/x-lineara"
LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"


def said_by(*command, **options):
    """What a checking program has to say; empty if it is content."""
    done = subprocess.run(command, capture_output=True, text=True, **options)
    said = (done.stdout + done.stderr).strip()
    return said if done.returncode else ""


class DesktopEntry(unittest.TestCase):
    def setUp(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(PACKAGING / "lineara.desktop", encoding="utf-8")
        self.entry = parser["Desktop Entry"]

    def test_is_valid(self):
        self.assertEqual(said_by("desktop-file-validate", PACKAGING / "lineara.desktop"), "")

    def test_takes_several_files_and_both_types(self):
        self.assertEqual(self.entry["Exec"], "lineara %F")
        self.assertEqual(self.entry["MimeType"], f"{FAMILY_TYPE};application/x-gedcom;")

    def test_says_everything_in_german_too(self):
        for key in ("GenericName", "Comment", "Keywords"):
            self.assertNotEqual(self.entry[key], self.entry[f"{key}[de]"])


class Metainfo(unittest.TestCase):
    def setUp(self):
        self.root = ElementTree.parse(METAINFO).getroot()

    def test_is_valid(self):
        self.assertEqual(said_by("appstreamcli", "validate", "--no-net", METAINFO), "")

    def test_names_the_version_that_is_built(self):
        project = (HOUSE / "CMakeLists.txt").read_text(encoding="utf-8")
        version = re.search(r"project\(lineara VERSION (\S+)", project).group(1)
        self.assertEqual(self.root.find("releases/release").get("version"), version)

    def test_opens_what_the_desktop_entry_opens(self):
        types = {element.text for element in self.root.iterfind("provides/mediatype")}
        self.assertEqual(types, {FAMILY_TYPE, "application/x-gedcom"})

    def test_says_every_paragraph_and_point_in_german_too(self):
        description = self.root.find("description")
        for tag in ("p", "ul/li"):
            parts = description.findall(tag)
            german = [part for part in parts if part.get(LANGUAGE) == "de"]
            self.assertEqual(len(german) * 2, len(parts))


class MimeType(unittest.TestCase):
    def test_is_told_by_name_and_by_content(self):
        root = ElementTree.parse(PACKAGING / "lineara.mime.xml").getroot()
        family = root.find("mime:mime-type", MIME)
        self.assertEqual(family.get("type"), FAMILY_TYPE)
        self.assertEqual(family.find("mime:glob", MIME).get("pattern"), "*.lineara")
        for match in family.iterfind("mime:magic/mime:match", MIME):
            self.assert_found(match)

    def assert_found(self, match):
        """A match, and one of those inside of it, is found in the sample family."""
        content = (HOUSE / "samples/shakespeare.lineara").read_bytes()
        first, last = map(int, match.get("offset").split(":"))
        value = match.get("value").encode()
        self.assertIn(content.find(value), range(first, last + 1))
        inner = match.findall("mime:match", MIME)
        self.assertTrue(any(each.get("value").encode() in content[:4096] for each in inner))

    def test_is_taken_into_the_database_of_types(self):
        with tempfile.TemporaryDirectory() as folder:
            packages = Path(folder, "mime/packages")
            packages.mkdir(parents=True)
            (packages / "lineara.xml").write_bytes((PACKAGING / "lineara.mime.xml").read_bytes())
            environment = {**os.environ, "XDG_DATA_DIRS": folder, "XDG_DATA_HOME": folder}
            self.assertEqual(said_by("update-mime-database", Path(folder, "mime"), env=environment), "")
            globs = Path(folder, "mime/globs2").read_text(encoding="utf-8")
            self.assertIn(f"50:{FAMILY_TYPE}:*.lineara", globs)


class ManualPages(unittest.TestCase):
    def test_are_set_without_a_warning(self):
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MANROFFSEQ": ""}
        for page in ("lineara.1", "lineara-tool.1"):
            done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", PACKAGING / page],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, env=environment)
            self.assertEqual((done.returncode, done.stderr), (0, ""), page)

    def test_name_every_option_of_the_batch_program(self):
        page = (PACKAGING / "lineara-tool.1").read_text(encoding="utf-8").replace("\\-", "-")
        usage = (HOUSE / "tool/command_line.cpp").read_text(encoding="utf-8")
        for option in sorted(set(re.findall(r"--[a-z][a-z0-9]*", usage))):
            self.assertIn(option, page)


class Icons(unittest.TestCase):
    def test_are_there_in_every_size_as_large_as_they_say(self):
        for size in (16, 22, 24, 32, 48, 64, 128, 256):
            for name in ("lineara.png", "application-x-lineara.png"):
                header = (HOUSE / f"resources/icons/{size}/{name}").read_bytes()[16:24]
                self.assertEqual(struct.unpack(">II", header), (size, size), name)

    def test_are_drawn_in_well_formed_files(self):
        for drawing in sorted((HOUSE / "resources/icons").glob("*.svg")):
            self.assertEqual(ElementTree.parse(drawing).getroot().tag, "{http://www.w3.org/2000/svg}svg", drawing)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
