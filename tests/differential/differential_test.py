"""Random projects through the program and through a second formulation of its rules, compared to the last bit.

    differential_test.py PROBE COMPANION SAMPLES [--only damages|samples|roads] [--seed N] [--projects N] [--runs N]

So do the sample roads, and roads in which each field that a load reads is damaged by itself.
"""

import argparse
import array
import csv
import io
import math
import pathlib
import random
import subprocess
import sys
import tempfile

import damages
import second
from second import CRLF, FAILURES, FILES, Gap, Hang, Refusal, Road, RunError, num_text

NASTY_FIELDS = ["", " ", "abc", "1.2.3", "-", ".", "+", "5.", ".5", "-.5", "+3", "1e2", "1E-3", " 12 ", "1d2", "0x10", "１２",
                "nan", "inf", "1e999", "-0", "0", "1e-320", "\t5", "12\n", "1e", "e5", "12-3", "--1", "1 2", "&H10", "1.5e+1",
                "99999999999999999999", "00012.50", "12\r", "  .", "1e-999"]
RESOLVERS = ["frmDgdZb", "frmJgw", "frmDgdGc", "frmPlfyStart", "frmPlGcStart", "frmPlStart", "frmPlfyEnd", "frmPlGcEnd",
             "frmPlEnd", "frmPlfyFile", "frmPlGcFile", "frmJgwFile", "TableRow", "BlockEditor"]


class Tally:
    def __init__(self):
        self.compared = {}
        self.differences = []

    def same(self, kind, context, got, expected):
        self.compared[kind] = self.compared.get(kind, 0) + 1
        if got != expected:
            self.differences.append((kind, context, got, expected))

    def report(self):
        for kind, context, got, expected in self.differences[:40]:
            print(f"{kind}: {context}\n    program: {got}\n    second:  {expected}")
        print(", ".join(f"{kind} {count}" for kind, count in sorted(self.compared.items())))
        print(f"{len(self.differences)} differences")


# Random projects -----------------------------------------------------------------------------------------------------

