#!/usr/bin/env python3
"""Checks that a screenshot has the width, is light or dark, and is no blank page.
Usage: report_shot.py PNG WIDTH light|dark"""

import struct
import sys
import zlib


def pixels(data):
    """The rows of a PNG with 8 bits for each of three or four colours, without its filters."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    width, height, depth, kind = struct.unpack(">IIBB", data[16:26])
    assert depth == 8 and kind in (2, 6)
    packed, at = b"", 8
    while at < len(data):
        size, name = struct.unpack(">I4s", data[at:at + 8])
        packed += data[at + 8:at + 8 + size] if name == b"IDAT" else b""
        at += size + 12
    raw, step = zlib.decompress(packed), 3 if kind == 2 else 4
    row, rows = bytearray(width * step), []
    for y in range(height):
        start = y * (width * step + 1)
        way, line = raw[start], bytearray(raw[start + 1:start + 1 + width * step])
        for x in range(len(line)) if way else ():
            left = line[x - step] if x >= step else 0
            above, corner = row[x], row[x - step] if x >= step else 0
            if way == 4:
                nearest = left + above - corner
                guess = min((left, above, corner), key=lambda c: abs(nearest - c))
            else:
                guess = (0, left, above, (left + above) // 2)[way]
            line[x] = (line[x] + guess) % 256
        row = line
        rows.append(row)
    return width, step, rows


with open(sys.argv[1], "rb") as file:
    got_width, step, lines = pixels(file.read())
ground = sum(lines[0][:3]) / 3
marked = sum(1 for line in lines if len(set(line[0::step])) > 8)  # rows that text crosses
problems = []
if got_width != int(sys.argv[2]):
    problems.append(f"it is {got_width} wide")
if (ground < 128) != (sys.argv[3] == "dark"):
    problems.append(f"its ground has the lightness {ground:.0f}")
if marked < len(lines) / 4:
    problems.append(f"text crosses only {marked} of {len(lines)} rows")
for problem in problems:
    print(f"report_shot: {problem}", file=sys.stderr)
sys.exit(len(problems) > 0)
