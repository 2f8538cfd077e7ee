#!/usr/bin/env python3
"""formatting.py ROOT: fails when a source file is not as clang-format 14 leaves it."""
import re
import shutil
import subprocess
import sys
from pathlib import Path

from sources import report, sources


def formatter():
    """Other versions format a little differently, so only the pinned one may judge."""
    for name in ("clang-format-14", "clang-format"):
        if shutil.which(name):
            version = subprocess.run([name, "--version"], capture_output=True, text=True, check=True).stdout
            if re.search(r"version 14\.", version):
                return name
    sys.exit("clang-format 14 is not installed")


def unformatted(root):
    name = formatter()
    # One process for all files: starting one for each would take longer than the work.
    done = subprocess.run([name, "--style=file", "--dry-run", "-Werror", *sources(root)], capture_output=True, text=True)
    findings = sorted(set(re.findall(r"^(.+?):\d+:\d+: error: code should be clang-formatted", done.stderr, re.MULTILINE)))
    if done.returncode != 0 and not findings:
        sys.exit(done.stderr)
    for path in findings:
        yield f"{Path(path).relative_to(root)}: not formatted; run {name} -i on it"


if __name__ == "__main__":
    sys.exit(report("unformatted files", list(unformatted(sys.argv[1]))))
