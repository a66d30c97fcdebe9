#!/usr/bin/env python3
"""Joins pictures of sheets to one, with the desk between them, and writes it as PNG.

    join_sheets.py ACROSS GAP OUT.png SHEET.ppm...
"""
import struct
import sys
import zlib

DESK = b"\x99\x99\x99"


def read_sheet(path):
    """A picture's rows: pdftoppm's form, of three bytes a pixel."""
    with open(path, "rb") as file:
        kind, size, _, pixels = file.read().split(b"\n", 3)
    if kind != b"P6":
        sys.exit(f"{path}: no picture in colour")
    width, height = map(int, size.split())
    return [pixels[row * width * 3:(row + 1) * width * 3] for row in range(height)]


def join(sheets, across, gap):
    rows = []
    for first in range(0, len(sheets), across):
        side_by_side = sheets[first:first + across]
        between = DESK * gap
        width = sum(len(sheet[0]) // 3 + gap for sheet in side_by_side) + gap
        rows += [DESK * width] * gap
        rows += [between + between.join(parts) + between for parts in zip(*side_by_side)]
    return rows + [DESK * width] * gap


def write_png(path, rows):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    head = struct.pack(">IIBBBBB", len(rows[0]) // 3, len(rows), 8, 2, 0, 0, 0)
    body = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", body) + chunk(b"IEND", b""))


def main():
    across, gap, out, *paths = sys.argv[1:]
    write_png(out, join([read_sheet(path) for path in paths], int(across), int(gap)))


if __name__ == "__main__":
    main()
