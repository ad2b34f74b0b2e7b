#!/usr/bin/env python3
"""Turns one of our XPM pictures into a 24-bit Windows .bmp file.

Usage: xpm_to_bmp.py picture.xpm out.bmp
Transparent pixels ("c None") become the button face's light grey, #C0C0C0.
"""
import os
import struct
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from xpm_to_ico import read_xpm  # noqa: E402

FACE_GREY = (0xC0, 0xC0, 0xC0)


def bmp_bytes(width, height, pixels):
    stride = (width * 3 + 3) // 4 * 4
    image = bytearray()
    for row in reversed(pixels):  # bitmaps are stored bottom-up
        line = bytearray()
        for rgb in row:
            red, green, blue = rgb if rgb is not None else FACE_GREY
            line += bytes((blue, green, red))
        image += line + bytes(stride - len(line))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(image), 2835, 2835, 0, 0)
    header = struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(image), 0, 0, 14 + len(info))
    return header + info + image


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    width, height, pixels = read_xpm(sys.argv[1])
    with open(sys.argv[2], "wb") as out:
        out.write(bmp_bytes(width, height, pixels))


if __name__ == "__main__":
    main()