class Projects:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def number(self, low, high):
        value = self.random.uniform(low, high)
        return f"{value:.{self.random.choice([0, 1, 2, 3, 3, 3, 4])}f}"

    def chance(self, probability):
        return self.random.random() < probability

    def breaks(self, start, length):
        kinds = self.random.choice([[], [], ["jump"], ["overlap"], ["jump", "overlap"], ["overlap", "jump"],
                                    ["overlap", "overlap"], ["jump", "jump"], ["same", "jump"], ["jump", "overlap", "jump"],
                                    ["any"], ["any", "any"], ["overlap", "same", "overlap", "jump"]])
        rows, stake = [], start
        for kind in kinds:
            stake += self.random.uniform(0.05, 0.9) * length / len(kinds)
            amount = self.random.choice([5, 10.5, 20, 32.36, self.random.uniform(0.001, 60)])
            back = float(f"{stake:.3f}")
            ahead = {"jump": back + amount, "overlap": back - amount, "same": back,
                     "any": self.random.uniform(-length, 2 * length)}[kind]
            rows.append([num_text(back), f"{ahead:.3f}"])
            if kind != "any":
                stake = ahead
        return rows

    def points(self, start):
        count = self.random.choice([0, 1, 1, 2, 3, 4, 6, 9])
        x, y = self.random.uniform(-1000, 4e6), self.random.uniform(-1000, 6e5)
        azimuth = self.random.choice([self.random.uniform(0, 360), 0, 90, 180, 270, 359.9])
        rows = [[num_text(start), f"{x:.3f}", f"{y:.3f}"]]
        for i in range(count + 1):
            leg = self.random.uniform(150, 900)
            x += leg * math.cos(math.radians(azimuth))
            y += leg * math.sin(math.radians(azimuth))
            if i == count:
                rows.append([f"{x:.3f}", f"{y:.3f}"])
                break
            spiral = self.random.choice([0, 35, 50, self.number(0, 90)])
            other = self.random.choice([spiral, spiral, 0, self.number(1, 120)])
            radius = self.random.choice([60, 150, 400, self.number(30, 2000), self.number(100, 500)])
            if self.chance(0.05):
                radius = self.random.choice(["0", "-300", "1e-9", ".5"])
            rows.append([f"JD{i + 1}" if self.chance(0.9) else "交 点%", f"{x:.3f}", f"{y:.3f}", str(spiral), str(other), str(radius)])
            azimuth += self.random.choice([self.random.uniform(-60, 60), self.random.uniform(-60, 60),
                                           self.random.uniform(-178, 178), 90, 0, 180]) if self.chance(0.9) else 0
        return rows

    def blocks(self, start):
        rows, stake = [], start
        x, y, azimuth = self.random.uniform(0, 4e6), self.random.uniform(0, 6e5), self.random.uniform(0, 359.59)
        radius = 0.0
        for _ in range(self.random.choice([1, 2, 3, 5, 8, 14])):
            length = float(f"{self.random.uniform(1, 300):.3f}")
            after = self.random.choice([0.0, radius, radius, float(self.number(50, 2000)), -float(self.number(50, 2000))])
            azimuth_text = num_text(azimuth) if self.chance(0.8) else f"{azimuth:.4f}"
            rows.append([f"{stake:.3f}", f"{stake + length:.3f}", f"{x:.3f}", f"{y:.3f}", azimuth_text,
                         num_text(radius), num_text(after)])
            x, y, azimuth = Road.forward_element(length, radius, after, azimuth, x, y)
            stake += length if self.chance(0.95) else self.random.uniform(-50, 50)
            radius = after if self.chance(0.8) else 0.0
        return rows

    def stakes(self, start, length, count):
        found = sorted(self.random.uniform(start, start + length) for _ in range(count))
        if self.chance(0.1):
            self.random.shuffle(found)
        return [f"{s:.3f}" for s in found]

    def profile(self, start, length):
        count = self.random.choice([0, 1, 2, 4, 8])
        stakes = self.stakes(start, length, count)
        level = self.random.uniform(-50, 900)
        rows = [[num_text(start), f"{level:.3f}"]]
        for stake in stakes:
            level += self.random.uniform(-15, 15)
            rows.append([stake, f"{level:.3f}", self.random.choice(["0", "1500", "6000", self.number(300, 20000)])])
        return rows + [[f"{start + length:.3f}", self.number(level - 10, level + 10)]]

    def slopes(self, start, length):
        stakes = [num_text(start)] + self.stakes(start, length, self.random.choice([0, 1, 3, 8])) + [f"{start + length:.3f}"]
        values = [self.random.choice(["-2", "2", "-1.5", "0", self.number(-8, 8)]) for _ in range(2 * len(stakes))]
        return [[stakes[i], values[2 * i], values[2 * i + 1], stakes[i + 1], values[2 * i + 2], values[2 * i + 3]]
                for i in range(len(stakes) - 1)]

    def widths(self, start, length):
        stakes = [num_text(start)] + self.stakes(start, length, self.random.choice([0, 1, 3])) + [f"{start + length:.3f}"]
        median = self.random.choice(["0", "0", "2", "1.5"])
        rows = []
        for i in range(len(stakes) - 1):
            rows.append([stakes[i], stakes[i + 1], median] + [self.number(3, 13), self.number(3, 13), self.number(0, 2.5),
                        self.number(0, 2.5)] * 2 + [self.random.choice(["-3", "-4", "2", "0"])])
        return rows

    def stations(self):
        return [[self.random.choice(["GP", "导线 ", "D"]) + str(i), self.number(0, 4e6), self.number(0, 6e5), ""][:self.random.choice([3, 4, 4])]
                for i in range(self.random.choice([1, 2, 5]))]

    def project(self, damage):
        """Files of one project; the higher `damage` (0 to 1), the less a project is as the editors would write it."""
        start = self.random.choice([0.0, 0.0, 12000.0, float(self.number(0, 50000)), float(self.number(0, 50000))])
        if self.chance(0.04):
            start = -float(self.number(100, 3000))
        by_points = self.chance(0.5)
        rows = self.points(start) if by_points else self.blocks(start)
        road = Road()
        length = 500.0
        try:
            trial = {second.ALIGNMENT: self.text(rows),
                     second.SETTINGS: "{}\r\n".format("交点法" if by_points else "积木法").encode("gbk")}
            road.load(trial)
            length = min(max(road.elem_lc[road.elem_count] - start, 50.0), 20000.0)
        except FAILURES:
            pass
        files = {second.ALIGNMENT: rows, second.BREAKS: self.breaks(start, length), second.STATIONS: self.stations(),
                 second.PROFILE: self.profile(start, length), second.SLOPES: self.slopes(start, length),
                 second.WIDTHS: self.widths(start, length)}
        settings = ["交点法" if by_points else "积木法", self.random.choice(["线性", "三次抛物线", "未设置"]), "3", "5", "0"]
        if self.chance(damage * 0.3):
            settings = settings[:self.random.randrange(6)]
        if self.chance(damage * 0.1):
            settings[:1] = [self.random.choice(["未设置", "交点法 ", "积木法", "交点法"])]
        result = {second.SETTINGS: "".join(line + "\r\n" for line in settings).encode("gbk")}
        for name, table in files.items():
            for _ in range(self.random.choice([0, 0, 1, 1, 3]) if self.chance(damage) else 0):
                self.spoil(table)
            result[name] = self.text(table)
        for name in FILES:
            if self.chance(damage * 0.3):
                result[name] = self.spoiled_text(result[name])
            if self.chance(damage * 0.08):
                if self.chance(0.5):
                    del result[name]
                else:
                    result[name] = b""
        return result

    def spoil(self, table):
        if not table:
            return
        row = self.random.choice(table)
        what = self.random.randrange(6)
        if what <= 2:
            row[self.random.randrange(len(row))] = self.random.choice(NASTY_FIELDS)
        elif what == 3:
            del row[self.random.randrange(len(row)):]
            row.append(self.random.choice(NASTY_FIELDS[2:]))
        elif what == 4:
            row.extend(["7", "x"])
        else:
            other = self.random.choice(table)  # two rows change their places, or one stands twice
            table[self.random.randrange(len(table))] = list(other)

    @staticmethod
    def text(rows):
        return "".join(",".join(row) + "\r\n" for row in rows).encode("gbk")

    def spoiled_text(self, data):
        pieces = data.split(CRLF)
        what = self.random.randrange(6)
        if what <= 1:
            for _ in range(self.random.choice([1, 2, 5])):
                pieces.insert(self.random.randrange(len(pieces) + 1), b"")
        elif what == 2:
            pieces = pieces[:-1] if pieces[-1] == b"" else pieces + [b""]
        elif what == 3:
            pieces.insert(len(pieces) - 1, self.random.choice([b"abc", b"12", b" "]))
        elif what == 4:
            pieces.insert(self.random.randrange(len(pieces)), self.random.choice([b"abc", b"12", b" ", b",", b",,"]))
        else:
            return self.random.choice([CRLF * 3, b"", CRLF, data.rstrip(CRLF)])
        return CRLF.join(pieces)

    def stake(self, road):
        """A stake of interest: at, beside and between what stands in the tables."""
        marks = list(road.elem_lc) + [s for t in (road.dl_back, road.dl_ahead) for s in t] * 3 + list(road.sqx_lc) + list(
            road.cg_lc) + list(road.kd_g)
        line = list(road.elem_lc) or [0.0, 1000.0]
        pick = self.random.random()
        if pick < 0.45 or not marks:
            return self.random.uniform(line[0], line[-1])
        if pick < 0.5:
            return self.random.choice([0.0, -0.0, 1e15, -1e15, 1e-9, -1e-9, 123456.0])
        mark = self.random.choice(marks) + self.random.choice([0, 0, 0, 1e-4, -1e-4, 0.0005, -0.0005, 10, -10])
        return mark if pick < 0.85 else -mark

    def argument(self):
        pick = self.random.random()
        if pick < 0.2:
            return self.random.choice([0.0, -0.0, 1e15, -1e15, 1e-15, -1e-15, 360.0, -360.0, 359.59599999, 90.0, 180.0, 0.0005,
                                       -0.0005, 0.0015, 0.0025, 1.0005, 1.2, 1.1999999999, 59.5959995, 10.0833375, 5e-324,
                                       999999999999.9995, 123456789012345.0, 1e-4, 0.00049999, 1000.0, 999.9995, 100.0])
        if pick < 0.4:
            return (self.random.randrange(-720, 720) + self.random.choice([0, 59, 60, 30]) / 100 +
                    self.random.choice([0, 59.99, 60, 59.995, 30.5]) / 10000)
        if pick < 0.6:
            return self.random.randrange(-10**7, 10**7) / self.random.choice([1, 8, 1000, 2000, 16, 10**5])
        return self.random.choice([1, 1, 1000, 1e6, 1e-3]) * self.random.uniform(-400, 400)


