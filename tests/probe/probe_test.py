"""Drives engine_probe through a pipe: probe_test.py PROBE SAMPLES"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

probe, samples = sys.argv[1], pathlib.Path(sys.argv[2])
process = subprocess.Popen([probe], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8")
failures = 0


def ask(request):
    process.stdin.write(request + "\n")
    process.stdin.flush()
    return process.stdout.readline().rstrip("\n")


def tables():
    lines = {}
    line = ask("tables")
    while line != ".":
        name, count, *values = line.split(" ")
        expect(f"length of {name}", len(values), int(count))
        lines[name] = values
        line = process.stdout.readline().rstrip("\n")
    return lines


def expect(what, got, expected):
    global failures
    if got != expected:
        failures += 1
        print(f"{what}: got {got!r}, expected {expected!r}")


def answers(request, expected):
    expect(request, ask(request), expected)


# Before any load.
for request, expected in [
    ("StakeToXY 1 2 3", "0 0 0 0"),
    ("XYToStake 1 2", "error 9 下标越界"),
    ("ElevationAt 0 0", "error 9 下标越界"),
    ("ResolveStake frmDgdZb -110", "110"),
    ("ResolveStake frmPlfyStart -110", "-110"),
    ("ToNominal 110.0625", "110.0625 0"),
    ("Azimuth -5 5", "134.596"),
    ("Azimuth -5 0", "0"),
    ("Distance 3 4", "5"),
    ("DegToDms 725", "365"),
    ("DegToDms4 45.7625", "45.454500000000003"),
    ("DmsToDeg 45.4545", "45.762500000000003"),
    ("NumText -0.25", "-.25"),
    ("LeadingZeroText -0.25", "-0.25"),
    ("FormatFixed3 -0.0004", "-0.000"),
    ("FormatStake 12345.678", "K12+345.678"),
    ("FormatDms 123.4530", "123度45分30秒"),
    ("FormatDmsSeconds 123.7519", "123°45′06.84″"),
    ("RoundHalfUp3 -0.0625", "-0.062"),
    ("Round 0.0625 3", "0.062"),
    ("IsIntegerKey 46", "0"),
    ("IsUnsignedDecimalKey 46", "1"),
    ("IsSignedDecimalKey 45", "1"),
    ("ParseNumber  -.5 ", "-0.5"),
    ("ParseNumber 1.2.3", "error 13 类型不匹配"),
    ("ParseNumber 1e999", "error 6 溢出"),
    ("ElementEnd 1 0 0 90 5 6 0", "error 11 除数为零"),
    ("ForwardElement -100 0 0 0 1 2", "101 2 0"),
    ("FormatStake", "error 0 1 numbers are wanted"),
    ("FormatStake x", "error 13 类型不匹配"),
    ("ResolveStake frmNone 1", "error 0 no such variant"),
    ("Nothing 1", "error 0 no such request"),
    ("", "error 0 no such request"),
    ("load /no/such/folder", "error 76 路径未找到"),
]:
    answers(request, expected)

with tempfile.TemporaryDirectory() as root:

    def project(name, files):
        folder = pathlib.Path(root, name)
        folder.mkdir()
        for file, text in files.items():
            folder.joinpath(file).write_bytes(text.encode("gbk"))
        return folder

    # A straight to the north as one block, an overlap, a grade, in a folder whose name holds a blank.
    folder = project(
        "a b",
        {
            "其他参数.txt": "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n",
            "断链参数.txt": "200,180\r\n",
            "导线点参数.txt": "点 1%,10,20,\r\n",
            "平曲线参数.txt": "0,400,1000,2000,0,0,0\r\n",
            "竖曲线参数.txt": "0,100\r\n100,101,0\r\n400,98\r\n",
        },
    )
    answers(f"load {folder}", "ok")
    loaded = tables()
    expect("gElemLc", loaded["gElemLc"], ["0", "420.00009999999997"])
    expect("gDxdName", loaded["gDxdName"], ["点%201%25"])
    expect("gCgType", loaded["gCgType"], ["0"])
    expect("gHasDl", loaded["gHasDl"], ["-1"])
    expect("length of gZdJd", len(loaded["gZdJd"]), 501)
    answers("ResolveStake frmDgdZb -190", "210")
    answers("ResolveStake TableRow -190", "-170")
    answers("ToNominal 215", "195 1")
    answers("XYToStake 1215 2003", "-K0+195.000\t右3.000米\t215")
    answers("StakeToXY 218 90 7", "1218 2007 0 5")  # 3 and 4 from the target before
    answers("ElevationAt 50 0", "100.5")

    folder = project("gap", {"断链参数.txt": "100,120\r\n", "竖曲线参数.txt": "110,5\r\n200,6\r\n"})
    answers(f"load {folder}", "gap")
    answers("ResolveStake frmDgdGc 110", "gap")
    folder = project("hang", {"竖曲线参数.txt": "abc\r\n"})
    answers(f"load {folder}", "error 0 竖曲线参数.txt, line 1: no line of the file has a comma")

    for sample in ("示例一", "示例二"):
        folder = pathlib.Path(root, sample)
        shutil.copytree(samples / sample, folder)
        answers(f"load {folder}", "ok")
        expect(f"elements of {sample}", int(tables()["gElemCount"][0]) > 10, True)

process.stdin.close()
expect("exit", process.wait(), 0)
sys.exit(1 if failures else 0)
