"""A second formulation of the loader, the engine and the rows of the calculation screens, for differential tests.

Written from the rules alone and deliberately plain: one class `Road` is one running program, with the tables that a
load fills, the shared results that calls leave behind, and one method for each handler that makes rows.
"""

import contextlib
import math
import re
from decimal import Decimal

import trig

PI = 3.1415926
GAP = "桩号不存在，请检查断链数据！"
NOT_A_NUMBER = "请输入正确的数值！"


class RunError(Exception):
    def __init__(self, number):
        super().__init__(number)
        self.number = number


class Gap(Exception):
    """A stake in the numbers that a jump skips."""


class Hang(Exception):
    """The backward walk of a row scan that never ends."""


class Refusal(Exception):
    """A message that ends a handler."""


dropped = contextlib.suppress(RunError, ZeroDivisionError, OverflowError, ValueError)
FAILURES = (RunError, ZeroDivisionError, OverflowError, ValueError)


class Table(list):
    """An array with lower bound 0; what lies outside is a subscript error."""

    def __getitem__(self, i):
        if not 0 <= i < len(self):
            raise RunError(9)
        return list.__getitem__(self, i)

    def __setitem__(self, i, value):
        if not 0 <= i < len(self):
            raise RunError(9)
        if isinstance(value, float) and not math.isfinite(value):
            raise RunError(6)
        list.__setitem__(self, i, value)


def zeros(upper):
    return Table([0.0] * (upper + 1))


# Numbers and texts ---------------------------------------------------------------------------------------------------

NUMBER = re.compile(r"[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?")


def trim(text):
    return text.strip(" ")


def number(text):
    text = trim(text)
    if not NUMBER.fullmatch(text):
        raise RunError(13)
    value = float(text)
    if math.isinf(value):
        raise RunError(6)
    return value


def reciprocal(x):
    k = 1 / x
    if math.isinf(k):
        raise RunError(6)
    return k


def curvature(radius):
    return 0.0 if radius == 0 else reciprocal(radius)


def Int(x):
    return float(math.floor(x))


def sgn(x):
    return (x > 0) - (x < 0)


