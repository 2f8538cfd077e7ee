#!/usr/bin/env python3
"""Tests the scripts of the house: what they say, what they install, and the picture they take."""
import os
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(HOUSE / "scripts"))
import screenshot  # noqa: E402


class Scripts(unittest.TestCase):
    def test_all_are_sound_and_can_be_started(self):
        for name in ("run", "test", ".ci/run", "scripts/lint", "scripts/fuzz", "scripts/chaos", "scripts/icons",
                     "scripts/recording", "scripts/translations"):
            subprocess.run(["bash", "-n", HOUSE / name], check=True)
            self.assertTrue(os.access(HOUSE / name, os.X_OK), name)

    def refusal(self, *command):
        done = subprocess.run([HOUSE / command[0], *command[1:]], capture_output=True, text=True)
        self.assertNotEqual(done.returncode, 0)
        return done.stderr

    def test_run_names_the_file_it_cannot_read(self):
        self.assertIn("/no/such/family.lineara", self.refusal("run", "/no/such/family.lineara"))

    def test_too_many_arguments_are_refused(self):
        self.assertIn("at most one file", self.refusal("run", "a", "b"))
        self.assertIn("at most one preset", self.refusal("test", "asan", "tsan"))


class Installing(unittest.TestCase):
    """Runs `install_missing` with stand-ins for every program it calls; the installer writes down how it was called."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.programs = Path(folder.name)
        self.stand_in("dpkg-query", 'case "${@: -1}" in there-*) echo installed;; *) exit 1;; esac')
        self.stand_in("apt-get", f'echo "$@" >>{folder.name}/calls')
        self.stand_in("id", "echo 0")
        self.stand_in("env", "[[ $1 = *=* ]] && shift; \"$@\"")

    def stand_in(self, name, script):
        path = self.programs / name
        path.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def install(self, *packages):
        command = f'. {HOUSE}/scripts/common.sh; install_missing {" ".join(packages)}'
        return subprocess.run(["/bin/bash", "-euc", command], env={"PATH": str(self.programs)}, capture_output=True,
                              text=True)

    def calls(self):
        path = self.programs / "calls"
        return path.read_text(encoding="utf-8") if path.exists() else ""

    def test_nothing_missing_is_silent_and_asks_nobody(self):
        done = self.install("there-a", "there-b")
        self.assertEqual((done.returncode, done.stdout + done.stderr, self.calls()), (0, "", ""))

    def test_only_what_is_missing_is_installed(self):
        done = self.install("there-a", "gone-b", "gone-c")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("installing gone-b gone-c", done.stdout)
        self.assertIn("gone-b gone-c", self.calls())
        self.assertNotIn("there-a", self.calls())

    def test_a_failing_installation_is_told(self):
        self.stand_in("apt-get", '[ "$1" = update ]')
        done = self.install("gone-b")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("could not install: gone-b", done.stderr)

    def test_without_root_and_sudo_the_packages_are_named(self):
        self.stand_in("id", "echo 1000")
        done = self.install("gone-b")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("as root, then come back: gone-b", done.stderr)
        self.assertEqual(self.calls(), "")


def frame_buffer(width, height, rgb, padding=4):
    """A dump of a display that shows the RGB bytes; each line is followed by padding bytes."""
    header = [0] * 25
    header[0], header[4], header[5], header[12], header[19] = 104, width, height, width * 4 + padding, 2
    lines = []
    for y in range(height):
        line = rgb[y * width * 3:(y + 1) * width * 3]
        lines.append(b"".join(line[x + 2:x + 3] + line[x + 1:x + 2] + line[x:x + 1] + b"\xff"
                              for x in range(0, width * 3, 3)) + bytes(padding))
    return struct.pack(">25I", *header) + b"\0" * 4 + bytes(2 * 12) + b"".join(lines)


class Screenshot(unittest.TestCase):
    def test_the_frame_buffer_is_read_line_by_line(self):
        rgb = bytes(range(3 * 2 * 3))
        with tempfile.TemporaryDirectory() as folder:
            dump = Path(folder, "screen")
            dump.write_bytes(frame_buffer(3, 2, rgb))
            self.assertEqual(screenshot.pixels(dump), (3, 2, rgb))

    def test_the_picture_holds_the_pixels(self):
        rgb = bytes(range(2 * 2 * 3))
        picture = screenshot.png(2, 2, rgb)
        begin = picture.index(b"IDAT")
        size, = struct.unpack(">I", picture[begin - 4:begin])
        lines = zlib.decompress(picture[begin + 4:begin + 4 + size])
        self.assertEqual(lines, b"\0" + rgb[:6] + b"\0" + rgb[6:])
        self.assertEqual(struct.unpack(">II", picture[16:24]), (2, 2))

    def test_the_empty_display_around_the_windows_is_left_out(self):
        red, black = b"\xff\0\0", b"\0\0\0"
        shown = (red + black + red + black) + (black + red + black + black) + black * 4
        self.assertEqual(screenshot.without_background(4, 3, shown), (3, 2, red + black + red + black + red + black))

    def test_one_colour_is_no_picture_yet(self):
        self.assertTrue(screenshot.is_empty(bytes([7, 8, 9]) * 5))
        self.assertFalse(screenshot.is_empty(bytes([7, 8, 9]) * 5 + bytes([7, 8, 0])))

    def test_a_program_that_ends_early_is_told(self):
        done = subprocess.run([sys.executable, HOUSE / "scripts/screenshot.py", "/dev/null", "/bin/false"],
                              capture_output=True, text=True)
        self.assertEqual(done.returncode, 1)
        self.assertIn("ended by itself with exit code 1", done.stderr)


if __name__ == "__main__":
    unittest.main()
