#!/usr/bin/env python3
"""Turns one of our XPM pictures into a Windows .ico file (one 32-bit image with its mask).

Usage: xpm_to_ico.py picture.xpm out.ico
Only the XPM subset used in res/icons is read: "c #RRGGBB" and "c None" colours.
"""
import re
import struct
import sys


def read_xpm(path):
    with open(path, encoding="ascii") as f:
        strings = re.findall(r'"([^"]*)"', f.read())
    width, height, colours, per_pixel = (int(v) for v in strings[0].split()[:4])
    palette = {}
    for entry in strings[1:1 + colours]:
        key, rest = entry[:per_pixel], entry[per_pixel:].split()
        value = rest[rest.index("c") + 1]
        if value.lower() == "none":
            palette[key] = None
        elif re.fullmatch(r"#[0-9A-Fa-f]{6}", value):
            palette[key] = tuple(int(value[i:i + 2], 16) for i in (1, 3, 5))
        else:
            raise SystemExit(f"{path}: colour {value!r} is not #RRGGBB or None")
    rows = strings[1 + colours:1 + colours + height]
    if len(rows) != height or any(len(r) != width * per_pixel for r in rows):
        raise SystemExit(f"{path}: expected {height} rows of {width} pixels")
    pixels = [[palette[r[x * per_pixel:(x + 1) * per_pixel]] for x in range(width)]
              for r in rows]
    return width, height, pixels


def ico_bytes(width, height, pixels):
    colour = bytearray()
    mask = bytearray()
    mask_stride = ((width + 31) // 32) * 4
    for row in reversed(pixels):  # bitmaps are stored bottom-up
        bits = bytearray(mask_stride)
        for x, rgb in enumerate(row):
            if rgb is None:
                colour += bytes((0, 0, 0, 0))
                bits[x // 8] |= 0x80 >> (x % 8)
            else:
                red, green, blue = rgb
                colour += bytes((blue, green, red, 255))
        mask += bits
    header = struct.pack("<IiiHHIIiiII", 40, width, height * 2, 1, 32, 0,
                         len(colour) + len(mask), 0, 0, 0, 0)
    image = header + colour + mask
    directory = struct.pack("<HHH", 0, 1, 1)
    entry = struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(image),
                        6 + 16)
    return directory + entry + image


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    width, height, pixels = read_xpm(sys.argv[1])
    with open(sys.argv[2], "wb") as out:
        out.write(ico_bytes(width, height, pixels))


if __name__ == "__main__":
    main()
