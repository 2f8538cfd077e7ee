#!/usr/bin/env python3
"""orphans.py ROOT BUILD: fails when a source file is built into nothing, or a header is included by nobody.

A test file that no program contains looks like a test and proves nothing.
"""
import json
import re
import sys
from pathlib import Path

from sources import report, sources

BUILT_FOLDERS = ("src", "tool", "tests", "bench")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def compiled(build):
    commands = json.loads(Path(build, "compile_commands.json").read_text(encoding="utf-8"))
    files = {Path(command["directory"], command["file"]).resolve() for command in commands}
    batches = [file for file in files if file.parent.name == "Unity" and file.is_file()]
    batched = {Path(name).resolve() for file in batches for name in INCLUDE.findall(file.read_text(encoding="utf-8"))}
    return files | batched


def uncompiled_sources(root, build):
    built = compiled(build)
    for path in sources(root, BUILT_FOLDERS, [".cpp"]):
        if path.resolve() not in built:
            yield f"{path.relative_to(root)}: no target builds it"
    # The fuzzers are built by their own preset only, so here their list has to do.
    for path in sources(root, ["fuzz"], [".cpp"]):
        if path.name not in Path(root, "fuzz", "CMakeLists.txt").read_text(encoding="utf-8"):
            yield f"{path.relative_to(root)}: fuzz/CMakeLists.txt does not name it"


def unused_headers(root):
    included = {Path(name).name for path in sources(root) for name in INCLUDE.findall(path.read_text(encoding="utf-8"))}
    for path in sources(root, suffixes=[".h"]):
        if path.name not in included:
            yield f"{path.relative_to(root)}: no file includes it"


if __name__ == "__main__":
    project, build_folder = Path(sys.argv[1]), Path(sys.argv[2])
    sys.exit(report("orphans", [*uncompiled_sources(project, build_folder), *unused_headers(project)]))
