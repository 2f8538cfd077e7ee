#!/usr/bin/env python3
"""The help pages: whole by themselves, sound, and true in both languages."""
import re
import struct
import sys
import unittest
from html.parser import HTMLParser
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
HELP = HOUSE / "docs/help"
PAGES = (HELP / "index.html", HELP / "de/index.html")
EMPTY = {"meta", "link", "img", "br"}


class Page(HTMLParser):
    """What stands in a page: whether its elements are closed, what it refers to, and what can be referred to."""

    def __init__(self, path):
        super().__init__()
        self.path, self.open, self.faults, self.links, self.ids, self.pictures = path, [], [], [], [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()

    def handle_starttag(self, tag, attributes):
        named = dict(attributes)
        if tag not in EMPTY:
            self.open.append(tag)
        self.ids += [named["id"]] if "id" in named else []
        self.links += [named[key] for key in ("href", "src") if key in named]
        if tag == "img":
            self.pictures.append(named)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"{tag} at line {self.getpos()[0]}")


class Help(unittest.TestCase):
    def setUp(self):
        self.pages = [Page(path) for path in PAGES]

    def test_every_element_is_closed(self):
        for page in self.pages:
            self.assertEqual((page.faults, page.open), ([], []), page.path)

    def test_nothing_is_fetched_from_elsewhere_and_everything_is_there(self):
        for page in self.pages:
            for link in page.links:
                if link.startswith("#"):
                    self.assertIn(link[1:], page.ids, page.path)
                else:
                    self.assertTrue((page.path.parent / link).is_file(), f"{page.path}: {link}")

    def test_pictures_are_described_and_as_large_as_the_page_says(self):
        for page in self.pages:
            for picture in page.pictures:
                self.assertIn("alt", picture)
                if "width" in picture:
                    size = struct.unpack(">II", (page.path.parent / picture["src"]).read_bytes()[16:24])
                    self.assertEqual((int(picture["width"]), int(picture["height"])), size, picture["src"])

    def test_both_languages_have_the_same_chapters(self):
        self.assertEqual(self.pages[0].ids, self.pages[1].ids)

    def test_every_shortcut_of_the_edit_menu_is_named(self):
        text = re.sub(r"</?kbd>", "", PAGES[0].read_text(encoding="utf-8"))
        source = (HOUSE / "src/document/edit_menu.cpp").read_text(encoding="utf-8")
        for modifiers, key in re.findall(r"QKeySequence\(((?:Qt::\w+ \| )+)Qt::Key_(\w+)\)", source):
            names = [part.capitalize() for part in re.findall(r"Qt::(\w+)", modifiers)]
            self.assertIn("+".join([*names, key]), text)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
