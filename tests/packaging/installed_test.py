#!/usr/bin/env python3
"""installed_test.py BUILD: everything is installed where the desktop looks for it, and works from there."""
import contextlib
import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import screenshot  # noqa: E402

BUILD = Path(sys.argv[1])
SIZES = ("16x16", "22x22", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256")
EXPECTED = {
    "bin/lineara",
    "bin/lineara-tool",
    "share/applications/lineara.desktop",
    "share/doc/lineara/changelog.gz",
    "share/doc/lineara/copyright",
    "share/doc/lineara/help/index.html",
    "share/lineara/samples/README.md",
    "share/lineara/samples/shakespeare.lineara",
    "share/man/man1/lineara.1.gz",
    "share/man/man1/lineara-tool.1.gz",
    "share/metainfo/org.lineara.Lineara.metainfo.xml",
    "share/mime/packages/lineara.xml",
    "share/icons/hicolor/scalable/apps/lineara.svg",
    "share/icons/hicolor/scalable/mimetypes/application-x-lineara.svg",
    *(f"share/icons/hicolor/{size}/apps/lineara.png" for size in SIZES),
    *(f"share/icons/hicolor/{size}/mimetypes/application-x-lineara.png" for size in SIZES),
}


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.prefix = Path(cls.folder.name, "usr")
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)
        cls.found = {str(path.relative_to(cls.prefix)) for path in cls.prefix.rglob("*") if path.is_file()}

    def test_is_everything_that_belongs_to_it(self):
        self.assertEqual(EXPECTED - self.found, set())

    def test_is_nothing_that_only_builders_need(self):
        beyond = {name for name in self.found - EXPECTED if not name.startswith("share/doc/lineara/help/")}
        self.assertEqual(beyond, set())

    def test_icons_have_the_name_that_the_desktop_entry_asks_for(self):
        entry = (self.prefix / "share/applications/lineara.desktop").read_text(encoding="utf-8")
        self.assertIn("\nIcon=lineara\n", entry)

    def test_the_batch_program_reads_the_installed_sample(self):
        done = subprocess.run([self.prefix / "bin/lineara-tool", "info",
                               self.prefix / "share/lineara/samples/shakespeare.lineara"],
                              capture_output=True, text=True, env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("31", done.stdout)


class Started(unittest.TestCase):
    """The installed program in a virtual display of its own, with a hand at its keyboard."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.prefix = Path(folder.name, "usr")
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.prefix], check=True, stdout=subprocess.DEVNULL)
        home = Path(folder.name, "home")
        home.mkdir()
        stack = contextlib.ExitStack()
        self.addCleanup(stack.close)
        display, _ = stack.enter_context(screenshot.virtual_display())
        self.environment = {**os.environ, "DISPLAY": display, "QT_QPA_PLATFORM": "xcb", "HOME": str(home),
                            "LANG": "de_DE.UTF-8", "LANGUAGE": "de"}
        # A build in the tree would find what is not installed, so the program runs where there is no tree.
        stack.enter_context(screenshot.started([self.prefix / "bin/lineara"], env=self.environment, cwd=home))

    def hand(self, *commands):
        return subprocess.run(["xdotool", *commands], env=self.environment, capture_output=True, text=True)

    def window(self, title):
        """The window of that title, once it is there."""
        for _ in range(300):
            found = self.hand("search", "--onlyvisible", "--name", title).stdout.split()
            if found:
                return found[-1]
            time.sleep(0.1)
        self.fail(f"no window “{title}” came up")

    def test_it_finds_its_translation_and_its_sample_family(self):
        start = self.window("^Lineara$")
        # In English, no command of the window has this letter.
        self.hand("windowfocus", "--sync", start, "key", "alt+b")
        self.assertTrue(self.window("shakespeare"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
