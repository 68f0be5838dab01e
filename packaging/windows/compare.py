#!/usr/bin/env python3
"""compare.py LINUX WINDOWS [--calls N]: velumark-calc of Linux and velumark-calc.exe under Wine do the same work.

Every command runs on both samples in two workspaces that start alike; N calls by chance (stakes to points and back,
elevations) come as files. Standard output and standard error, the code at the end, and the bytes of every file that
stands there afterwards must agree. Only .xlsx is compared by what is in it: its packing is the library's.
"""

import argparse
import hashlib
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import zipfile

SOURCE = pathlib.Path(__file__).resolve().parents[2]
WINE = os.environ.get("VM_WINE", "/usr/lib/wine/wine64")


class Machine:
    def __init__(self, command, folder):
        self.command = command
        self.folder = folder
        (folder / "参数文件").mkdir(parents=True)
        for sample in (SOURCE / "samples").iterdir():
            if sample.is_dir():
                shutil.copytree(sample, folder / "参数文件" / sample.name)
            else:
                shutil.copy(sample, folder / ("参数文件" if sample.suffix == ".txt" else "."))

    def run(self, words, given=b""):
        for _ in range(3):
            done = subprocess.run([*self.command, *words], cwd=self.folder, input=given, capture_output=True)
            # Wine's own services share the stream; what they say of themselves begins so.
            lines = done.stderr.splitlines(True)
            said = b"".join(line for line in lines if line.startswith(b"wine: "))
            err = b"".join(line for line in lines if not line.startswith(b"wine: "))
            if not (done.returncode and said and not err and not done.stdout):
                break
            # A refusal has a reason of its own beside it: here Wine has not started the program.
            print(f"once more, {' '.join(words)}: {said.decode(errors='replace')}", file=sys.stderr)
        return {"code": done.returncode, "out": done.stdout, "err": err}

    def files(self):
        return {str(path.relative_to(self.folder)): content(path) for path in sorted(self.folder.rglob("*"))}


def content(path):
    if path.is_dir():
        return "folder"
    if path.suffix == ".xlsx":
        with zipfile.ZipFile(path) as book:
            return {name: book.read(name) for name in book.namelist()}
    return path.read_bytes()


def stakes_of(linux, project):
    # The closing row's stake is the road's end.
    tables = json.loads(linux.run(["--workspace", ".", project, "tables", "--format", "json"])["out"])
    return tables["gElemLc"][0], tables["gElemLc"][-1], tables["gElemX"][:-1], tables["gElemY"][:-1]


def calls_by_chance(chance, linux, project, count):
    """(name of a file, its lines, the command that takes it)"""
    first, last, xs, ys = stakes_of(linux, project)
    far = lambda: f"{chance.uniform(-60, 60):.3f}"
    stake = lambda: f"{chance.uniform(first - 20, last + 20):.{chance.choice([0, 1, 3, 3])}f}"
    def point():
        i = chance.randrange(len(xs))
        return f"{xs[i] + chance.gauss(0, 80):.3f},{ys[i] + chance.gauss(0, 80):.3f}"
    skew = lambda: f"{chance.randrange(360)}.{chance.randrange(60):02}{chance.randrange(60):02}"
    third = count // 3
    yield "点.csv", [f"{stake()},{far()}" + (f",{skew()}" if chance.random() < 0.5 else "") for _ in range(third)], \
        ["coords", "--station", "2856000,512000"]
    yield "坐标.csv", [point() for _ in range(third)], ["inverse"]
    yield "高程.csv", [f"{stake()},{far()}" for _ in range(count - 2 * third)], ["elevation", "--thickness", "0.18"]


