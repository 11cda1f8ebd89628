"""Compares our metafiles, as another program reads them, with our SVG files of the same pictures.

compare.py PROGRAM FOLDER: PROGRAM writes NAME.emf and NAME.svg into FOLDER. Each metafile goes through emf2svg-conv, both
files through rsvg-convert. Wherever one raster has ink, the other must have ink of that colour within two pixels: lines
stand half a pixel apart, since one format cuts coordinates and the other does not. Differing pixels are marked in
NAME-difference.ppm.
"""

import pathlib
import struct
import subprocess
import sys
import zlib

NEAR = 2         # pixels
TOLERATED = 10   # pixels of a picture that may have no counterpart: single points that anti-aliasing thins out
NAMES = ["paper", "areas", "fine", "screen", "pictures"]  # not "scene": its clip path and wide lines are beyond emf2svg-conv


def read_png(path):
    """Width, height and rows of RGB tuples of a PNG with 8 bits a channel."""
    data = path.read_bytes()
    at, packed = 8, b""
    while at < len(data):
        size, kind = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + size]
        at += 12 + size
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlaced = struct.unpack(">IIBBBBB", body)
            assert (depth, interlaced) == (8, 0) and colour in (2, 6), "unexpected kind of PNG"
        elif kind == b"IDAT":
            packed += body
    step = 3 if colour == 2 else 4
    raw, stride = zlib.decompress(packed), width * step
    rows, above = [], bytearray(stride)
    for y in range(height):
        kind = raw[y * (stride + 1)]
        row = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left = row[i - step] if i >= step else 0
            up, corner = above[i], above[i - step] if i >= step else 0
            if kind == 1:
                row[i] = (row[i] + left) & 255
            elif kind == 2:
                row[i] = (row[i] + up) & 255
            elif kind == 3:
                row[i] = (row[i] + (left + up) // 2) & 255
            elif kind == 4:
                guess = left + up - corner
                best = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))
                row[i] = (row[i] + best[2]) & 255
        rows.append([tuple(row[x * step:x * step + 3]) for x in range(width)])
        above = row
    return rows


def raster(svg):
    png = svg.with_suffix(".png")
    subprocess.run(["rsvg-convert", "-b", "white", "-o", png, svg], check=True)
    return read_png(png)


def inks(rows, strength):
    """Inked pixels with the channels that stay light in them: anti-aliasing changes a colour's strength, not these."""
    found = {}
    for y, row in enumerate(rows):
        for x, pixel in enumerate(row):
            dark = 255 - min(pixel)
            if dark >= strength:
                found[x, y] = tuple(2 * (255 - channel) > dark for channel in pixel)
    return found


def without_counterpart(strong, other):
    offsets = [(x, y) for x in range(-NEAR, NEAR + 1) for y in range(-NEAR, NEAR + 1)]
    return [(x, y) for (x, y), ink in strong.items()
            if not any(other.get((x + dx, y + dy)) == ink for dx, dy in offsets)]


def compare(folder, name):
    emf = folder / f"{name}.emf"
    read = folder / f"{name}-read.svg"
    subprocess.run(["emf2svg-conv", "-i", emf, "-o", read], check=True, stdout=subprocess.DEVNULL)
    left, top = struct.unpack_from("<ii", emf.read_bytes(), 8)
    ours = raster(folder / f"{name}.svg")
    theirs = raster(read)
    shifted = {strength: {(x + left, y + top): ink for (x, y), ink in inks(theirs, strength).items()}
               for strength in (60, 120)}
    height, width = len(ours), len(ours[0])
    strong = {at: ink for at, ink in inks(ours, 120).items()
              if left <= at[0] < left + len(theirs[0]) and top <= at[1] < top + len(theirs)}
    differing = without_counterpart(strong, shifted[60]) + without_counterpart(shifted[120], inks(ours, 60))
    print(f"{name}: {len(strong)} and {len(shifted[120])} pixels inked, {len(differing)} without counterpart")
    if len(strong) < 1000 or len(differing) > TOLERATED:
        marks = bytearray(b"\xff" * (3 * width * height))
        for x, y in differing:
            if 0 <= x < width and 0 <= y < height:
                marks[3 * (y * width + x):3 * (y * width + x) + 3] = b"\xff\x00\x00"
        (folder / f"{name}-difference.ppm").write_bytes(b"P6 %d %d 255\n" % (width, height) + marks)
        return False
    return True


def main():
    folder = pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run([sys.argv[1], folder], check=True)
    return 0 if all([compare(folder, name) for name in NAMES]) else 1


if __name__ == "__main__":
    sys.exit(main())