# The engine through its filter ---------------------------------------------------------------------------------------

def show(value):
    if isinstance(value, str):
        return value
    if isinstance(value, (list, tuple)):
        return " ".join(map(show, value))
    return "%.17g" % value


def escaped(value):
    if not isinstance(value, str):
        return show(value)
    return "".join("%%%02X" % ord(c) if c <= " " or c in "%\x7f" else c for c in value)


def row_text(values):
    """The values as the probe writes them; the zeros at the end of a column, which are many, at once."""
    values = list(values)
    if values and all(type(v) is float for v in values):
        used = -(-len(array.array("d", values).tobytes().rstrip(b"\0")) // 8)
        return " ".join([*map(escaped, values[:used]), *["0"] * (len(values) - used)])
    return " ".join(map(escaped, values))


def result_of(call):
    try:
        return show(call())
    except Gap:
        return "gap"
    except RunError as e:
        return f"error {e.number}"
    except ZeroDivisionError:
        return "error 11"
    except (OverflowError, ValueError):
        return "error 6"


class Probe:
    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, requests):
        answers = []
        for i in range(0, len(requests), 100):
            part = requests[i:i + 100]
            self.process.stdin.write("".join(r + "\n" for r in part).encode())
            self.process.stdin.flush()
            answers += [self.line() for _ in part]
        return answers

    def line(self):
        line = self.process.stdout.readline()
        if not line:
            raise SystemExit("the filter has ended")
        return line.decode().rstrip("\n")

    def tables(self):
        self.process.stdin.write(b"tables\n")
        self.process.stdin.flush()
        found = {}
        while (line := self.line()) != ".":
            name, _, values = line.split(" ", 2) if line.count(" ") > 1 else (line.split(" ") + ["", ""])[:3]
            found[name] = values
        return found

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def shorten(answer):
    """An error by its number alone."""
    return " ".join(answer.split(" ")[:2]) if answer.startswith("error ") else answer


