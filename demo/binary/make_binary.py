#!/usr/bin/env python3
"""Makes the demonstration's one binary drawing: TF-PID-002.dwg beside this script.

It is a drawing of the CAD host's own format as far as a thumbnail needs one: the version, the place of the preview, and
the preview, a bitmap with sixteen colours. No program can open it, and the workbench says so.

    make_binary.py           writes it
    make_binary.py --check   tells whether the one that is there is the one that this script makes
"""
import math
import pathlib
import struct
import sys

FILE = pathlib.Path(__file__).resolve().parent / "TF-PID-002.dwg"
WIDTH, HEIGHT = 256, 192
WHITE, BLACK, RED, GREEN, BLUE, GREY = range(6)
COLORS = ((255, 255, 255), (20, 20, 20), (200, 30, 30), (20, 140, 60), (20, 80, 200), (150, 150, 150))
SENTINEL = bytes.fromhex("1F256D07D43628289D57CA3F9D44102B")
PREVIEW_AT = 0x80
HEADER_RECORD, BITMAP_RECORD = 1, 2


class Canvas:
    def __init__(self):
        self.rows = [[WHITE] * WIDTH for _ in range(HEIGHT)]

    def dot(self, x, y, color):
        for dx, dy in ((0, 0), (1, 0), (0, 1)):
            column, row = round(x) + dx, round(y) + dy
            if 0 <= column < WIDTH and 0 <= row < HEIGHT:
                self.rows[row][column] = color

    def line(self, x1, y1, x2, y2, color):
        steps = max(abs(x2 - x1), abs(y2 - y1), 1)
        for i in range(int(steps) + 1):
            self.dot(x1 + (x2 - x1) * i / steps, y1 + (y2 - y1) * i / steps, color)

    def path(self, color, *points):
        for (x1, y1), (x2, y2) in zip(points, points[1:]):
            self.line(x1, y1, x2, y2, color)

    def arc(self, x, y, radius, color, start=0, end=360, flat=1.0):
        for degree in range(start, end + 1):
            angle = math.radians(degree)
            self.dot(x + radius * math.cos(angle), y - radius * flat * math.sin(angle), color)


def draw():
    """Two tanks with a ring main, a pump and a control valve."""
    canvas = Canvas()
    canvas.path(GREY, (4, 4), (251, 4), (251, 187), (4, 187), (4, 4))
    canvas.path(GREY, (150, 187), (150, 165), (251, 165))
    for left in (26, 112):
        canvas.path(BLACK, (left, 50), (left, 112), (left + 62, 112), (left + 62, 50))
        canvas.arc(left + 31, 50, 31, BLACK, 0, 180, 0.35)
        canvas.path(BLUE, (left + 4, 74), (left + 58, 74))
        canvas.path(GREEN, (left + 31, 112), (left + 31, 140))
    canvas.path(GREEN, (57, 140), (186, 140))
    canvas.arc(200, 140, 13, BLACK)
    canvas.path(BLACK, (191, 130), (213, 140), (191, 150))
    canvas.path(RED, (213, 140), (236, 140), (236, 26), (57, 26), (57, 39))
    canvas.path(RED, (143, 26), (143, 39))
    canvas.path(BLACK, (92, 20), (108, 32), (108, 20), (92, 32), (92, 20))
    canvas.path(BLACK, (100, 26), (100, 16))
    canvas.arc(100, 16, 6, BLACK, 0, 180)
    return canvas.rows


def bitmap(rows):
    header = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 4, 0, 0, 0, 0, 0, 0)
    table = b"".join(bytes((blue, green, red, 0)) for red, green, blue in COLORS).ljust(16 * 4, b"\0")
    bits = b"".join(bytes(high << 4 | low for high, low in zip(row[::2], row[1::2])) for row in reversed(rows))
    return header + table + bits


def drawing():
    picture = bitmap(draw())
    records = ((HEADER_RECORD, bytes(80)), (BITMAP_RECORD, picture))
    block = SENTINEL + struct.pack("<IB", 0, len(records))
    at = PREVIEW_AT + len(block) + 9 * len(records)
    for code, content in records:
        block += struct.pack("<BII", code, at, len(content))
        at += len(content)
    head = b"AC1027" + bytes(7) + struct.pack("<I", PREVIEW_AT)
    return head.ljust(PREVIEW_AT, b"\0") + block + b"".join(content for _, content in records)


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        if FILE.read_bytes() != drawing():
            raise SystemExit(f"{FILE} is not what this script makes")
    else:
        FILE.write_bytes(drawing())
