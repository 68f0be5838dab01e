#!/usr/bin/env python3
"""The pictures of the windows show one text cursor at most: one field has the focus. What a window shows at 100 % it
shows at 150 % as well.

    pictures_test.py FOLDER
"""
import pathlib
import subprocess
import sys


def grey(file):
    """Width, height and the bytes of a picture."""
    pnm = subprocess.run(["pngtopnm", file], check=True, capture_output=True).stdout
    pgm = subprocess.run(["ppmtopgm"], input=pnm, check=True, capture_output=True).stdout
    _, size, _, pixels = pgm.split(b"\n", 3)
    width, height = map(int, size.split())
    assert len(pixels) == width * height, file
    return width, height, pixels


def cursors(file):
    """Upright dark lines as high as a line of text, with nothing to the right: borders are longer, strokes shorter."""
    width, height, pixels = grey(file)
    found = []
    for x in range(2, width - 2):
        column, beside = pixels[x::width], pixels[x + 1::width]
        y = 0
        while y < height:
            length = 0
            while y + length < height and column[y + length] < 60 and beside[y + length] > 190:
                length += 1
            if 13 <= length <= 24:
                found.append((x, y))
            y += max(length, 1)
    return found


def small(file):
    """The same in few grey cells, whatever its size."""
    scaled = subprocess.run(["pamscale", "-xsize=60", "-ysize=45"], input=subprocess.run(
        ["pngtopnm", file], check=True, capture_output=True).stdout, check=True, capture_output=True).stdout
    pgm = subprocess.run(["ppmtopgm"], input=scaled, check=True, capture_output=True).stdout
    return pgm.split(b"\n", 3)[3]


def difference(file):
    """Of the two pictures of a window: the mean of the cells', 1 is black against white."""
    one, other = small(file), small(file.with_name(file.stem + "-150.png"))
    return sum(abs(a - b) for a, b in zip(one, other)) / len(one) / 255


def main():
    files = [f for f in sorted(pathlib.Path(sys.argv[1]).glob("frm*.png")) if not f.stem.endswith("-150")]
    counts = {file.name: cursors(file) for file in files}
    faults = ["%s: %s" % (name, places) for name, places in counts.items() if len(places) > 1]
    if len(files) < 25 or not any(counts.values()):
        faults.append("%d pictures, none with a cursor: is this how cursors look?" % len(files))
    pairs = [f for f in sorted(pathlib.Path(sys.argv[1]).glob("*.png")) if f.with_name(f.stem + "-150.png").exists()]
    for file in pairs:
        if (apart := difference(file)) > 0.02:
            faults.append("%s: another window at 150 %%: %.3f" % (file.name, apart))
    if len(pairs) < 40:
        faults.append("%d pairs of pictures" % len(pairs))
    print("\n".join(faults) or "%d pictures" % len(files))
    return 1 if faults else 0


sys.exit(main())
