#!/usr/bin/env python3
"""Writes what is on a virtual display to a PNG file: screenshot.py FRAMEBUFFER FILE.png

The framebuffer is the file that Xvfb keeps in the folder of its option -fbdir: an XWD header, a colour map of 12
bytes an entry, and the rows, four bytes a pixel, blue first.
"""

import struct
import sys
import zlib


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


with open(sys.argv[1], "rb") as file:
    screen = file.read()
header_size, _, _, _, width, height = struct.unpack_from(">6I", screen)
row_bytes, = struct.unpack_from(">I", screen, 48)
colours, = struct.unpack_from(">I", screen, 76)
first_row = header_size + colours * 12

rows = bytearray()
for y in range(height):
    start = first_row + y * row_bytes
    pixels = screen[start:start + width * 4]
    row = bytearray(width * 3)
    row[0::3], row[1::3], row[2::3] = pixels[2::4], pixels[1::4], pixels[0::4]
    rows += b"\0" + row  # filtered by nothing

with open(sys.argv[2], "wb") as file:
    file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0)) +
               chunk(b"IDAT", zlib.compress(bytes(rows), 6)) + chunk(b"IEND", b""))
