#!/usr/bin/env python3
"""translations.py ROOT: fails when a text that users see is not translated, or a translation does not fit its text."""
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from sources import report

PLACEHOLDER = re.compile(r"%(?:L?\d+|n)")
# What stands at the end of a text stands at the end of its translation.
ENDINGS = ("…", ":", ".", "?")


def messages(path):
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message


def forms(message):
    """The translation, or for a text that differs with numbers each of its forms."""
    translation = message.find("translation")
    numerus = translation.findall("numerusform")
    return [form.text or "" for form in numerus] if numerus else [translation.text or ""]


def unfit(path):
    """What is wrong with one file of translations."""
    for context, message in messages(path):
        source = message.findtext("source")
        where = f"{path.name}: {context}: “{source}”"
        if message.find("translation").get("type") == "unfinished":
            yield f"{where} is not translated"
            continue
        for form in forms(message):
            if not form.strip():
                yield f"{where} is translated by nothing"
            elif sorted(PLACEHOLDER.findall(source)) != sorted(PLACEHOLDER.findall(form)):
                yield f"{where} has other placeholders than “{form}”"
            elif source.replace("&&", "").count("&") != form.replace("&&", "").count("&"):
                yield f"{where} has another number of underlined letters than “{form}”"
            elif any(source.endswith(end) != form.endswith(end) for end in ENDINGS):
                yield f"{where} ends in another way than “{form}”"


def texts(path):
    return {(context, message.findtext("source"), message.findtext("comment")) for context, message in messages(path)}


def out_of_date(root):
    """Texts of the sources that the translators have not seen, and such that are no longer there."""
    with tempfile.TemporaryDirectory() as folder:
        for path in (root / "translations").glob("*.ts"):
            shutil.copy(path, folder)
        subprocess.run([root / "scripts/translations", folder], check=True, stderr=subprocess.DEVNULL)
        for fresh in sorted(Path(folder).glob("*.ts")):
            kept = texts(root / "translations" / fresh.name)
            for context, source, _ in sorted(texts(fresh) ^ kept, key=str):
                yield f"{fresh.name}: {context}: “{source}”: run scripts/translations, and translate what is new"


if __name__ == "__main__":
    project = Path(sys.argv[1])
    findings = [finding for path in sorted((project / "translations").glob("*.ts")) for finding in unfit(path)]
    sys.exit(report("faults of translations", findings + list(out_of_date(project))))