def commands(first, last, project):
    """Words of the command line behind --workspace; results go into files of every kind."""
    a, b, middle = f"{first:.0f}", f"{last:.0f}", f"{(first + last) / 2:.3f}"
    ranged = ["--from", a, "--to", b, "--step", "20"]
    for ending in ("xls", "csv", "json", "xlsx"):
        yield [project, "stakeout", *ranged, "--offset", "12.5", "-o", f"放样.{ending}"]
    yield [project, "stakeout", *ranged, "--offset", "5", "--skew", "60.3000"]
    yield [project, "coords", "--at", middle, "--side", "left", "--offset", "5"]
    yield [project, "coords", "--at", "K1+2x", "--offset", "5"]
    yield [project, "elevation", *ranged, "--offset", "5", "-o", "高程.xls"]
    yield [project, "corners", *ranged[:4], "--step", "100", "--front", "2", "--back", "2", "--left", "12", "--right", "12", "--skew", "60.0000", "-o", "角点.xls"]
    yield [project, "mainpoints", "-o", "主点.xls"]
    yield [project, "tables"]
    yield [project, "tables", "--format", "json", "-o", "表.json"]
    yield [project, "check"]
    yield [project, "check", "--accuracy"]
    for drawing in (["--plan", "--scale", "1:2000", "-o", "平面图.svg"], ["--plan", "-o", "平面图.dxf"],
                    ["--profile", *ranged[:4], "-o", "纵断面图.svg"], ["--profile", *ranged[:4], "-o", "纵断面图.dxf"],
                    ["--section", middle, "-o", "横断面图.dxf"]):
        yield [project, "plot", *drawing]
    yield [project, "export", "--geojson", "线.geojson", "--gk", "117", *ranged]
    yield [project, "export", "--kml", "线.kml", "--gk", "117", *ranged]
    for ending in ("dat", "gsi", "csv", "txt"):
        yield [project, "points", *ranged, "--offset", "-12.5,0,12.5", "--main", "-o", f"点.{ending}"]
    yield [project, "export", "--landxml", "线.xml"]
    yield ["import", "线.xml", "--list"]
    yield ["import", "线.xml", "--name", "导入" + project]
    yield ["导入" + project, "tables"]
    yield [project, "points", *ranged, "--offset", "0", "-o", "实测.csv"]
    yield [project, "compare", "实测.csv"]
    yield [project, "compare", "实测.csv", "-o", "比较.xlsx"]
    yield [project, "phone", "--name", "road" + str(len(project.encode()) + ord(project[-1]) % 7)]
    yield ["没有的项目", "tables"]
    yield [project, "没有的命令"]
    yield [project, "coords", "--file", "没有的文件.csv"]
    yield [project, "stakeout", *ranged, "-o", "没有的目录/放样.xls"]
    yield [project, "stakeout", *ranged, "-o", "参数文件"]


def main():
    options = argparse.ArgumentParser()
    options.add_argument("linux")
    options.add_argument("windows")
    options.add_argument("--calls", type=int, default=10000)
    options.add_argument("--seed", type=int, default=17)
    given = options.parse_args()
    chance = random.Random(given.seed)
    different, compared, rows = [], 0, 0

    with tempfile.TemporaryDirectory(prefix="比较-") as folder:
        folder = pathlib.Path(folder)
        linux = Machine([os.path.abspath(given.linux)], folder / "一 甲")
        windows = Machine([WINE, os.path.abspath(given.windows)], folder / "一 乙")

        def compare(words, text=b""):
            nonlocal compared
            words = ["--workspace", ".", *words] if words[0] != "traverse" else words
            one, other = linux.run(words, text), windows.run(words, text)
            compared += 1
            for what in ("code", "out", "err"):
                if one[what] != other[what]:
                    different.append(f"{' '.join(words)}: {what}\n    {shown(one[what])}\n    {shown(other[what])}")
            return one

        for project in ("示例一", "示例二"):
            first, last, *_ = stakes_of(linux, project)
            for words in commands(first, last, project):
                compare(words)
            for name, lines, words in calls_by_chance(chance, linux, project, given.calls // 2):
                for machine in (linux, windows):
                    (machine.folder / name).write_text("".join(line + "\r\n" for line in lines), newline="")
                rows += len(lines)
                compare([project, *words, "--file", name, "--format", "csv"])
                compare([project, *words, "--file", "-"], "".join(line + "\n" for line in lines[:50]).encode())
        compare(["traverse", "--file", "附合导线.csv", "--left", "-o", "计算表.xls", "--dxf", "导线图.dxf"])
        compare(["list"])
        compare(["list", "--format", "json"])

        ours, theirs = linux.files(), windows.files()
        for name in sorted(set(ours) | set(theirs)):
            if ours.get(name) != theirs.get(name):
                different.append(f"{name}: {shown(ours.get(name))}\n    {shown(theirs.get(name))}")
    print("\n".join(different[:30]))
    expected = {".xls", ".dxf", ".svg", ".json", ".csv", ".xlsx", ".geojson", ".kml", ".gsi"}
    missing = expected - {pathlib.Path(name).suffix for name in ours}
    if missing:
        print("no file of the kinds", *sorted(missing))
    if rows < given.calls:
        print(f"{rows} calls by chance instead of {given.calls}")
    print(f"{compared} commands, {rows} calls by chance, {len(ours)} files: {len(different)} differences")
    sys.exit(1 if different or missing or rows < given.calls else 0)


def shown(value):
    if isinstance(value, bytes) and len(value) > 300:
        return f"{len(value)} bytes, {hashlib.sha256(value).hexdigest()[:16]}, {value[:120]!r}"
    return repr(value)[:400]


main()
