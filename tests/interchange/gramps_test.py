#!/usr/bin/env python3
"""gramps_test.py EXPORTER GENEALOGY: another program reads what is exported as it reads the original.

Counts of people and families are the same, and it warns of nothing that it did not warn of before.
"""
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def read_by_gramps(genealogy, home):
    """Counts of people and families, and what was told while reading."""
    result = home / "result.gramps"
    done = subprocess.run(
        ["gramps", "-y", "-i", str(genealogy), "-e", str(result), "-f", "gramps", "--config=preferences.age-display-precision:1"],
        env={**os.environ, "HOME": str(home), "LANG": "C.UTF-8", "LANGUAGE": "en", "GRAMPSHOME": str(home),
             "DISPLAY": "", "GDK_BACKEND": "none"},
        capture_output=True, text=True, timeout=300, check=False)
    if not result.exists():
        sys.exit(f"gramps gave nothing for {genealogy}:\n{done.stdout}\n{done.stderr}")
    unpacked = subprocess.run(["gzip", "-dcf", str(result)], capture_output=True, check=True).stdout
    root = ElementTree.fromstring(unpacked)
    counts = tuple(len([1 for element in root.iter() if element.tag.endswith("}" + tag)]) for tag in ("person", "family"))
    result.unlink()
    return counts, set(warnings_in(done.stdout + done.stderr, genealogy))


def warnings_in(told, genealogy):
    """The lines of the import's report; the toolkit's complaints about the machine, progress and places are none."""
    told = told.replace(genealogy.stem, "FILE")
    for line in told.splitlines():
        line = re.sub(r"^[\d%\s]*%", "", line.strip())
        line = re.sub(r"Line\s+\d+:", "Line:", line)
        if re.search("warn|error|line", line, re.IGNORECASE) and "(gramps:" not in line:
            yield re.sub(r"\s+", " ", line)


def main():
    exporter, original = sys.argv[1], Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        home = Path(folder)
        exported = home / "exported.ged"
        subprocess.run([exporter, str(original), str(exported), "5.5.1"], check=True, stdout=subprocess.DEVNULL)
        before, warned = read_by_gramps(original, home)
        after, warns = read_by_gramps(exported, home)
        if before != after or before[0] == 0:
            sys.exit(f"people and families: {before} in the original, {after} in what was exported")
        if warns - warned:
            sys.exit("new warnings:\n" + "\n".join(sorted(warns - warned)))


if __name__ == "__main__":
    main()
