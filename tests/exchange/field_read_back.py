"""Point lists that exchange_files wrote, taken apart by a reader of its own, from the definitions of the forms.

GSI: a line is one block, 16-digit words behind an asterisk or 8-digit ones; a word is word index (2 characters),
information (4, of which the last is the unit: 0 a millimetre), sign, data, one blank.
.dat: point, code, Y, X, H in code page 936. .csv: UTF-8 with a mark, a header, fields in commas."""
import decimal
import pathlib
import sys

folder = pathlib.Path(sys.argv[1])
metre = decimal.Decimal


def expected():
    """The points as plain text, tab by tab: name, code, stake, offset, X, Y, H or nothing, 9 decimals."""
    for line in (folder / "field.txt").read_text("utf-8").splitlines():
        name, code, stake, offset, x, y, h = line.split("\t")
        yield [name, code] + [metre(text) if text else None for text in (stake, offset, x, y, h)]


def near(read, wanted):
    """Written to the millimetre: a half may go either way."""
    if read is None or wanted is None:
        return read is wanted
    return abs(read - wanted) <= metre("0.000500001") and read == read.quantize(metre("0.001"))


def lines(name):
    data = (folder / name).read_bytes()
    assert data.endswith(b"\r\n"), name
    rows = data[:-2].split(b"\r\n")
    assert not any(b"\r" in row or b"\n" in row for row in rows), name
    return rows


def gsi(name, digits):
    points = []
    for number, row in enumerate(lines(name), 1):
        if digits == 16:
            assert row[:1] == b"*", row
            row = row[1:]
        assert len(row) % (8 + digits) == 0, (len(row), row)
        words = [row[i:i + 8 + digits].decode("ascii") for i in range(0, len(row), 8 + digits)]
        point = {}
        for word in words:
            index, information, sign, data, blank = word[:2], word[2:6], word[6], word[7:7 + digits], word[7 + digits]
            assert blank == " " and sign in "+-" and len(data) == digits, word
            assert index not in point, word
            if index == "11":
                assert information == "%04d" % ((number - 1) % 9999 + 1), word
                point[index] = data.lstrip("0")
            elif index == "71":
                assert information == "....", word
                point[index] = data.lstrip("0")
            else:
                assert index in ("81", "82", "83") and information == "..40", word  # 4: typed in, 0: millimetres
                assert data.isdigit(), word
                point[index] = metre(data) / 1000 * (-1 if sign == "-" else 1)
        assert [w[:2] for w in words] == sorted(w[:2] for w in words), row
        points.append([point["11"], point.get("71", ""), None, None, point["82"], point["81"], point.get("83")])
    return points


def dat(name):
    points = []
    for row in lines(name):
        point, code, y, x, h = row.decode("gbk").split(",")
        points.append([point, code, None, None, metre(x), metre(y), metre(h) if h else None])
    return points


def csv(name, encoding, separator):
    rows = lines(name)
    if encoding == "utf-8":
        assert rows[0][:3] == b"\xef\xbb\xbf", rows[0]
        rows[0] = rows[0][3:]
    fields = [row.decode(encoding).split(separator) for row in rows]
    assert fields[0] == ["点号", "编码", "里程", "偏距", "X", "Y", "H"], fields[0]
    return [row[:2] + [metre(text) if text else None for text in row[2:]] for row in fields[1:]]


def compare(what, points, wanted):
    assert len(points) == len(wanted) > 50, (what, len(points), len(wanted))
    for read, want in zip(points, wanted):
        assert read[:2] == [want[0].lstrip("0") if what.endswith("gsi") else want[0], want[1]], (what, read, want)
        stands = [2, 3, 4, 5, 6] if what.endswith("csv") else [4, 5, 6]
        for i in stands:
            assert near(read[i], want[i]), (what, i, read, want)


wanted = list(expected())
assert any(p[6] is None for p in wanted) and any(p[5] < 0 for p in wanted) and any(p[3] < 0 for p in wanted)
compare("field.gsi", gsi("field.gsi", 16), wanted)
compare("field.dat", dat("field.dat"), wanted)
compare("field.csv", csv("field.csv", "utf-8", ","), wanted)
compare("gbk.csv", csv("gbk.csv", "gbk", "\t"), wanted)
compare("small.gsi", gsi("small.gsi", 8), [["P%d" % (i + 1)] + p[1:] for i, p in enumerate(wanted)])
