"""Finds the project's own source files."""
from pathlib import Path

FOLDERS = ("src", "tool", "tests", "bench", "fuzz")
CPP = (".h", ".cpp")


def sources(root, folders=FOLDERS, suffixes=CPP):
    """The files below the given folders of root with one of the suffixes, in a fixed order."""
    return sorted(path for folder in folders for path in Path(root, folder).rglob("*") if path.suffix in suffixes)


def report(title, findings):
    """Prints the findings, and returns the exit code they call for."""
    for finding in findings:
        print(finding)
    print(f"{title}: {len(findings)} found")
    return 1 if findings else 0
