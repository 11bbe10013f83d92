#!/usr/bin/env python3
"""Draws sticker.png beside this file: a face on a badge, its cap to the left and its mouth below,
so that a sticker upside down or mirrored is seen at once."""

import math
import pathlib
import struct
import zlib

SIDE = 96
SAMPLES = 4

BADGE, RIM, FACE, DARK, CAP = (26, 92, 120), (255, 255, 255), (255, 205, 60), (50, 36, 20), (214, 48, 49)


def in_ellipse(x, y, cx, cy, rx, ry, turn=0.0):
    dx, dy = x - cx, y - cy
    u = dx * math.cos(turn) + dy * math.sin(turn)
    v = dy * math.cos(turn) - dx * math.sin(turn)
    return (u / rx) ** 2 + (v / ry) ** 2 <= 1.0


def color_at(x, y):
    if min(x, y, SIDE - x, SIDE - y) < 5:
        return RIM
    if in_ellipse(x, y, 27, 29, 27, 6.5, -0.62) or (
            in_ellipse(x, y, 31, 30, 19, 17, -0.62) and y + 0.7 * x < 52):
        return CAP
    if not in_ellipse(x, y, 52, 54, 32, 32):
        return BADGE
    if in_ellipse(x, y, 43, 46, 4, 6.5) or in_ellipse(x, y, 65, 46, 4, 6.5):
        return DARK
    if in_ellipse(x, y, 53, 58, 19, 17) and not in_ellipse(x, y, 53, 54, 20, 15) and y > 60:
        return DARK
    return FACE


def pixel_at(column, row):
    offsets = [(i + 0.5) / SAMPLES for i in range(SAMPLES)]
    colors = [color_at(column + dx, row + dy) for dy in offsets for dx in offsets]
    return bytes(round(sum(c[i] for c in colors) / len(colors)) for i in range(3)) + b"\xff"


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


rows = b"".join(b"\0" + b"".join(pixel_at(x, y) for x in range(SIDE)) for y in range(SIDE))
pathlib.Path(__file__).with_name("sticker.png").write_bytes(
    b"\x89PNG\r\n\x1a\n"
    + chunk(b"IHDR", struct.pack(">IIBBBBB", SIDE, SIDE, 8, 6, 0, 0, 0))
    + chunk(b"IDAT", zlib.compress(rows, 9))
    + chunk(b"IEND", b""))
