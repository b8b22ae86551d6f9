#!/usr/bin/env python3
"""The Chinese catalogue is complete: every text of the sources is in it and translated, with the same placeholders."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree


def texts_of(translation):
    forms = translation.findall("numerusform")
    return [form.text or "" for form in forms] if forms else [translation.text or ""]


def problems_of(path):
    for context in ElementTree.parse(path).getroot().findall("context"):
        for message in context.findall("message"):
            translation = message.find("translation")
            source = message.findtext("source") or ""
            if translation.get("type") in ("obsolete", "vanished"):
                continue
            texts = texts_of(translation)
            if translation.get("type") == "unfinished" or not all(texts):
                yield f'{context.findtext("name")}: not translated: "{source}"'
            elif any(set(re.findall(r"%\d", text)) != set(re.findall(r"%\d", source)) for text in texts):
                yield f'{context.findtext("name")}: other placeholders than: "{source}"'


def main(root, lupdate):
    catalogue = pathlib.Path(root) / "resources/translations/zelbox_zh_CN.ts"
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder) / catalogue.name
        shutil.copy(catalogue, copy)
        subprocess.run([lupdate, "-silent", "-locations", "none", str(pathlib.Path(root) / "src"), "-ts", str(copy)],
                       check=True)
        problems = list(problems_of(copy))
    print("\n".join(problems))
    if problems:
        print("Run `cmake --build --preset debug --target update-translations`, then translate what is unfinished.")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