def write_project(folder, files):
    folder.mkdir()
    for name, data in files.items():
        (folder / name).write_bytes(data)


def engine_requests(make, road):
    """Pairs of a request and the call that answers it; the calls change the road, so they stay in their order."""
    def args(*values):
        return " ".join(show(v) for v in values)

    def xy_to_stake(x, y):
        road.in_x, road.in_y = x, y
        road.xy_to_stake()
        return f"{road.out_lc_text}\t{road.out_offset_text}\t{show(road.in_lc)}"

    def element_end(*values):
        road.element_end(*values)
        return road.out_x, road.out_y, road.out_fwj

    rnd = make.random
    for _ in range(12):
        s, k, o = make.stake(road), rnd.choice([0.0, 90.0, 270.0, make.argument()]), rnd.choice([0.0, rnd.uniform(-60, 60)])
        yield f"StakeToXY {args(s, k, o)}", lambda: stake_results(road, s, k, o)
        if make.chance(0.6):
            x = road.out_x + rnd.choice([0.0, 0.0, 0.00005, rnd.uniform(-30, 30)])
            y = road.out_y + rnd.choice([0.0, 0.0, -0.0004, rnd.uniform(-30, 30)])
        elif road.elem_x:
            n = rnd.randrange(len(road.elem_x))
            x = road.elem_x[n] + rnd.choice([0.0, rnd.uniform(-200, 200)])
            y = road.elem_y[n] + rnd.choice([0.0, rnd.uniform(-200, 200)])
        else:
            x, y = make.argument(), make.argument()
        yield f"XYToStake {args(x, y)}", lambda: xy_to_stake(x, y)
    for _ in range(30):
        s, o = make.stake(road), rnd.choice([0.0, -0.0, rnd.uniform(-20, 20), rnd.uniform(-3, 3)])
        yield f"ElevationAt {args(s, o)}", lambda: road.elevation_at(s, o)
    for _ in range(6):
        s = rnd.choice([1, 1, 1, -1]) * make.stake(road)
        for variant in RESOLVERS:
            yield f"ResolveStake {variant} {args(s)}", lambda: road.resolve(variant, s)
        yield f"ToNominal {args(s)}", lambda: (lambda n: (n[0], float(n[1])))(road.to_nominal(s))
    for _ in range(2):
        length = rnd.choice([0.0, rnd.uniform(0, 300), make.argument()])
        values = [length, rnd.choice([0.0, 1 / 300, rnd.uniform(-.02, .02)]), rnd.choice([0.0, rnd.uniform(-.02, .02)]),
                  make.argument(), make.argument(), make.argument(), rnd.choice([length, rnd.uniform(1, 400), 0.0])]
        yield f"ElementEnd {args(*values)}", lambda: element_end(*values)
        values2 = [length, rnd.choice([0.0, -0.0, make.argument()]), rnd.choice([0.0, make.argument()]), make.argument(),
                   make.argument(), make.argument()]
        yield f"ForwardElement {args(*values2)}", lambda: road.forward_element(*values2)
    for name, function in second.FUNCTIONS.items():
        for _ in range(4):
            values = [make.argument()]
            if name in ("Azimuth", "Distance"):
                values.append(make.argument())
            if name == "Round":
                values.append(rnd.choice([0.0, 1.0, 2.0, 3.0, 3.0, 4.0]))
            yield f"{name} {args(*values)}", lambda: function(*values)
    for name, keys in second.KEYS.items():
        key = rnd.randrange(0, 256)
        yield f"{name} {key}", lambda: float(chr(key) in keys)
    for text in rnd.sample(NASTY_FIELDS, 4):
        if "\n" not in text and "\r" not in text:
            yield f"ParseNumber {text}", lambda: second.number(text)


