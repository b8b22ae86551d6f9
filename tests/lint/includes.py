#!/usr/bin/env python3
"""Checks that include arrows point down only. Prints each offending line and what to write instead."""

import pathlib
import re
import sys

PLATFORM = "the platform contract (src/platform/api)"

# folder -> folders of src/ that it may include besides itself. The longest matching folder counts.
ALLOWED = {
    "base/posix": [],
    "base": [],
    "cloud/wire": ["base/posix"],
    "platform/api": [PLATFORM, "cloud/wire"],
    "platform/impl": [PLATFORM, "base", "cloud/wire"],
    "platform/impl/recentstore/records": [PLATFORM, "base"],
    "platform/impl/recentstore/merge": ["platform/impl/recentstore/records"],
    "platform/impl/recentstore/presence": ["base", "platform/impl/recentstore/records"],
    "platform/impl/recentstore/xbel": ["base", "platform/impl/recentstore/records"],
    "platform/impl/recentstore/roaming": [PLATFORM, "base", "cloud/wire", "platform/impl/recentstore/records"],
    "platform/impl/recentstore/repository": [
        "base", "platform/impl/recentstore/records", "platform/impl/recentstore/merge"],
    "cloud": [PLATFORM, "base", "cloud/wire"],
    "radar": ["base"],
    "message": ["base"],
    "useragent": [PLATFORM, "base"],
    "widgets": [PLATFORM, "base"],
    "lists": [PLATFORM, "base"],
    "lists/ui": [PLATFORM, "base", "widgets", "lists"],
    "mainwindow": [PLATFORM, "base", "cloud/wire"],
    "mainwindow/ui": [PLATFORM, "base", "widgets", "cloud", "mainwindow"],
    "settings": [PLATFORM, "base", "cloud"],
    "settings/ui": [PLATFORM, "base", "cloud", "widgets", "recentfile/recentsettings.h", "useragent/useragentmodule.h",
                    "settings"],
    "mini": [PLATFORM, "base"],
    "mini/ui": [PLATFORM, "base", "widgets", "lists", "recentfile", "mini"],
    "tray": [PLATFORM, "base"],
    "tray/ui": [PLATFORM, "base", "tray"],
    "app": [PLATFORM, "base", "widgets", "lists", "cloud", "radar", "message", "settings", "mini", "tray", "mainwindow"],
    "localsearch": ["base/posix"],
    "launcher": ["base/posix", "base/hostinterface.h"],
    "service": ["base", "cloud/wire"],
}

# Each page of the main window, and the app, which names them all.
PAGE = [PLATFORM, "base", "cloud/wire", "lists"]
PAGE_UI = [PLATFORM, "base", "widgets", "lists"]

INCLUDE = re.compile(r'^\s*#include\s+["<]([^">]+)[">]')


def add_pages(src):
    pages = re.search(r"set\(ZEL_PAGES ([^)]*)\)", (src / "CMakeLists.txt").read_text(encoding="utf-8")).group(1).split()
    for page in pages:
        ALLOWED[page] = PAGE
        ALLOWED[page + "/ui"] = [*PAGE_UI, page]
    ALLOWED["app"] += pages


def rule_for(folder):
    while folder and folder not in ALLOWED:
        folder = folder.rpartition("/")[0]
    return folder


def target_of(include, source, src):
    """Folder or file below src/ that an include names; PLATFORM for the contract; None for anything else."""
    if (src / include).is_file():
        return include
    if (src / "platform/api" / include).is_file():
        return PLATFORM
    local = source.parent / include
    return str(local.relative_to(src)) if local.is_file() else None


def is_allowed(target, rule):
    if target == PLATFORM:
        return PLATFORM in ALLOWED[rule]
    return any(target == place or target.startswith(place + "/") for place in [rule, *ALLOWED[rule]])


def main(root):
    src = pathlib.Path(root) / "src"
    add_pages(src)
    problems = 0
    for source in sorted(src.rglob("*")):
        if source.suffix not in (".h", ".cpp"):
            continue
        folder = str(source.parent.relative_to(src))
        rule = rule_for(folder)
        if not rule:
            print(f"{source}: no rule for this folder; add one to {__file__}")
            problems += 1
            continue
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            target = target_of(match.group(1), source, src) if match else None
            if target and not is_allowed(target, rule):
                places = ", ".join(ALLOWED[rule]) or "nothing of ours"
                print(f"{source}:{number}: {line.strip()}\n    {rule}/ may include only: {places}."
                      " Hand the object in, or route a signal in app/ or mainwindow/.")
                problems += 1
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
