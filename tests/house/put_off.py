#!/usr/bin/env python3
"""put_off.py ROOT: fails when a source file puts work off, silences a warning or skips a test."""
import re
import sys
from pathlib import Path

from sources import report, sources

PUT_OFF = re.compile(r"\b(TODO|FIXME|XXX|NOLINT\w*|GTEST_SKIP|QSKIP|QEXPECT_FAIL|DISABLED_\w*)\b")
SUFFIXES = (".h", ".cpp", ".txt", ".cmake")


def put_off(root):
    for path in sources(root, suffixes=SUFFIXES):
        for line_number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
            for word in PUT_OFF.findall(line):
                yield f"{path.relative_to(root)}:{line_number}: {word}"


if __name__ == "__main__":
    sys.exit(report("marks of work put off", list(put_off(Path(sys.argv[1])))))