def compare_load(tally, probe, road, path, files, context):
    """A load, all tables after it, and what it makes of the files."""
    try:
        loaded = road.load(files)
    except Hang:
        loaded = "error 0"
    tally.same("load", context, shorten(probe.ask([f"load {path}"])[0]), loaded)
    tables = probe.tables()
    expected = {name: row_text(values) for name, values in road.tables().items()}
    for name in sorted(tables.keys() | expected.keys()):
        got, want = tables.get(name), expected.get(name)
        if got != want and got is not None and want is not None:
            pairs = list(enumerate(zip(got.split(" "), want.split(" "))))
            got, want = [[(i, p[k]) for i, p in pairs if p[0] != p[1]][:3] for k in (0, 1)] or (got, want)
        tally.same("tables", f"{context} {name}", got, want)
    if loaded != "error 0":
        for name in FILES:
            got = (path / name).read_bytes() if (path / name).exists() else None
            tally.same("files", f"{context} {name}", got, files.get(name))


def compare_requests(tally, probe, pairs, context):
    requests, expected = [], []
    for request, call in pairs:
        requests.append(request)
        expected.append(result_of(call))
    for request, got, want in zip(requests, probe.ask(requests), expected):
        tally.same(request.split(" ")[0], f"{context} {request}", shorten(got), want)


def compare_damages(tally, program, folder):
    """Each damaged road alone, and after another project and a point of it."""
    other, probe = folder / "other", Probe(program)
    write_project(other, damages.OTHER)
    for n, (what, files) in enumerate(damages.damaged_roads()):
        path = folder / f"d{n}"
        write_project(path, files)
        for before in (False, True):
            road = Road()
            tally.same("start", what, probe.ask(["start"]), ["ok"])
            if before:
                road.load(dict(damages.OTHER))
                tally.same("load", "another", probe.ask([f"load {other}"]), ["ok"])
                compare_requests(tally, probe, [("StakeToXY 100 90 5", lambda: stake_results(road, 100.0, 90.0, 5.0))], what)
            compare_load(tally, probe, road, path, dict(files), what + (", after another" if before else ""))
    probe.close()


