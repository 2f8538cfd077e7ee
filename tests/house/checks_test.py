#!/usr/bin/env python3
"""Proves that each check of this folder finds what it is there to find, and lets good files pass."""
import json
import tempfile
import unittest
from pathlib import Path

from formatting import unformatted
from include_direction import wrong_uses
from orphans import uncompiled_sources, unused_headers
from put_off import put_off
from translations import unfit


class Check(unittest.TestCase):
    """Gives each test an empty project of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "src").mkdir()

    def plant(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


class IncludeDirection(Check):
    def test_a_higher_room_may_include_a_lower_one(self):
        self.plant("src/model/person.cpp", '#include "model/person.h"\n#include "platform/log.h"\n#include <QString>\n')
        self.plant("tool/main.cpp", '#include "canvas/tree_view.h"\n')
        self.assertEqual(list(wrong_uses(self.root)), [])

    def test_a_lower_room_must_not_include_a_higher_one(self):
        self.plant("src/model/person.cpp", '#include <vector>\n#include "elements/leaf_view.h"\n')
        self.assertEqual(list(wrong_uses(self.root)),
                         ["src/model/person.cpp:2: model must not include elements/leaf_view.h"])

    def test_a_public_header_is_held_to_the_same_order(self):
        self.plant("src/elements/include/elements/leaf_view.h", "#  include <canvas/tree_view.h>\n")
        self.assertEqual(len(list(wrong_uses(self.root))), 1)

    def test_a_neighbour_outside_the_order_is_refused(self):
        self.plant("src/store/reader.cpp", '#include "interchange/gedcom_import.h"\n')
        self.assertEqual(len(list(wrong_uses(self.root))), 1)

    def test_the_tool_must_not_include_the_desktop_program(self):
        self.plant("tool/main.cpp", '#include "app/application.h"\n')
        self.assertEqual(len(list(wrong_uses(self.root))), 1)

    def test_engine_and_layout_must_not_include_qt(self):
        self.plant("src/engine/process.cpp", "#include <QString>\n")
        self.plant("src/layout/order.cpp", "#include <QtCore/qglobal.h>\n")
        self.assertEqual(len(list(wrong_uses(self.root))), 2)

    def test_climbing_out_of_a_room_is_refused(self):
        self.plant("src/engine/process.cpp", '#include "../model/person.h"\n')
        self.assertEqual(len(list(wrong_uses(self.root))), 1)

    def test_linking_against_the_order_is_refused(self):
        self.plant("src/engine/CMakeLists.txt", "lineara_room(engine SOURCES a.cpp USES lineara::model Qt6::Core)\n")
        self.assertEqual(len(list(wrong_uses(self.root))), 2)

    def test_a_room_without_a_place_is_refused(self):
        self.plant("src/attic/box.cpp", "\n")
        self.assertEqual(len(list(wrong_uses(self.root))), 1)


class Formatting(Check):
    def test_only_unformatted_files_are_named(self):
        self.plant(".clang-format", "BasedOnStyle: LLVM\n")
        self.plant("src/a.cpp", "int a;\n")
        self.plant("src/b.cpp", "int  b ;\n")
        self.assertEqual([finding.split(":")[0] for finding in unformatted(self.root)], ["src/b.cpp"])


class Orphans(Check):
    def test_a_source_that_no_target_builds_is_named(self):
        self.plant("tests/model/built.cpp", "\n")
        self.plant("tests/model/forgotten.cpp", "\n")
        built = str(self.root / "tests/model/built.cpp")
        self.plant("compile_commands.json", json.dumps([{"directory": str(self.root), "file": built}]))
        self.assertEqual(list(uncompiled_sources(self.root, self.root)),
                         ["tests/model/forgotten.cpp: no target builds it"])

    def test_a_source_of_a_batch_is_built(self):
        self.plant("tests/model/batched.cpp", "\n")
        self.plant("tests/model/forgotten.cpp", "\n")
        self.plant("Unity/unity_0.cxx", f'#include "{self.root}/tests/model/batched.cpp"\n')
        self.plant("compile_commands.json",
                   json.dumps([{"directory": str(self.root), "file": str(self.root / "Unity/unity_0.cxx")}]))
        self.assertEqual(list(uncompiled_sources(self.root, self.root)),
                         ["tests/model/forgotten.cpp: no target builds it"])

    def test_a_fuzzer_that_its_list_leaves_out_is_named(self):
        self.plant("compile_commands.json", "[]")
        self.plant("fuzz/CMakeLists.txt", "add_executable(a a.cpp)\n")
        self.plant("fuzz/a.cpp", "\n")
        self.plant("fuzz/forgotten.cpp", "\n")
        self.assertEqual(len(list(uncompiled_sources(self.root, self.root))), 1)

    def test_a_header_that_nobody_includes_is_named(self):
        self.plant("src/model/include/model/used.h", "\n")
        self.plant("src/model/include/model/unused.h", "\n")
        self.plant("src/model/used.cpp", '#include "model/used.h"\n')
        self.assertEqual(list(unused_headers(self.root)),
                         ["src/model/include/model/unused.h: no file includes it"])


class PutOff(Check):
    def test_marks_are_found_and_longer_words_are_not(self):
        self.plant("src/a.cpp", "// TODO later\nint mastodont;\n")
        self.plant("tests/b.cpp", "TEST(Suite, DISABLED_Case)\nint NOLINTED;\n// NOLINTNEXTLINE\n")
        self.assertEqual(list(put_off(self.root)),
                         ["src/a.cpp:1: TODO", "tests/b.cpp:1: DISABLED_Case", "tests/b.cpp:2: NOLINTED",
                          "tests/b.cpp:3: NOLINTNEXTLINE"])


class Translations(Check):
    def found(self, source, translation):
        self.plant("translations/lineara_de.ts",
                   f"<TS><context><name>Menu</name><message><source>{source}</source>{translation}</message></context></TS>")
        return list(unfit(self.root / "translations/lineara_de.ts"))

    def test_one_that_fits_passes(self):
        self.assertEqual(self.found("&amp;Open %1…", "<translation>%1 ö&amp;ffnen…</translation>"), [])

    def test_a_missing_one_is_found(self):
        self.assertEqual(len(self.found("Open", '<translation type="unfinished"></translation>')), 1)
        self.assertEqual(len(self.found("Open", "<translation></translation>")), 1)

    def test_one_that_lost_a_placeholder_is_found(self):
        self.assertEqual(len(self.found("%1 and %2", "<translation>%1 und %1</translation>")), 1)
        self.assertEqual(len(self.found("%n file(s)", "<translation><numerusform>%n Datei</numerusform>"
                                                      "<numerusform>Dateien</numerusform></translation>")), 1)

    def test_one_that_lost_its_underlined_letter_or_ending_is_found(self):
        self.assertEqual(len(self.found("&amp;Open", "<translation>Öffnen</translation>")), 1)
        self.assertEqual(len(self.found("Open…", "<translation>Öffnen</translation>")), 1)


if __name__ == "__main__":
    unittest.main()
