"""Makes the icon and cursor files from their drawings: make_icons.py, after a change in icons/. Needs rsvg-convert."""

import pathlib
import struct
import subprocess
import zlib

HERE = pathlib.Path(__file__).parent
SIZES = (16, 20, 24, 32, 40, 48, 256)
HOT_SPOT = (16, 16)


def picture(drawing, size):
    """The drawing as PNG, and as rows of (red, green, blue, opacity) from the top."""
    png = subprocess.run(
        ["rsvg-convert", "-w", str(size), "-h", str(size), str(drawing)], check=True, capture_output=True
    ).stdout
    at, data = 8, b""
    while at < len(png):
        (length,) = struct.unpack_from(">I", png, at)
        if png[at + 4 : at + 8] == b"IHDR":
            assert png[at + 16 : at + 21] == bytes([8, 6, 0, 0, 0]), "8 bits of red, green, blue and opacity"
        if png[at + 4 : at + 8] == b"IDAT":
            data += png[at + 8 : at + 8 + length]
        at += 12 + length
    data = zlib.decompress(data)
    before, rows = bytes(4 * size), []
    for y in range(size):
        kind, row = data[y * (4 * size + 1)], bytearray(data[y * (4 * size + 1) + 1 : (y + 1) * (4 * size + 1)])
        for i in range(len(row)):
            left = row[i - 4] if i > 3 else 0
            corner = before[i - 4] if i > 3 else 0
            up = before[i]
            guess = left + up - corner
            paeth = min((left, up, corner), key=lambda value: abs(guess - value))
            row[i] = (row[i] + (0, left, up, (left + up) // 2, paeth)[kind]) & 255
        before = bytes(row)
        rows.append([tuple(row[i : i + 4]) for i in range(0, len(row), 4)])
    return png, rows


def bitmap(rows):
    """An image of an icon file: colours with opacity, and the mask for those who do not know it."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    width = (size + 31) // 32 * 32
    mask = b""
    for row in reversed(rows):
        bits = sum((a < 128) << (width - 1 - x) for x, (*_, a) in enumerate(row))
        mask += bits.to_bytes(width // 8, "big")
    return header + colours + mask


def icon_file(drawing, sizes, hot_spot=None):
    images = []
    for size in sizes:
        png, rows = picture(drawing, size)
        images.append((size, png if size > 64 else bitmap(rows)))
    data = struct.pack("<HHH", 0, 2 if hot_spot else 1, len(images))
    at = 6 + 16 * len(images)
    for size, image in images:
        data += struct.pack("<BBBBHHII", size & 255, size & 255, 0, 0, *(hot_spot or (1, 32)), len(image), at)
        at += len(image)
    return data + b"".join(image for _, image in images)


for path in sorted((HERE / "icons").glob("icon_*.svg")):
    path.with_suffix(".ico").write_bytes(icon_file(path, SIZES))
(HERE / "icons" / "cursor_4006.cur").write_bytes(icon_file(HERE / "icons" / "cursor_4006.svg", (32,), HOT_SPOT))
