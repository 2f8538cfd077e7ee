#!/usr/bin/env python3
"""include_direction.py ROOT: fails when a room uses a room it must not know.

Both ways of using one are read: the includes of its files, and the rooms its CMakeLists.txt links.
"""
import re
import sys
from pathlib import Path

from sources import report, sources

# Each room, lowest first, with every room it may use.
ROOMS = {
    "engine": set(),
    "kinship": {"engine"},
    "layout": {"engine"},
    "platform": set(),
    "model": {"engine", "platform"},
    "store": {"model", "platform"},
    "interchange": {"model", "engine", "platform", "layout", "store"},
    "elements": {"model", "platform"},
    "canvas": {"elements", "layout", "model", "platform"},
    "paper": {"canvas", "elements", "kinship", "store", "model", "platform"},
    "personlist": {"elements", "model", "platform"},
    "document": {"canvas", "paper", "personlist", "store", "interchange", "elements", "layout", "model", "kinship",
                 "engine",
                 "platform"},
}
BELOW_APP = set(ROOMS)
ROOMS["app"] = BELOW_APP
TOOL_MAY_USE = BELOW_APP
WITHOUT_QT = {"engine", "kinship", "layout"}

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
LINKED_ROOM = re.compile(r"\blineara(?:::|_)(\w+)\b")
QT = re.compile(r"^(Q[A-Z]|Qt|q[a-z]+\.h$)")


def check_includes(path, text, room, allowed):
    for line_number, line in enumerate(text.splitlines(), 1):
        for included in INCLUDE.findall(line):
            first = included.split("/")[0]
            if first == "..":
                yield f"{path}:{line_number}: {included} climbs out of its room"
            elif first in ROOMS and first != room and first not in allowed:
                yield f"{path}:{line_number}: {room} must not include {included}"
            elif room in WITHOUT_QT and QT.match(included):
                yield f"{path}:{line_number}: {room} must not include Qt's {included}"


def check_links(path, text, room, allowed):
    for linked in sorted(set(LINKED_ROOM.findall(text)) & set(ROOMS)):
        if linked != room and linked not in allowed:
            yield f"{path}: {room} must not link {linked}"
    if room in WITHOUT_QT and "Qt6::" in text:
        yield f"{path}: {room} must not link Qt"


def check_folder(root, folder, room, allowed):
    for path in sources(root, [folder]):
        yield from check_includes(path.relative_to(root), path.read_text(encoding="utf-8"), room, allowed)
    lists = Path(root, folder, "CMakeLists.txt")
    if lists.exists():
        yield from check_links(lists.relative_to(root), lists.read_text(encoding="utf-8"), room, allowed)


def wrong_uses(root):
    root = Path(root)
    for folder in sorted(path for path in (root / "src").iterdir() if path.is_dir()):
        if folder.name not in ROOMS:
            yield f"src/{folder.name}: this room has no place in the order of rooms"
            continue
        yield from check_folder(root, f"src/{folder.name}", folder.name, ROOMS[folder.name])
    yield from check_folder(root, "tool", "tool", TOOL_MAY_USE)


if __name__ == "__main__":
    sys.exit(report("uses against the direction of the rooms", list(wrong_uses(sys.argv[1]))))
