#!/usr/bin/env python3
"""Draws every icon: NAME.svg becomes NAME.ico beside it, with all the sizes that are asked for.

    make_icons.py [FOLDER...]    the drawings in these folders; without any, those beside this script

The workbench's own icon is in workbench/resources.

Needs rsvg-convert (package librsvg2-bin) and convert (package imagemagick). The .ico files are kept with the
sources, so the build needs neither; run this after changing a drawing.
"""
import pathlib
import struct
import subprocess
import sys

SIZES = (16, 24, 32, 48)
HEADER = struct.Struct("<HHH")
ENTRY = struct.Struct("<BBBBHHII")
BITMAP_HEADER = struct.Struct("<IiiHHIIiiII")


def render(svg, size):
    """The drawing's pixels, top row first, four bytes each: blue, green, red, opacity."""
    png = subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), str(svg)],
                         check=True, capture_output=True).stdout
    return subprocess.run(["convert", "png:-", "-depth", "8", "BGRA:-"],
                          input=png, check=True, capture_output=True).stdout


def make_bitmap(pixels, size):
    """One image of an icon file: a bitmap, bottom row first, with the mask of what shines through."""
    rows = [pixels[y * size * 4:(y + 1) * size * 4] for y in reversed(range(size))]
    mask = b""
    for row in rows:
        bits = "".join("0" if row[x * 4 + 3] >= 128 else "1" for x in range(size))
        bits = bits.ljust((size + 31) // 32 * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    header = BITMAP_HEADER.pack(BITMAP_HEADER.size, size, size * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0)
    return header + b"".join(rows) + mask


def make_icon(svg):
    images = [make_bitmap(render(svg, size), size) for size in SIZES]
    offset = HEADER.size + ENTRY.size * len(images)
    directory = HEADER.pack(0, 1, len(images))
    for size, image in zip(SIZES, images):
        directory += ENTRY.pack(size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    svg.with_suffix(".ico").write_bytes(directory + b"".join(images))


if __name__ == "__main__":
    for folder in sys.argv[1:] or [pathlib.Path(__file__).parent]:
        for drawing in sorted(pathlib.Path(folder).glob("*.svg")):
            make_icon(drawing)
