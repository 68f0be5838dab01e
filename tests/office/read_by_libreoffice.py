"""Has LibreOffice turn the workbooks of the tests into text, all in one run, and compares the texts."""

import csv
import subprocess
import sys
import tempfile
from pathlib import Path

folder = Path(sys.argv[1])


def text(seed, n):
    return "".join(chr(0x4E00 + (seed * 7919 + i * 31) % 0x5000) for i in range(n))


with tempfile.TemporaryDirectory() as scratch:
    # comma, quote, UTF-8, from line 1, cells as shown
    run = subprocess.run(
        ["soffice", "--headless", f"-env:UserInstallation=file://{scratch}/profile", "--convert-to",
         "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true", "--outdir", scratch,
         *map(str, sorted(folder.glob("*.xls")))],
        capture_output=True, text=True, check=True)
    noise = [line for line in run.stderr.splitlines() if "javaldx" not in line]
    assert not noise, noise

    def rows(name):
        with open(f"{scratch}/{name}.csv", encoding="utf-8", newline="") as f:
            return list(csv.reader(f))

    assert rows("exported") == [
        ["青山至白水公路", "", "", ""], ["序号", "里   程", "中 边 桩", "高   程"],
        ["1", "K0+100.000", "中桩", "105.200"], ["2", "K0+120.000", "左10", "105.050"],
        ["3", "K0+140.500", "右7.5", "-0.004"]]
    assert rows("texts") == [
        ["ASCII", "déjà vu", "里   程", "附　合　导　线　计　算　表"],
        ["𠀀丁𪚥", " blanks around ", "two\nlines", "ASCII"], ["12.5", "= no formula", "", ""]]
    assert rows("typed")[:2] == [["12.5", "012.500"], ["-0.004", "-0.004"]]
    assert [row[0] for row in rows("formats")] == ["1234.56789", "1234.56789", "1235", "1234.57", "1234.5679", "1234.568"]

    tall = rows("tall")
    assert len(tall) == 65536
    assert tall[65535] == ["65536", "K65+536", "右"]
    chinese = rows("chinese")
    for row in range(1, 401):
        assert chinese[row - 1] == [text(row * 5 + col, (row * 37 + col * 101) % 700) for col in range(1, 6)], row
