#!/usr/bin/env python3
"""many_calls.py LINUX WINDOWS COUNT: velumark-calc of Linux and velumark-calc.exe under Wine answer COUNT calls by chance
on both samples with the same bytes: stakes and offsets to coordinates, coordinates to stakes, elevations. By hand; ten
million calls take about half an hour. Prints how many calls a second each of them answered.
"""

import hashlib
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
WINE = os.environ.get("VM_WINE", "/usr/lib/wine/wine64")
AT_ONCE = 500_000


def answers(command, folder, words):
    """Hash of the answer, its lines, seconds."""
    begin = time.monotonic()
    run = subprocess.Popen([*command, "--workspace", ".", *words], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    digest, lines = hashlib.sha256(), 0
    while piece := run.stdout.read(1 << 20):
        digest.update(piece)
        lines += piece.count(b"\n")
    return run.wait(), digest.hexdigest(), lines, time.monotonic() - begin


def main(linux, windows, count):
    chance = random.Random(count)
    programs = {"Linux": [os.path.abspath(linux)], "Windows": [WINE, os.path.abspath(windows)]}
    seconds = dict.fromkeys(programs, 0.0)
    called = different = 0
    with tempfile.TemporaryDirectory(prefix="many-") as folder:
        folder = pathlib.Path(folder)
        shutil.copytree(SOURCE / "samples", folder / "参数文件")
        roads = {}
        for project in ("示例一", "示例二"):
            run = subprocess.run([linux, "--workspace", ".", project, "tables", "--format", "json"], cwd=folder, capture_output=True, check=True)
            roads[project] = json.loads(run.stdout)
        while called < count:
            project = chance.choice(list(roads))
            road = roads[project]
            first, last, xs, ys = road["gElemLc"][0], road["gElemLc"][-1], road["gElemX"][:-1], road["gElemY"][:-1]
            rows = min(AT_ONCE, count - called)
            kind = chance.choice(("coords", "inverse", "elevation"))
            with open(folder / "calls.csv", "w", newline="") as out:
                for _ in range(rows):
                    if kind == "inverse":
                        i = chance.randrange(len(xs))
                        out.write(f"{xs[i] + chance.gauss(0, 60):.3f},{ys[i] + chance.gauss(0, 60):.3f}\r\n")
                    else:
                        out.write(f"{chance.uniform(first, last):.3f},{chance.uniform(-60, 60):.3f}\r\n")
            words = [project, kind, "--file", "calls.csv", "--no-limit", "--format", "csv"]
            found = {name: answers(command, folder, words) for name, command in programs.items()}
            for name, (_, _, _, took) in found.items():
                seconds[name] += took
            if found["Linux"][:3] != found["Windows"][:3] or found["Linux"][2] < rows // 2:
                different += 1
                print("different:", project, kind, found, flush=True)
            called += rows
            print(f"{called} calls, {project} {kind}: {found['Linux'][2]} lines, {found['Linux'][1][:16]}", flush=True)
    print(", ".join(f"{name}: {called / took:.0f} calls a second" for name, took in seconds.items()))
    print(f"{called} calls, {different} parts different")
    sys.exit(1 if different else 0)


main(sys.argv[1], sys.argv[2], int(sys.argv[3]))
