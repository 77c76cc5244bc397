#!/usr/bin/env python3
"""Draws the trainer's pictures as 24-bit bitmaps whose sizes are powers of two.

Use: pictures.py FOLDER
"""
import struct
import sys

WHITE, RED, NAVY, GREY = (245, 245, 240), (230, 60, 40), (20, 40, 110), (90, 100, 120)


def wing(x, y, width, height):
    """Spanwise stripes: the long side of the picture lies along the span."""
    across = y / height
    if 0.30 < across < 0.45:
        return RED
    if 0.47 < across < 0.53:
        return NAVY
    return WHITE


def body(x, y, width, height):
    """A red body with a white flash along it and dark windows."""
    along, round_ = x / width, (y / height) % 0.5
    if 0.20 < along < 0.36 and 0.13 < round_ < 0.22:
        return GREY
    if abs(round_ - 0.07 - 0.10 * along) < 0.03:
        return WHITE
    return RED


def fin(x, y, width, height):
    """A checked upper half."""
    if y < height // 2:
        return WHITE if (x // 8 + y // 8) % 2 else RED
    return NAVY


def write_bitmap(path, width, height, colour):
    rows = []
    for y in reversed(range(height)):
        row = b"".join(bytes(reversed(colour(x, y, width, height))) for x in range(width))
        rows.append(row + b"\0" * (-len(row) % 4))
    data = b"".join(rows)
    head = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    with open(path, "wb") as file:
        file.write(head + info + data)


if __name__ == "__main__":
    folder = sys.argv[1]
    write_bitmap(f"{folder}/trainer_wing.bmp", 128, 64, wing)
    write_bitmap(f"{folder}/trainer_body.bmp", 256, 128, body)
    write_bitmap(f"{folder}/trainer_fin.bmp", 64, 64, fin)