def num_text(x):
    text = format(Decimal("%.14e" % x), "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    sign = "-" if text.startswith("-") else ""
    text = text.lstrip("-")
    if text.startswith("0."):
        text = text[1:]
    return "0" if text in ("", "0") else sign + text


def leading_zero_text(x):
    if abs(x) == 0 or abs(x) >= 1:
        return num_text(x)
    return "-0" + num_text(abs(x)) if x < 0 else "0" + num_text(x)


def azimuth(dx, dy):
    a = 0.0
    if dy != 0:
        if dx == 0:
            a = (dy / abs(dy)) * 90
        else:
            a = trig.atan(dy / dx) * 180 / PI + (1 - dx / abs(dx)) * 90
        if a < 0:
            a = a + 360
    return deg_to_dms(a)


def distance(dx, dy):
    return math.sqrt(dx * dx + dy * dy)


def deg_to_dms(x):
    if x > 360:
        x = x - 360
    if x < 0:
        x = x + 360
    d = Int(x)
    m = Int((x - d) * 60)
    s = (x - d - m / 60) * 3600
    return Int((d + m / 100 + s / 10000 + 5e-7) * 1000000) / 1000000


def deg_to_dms4(x):
    d = Int(x)
    f = x - d
    m = Int(f * 60)
    s = (f - m / 60) * 3600
    return Int((d + m / 100 + s / 10000 + 5e-5) * 10000) / 10000


def dms_to_deg(v):
    sign = -1.0 if v < 0 else 1.0
    v = abs(v) + 1e-13
    d = Int(v)
    m = Int((v - d) * 100)
    s = Int((v - d - m / 100) * 1000000) / 100
    return sign * (d + m / 60 + s / 3600)


def format_dms_seconds(x):
    a = abs(x)
    d = Int(a)
    m = Int((a - d) * 60)
    s = (a - d - m / 60) * 3600
    if s > 60:
        m, s = m + 1, 0.0
    if m == 60:
        d, m = d + 1, 0.0
    if d > 360:
        d = d - 360
    if d < 0:
        d = d + 360
    s = Int((s + 0.005) * 100) / 100

    def padded(v):
        return num_text(v) if v <= 0 or v >= 10 else "0" + leading_zero_text(v)

    return num_text(d) + "°" + padded(m) + "′" + padded(s) + "″"


def format_stake(x):
    t = num_text(abs(x))
    i, point, f = t.partition(".")
    if len(i) >= 4:
        whole = i[:-3] + "+" + i[-3:]
    else:
        whole = "0+" + "000"[len(i):] + i
    decimals = {0: ".000", 1: "." + f + "00", 2: "." + f + "0"}.get(len(f), "." + f)
    return ("-" if x < 0 else "") + "K" + whole + decimals


def format_dms(x):
    if x < 0:
        x = x + 360
    elif x > 360:
        x = x - 360
    x = x + 1e-10
    d = Int(x)
    m = Int((x - d) * 100)
    s = Int(x * 10000 - d * 10000 - m * 100)
    if s == 60:
        m, s = m + 1, 0.0
    if m == 60:
        d, m = d + 1, 0.0
    if d > 360:
        d = d - 360

    def two(v):
        return ("0" if v < 10 else "") + num_text(v)

    return num_text(d) + "度" + two(m) + "分" + two(s) + "秒"


def round_even(x, decimals):
    scale = 10.0 ** decimals
    return math.copysign(float(round(x * scale)), x) / scale


def format_fixed3(x):
    sign = "-" if x < 0 else ""
    v = abs(round_even(x, 3))
    whole = sign + num_text(Int(v))
    f = number(num_text(v * 1000)[-3:])
    if f == 0:
        return whole + ".000"
    return whole + (".00" if f < 10 else ".0" if f < 100 else ".") + num_text(f)


def fixed3(x):
    return number(format_fixed3(x))


def round_half_up3(x):
    return Int((x + 0.0005) * 1000) / 1000


INTEGER_KEYS = "0123456789\b"
KEYS = {"IsIntegerKey": INTEGER_KEYS, "IsSignedDecimalKey": INTEGER_KEYS + ".-", "IsUnsignedDecimalKey": INTEGER_KEYS + "."}


# Files ---------------------------------------------------------------------------------------------------------------

CRLF = b"\r\n"
UNSET, BY_POINTS, LINEAR = (t.encode("gbk") for t in ("未设置", "交点法", "线性"))
SETTINGS, ALIGNMENT, STATIONS, BREAKS, PROFILE, SLOPES, WIDTHS = FILES = [
    n + ".txt" for n in ("其他参数", "平曲线参数", "导线点参数", "断链参数", "竖曲线参数", "超高参数", "超高宽度参数")]


def split(data):
    return data.split(CRLF) if data else []


def without_line(data, line):
    """The file written again, line by line up to the last line end, without the line counted from 1."""
    pieces = split(data)[:-1]
    return b"".join(p + CRLF for i, p in enumerate(pieces, 1) if i != line)


def without_blank_lines(data):
    removed = 0
    for i, piece in enumerate(split(data)):
        if not piece:
            data = without_line(data, i + 1 - removed)
            removed += 1
    return data


def rows_of(data):
    """The rows up to the last line with a comma, each split into fields; nothing for an empty file."""
    pieces = split(data)
    if not pieces:
        return []
    last = len(pieces) - 1
    while b"," not in pieces[last]:
        last -= 1
        if last < 0:
            raise Hang
    return [[f.decode("gbk") for f in piece.split(b",")] for piece in pieces[:last + 1]]


class Row:
    def __init__(self, fields):
        self.fields = fields

    def text(self, i):
        if i >= len(self.fields):
            raise RunError(9)
        return self.fields[i]

    def __call__(self, i):
        return number(self.text(i))


# One running program -------------------------------------------------------------------------------------------------

POINTS = ("Zh", "Hy", "Yh", "Hz")


def integrated(length, a0, k1, d, x0, y0):
    """End of a stretch from a0 in degrees, by Simpson's rule; d is the change of curvature over it."""
    odd_x = odd_y = even_x = even_y = 0.0
    fwj = a0 + (2 * k1 + d) * length * 90 / PI
    for i in range(96, 0, -1):
        u = 2 * i - 1
        angle = (a0 + ((u * d / 192 + 2 * k1) * (length / 2) * u / 192) * 180 / PI) * PI / 180
        odd_x += trig.cos(angle)
        odd_y += trig.sin(angle)
    for i in range(95, 0, -1):
        angle = (a0 + ((i * d / 96 + 2 * k1) * (length / 2) * (i / 96)) * 180 / PI) * PI / 180
        even_x += trig.cos(angle)
        even_y += trig.sin(angle)
    start, end = a0 * PI / 180, fwj * PI / 180
    x = (4 * odd_x + trig.cos(start) + 2 * even_x + trig.cos(end)) * (length / 576) + x0
    y = (4 * odd_y + trig.sin(start) + 2 * even_y + trig.sin(end)) * (length / 576) + y0
    if not (math.isfinite(x) and math.isfinite(y)):
        raise OverflowError
    return x, y, fwj


def end_of_element(length, k1, k2, az, x0, y0, total):
    return integrated(length, dms_to_deg(az), k1, (k2 - k1) / total * length, x0, y0)


class Road:
    def __init__(self):
        self.elem_count = self.dxd_count = self.dl_count = self.sqx_count = self.cg_count = self.cgkd_count = 0
        self.zd_count = 0
        self.has_dl = False
        self.cg_type = ""
        for name in ("elem_lc elem_x elem_y elem_fwj elem_r1 elem_r2 dxd_name dxd_x dxd_y dl_back dl_ahead dl_cum sqx_lc "
                     "sqx_gc sqx_r cg_lc cg_a cg_b cg_c kd_g kd_c kd_a kd_b kd_d kd_e kd_f jd_lc jd_x jd_y jd_ls1 jd_ls2 "
                     "jd_r jd_t1 jd_t2 jd_l").split():
            setattr(self, name, Table())
        self.zd_jd = Table([""] * 501)
        self.zd = {k: zeros(500) for k in ["T1", "T2", "Ls1", "Ls2"] + [p + v for p in POINTS for v in ("Lc", "X", "Y", "Fwj")]}
        self.out_x = self.out_y = self.out_fwj = self.out_dist = 0.0
        self.in_x = self.in_y = self.in_lc = 0.0
        self.out_lc_text = self.out_offset_text = ""
        self.station = (0.0, 0.0)

    # Loader

    def load(self, files):
        """Fills the tables from a dictionary of file name to bytes, which is changed as the files on disk would be."""
        try:
            self._load(files)
            return "ok"
        except Gap:
            return "gap"

    def _load(self, files):
        for name in FILES:
            if name in files:
                files[name] = without_blank_lines(files[name])
        if len(split(files.setdefault(SETTINGS, b""))) - 1 <= 4:
            files[SETTINGS] += UNSET + CRLF
        self._load_stations(rows_of(files.setdefault(STATIONS, b"")))
        self._load_breaks(rows_of(files.setdefault(BREAKS, b"")))
        settings = split(files[SETTINGS])
        model = settings[0] if len(settings) > 1 else b""
        rows = [Row(f) for f in rows_of(files.setdefault(ALIGNMENT, b""))]
        if rows and model == BY_POINTS:
            if len(rows) > 1:
                self._compile_points(rows)
        elif rows:
            self._compile_blocks(rows)
        self._load_profile([Row(f) for f in rows_of(files.setdefault(PROFILE, b""))])
        if len(settings) > 1:
            self.cg_type = "0" if settings[1] == LINEAR else "1"
        self._load_slopes([Row(f) for f in rows_of(files.setdefault(SLOPES, b""))])
        self._load_widths([Row(f) for f in rows_of(files.setdefault(WIDTHS, b""))])

    def _load_stations(self, rows):
        if not rows:
            return
        self.dxd_count = len(rows) - 1
        self.dxd_name, self.dxd_x, self.dxd_y = Table([""] * len(rows)), zeros(self.dxd_count), zeros(self.dxd_count)
        for i, row in enumerate(map(Row, rows)):
            with dropped:
                self.dxd_name[i] = row.text(0)
            with dropped:
                self.dxd_x[i] = row(1)
            with dropped:
                self.dxd_y[i] = row(2)

    def _load_breaks(self, rows):
        if rows:
            self.dl_count = len(rows) - 1
            self.dl_back, self.dl_ahead, self.dl_cum = (zeros(self.dl_count) for _ in range(3))
            for i, row in enumerate(map(Row, rows)):
                with dropped:
                    self.dl_back[i] = row(0)
                with dropped:
                    self.dl_ahead[i] = row(1)
                self.dl_cum[i] = abs(self.dl_ahead[i]) - abs(self.dl_back[i])
                self.has_dl = True
        for i in range(1, self.dl_count + 1):
            for j in range(i, 0, -1):
                with dropped:
                    self.dl_back[i] = self.dl_back[i] - self.dl_cum[j - 1]
                with dropped:
                    self.dl_ahead[i] = self.dl_ahead[i] - self.dl_cum[j - 1]

    def _convert(self, table, upper):
        if not self.has_dl:
            return
        for r in range(upper + 1):
            for k in range(self.dl_count + 1):
                back, ahead, cum = self.dl_back[k], self.dl_ahead[k], self.dl_cum[k]
                x = table[r]
                if back < x < ahead:
                    raise Gap
                if (x >= ahead and cum > 0) or (x > back and cum < 0):
                    table[r] = x - cum
            if table[r] < 0:
                for k in range(self.dl_count + 1):
                    if abs(table[r]) > self.dl_ahead[k]:
                        table[r] = table[r] - self.dl_cum[k]

    def _compile_blocks(self, rows):
        n = self.elem_count = len(rows)
        tables = self.elem_lc, self.elem_x, self.elem_y, self.elem_fwj, self.elem_r1, self.elem_r2 = [
            zeros(n) for _ in range(6)]
        for i, row in enumerate(rows):
            for table, field in zip(tables, (0, 2, 3, 4, 5, 6)):
                with dropped:
                    table[i] = row(field)
        with dropped:
            self.elem_lc[n] = rows[-1](1) + 0.0001
        self._convert(self.elem_lc, n)

    def _compile_points(self, rows):
        n = len(rows) - 1
        m = n - 1
        self.jd_lc, self.jd_x, self.jd_y, self.jd_ls1, self.jd_ls2, self.jd_r, self.jd_t1, self.jd_t2, self.jd_l = [
            zeros(n) for _ in range(9)]
        self.elem_lc, self.elem_x, self.elem_y, self.elem_fwj, self.elem_r1, self.elem_r2 = [
            zeros(4 * m + 1) for _ in range(6)]
        for table, field in ((self.elem_lc, 0), (self.elem_x, 1), (self.elem_y, 2)):
            with dropped:
                table[0] = rows[0](field)
        self.jd_lc[0], self.jd_x[0], self.jd_y[0] = self.elem_lc[0], self.elem_x[0], self.elem_y[0]
        for table, field in ((self.jd_x, 0), (self.jd_y, 1)):
            with dropped:
                table[n] = rows[n](field)
        for i in range(1, n):
            with dropped:
                self.zd_jd[i] = rows[i].text(0)
            for table, field in ((self.jd_x, 1), (self.jd_y, 2), (self.jd_ls1, 3), (self.jd_ls2, 4)):
                with dropped:
                    table[i] = rows[i](field)
            for table, name in ((self.jd_ls1, "Ls1"), (self.jd_ls2, "Ls2")):
                with dropped:
                    self.zd[name][i] = table[i]
            for table in (self.jd_ls1, self.jd_ls2):
                if table[i] == 0:
                    table[i] = 0.000001
            with dropped:
                self.jd_r[i] = rows[i](5)

        def leg(i):  # azimuth from vertex i - 1 to vertex i
            return azimuth(self.jd_x[i] - self.jd_x[i - 1], self.jd_y[i] - self.jd_y[i - 1])

        def vertex_stake(i):
            d = distance(self.jd_x[i] - self.jd_x[i - 1], self.jd_y[i] - self.jd_y[i - 1])
            if i == 1:
                return self.jd_lc[0] + d
            return self.jd_lc[i - 1] - self.jd_t1[i - 1] + self.jd_l[i - 1] + (d - self.jd_t2[i - 1])

        with dropped:
            self.elem_fwj[0] = azimuth(self.jd_x[1] - self.elem_x[0], self.jd_y[1] - self.elem_y[0])
        p = [0.0, 0.0]
        q = [0.0, 0.0]
        a = 0.0
        for i in range(1, n):
            with dropped:
                a = dms_to_deg(leg(i + 1)) - dms_to_deg(leg(i))
            if a > 180:
                a = a - 360
            if a < -180:
                a = a + 360
            if not 0 <= a <= 180:
                self.jd_r[i] = -self.jd_r[i]
            a = abs(a)
            for k, table in enumerate((self.jd_ls1, self.jd_ls2)):
                with dropped:
                    p[k] = shift(table[i], abs(self.jd_r[i]), a > 90)
                with dropped:
                    q[k] = extension(table[i], abs(self.jd_r[i]), a > 90)
            r = abs(self.jd_r[i])
            c = trig.cos(a * PI / 180)
            s = trig.sin(a * PI / 180)
            with dropped:
                self.jd_t1[i] = ((r + p[1]) - (r + p[0]) * c) / s + q[0]
            with dropped:
                self.jd_t2[i] = ((r + p[0]) - (r + p[1]) * c) / s + q[1]
            for table, name in ((self.jd_t1, "T1"), (self.jd_t2, "T2")):
                with dropped:
                    self.zd[name][i] = table[i]
            with dropped:
                self.jd_l[i] = (PI / 180 * a) * r + (self.jd_ls1[i] + self.jd_ls2[i]) / 2
            with dropped:
                self.jd_lc[i] = vertex_stake(i)
        with dropped:
            self.jd_lc[n] = vertex_stake(n)

        for i in range(1, n):
            r = 4 * i - 3
            with dropped:
                self.elem_lc[r] = self.jd_lc[i] - self.jd_t1[i]
            with dropped:
                self.elem_fwj[r] = leg(i)
            back = (dms_to_deg(self.elem_fwj[r]) + 180) * PI / 180
            with dropped:
                self.elem_x[r] = trig.cos(back) * self.jd_t1[i] + self.jd_x[i]
            with dropped:
                self.elem_y[r] = trig.sin(back) * self.jd_t1[i] + self.jd_y[i]
            self.elem_r1[r] = 0.0
            self.elem_r2[r] = self.jd_r[i]
            self._main_point("Zh", i, r)
        for i in range(1, n):
            r = 4 * i - 2
            with dropped:
                self.elem_lc[r] = self.elem_lc[r - 1] + self.jd_ls1[i]
            with dropped:
                self.element_end(self.jd_ls1[i], 0.0, reciprocal(self.jd_r[i]), self.elem_fwj[r - 1], self.elem_x[r - 1],
                                 self.elem_y[r - 1], self.jd_ls1[i])
            self._take(r, self.jd_r[i], self.jd_r[i])
            self._main_point("Hy", i, r)
        for i in range(1, n):
            r = 4 * i - 1
            with dropped:
                self.elem_lc[r] = (self.jd_l[i] - self.jd_ls2[i]) + self.elem_lc[r - 2]
            arc = (self.jd_l[i] - self.jd_ls2[i]) - self.jd_ls1[i]
            with dropped:
                self.element_end(arc, reciprocal(self.jd_r[i]), reciprocal(self.jd_r[i]), self.elem_fwj[r - 1], self.elem_x[r - 1],
                                 self.elem_y[r - 1], arc)
            self._take(r, self.jd_r[i], 0.0)
            self._main_point("Yh", i, r)
        for i in range(1, n):
            r = 4 * i
            with dropped:
                self.elem_lc[r] = (self.jd_lc[i] - self.jd_t1[i]) + self.jd_l[i]
            with dropped:
                self.element_end(self.jd_ls2[i], reciprocal(self.jd_r[i]), 0.0, self.elem_fwj[r - 1], self.elem_x[r - 1],
                                 self.elem_y[r - 1], self.jd_ls2[i])
            self._take(r, 0.0, 0.0)
            self._main_point("Hz", i, r)
        self.zd_count = m
        last = self.elem_count = 4 * m + 1
        with dropped:
            self.elem_lc[last] = self.jd_lc[n] + 0.01
        with dropped:
            self.elem_fwj[last] = azimuth(self.jd_x[n - 1] - self.jd_x[n - 2], self.jd_y[n - 1] - self.jd_y[n - 2])

    def _take(self, r, r1, r2):
        with dropped:
            self.elem_fwj[r] = deg_to_dms(self.out_fwj)
        self.elem_r1[r], self.elem_r2[r] = r1, r2
        with dropped:
            self.elem_x[r] = self.out_x
        with dropped:
            self.elem_y[r] = self.out_y

    def _main_point(self, point, i, r):
        for value, table in (("Lc", self.elem_lc), ("X", self.elem_x), ("Y", self.elem_y), ("Fwj", self.elem_fwj)):
            with dropped:
                self.zd[point + value][i] = table[r]

    def _load_profile(self, rows):
        if not rows:
            return
        n = self.sqx_count = len(rows) - 1
        self.sqx_lc, self.sqx_gc, self.sqx_r = (zeros(n) for _ in range(3))
        for i, row in enumerate(rows):
            with dropped:
                self.sqx_lc[i] = row(0)
            with dropped:
                self.sqx_gc[i] = row(1)
            if 0 < i < n:
                with dropped:
                    self.sqx_r[i] = row(2)
        self._convert(self.sqx_lc, n)

    def _load_slopes(self, rows):
        if not rows:
            return
        m = self.cg_count = len(rows)
        self.cg_lc, self.cg_a, self.cg_b, self.cg_c = (zeros(m) for _ in range(4))
        v = w = 0.0
        for r in range(m + 1):
            row = rows[min(r, m - 1)]
            with dropped:
                self.cg_lc[r] = row(0) if r < m else row(3) + 0.0001
            with dropped:
                self.cg_a[r] = row(1 if r < m else 4) / 100
            with dropped:
                self.cg_b[r] = row(2 if r < m else 5) / 100
            with dropped:
                v = (row(4) + self.cg_a[r]) / 2
            with dropped:
                w = (row(5) + self.cg_b[r]) / 2
            self.cg_c[r] = 0.0 if w == v else 2.0 if w < v else 1.0
        self._convert(self.cg_lc, m)

    def _load_widths(self, rows):
        if not rows:
            return
        n = self.cgkd_count = len(rows)
        self.kd_g, self.kd_c, self.kd_a, self.kd_b, self.kd_d, self.kd_e, self.kd_f = (zeros(n) for _ in range(7))
        for r in range(n + 1):
            row = rows[min(r, n - 1)]
            with dropped:
                self.kd_g[r] = row(0) if r < n else row(1) + 0.0001
            shift_by = 0 if r < n else 4
            for table, field in ((self.kd_c, 2), (self.kd_a, 3 + shift_by), (self.kd_b, 4 + shift_by),
                                 (self.kd_d, 5 + shift_by), (self.kd_e, 6 + shift_by)):
                with dropped:
                    table[r] = row(field)
            with dropped:
                self.kd_f[r] = row(11) / 100
        self._convert(self.kd_g, n)

    def tables(self):
        found = {"gElemCount": [self.elem_count], "gDxdCount": [self.dxd_count], "gDxdName": self.dxd_name,
                 "gHasDl": [-1 if self.has_dl else 0], "gDlCount": [self.dl_count], "gSqxCount": [self.sqx_count],
                 "gCgType": [self.cg_type], "gCgCount": [self.cg_count], "gCgkdCount": [self.cgkd_count],
                 "gZdCount": [self.zd_count], "gZdJd": self.zd_jd, "gDxdX": self.dxd_x, "gDxdY": self.dxd_y}
        for group, values in (("elem", "lc x y fwj r1 r2"), ("dl", "back ahead cum"), ("sqx", "lc gc r"),
                              ("cg", "lc a b c"), ("jd", "lc x y ls1 ls2 r t1 t2 l")):
            for value in values.split():
                found["g" + group.capitalize() + value.capitalize()] = getattr(self, group + "_" + value)
        for value in "gcabdef":
            found["gCgkd" + value.upper()] = getattr(self, "kd_" + value)
        for name, values in self.zd.items():
            found["gZd" + name] = values
        return found

    # Elements

    def element_end(self, *arguments):
        """A call that overflows leaves what the last one that did not has left."""
        self.out_x, self.out_y, self.out_fwj = end_of_element(*arguments)

    @staticmethod
    def forward_element(length, r1, r2, az, x0, y0):
        length = abs(length)
        k1, k2 = curvature(r1), curvature(r2)
        x, y, end_deg = integrated(length, dms_to_deg(az), k1, k2 - k1, x0, y0)
        return fixed3(x), fixed3(y), deg_to_dms(end_deg)

    def _integrate(self, stake):
        """The point at a stake by the last element that holds it, the azimuth in the shared result; else nothing."""
        for i in range(self.elem_count, 0, -1):
            if not self.elem_lc[i - 1] <= stake < self.elem_lc[i]:
                continue
            a, b = curvature(self.elem_r1[i - 1]), curvature(self.elem_r2[i - 1])
            length = stake - self.elem_lc[i - 1]
            dk = (b - a) / (self.elem_lc[i] - self.elem_lc[i - 1]) * length
            a0 = dms_to_deg(self.elem_fwj[i - 1])
            self.out_fwj = a0 + (a + a + dk) * length * 90 / PI
            s1x = s1y = s2x = s2y = 0.0
            for n in range(96, 0, -1):
                u = 2 * n - 1
                angle = (a0 + ((u * dk / 192 + a + a) * (length / 2) * u / 192) * 180 / PI) * PI / 180
                s1x += trig.cos(angle)
                s1y += trig.sin(angle)
            for n in range(95, 0, -1):
                angle = (a0 + ((n * dk / 96 + a + a) * (length / 2) * (n / 96) * 180) / PI) * PI / 180
                s2x += trig.cos(angle)
                s2y += trig.sin(angle)
            start, end = a0 * PI / 180, self.out_fwj * PI / 180
            return ((4 * s1x + trig.cos(start) + 2 * s2x + trig.cos(end)) * (length / 576) + self.elem_x[i - 1],
                    (4 * s1y + trig.sin(start) + 2 * s2y + trig.sin(end)) * (length / 576) + self.elem_y[i - 1])
        return None

    def stake_to_xy(self, stake, skew, offset):
        point = self._integrate(stake)
        if point:
            direction = (self.out_fwj + skew) * PI / 180
            self.out_x = fixed3(point[0] + offset * trig.cos(direction))
            self.out_y = fixed3(point[1] + offset * trig.sin(direction))
        dy, dx = self.out_y - self.in_y, self.out_x - self.in_x
        self.out_dist = math.sqrt(dy * dy + dx * dx)

    def xy_to_stake(self):
        k, az, xc, yc = self.elem_lc[0], self.elem_fwj[0], self.elem_x[0], self.elem_y[0]
        nearest, best = 100000.0, 0
        lc = self.elem_lc

        def direction_from(i):
            dx, dy = self.in_x - self.elem_x[i], self.in_y - self.elem_y[i]
            if dx == 0:
                return float(sgn(dy) * 90)
            return trig.atan(dy / dx) * 180 / PI + (1 - sgn(dx)) * 90

        for i in range(1, self.elem_count + 1):
            if not lc[i] - lc[i - 1] > 0.01:
                continue
            c1 = trig.cos((direction_from(i - 1) - dms_to_deg(self.elem_fwj[i - 1])) * PI / 180)
            c2 = trig.cos((direction_from(i) - dms_to_deg(self.elem_fwj[i])) * PI / 180)
            if c1 >= 0 and c2 <= 0:
                self.stake_to_xy(lc[i - 1] + (lc[i] - lc[i - 1]) / 2, 0.0, 0.0)
                if self.out_dist < nearest:
                    nearest, best = self.out_dist, i
        if best:
            k, az, xc, yc = lc[best - 1], self.elem_fwj[best - 1], self.elem_x[best - 1], self.elem_y[best - 1]
        end = lc[self.elem_count]
        rounds, seen = best, {}
        while True:
            dx, dy = self.in_x - xc, self.in_y - yc
            d = math.sqrt(dy * dy + dx * dx)
            if dy == 0:
                o = d
                break
            if dx == 0:
                q = dy * 90 / abs(dy)
            else:
                q = (1 - dx / abs(dx)) * 90 + trig.atan(dy / dx) * 180 / PI
            if q < 0:
                q = q + 360
            c = trig.cos((q - az) * PI / 180)
            if d * c + k < end:
                k = k + d * c
            o = trig.sin((q - az) * PI / 180) * d
            w = trig.cos((q - az) * PI / 180) * o
            if abs(w) < 0.002 or abs(o) < 0.0001:
                break
            if k < lc[0]:
                k = lc[0]
            if k > end:
                k = end
            self.in_lc = k
            point = self._integrate(k)
            if point:
                (xc, yc), az = point, self.out_fwj
            state = k, az, xc, yc
            if state in seen:  # the walk goes round for ever: leap over whole turns up to the overflow
                turn = rounds - seen[state]
                rounds += (32766 - rounds) // turn * turn if rounds < 32766 else 0
                seen = {}
            else:
                seen[state] = rounds
            rounds += 1
            if rounds > 32767:
                raise RunError(6)
        k, o = round_half_up3(k), round_half_up3(o)
        kn, second = self.to_nominal(k)
        if self.has_dl:
            kn = round_half_up3(kn)
        self.out_lc_text = ("-" if second else "") + format_stake(kn)
        self.out_offset_text = ("中" if o == 0 else ("左" if o < 0 else "右") + format_fixed3(abs(o)) + "米")

    # Breaks

    def to_nominal(self, k):
        if not self.has_dl:
            return k, False
        second = False
        for j in range(self.dl_count + 1):
            back, ahead, cum = self.dl_back[j], self.dl_ahead[j], self.dl_cum[j]
            if ahead - cum < k <= back - cum:
                second = True
                k = k + cum
            if k > back:
                k = k + cum
        return round_half_up3(k), second

    def resolve(self, variant, t):
        """A typed stake of a screen; `Gap` where the numbers are skipped."""
        single = variant in ("frmDgdZb", "frmJgw", "frmDgdGc")
        ahead_typed = variant == "frmDgdGc" or variant.endswith(("Start", "End"))
        strict = variant.endswith(("Start", "File"))
        s = abs(t) if single else t
        if variant == "TableRow":
            table = Table([t])
            self._convert(table, 0)
            return table[0]
        if not self.has_dl:
            return s
        breaks = list(zip(self.dl_back, self.dl_ahead, self.dl_cum))[:self.dl_count + 1]
        if variant == "BlockEditor":
            for back, ahead, cum in breaks:
                if back < s < ahead:
                    raise Gap
                if (s > back and cum < 0) or (s > ahead and cum > 0):
                    s = s - cum
            if s < 0:
                for back, ahead, cum in breaks:
                    if ahead < abs(s) <= back:
                        s = abs(s) - cum
            return s
        for back, ahead, cum in breaks:
            if not (s <= back or (t if ahead_typed else s) >= ahead):
                raise Gap
            if not ((s < ahead or cum <= 0) and (s <= back or cum >= 0)):
                s = s - cum
        if t < 0:
            for back, ahead, cum in breaks:
                if abs(t) > ahead or (abs(t) == ahead and not strict):
                    s = s - cum
        return s

    # Elevation

    def elevation_at(self, stake, offset):
        wl = wr = sl = sr = h = f = 0.0
        g = self.kd_g
        for i in range(1, self.cgkd_count + 1):
            if g[i - 1] <= stake < g[i]:
                def lerp(t):
                    return (t[i] - t[i - 1]) / (g[i] - g[i - 1]) * (stake - g[i - 1]) + t[i - 1]
                wl, wr, sl, sr = lerp(self.kd_a), lerp(self.kd_b), lerp(self.kd_d), lerp(self.kd_e)
                h, f = self.kd_c[i] / 2, self.kd_f[i]
        aoff = abs(offset)
        xl, xr = min(aoff, wl), min(aoff, wr)
        lc, gc, radius = self.sqx_lc, self.sqx_gc, self.sqx_r

        def grade(i):
            return 0.0 if lc[i] == lc[i - 1] else (gc[i] - gc[i - 1]) / (lc[i] - lc[i - 1])

        e = 0.0
        k = 1
        while k <= self.sqx_count - 1:
            g1, g2 = grade(k), grade(k + 1)
            t = abs((g2 - g1) * radius[k] / 2)
            if stake <= lc[k] - t:
                e = (stake - lc[k - 1]) * g1 + gc[k - 1]
                break
            if stake <= lc[k] + t:
                x = stake - (lc[k] - t)
                e = x * (g2 - g1) * x / (t + t) / 2 + x * g1 + (gc[k] - g1 * t)
                break
            k += 1
        c = self.sqx_count
        g1, g2 = grade(c - 1), grade(c)
        t = abs((g2 - g1) * radius[k] / 2)
        if lc[c - 1] + t <= stake:
            e = (stake - lc[c - 1]) * g2 + gc[c - 1]
        if aoff <= h:
            return e
        form = number(self.cg_type)
        if form not in (0, 1):
            return e
        left = offset < 0
        slope = self.cg_a if left else self.cg_b
        for i in range(1, self.cg_count + 1):
            if not self.cg_lc[i - 1] <= stake < self.cg_lc[i]:
                continue
            d = self.cg_lc[i] - self.cg_lc[i - 1]
            x = stake - self.cg_lc[i - 1]
            if form == 0:
                p = (slope[i] - slope[i - 1]) / d * x + slope[i - 1]
            else:
                p = x * x * (slope[i] - slope[i - 1]) / (d * d * d) * (d * 3 - (x + x)) + slope[i - 1]
            q = f
            mark = self.cg_c[i - 1]
            if ((left and mark <= -1) or (not left and mark >= 1)) and p < f:
                q = p
            xx, w, s = (xl, wl, sl) if left else (xr, wr, sr)
            if xx <= w - s:
                e = (xx - h) * p + e
            else:
                e = (xx - (w - s)) * q + (w - h - s) * p + e
        return e

    # Rows of the screens. Each yields the cells without the number of the row; a refusal is raised in their midst.

    def _range(self, stake, low, high):
        if stake < self.elem_lc[0]:
            raise Refusal(low)
        if stake > self.elem_lc[self.elem_count]:
            raise Refusal(high)

    def _point_row(self, stake, side, angle):
        dx, dy = self.out_x - self.station[0], self.out_y - self.station[1]
        return [format_stake(stake), side, angle, format_dms(azimuth(dx, dy)), format_fixed3(distance(dx, dy)),
                format_fixed3(self.out_x), format_fixed3(self.out_y), format_dms(deg_to_dms4(self.out_fwj))]

    def coords(self, stake, side="", offset="", skew=None):
        """One press of the calculate button: texts as typed; side is 左 or 右 or nothing; skew is None when not ticked."""
        with trap():
            if not trim(stake):
                raise Refusal("计算里程不能为空！")
            t = number(stake)
            angle, pj, skew_text, label = 0.0, 0.0, "无", "中桩"
            if skew is not None:
                if not trim(skew):
                    raise Refusal("夹角不能为空！")
                angle = number(skew)
                skew_text = angle_text(angle)
                side = "斜交"
            elif side:
                angle = 270.0 if side == "左" else 90.0
            if side:
                if not trim(offset):
                    raise Refusal("偏距不能为空！")
                pj = number(offset)
                label = side + num_text(pj) + "米"
            c = self.resolve("frmDgdZb", t)
            self._range(c, "不能小于起点里程！", "不能大于终点里程！")
            self.stake_to_xy(c, dms_to_deg(angle), pj)
            yield self._point_row(t, label, skew_text)

    def _limits(self, start, end, screen, check_elements, low="开始里程不能小于起点里程！", high="结束里程不能大于终点里程！"):
        s = self.resolve(screen + "Start", start)
        if check_elements and s < self.elem_lc[0]:
            raise Refusal(low)
        e = self.resolve(screen + "End", end)
        if check_elements and e > self.elem_lc[self.elem_count]:
            raise Refusal(high)

    def _walk(self, start, end, step, by_inverse=False):
        cur = start
        while not end + 0.0001 <= cur:
            c = cur
            if self.has_dl:
                for i in range(self.dl_count + 1):
                    back, ahead, cum = self.dl_back[i], self.dl_ahead[i], self.dl_cum[i]
                    while not (cur <= back or cur >= ahead):
                        cur = cur + step
                        c = cur
                    if not ((cur < ahead or cum <= 0) and (cur <= back or cum >= 0)):
                        c = c - cum
                if cur < 0:
                    for i in range(self.dl_count + 1):
                        if abs(self.in_lc if by_inverse else cur) >= self.dl_ahead[i]:
                            c = abs(cur) - self.dl_cum[i]
            yield cur, c
            cur = cur + step

    def stakeout(self, start, end, step, offset="", skew=None):
        with trap():
            start, end = number(start), number(end)
            if start == end:
                raise Refusal("开始里程不能等于结束里程！")
            self._limits(start, end, "frmPlfy", True)
            angle = 0.0
            if skew is not None:
                if not trim(skew):
                    raise Refusal("夹角不能为空！")
                angle = number(skew)
                if not trim(offset):
                    raise Refusal("偏距不能为空！")
            pj = number(offset) if trim(offset) else 0.0
            step = number(step)
            if step == 0:
                raise Refusal("间距不能为0！")
            for cur, c in self._walk(start, end, step, by_inverse=True):
                self.stake_to_xy(c, 0.0, 0.0)
                yield self._point_row(cur, "中桩", "无")
                if pj != 0 and skew is None:
                    for side, direction in (("左", 270.0), ("右", 90.0)):
                        self.stake_to_xy(c, direction, pj)
                        yield self._point_row(cur, side + num_text(pj) + "米", "无")
                elif pj != 0:
                    self.stake_to_xy(c, dms_to_deg(angle), pj)
                    yield self._point_row(cur, "斜交" + num_text(pj) + "米", angle_text(angle))

    def stakeout_line(self, line):
        with trap():
            t, f = numbers_of(line, 2)
            c = self.resolve("frmPlfyFile", t)
            side, direction = ("中桩", 0.0) if f == 0 else ("左", 270.0) if f < 0 else ("右", 90.0)
            self.stake_to_xy(c, direction, abs(f))
            yield self._point_row(t, side if f == 0 else side + num_text(abs(f)) + "米", "无")

    def inverse_line(self, line):
        self.in_x, self.in_y = x, y = numbers_of(line, 2)
        try:
            self.xy_to_stake()
        except RunError as e:
            if e.number != 6:
                raise
            raise Refusal("") from None  # the screen drops the point in silence
        yield [num_text(x), num_text(y), self.out_lc_text, self.out_offset_text]

    def _elevation_text(self, c, offset, thickness):
        return num_text(number(format_fixed3(self.elevation_at(c, offset))) - thickness)

    def elevation(self, stake, side="", offset="", thickness=""):
        with trap():
            if not trim(stake):
                raise Refusal("计算里程不能为空！")
            t = number(stake)
            pj = 0.0
            if side:
                if not trim(offset):
                    raise Refusal("偏距不能为空！")
                pj = number(offset)
            thick = number(thickness) if trim(thickness) else 0.0
            s = self.resolve("frmDgdGc", t)
            if self.sqx_count < 1:
                raise Refusal("还未输入竖曲线参数！")
            if s < self.sqx_lc[0]:
                raise Refusal("计算里程不能小于竖曲线起点里程！")
            if s > self.sqx_lc[self.sqx_count]:
                raise Refusal("计算里程不能大于竖曲线终点里程！")
            label = side + num_text(abs(pj)) + "米" if side else "中桩"
            yield [format_stake(t), label, self._elevation_text(s, -pj if side == "左" else pj, thick)]

    def elevations(self, start, end, step, offset="", thickness=""):
        with trap():
            start, end = number(start), number(end)
            if start == end:
                raise Refusal("开始里程不能等于结束里程！")
            if self.sqx_count < 1:
                raise Refusal("还未输入竖曲线参数！")
            self._limits(start, end, "frmPlGc", self.elem_count > 0)
            pj = number(offset) if trim(offset) else 0.0
            thick = number(thickness) if trim(thickness) else 0.0
            for cur, c in self._walk(start, end, number(step)):
                row = [format_stake(cur), "中桩", self._elevation_text(c, 0.0, thick), "", "", "", ""]
                if pj != 0:
                    row[3:] = ["左" + num_text(pj) + "米", self._elevation_text(c, -pj, thick),
                               "右" + num_text(pj) + "米", self._elevation_text(c, pj, thick)]
                yield row

    def elevations_line(self, line, thickness=""):
        with trap():
            t, f = numbers_of(line, 2)
            c = self.resolve("frmPlGcFile", t)
            thick = number(thickness) if trim(thickness) else 0.0
            label = "中桩" if f == 0 else ("左" if f < 0 else "右") + num_text(abs(f)) + "米"
            yield [format_stake(t), label, self._elevation_text(c, f, thick), "", "", "", ""]

    def _corner_rows(self, stake, c, sizes, mode, a, angle):
        kq, kh, zz, zy = sizes
        self.stake_to_xy(c, 0.0, 0.0)
        az, x, y = self.out_fwj, self.out_x, self.out_y
        j = dms_to_deg(a)

        def cs(deg):
            return trig.cos(deg * PI / 180), trig.sin(deg * PI / 180)

        left = az + j if a < 0 else az - (180 - j)
        right = j + 180 + az if a <= 0 else az + j
        if mode == "zz":
            (fx, fy), (bx, by) = cs(az - (90 - j)), cs((az + 180) - (90 - j))
            front, back = (fx * kq, fy * kq), (bx * kh, by * kh)
        else:
            k = trig.cos((90 - j) * PI / 180)
            (fx, fy), (bx, by) = cs(az), cs(az + 180)
            front, back = (fx * (kq / k), fy * (kq / k)), (bx * (kh / k), by * (kh / k))
        for name, direction, z, base in (("左前点", left, zz, front), ("右前点", right, zy, front),
                                         ("左后点", left, zz, back), ("右后点", right, zy, back)):
            c1, s1 = cs(direction)
            if mode == "zz":
                cx, cy = c1 * z + x + base[0], s1 * z + y + base[1]
            else:
                cx, cy = c1 * z + (x + base[0]), s1 * z + (y + base[1])
            dx, dy = cx - self.station[0], cy - self.station[1]
            yield [format_stake(stake), name, angle, format_dms(azimuth(dx, dy)), format_fixed3(distance(dx, dy)),
                   format_fixed3(cx), format_fixed3(cy), format_dms(deg_to_dms4(az))]

    @staticmethod
    def _corner_input(sizes, skew):
        a, angle = 90.0, "无"
        if skew is not None:
            if not trim(skew):
                raise Refusal("夹角不能为空！")
            a = number(skew)
            angle = angle_text(a)
            if a < 0:
                a = a + 180
        for text, name in zip(sizes, ("K前", "K后", "Z左", "Z右")):
            if not trim(text):
                raise Refusal(name + "不能为空！")
        return [number(s) for s in sizes], a, angle

    def corners(self, stake, sizes, mode="xz", skew=None):
        with trap():
            if not trim(stake):
                raise Refusal("结构物中心里程不能为空！")
            t = number(stake)
            self._range(abs(t), "不能小于起点里程！", "不能大于终点里程！")
            sizes, a, angle = self._corner_input(sizes, skew)
            c = self.resolve("frmJgw", t)
            yield from self._corner_rows(t, c, sizes, mode, a, angle)

    def corners_run(self, start, end, step, sizes, mode="xz", skew=None):
        with trap():
            start, end, step = number(start), number(end), number(step)
            if step == 0:
                raise Refusal("批量计算间距不能为0！")
            if start == end:
                raise Refusal("批量计算起点不能等于批量计算终点！")
            self._limits(start, end, "frmPl", True)
            sizes, a, angle = self._corner_input(sizes, skew)
            self.resolve("frmJgw", 0.0)
            for count, (cur, c) in enumerate(self._walk(start, end, step), 1):
                yield from self._corner_rows(cur, c, sizes, mode, a, angle)
                if count == 101:
                    raise RunError(9)

    def corners_line(self, line, mode="xz"):
        with trap():
            t, *sizes = numbers_of(line, 5)
            yield from self._corner_rows(t, self.resolve("frmJgwFile", t), sizes, mode, 90.0, "无")

    def main_points(self):
        for i in range(1, self.zd_count + 1):
            for point in POINTS:
                t, second = self.zd[point + "Lc"][i], False
                if self.has_dl:
                    for j in range(self.dl_count + 1):
                        back, ahead, cum = self.dl_back[j], self.dl_ahead[j], self.dl_cum[j]
                        if not t <= ahead - cum and t <= back - cum:
                            t, second = t + cum, True
                        if t > back:
                            t = t + cum
                t = round_half_up3(t)
                self.zd[point + "Lc"][i] = -t if second else t
            yield [self.zd_jd[i]] + [format_fixed3(self.zd[k][i]) for k in ("T1", "T2", "Ls1", "Ls2")] + [
                format_dms(self.zd[p + v][i]) if v == "Fwj" else format_fixed3(self.zd[p + v][i])
                for p in POINTS for v in ("Lc", "X", "Y", "Fwj")]


@contextlib.contextmanager
def trap():
    """The error trap of a calculate handler."""
    try:
        yield
    except Gap:
        raise Refusal(GAP) from None
    except FAILURES:
        raise Refusal(NOT_A_NUMBER) from None


def numbers_of(line, fields):
    """The first fields of one line of a batch file."""
    row = Row(line.split(","))
    return [row(i) for i in range(fields)]


def angle_text(angle):
    return format_dms(angle) if angle > 0 else "-" + format_dms(abs(angle))


def shift(ls, r, big):
    p = trig.power(ls, 2) / (24 * r) - trig.power(ls, 4) / (2688 * trig.power(r, 3))
    if big:
        for sign, power, factor in ((1, 6, 506880.0), (-1, 8, 154828800.0), (1, 10, 70601932800.0), (-1, 12, 1880240947000.0)):
            p = p + sign * (trig.power(ls, power) / (factor * trig.power(r, power - 1)))
    return p


def extension(ls, r, big):
    q = ls / 2 - trig.power(ls, 3) / (240 * r * r)
    if big:
        for sign, power, factor in ((1, 5, 34560.0), (-1, 7, 8386560.0), (1, 9, 3158507520.0), (-1, 11, 1716741734000.0)):
            q = q + sign * (trig.power(ls, power) / (factor * trig.power(ls, power - 1)))
    return q


FUNCTIONS = {"RoundHalfUp3": round_half_up3, "Azimuth": azimuth, "Distance": distance, "DegToDms": deg_to_dms,
             "DegToDms4": deg_to_dms4, "DmsToDeg": dms_to_deg, "NumText": num_text, "LeadingZeroText": leading_zero_text,
             "FormatFixed3": format_fixed3, "Fixed3": fixed3, "FormatStake": format_stake, "FormatDms": format_dms,
             "FormatDmsSeconds": format_dms_seconds, "Round": lambda v, d: round_even(v, int(d))}