def stake_results(road, stake, skew, offset):
    road.stake_to_xy(stake, skew, offset)
    return road.out_x, road.out_y, road.out_fwj, road.out_dist


def compare_engine(tally, program, folder, seed, projects):
    make = Projects(seed)
    probe, road, story = Probe(program), Road(), []
    for n in range(projects):
        if make.chance(0.15):
            probe.close()
            probe, road, story = Probe(program), Road(), []
        files = make.project(make.random.choice([0, 0.3, 1]))
        path = folder / f"p{n}"
        write_project(path, files)
        story.append(path.name)
        context = " ".join(story[-6:])
        compare_load(tally, probe, road, path, files, context)
        compare_requests(tally, probe, engine_requests(make, road), context)
    probe.close()


# The rows through the companion --------------------------------------------------------------------------------------

POINT_HEADER = ["序号", "里 程", "中边桩", "夹 角", "方位角", "距 离", "X坐标", "Y坐标", "切线方位角"]
HEADERS = {
    "coords": POINT_HEADER,
    "stakeout": POINT_HEADER,
    "corners": POINT_HEADER[:2] + ["点位置"] + POINT_HEADER[3:],
    "inverse": ["序号", "X 坐 标", "Y 坐 标", "反 算 里 程", "反 算 偏 距"],
    "elevation": ["序号", "里 程", "中边桩", "高 程"],
    "elevations": ["序号", "里 程"] + ["中边桩", "高 程"] * 3,
    "mainpoints": ["序  号", "交点编号", "第一切线长", "第二切线长", "第一缓曲长", "第二缓曲长"] +
                  [p + "点" + v for p in ("ZH", "HY", "YH", "HZ") for v in ("里程", "X坐标", "Y坐标", "切线方位角")],
}


def collect(*presses):
    """All rows that some presses of a button make, and the texts of their refusals."""
    made, refusals = [], []
    for rows in presses:
        try:
            for row in rows:
                made.append(row)
        except Refusal as e:
            refusals.append(str(e))
    return made, refusals


