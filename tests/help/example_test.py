#!/usr/bin/env python3
"""The worked example of the help: its printed tables follow from the coordinates by the textbook's formulas, the
parameter files that come of typing them are those in tests/data/worked_example, and the program gives what the chapter
says. The files for batch runs beside the samples give a result for each of their lines.

    example_test.py SOURCE_DIR VELUMARK_CALC
"""
import csv
import io
import math
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

faults = []


def expect(what, actual, wanted, tolerance):
    if not abs(actual - wanted) <= tolerance:
        faults.append("%s: %r instead of %r" % (what, actual, wanted))


def rows_of(chapter, head):
    """The rows of the table whose head begins so, as lists of texts."""
    at = chapter.index("| " + head)
    lines = chapter[at:].split("\n\n", 1)[0].split("\n")[2:]
    return [[cell.strip() for cell in line.strip("|").split("|")] for line in lines]


def stake(text):
    km, metres = re.fullmatch(r"K(\d+)\+([\d.]+)", text).groups()
    return round(1000 * int(km) + float(metres), 3)


class Curve:
    """An intersection point between two others: clothoids of equal length, series to the fifth power of L / R."""

    def __init__(self, before, here, after, radius, length):
        turn = lambda a, b: math.atan2(b[1] - a[1], b[0] - a[0])
        self.azimuth = turn(before, here)
        self.angle = (turn(here, after) - self.azimuth + math.pi) % (2 * math.pi) - math.pi
        shift = length**2 / 24 / radius - length**4 / 2688 / radius**3
        along = length / 2 - length**3 / 240 / radius**2 + length**5 / 34560 / radius**4
        half = abs(self.angle) / 2
        self.tangent = (radius + shift) * math.tan(half) + along
        self.arc = radius * (abs(self.angle) - length / radius)
        self.length = self.arc + 2 * length
        self.secant = (radius + shift) / math.cos(half) - radius
        self.leg = math.dist(before, here)
        # From the point towards the centre: half way between the legs.
        inwards = self.azimuth + self.angle / 2 + math.copysign(math.pi / 2, self.angle)
        self.middle = (here[0] + self.secant * math.cos(inwards), here[1] + self.secant * math.sin(inwards))


def packed(text):
    side, degrees, minutes, seconds = re.fullmatch(r"([左右]) (\d+)°(\d+)′([\d.]+)″", text).groups()
    return (1 if side == "右" else -1) * (int(degrees) + int(minutes) / 60 + float(seconds) / 3600)


def elevation(grades, at):
    """Parabolic vertical curves: y = distance from the nearer end, squared, over twice the radius."""
    for i in range(1, len(grades) - 1):
        (s0, h0, _), (s, h, radius), (s2, h2, _) = grades[i - 1:i + 2]
        before, after = (h - h0) / (s - s0), (h2 - h) / (s2 - s)
        tangent = radius * abs(after - before) / 2
        if abs(at - s) <= tangent:
            slope = before if at < s else after
            return h + (at - s) * slope + math.copysign((tangent - abs(at - s)) ** 2 / 2 / radius, after - before)
    for (s0, h0, _), (s, h, _) in zip(grades, grades[1:]):
        if s0 <= at <= s:
            return h0 + (at - s0) * (h - h0) / (s - s0)


