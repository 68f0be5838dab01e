"""Has gnumeric turn workbooks of the tests into text and compares the texts."""

import csv
import subprocess
import sys
import tempfile
from pathlib import Path

folder = Path(sys.argv[1])


def rows(name):
    with tempfile.NamedTemporaryFile(suffix=".csv") as out:
        run = subprocess.run(["ssconvert", str(folder / f"{name}.xls"), out.name], capture_output=True, text=True, check=True)
        # gnumeric has no table of widths for Chinese fonts and says so
        noise = [line for line in run.stderr.splitlines() if line and "unknown widths for font" not in line]
        assert not noise, noise
        with open(out.name, encoding="utf-8", newline="") as f:
            return list(csv.reader(f))


def text(seed, n):
    return "".join(chr(0x4E00 + (seed * 7919 + i * 31) % 0x5000) for i in range(n))


for path in sorted(folder.glob("*.xls")):
    rows(path.stem)

assert rows("exported")[1:3] == [["序号", "里   程", "中 边 桩", "高   程"], ["1", "K0+100.000", "中桩", "105.200"]]
assert rows("texts")[1] == ["𠀀丁𪚥", " blanks around ", "two\nlines", "ASCII"]
tall = rows("tall")
assert len(tall) == 65536
assert tall[65535] == ["65536", "K65+536", "右"]
chinese = rows("chinese")
for row in range(1, 401):
    assert chinese[row - 1] == [text(row * 5 + col, (row * 37 + col * 101) % 700) for col in range(1, 6)], row
