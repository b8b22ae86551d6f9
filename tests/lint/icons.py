#!/usr/bin/env python3
"""Line icons share one grid, one stroke, and edges that fall on whole pixels where they are shown.

Icons are drawn on 24 units with a stroke of 1.5 and shown at 16 pixels times a scale. A straight edge is sharp
there when its middle lies at 0.75 + n * 1.5. The middle line of a symmetric picture (12) may be soft.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as xml

GRID, STROKE, SHORT = 24, 1.5, 4
ARGUMENTS = {"m": 2, "l": 2, "h": 1, "v": 1, "c": 6, "s": 4, "q": 4, "t": 2, "a": 7, "z": 0}


def straight_lines(path):
    """Yields (axis, coordinate, length) of the horizontal and vertical lines of path data."""
    x = y = start_x = start_y = 0.0
    for command, text in re.findall(r"([a-zA-Z])([^a-zA-Z]*)", path):
        kind, count = command.lower(), ARGUMENTS[command.lower()]
        numbers = [float(n) for n in re.findall(r"-?(?:\d+\.?\d*|\.\d+)", text)]
        for part in [numbers[i:i + count] for i in range(0, len(numbers), count)] if count else [[]]:
            base_x, base_y = (x, y) if command.islower() else (0, 0)
            if kind == "z":
                to_x, to_y = start_x, start_y
            elif kind == "h":
                to_x, to_y = base_x + part[0], y
            elif kind == "v":
                to_x, to_y = x, base_y + part[0]
            else:
                to_x, to_y = base_x + part[-2], base_y + part[-1]
            if kind in "lhvz" and abs(to_x - x) < 0.01:
                yield "x", x, abs(to_y - y)
            elif kind in "lhvz" and abs(to_y - y) < 0.01:
                yield "y", y, abs(to_x - x)
            x, y = to_x, to_y
            if kind == "m":
                start_x, start_y = x, y
                kind = "l"


def faults(file):
    root = xml.parse(file).getroot()
    if root.get("viewBox") != f"0 0 {GRID} {GRID}":
        yield f"viewBox is {root.get('viewBox')}, write 0 0 {GRID} {GRID}"
    for element in root.iter():
        if element.get("stroke") and float(element.get("stroke-width", 1)) != STROKE:
            yield f"stroke-width is {element.get('stroke-width')}, write {STROKE}"
        for axis, place, length in straight_lines(element.get("d", "")):
            off = (place - STROKE / 2) % STROKE
            if length >= SHORT and min(off, STROKE - off) > 0.01 and abs(place - GRID / 2) > 0.01:
                yield f"a line at {axis}={place:g} is blurred, write {place - off:g} or {place - off + STROKE:g}"


def main(root):
    folder = pathlib.Path(root) / "resources/icons/svg"
    # Pictures of empty states have a size of their own, and what rows and crumbs show is drawn for 12 pixels.
    icons = [f for f in sorted(folder.glob("*.svg")) if not f.name.startswith(("empty_", "row_", "crumb"))]
    found = [f"{file.name}: {fault}" for file in icons for fault in faults(file)]
    print("\n".join(found) or f"{len(icons)} icons are sharp")
    return 1 if found or not icons else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