def main():
    source, calc = pathlib.Path(sys.argv[1]), sys.argv[2]
    chapter = (source / "help/11-example.md").read_text(encoding="utf-8")
    typed = source / "tests/data/worked_example"
    fields = lambda name: [line.split(",") for line in (typed / name).read_bytes().decode("gbk").split("\r\n")[:-1]]

    def asked(project, *words, given=None):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(project, folder + "/项目")
            done = subprocess.run([calc, "--folder", folder + "/项目", *words, "--format", "csv"], input=given,
                                  capture_output=True, text=True, encoding="utf-8")
        if done.returncode != 0:
            faults.append("%s: %s" % (words, done.stderr))
        return list(csv.reader(io.StringIO(done.stdout.lstrip("\ufeff"))))[1:], done.stderr

    # The printed table from the coordinates alone.
    ends = re.search(r"起点 K0\+000，X（北）([\d.]+)，Y（东）([\d.]+)；终点 (K2\+[\d.]+)，X ([\d.]+)，Y ([\d.]+)", chapter)
    first, last = (float(ends[1]), float(ends[2])), (float(ends[4]), float(ends[5]))
    points = rows_of(chapter, "交点 |")
    places = [first] + [(float(row[1]), float(row[2])) for row in points] + [last]
    at, used, curves = 0.0, 0.0, []
    for i, row in enumerate(points):
        radius, spiral = float(row[4]), float(row[5])
        curve = Curve(places[i], places[i + 1], places[i + 2], radius, spiral)
        curves.append(curve)
        zh = at + curve.leg - used - curve.tangent
        expect(row[0] + " 转角", packed(row[3]), math.degrees(curve.angle), 0.06 / 3600)
        for name, text, wanted in (("T", row[6], curve.tangent), ("L", row[7], curve.length)):
            expect(row[0] + " " + name, float(text), wanted, 0.00051)
        wanted = [zh, zh + spiral, zh + curve.length / 2, zh + curve.length - spiral, zh + curve.length]
        for text, value in zip(row[8:], wanted):
            if text or spiral:
                expect(row[0] + " " + text, stake(text), value, 0.00051)
        at, used = wanted[-1], curve.tangent
        row.append(wanted)
    end = at + math.dist(places[-2], places[-1]) - used
    expect("终点", stake(ends[3]), end, 0.00051)

    # What is typed is what is printed.
    wanted = [[0.0, *first], *[[row[0], float(row[1]), float(row[2]), float(row[5]), float(row[5]), float(row[4])]
                               for row in points], [*last]]
    numbers = lambda line: [cell if cell.startswith("JD") else float(cell) for cell in line]
    if [numbers(line) for line in fields("平曲线参数.txt")] != wanted:
        faults.append("the alignment's file is not the printed table")
    grades = [(stake(row[1]), float(row[2]), float(row[3] or 0)) for row in rows_of(chapter, "变坡点 |")]
    if [tuple(map(float, line)) for line in fields("竖曲线参数.txt")] != \
            [g if g[2] else g[:2] for g in grades]:
        faults.append("the profile's file is not the printed table")

    # The program agrees with both.
    main_points, _ = asked(typed, "mainpoints")
    for row, line in zip(points, main_points, strict=True):
        zh, hy, _, yh, hz = row[-1]
        for index, value in ((6, zh), (10, hy), (14, yh), (18, hz)):
            expect("主点 " + row[0], stake(line[index]) if line[index].startswith("K") else float(line[index]), value, 0.0011)
    found, said = asked(typed, "check")
    if found or said:
        faults.append("check finds something: %r %r" % (found, said))
    results = rows_of(chapter, "里程 | 边桩 |")
    for name, side, x, y, height in results:
        offset = float(re.search(r"右 ([\d.]+)", side)[1]) if side != "中桩" else 0.0
        coords, _ = asked(typed, "coords", "--file", "-", given="%s,%s\n" % (stake(name), offset))
        heights, _ = asked(typed, "elevation", "--file", "-", given="%s,%s\n" % (stake(name), offset))
        if coords[0][6:8] != [x, y]:
            faults.append("%s %s: %r instead of %s, %s" % (name, side, coords[0], x, y))
        expect(name + " 高程", float(heights[0][3]), float(height), 0)
        expect(name + " 高程 by the textbook", float(height), elevation(grades, stake(name)), 0.00051)
    shown = {(row[0], row[1]): (float(row[2]), float(row[3])) for row in results}
    # Points whose place is known without the program: on a tangent, and in the middle of a curve.
    ahead = lambda i, d: (places[i][0] + d * math.cos(curves[i].azimuth), places[i][1] + d * math.sin(curves[i].azimuth))
    for key, place in ((("K0+300", "中桩"), ahead(0, 300)), (("K0+623.709", "中桩"), curves[0].middle),
                       (("K1+500", "中桩"), ahead(2, 1500 - points[1][-1][4] + curves[1].tangent)),
                       (("K1+897.844", "中桩"), curves[2].middle)):
        expect("%s by the textbook" % (key,), math.dist(shown[key], place), 0, 0.0012)
    expect("E", float(re.search(r"外距 E = ([\d.]+)", chapter)[1]), curves[0].secant, 0.00051)
    expect("right of the middle", math.dist(shown["K0+623.709", "右 4.25 米"], shown["K0+623.709", "中桩"]), 4.25, 0.001)

    # The files beside the samples.
    sample = source / "samples/示例一"
    for file, command, rows_a_line in (("放样点", "coords", 1), ("反算点", "inverse", 1), ("高程点", "elevation", 1),
                                       ("结构物", "corners", 4)):
        text = (source / "samples" / (file + ".txt")).read_bytes().decode("ascii")
        station = ["--station", "GP01"] if command in ("coords", "corners") else []
        rows, said = asked(sample, command, "--file", "-", *station, given=text)
        if len(rows) != rows_a_line * text.count("\r\n") or said or not text.endswith("\r\n"):
            faults.append("%s.txt: %d rows, %s" % (file, len(rows), said))

    print("\n".join(faults) or "%d intersection points, %d results" % (len(points), len(results)))
    return 1 if faults else 0


sys.exit(main())
