#!/usr/bin/env python3
"""Packs square PNG pictures into one Windows icon file: make-icon.py OUT.ico PICTURE.png...

Needed only after resources/icons/zelbox.svg has changed: render its inner square (view box 8 8 240 240) at 16,
32, 48 and 256 pixels with any SVG program, run this script on the pictures and commit the icon. Each picture is
stored as it is (a PNG entry).
"""
import struct
import sys

PNG_MARK = b"\x89PNG\r\n\x1a\n"


def side_of(name: str, data: bytes) -> int:
    """The side of a square PNG picture in pixels."""
    if not data.startswith(PNG_MARK) or data[12:16] != b"IHDR":
        raise SystemExit(f"{name}: not a PNG file")
    width, height = struct.unpack(">II", data[16:24])
    if width != height or not 1 <= width <= 256:
        raise SystemExit(f"{name}: {width} x {height} pixels; square and at most 256 wanted")
    return width


def main() -> None:
    if len(sys.argv) < 3:
        raise SystemExit(__doc__)
    out, *names = sys.argv[1:]
    pictures = []
    for name in names:
        with open(name, "rb") as file:
            data = file.read()
        pictures.append((side_of(name, data), data))
    pictures.sort()
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for side, data in pictures:
        # A side of 256 is written as 0; one plane, 32 bits per pixel.
        directory += struct.pack("<BBBBHHII", side % 256, side % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    with open(out, "wb") as file:
        file.write(directory + b"".join(data for _, data in pictures))


if __name__ == "__main__":
    main()