class Runs:
    """Random runs of the companion for one project: the arguments, the name of the header, and for each press (each line of a
    batch file is one) what makes its rows."""

    def __init__(self, make, road, folder):
        self.make, self.road, self.folder, self.random = make, road, folder, make.random

    def number(self, low, high):
        return num_text(float(self.make.number(low, high)))

    def stake(self):
        text = num_text(round(self.make.stake(self.road), self.random.choice([0, 3, 3])))
        return text if self.make.chance(0.95) else self.random.choice(["1.2.3", "12-3", "abc", "-"])

    def station(self):
        if self.make.chance(0.5):
            return []
        x, y = self.number(-10, 4e6), self.number(-10, 6e5)
        self.road.station = float(x), float(y)
        return ["--station", f"{x},{y}"]

    def limits(self):
        low, high = self.road.elem_lc[0], self.road.elem_lc[self.road.elem_count]
        a = self.random.choice([low, self.random.uniform(low, high), self.random.uniform(low, high)])
        step = float(self.number(1, 60)) or 1.0
        b = a + step * self.random.choice([1, 3, 8.5, 12])
        if self.road.dl_count and self.make.chance(0.5):
            a = self.random.choice(self.road.dl_back) - step * self.random.uniform(0, 4)
            b = a + step * 8
        if self.make.chance(0.1):
            a, b = self.random.choice([(a, a), (b, a), (a - 5000, b), (a, b + 30000)])
            step = max(step, abs(b - a) / 50)
        return num_text(round(a, 3)), num_text(round(b, 3)), num_text(step)

    def batch(self, fields):
        """A batch file of random lines, sometimes with blank or damaged ones, and its lines that are not blank."""
        lines = []
        for _ in range(self.random.choice([1, 4, 10])):
            lines.append(",".join([num_text(round(self.make.stake(self.road), 3))] + fields()))
        if self.make.chance(0.3):
            lines.insert(self.random.randrange(len(lines) + 1), self.random.choice(["", "", " ", "1", "x,1", "100,1..2"]))
        return self.written(lines, self.random.choice(["\r\n", "\r\n", "\r\n\r\n", ""]))

    def written(self, lines, end):
        path = self.folder / "batch.csv"
        path.write_bytes(("\r\n".join(lines) + end).encode("gbk"))
        return str(path), [line for line in lines if line.strip()]

    def offset(self):
        return self.random.choice(["0", "5", "-5", ".5", "-12.25", self.number(-20, 20)])

    def coords(self):
        at, station = self.stake(), self.station()
        kind = self.random.randrange(3)
        if kind == 0:
            return ["--at", at] + station, "coords", [self.road.coords(at)]
        offset = self.number(0, 20)
        if kind == 1:
            side = self.random.choice(["left", "right"])
            return (["--at", at, "--side", side, "--offset", offset] + station, "coords",
                    [self.road.coords(at, {"left": "左", "right": "右"}[side], offset)])
        offset, skew = self.offset(), self.random.choice(["0", "90", "-30.3", "45.3", self.number(-360, 360)])
        return ["--at", at, "--skew", skew, "--offset", offset] + station, "coords", [self.road.coords(at, "", offset, skew)]

    def stakeout(self):
        station = self.station()
        if self.make.chance(0.3):
            path, lines = self.batch(lambda: [self.offset()])
            return ["--file", path] + station, "stakeout", map(self.road.stakeout_line, lines)
        a, b, step = self.limits()
        arguments, offset, skew = ["--from", a, "--to", b, "--step", step] + station, "", None
        if self.make.chance(0.6):
            offset = self.offset()
            arguments += ["--offset", offset]
            if self.make.chance(0.4):
                skew = self.random.choice(["0", "-30", "60.153", self.number(-180, 180)])
                arguments += ["--skew", skew]
        return arguments, "stakeout", [self.road.stakeout(a, b, step, offset, skew)]

    def inverse(self):
        points = []
        for _ in range(self.random.choice([1, 6])):
            s = self.make.stake(self.road)
            scratch = Road()
            vars(scratch).update(vars(self.road))
            scratch.stake_to_xy(s, 90.0, self.random.choice([0.0, self.random.uniform(-30, 30)]))
            points.append(f"{num_text(round(scratch.out_x, 3))},{num_text(round(scratch.out_y, 3))}")
        if len(points) == 1:
            return ["--at", points[0]], "inverse", [self.road.inverse_line(points[0])]
        return ["--file", self.written(points, "\r\n")[0]], "inverse", map(self.road.inverse_line, points)

    def elevation(self):
        thickness = self.random.choice(["", "0.18", "-.5"])
        more = ["--thickness", thickness] if thickness else []
        kind = self.random.randrange(3)
        if kind == 0:
            at, offset = self.stake(), self.random.choice(["", "5", "-5", self.number(-20, 20)])
            side = "" if not offset or float(offset) == 0 else "左" if float(offset) < 0 else "右"
            return (["--at", at] + (["--offset", offset] if offset else []) + more, "elevation",
                    [self.road.elevation(at, side, offset.lstrip("-"), thickness)])
        if kind == 1:
            a, b, step = self.limits()
            offset = self.random.choice(["", "0", "5", self.number(0, 20)])
            return (["--from", a, "--to", b, "--step", step] + (["--offset", offset] if offset else []) + more, "elevations",
                    [self.road.elevations(a, b, step, offset, thickness)])
        path, lines = self.batch(lambda: [self.offset()])
        return ["--file", path] + more, "elevations", (self.road.elevations_line(line, thickness) for line in lines)

    def corners(self):
        mode, station = self.random.choice(["zz", "xz"]), self.station()
        more = ["--mode", mode] + station
        if self.make.chance(0.3):
            path, lines = self.batch(lambda: [self.number(0, 20) for _ in range(4)])
            return ["--file", path] + more, "corners", (self.road.corners_line(line, mode) for line in lines)
        sizes = [self.number(0, 20) for _ in range(4)]
        skew = self.random.choice([None, "0", "-30", "60.153", "-200", self.number(-180, 180)])
        for option, size in zip(("--kq", "--kh", "--zz", "--zy"), sizes):
            more += [option, size]
        if skew is not None:
            more += ["--skew", skew]
        if self.make.chance(0.5):
            at = self.stake()
            return ["--at", at] + more, "corners", [self.road.corners(at, sizes, mode, skew)]
        a, b, step = self.limits()
        return ["--from", a, "--to", b, "--step", step] + more, "corners", [self.road.corners_run(a, b, step, sizes, mode, skew)]

    def mainpoints(self):
        def rows():
            if self.road.zd_count < 1:
                raise Refusal("请先输入参数！")
            yield from self.road.main_points()
        return [], "mainpoints", [rows()]


def compare_companion(tally, program, folder, seed, runs):
    make = Projects(seed)
    for n in range(runs):
        files, road = make.project(make.random.choice([0, 0, 0.3])), Road()
        path = folder / f"c{n}"
        write_project(path, files)
        try:
            loaded = road.load(files)
        except Hang:
            continue
        if road.elem_lc:
            compare_run(tally, program, path, make, road, loaded)


def compare_run(tally, program, path, make, road, loaded):
    command = make.random.choice(["coords", "stakeout", "inverse", "elevation", "corners", "mainpoints"])
    arguments, header, presses = getattr(Runs(make, road, path.parent), command)()
    made, refusals = collect(*presses)
    if loaded == "gap":
        refusals.insert(0, second.GAP)
    line = [program, "--folder", str(path), command] + arguments + ["--format", "csv", "--quiet"]
    done = subprocess.run(line, capture_output=True, text=True, encoding="utf-8")
    context = " ".join(line[2:])
    # A stake below 0 looks like a formula to a spreadsheet: the mark in front keeps it text.
    table = [[cell.removeprefix("'") for cell in row] for row in csv.reader(io.StringIO(done.stdout))]
    expected = [HEADERS[header]] + [[str(i)] + row for i, row in enumerate(made, 1)]
    tally.same(command, context, (len(table), done.stderr), (len(expected), done.stderr))
    for got, want in zip(table, expected):
        tally.same(command, context, got, want)
    said = done.stderr.splitlines()
    tally.same("refusals", context, (done.returncode, said),
               (1 if refusals else 0, [s if s.endswith(r) else r for s, r in zip(said, refusals)] + refusals[len(said):]))


def compare_samples(tally, probe_program, companion, samples, folder, seed, runs):
    """Every sample road, with its chainage breaks and without."""
    make = Projects(seed)
    for sample in sorted(path for path in samples.iterdir() if path.is_dir()):
        whole = {name: (sample / name).read_bytes() for name in FILES}
        for what, files in ((sample.name, whole), (sample.name + " without breaks", whole | {second.BREAKS: b""})):
            path, road, probe = folder / what, Road(), Probe(probe_program)
            write_project(path, files)
            compare_load(tally, probe, road, path, dict(files), what)
            for _ in range(runs // 10):
                compare_requests(tally, probe, engine_requests(make, road), what)
            probe.close()
            for _ in range(runs):
                road = Road()  # each run of the companion begins without a station
                compare_run(tally, companion, path, make, road, road.load(dict(files)))


def main():
    options = argparse.ArgumentParser()
    options.add_argument("probe")
    options.add_argument("companion")
    options.add_argument("samples", type=pathlib.Path)
    options.add_argument("--seed", type=int, default=20261121)
    options.add_argument("--projects", type=int, default=160)
    options.add_argument("--runs", type=int, default=120)
    options.add_argument("--sample-runs", type=int, default=100)
    options.add_argument("--only", choices=["damages", "samples", "roads"])
    options.add_argument("--keep", help="a folder for the projects, kept afterwards")
    chosen = options.parse_args()
    tally = Tally()
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(chosen.keep or scratch)
        folder.mkdir(exist_ok=True)
        if chosen.only in (None, "damages"):
            compare_damages(tally, chosen.probe, folder)
        if chosen.only in (None, "samples"):
            compare_samples(tally, chosen.probe, chosen.companion, chosen.samples, folder, chosen.seed + 2, chosen.sample_runs)
        if chosen.only in (None, "roads"):
            compare_engine(tally, chosen.probe, folder, chosen.seed, chosen.projects)
            compare_companion(tally, chosen.companion, folder, chosen.seed + 1, chosen.runs)
    tally.report()
    sys.exit(bool(tally.differences))


if __name__ == "__main__":
    main()
