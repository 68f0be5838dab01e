"""Reads the workbooks of the tests with xlrd, formatting on, and compares what it finds. A warning is a failure."""

import io
import sys
from pathlib import Path

import xlrd

folder = Path(sys.argv[1])
CENTER = 2
THIN, MEDIUM, THICK, HAIR = 1, 2, 5, 7


def book(name):
    log = io.StringIO()
    opened = xlrd.open_workbook(str(folder / f"{name}.xls"), logfile=log, formatting_info=True)
    assert log.getvalue() == "", f"{name}: {log.getvalue()}"
    assert opened.sheet_names() == ["Sheet1"], name
    return opened


def sheet(name):
    return book(name).sheet_by_index(0)


def xf(opened, row, col):
    return opened.xf_list[opened.sheet_by_index(0).cell_xf_index(row, col)]


def number_format(opened, row, col):
    return opened.format_map[xf(opened, row, col).format_key].format_str


def edges(opened, row, col):
    border = xf(opened, row, col).border
    return (border.left_line_style, border.top_line_style, border.bottom_line_style, border.right_line_style)


def texts():
    s = sheet("texts")
    assert s.row_values(0) == ["ASCII", "déjà vu", "里   程", "附　合　导　线　计　算　表"]
    assert s.row_values(1) == ["𠀀丁𪚥", " blanks around ", "two\nlines", "ASCII"]
    assert s.row_values(2)[:2] == ["12.5", "= no formula"]
    assert all(cell.ctype in (xlrd.XL_CELL_TEXT, xlrd.XL_CELL_EMPTY) for row in s.get_rows() for cell in row)


def numbers():
    s = sheet("numbers")
    expected = [0, -0.0, 1, -1, 12.34, 0.1, 1.0 / 3, 3.1415926, 536870911, 536870912, -536870912, 1e-10, -123456.7891,
                5e-324 * 4, 2.2250738585072014e-308, 1.7976931348623157e308, 1e15, 4503599627370497.5]
    assert [repr(float(v)) for v in s.col_values(0)] == [repr(float(v)) for v in expected]


def typed():
    opened = book("typed")
    s = opened.sheet_by_index(0)
    assert s.col_values(0) == [12.5, -0.004, 1000, "K1+200.000", 1234.5]
    assert s.col_values(1) == ["012.500", "-0.004", "1e3", "K1+200.000", "1,234.5"]
    assert all(number_format(opened, row, 1) == "@" for row in range(5))


def merges():
    s = sheet("merges")
    assert sorted(s.merged_cells) == [(0, 1, 0, 3), (1, 3, 0, 1), (1, 5, 1, 3)]
    assert (s.cell_value(0, 0), s.cell_value(1, 0), s.cell_value(1, 1)) == ("across", "down", "both")


def alignment():
    opened = book("alignment")
    for row in range(3):
        for col in range(4):
            found = xf(opened, row, col).alignment
            assert (found.hor_align, found.vert_align) == (col, row)
    assert xf(opened, 3, 0).alignment.text_wrapped


def borders():
    opened = book("borders")
    for row in range(1, 4):
        for col in range(1, 4):
            expected = (MEDIUM if col == 1 else THIN, MEDIUM if row == 1 else THIN,
                        MEDIUM if row == 3 else THIN, MEDIUM if col == 3 else THIN)
            assert edges(opened, row, col) == expected, (row, col)
            assert xf(opened, row, col).border.left_colour_index == 64
    down, up = xf(opened, 1, 5).border, xf(opened, 1, 6).border
    assert (down.diag_down, down.diag_up, down.diag_line_style) == (1, 0, THIN)
    assert (up.diag_down, up.diag_up, up.diag_line_style) == (0, 1, MEDIUM)
    assert edges(opened, 3, 5) == (0, 0, HAIR, 0)
    assert edges(opened, 3, 6) == (0, 0, THICK, 0)
    assert opened.colour_map[xf(opened, 3, 6).border.bottom_colour_index] == (255, 0, 0)


def fills():
    opened = book("fills")
    seen = {}
    for color in range(1, 57):
        ground = xf(opened, (color - 1) // 8, (color - 1) % 8).background
        assert ground.fill_pattern == 1
        seen[color] = opened.colour_map[ground.pattern_colour_index]
    assert seen[1] == (0, 0, 0) and seen[3] == (255, 0, 0) and seen[35] == (0xCC, 0xFF, 0xCC) and seen[56] == (0x33,) * 3


def fonts():
    opened = book("fonts")
    found = [opened.font_list[xf(opened, row, 0).font_index] for row in range(5)]
    assert [(f.name, f.height, f.bold, f.italic) for f in found] == [
        ("黑体", 400, 0, 0), ("Arial", 210, 0, 0), ("宋体", 240, 1, 0), ("宋体", 240, 1, 1), ("宋体", 240, 0, 1)]


def sizes():
    s = sheet("sizes")
    # a digit of the standard font is 8 pixels wide, a cell has 5 more
    assert {col: info.width for col, info in s.colinfo_map.items()} == {
        col: (width * 8 + 5) * 32 for col, width in {0: 6, 1: 14, 2: 14, 4: 50}.items()}
    assert s.rowinfo_map[0].height == 570 and s.rowinfo_map[3].height == 8180
    assert s.rowinfo_map[0].height_mismatch == 1


def formats():
    opened = book("formats")
    assert [number_format(opened, row, 0) for row in range(6)] == ["General", "@", "0", "0.00", "0.0000", "0.000"]
    column = opened.sheet_by_index(0).colinfo_map[2]
    assert opened.format_map[opened.xf_list[column.xf_index].format_key].format_str == "@"


def exported():
    opened = book("exported")
    s = opened.sheet_by_index(0)
    assert s.merged_cells == [(0, 1, 0, 4)]
    assert s.row_values(0)[0] == "青山至白水公路"
    assert s.row_values(1) == ["序号", "里   程", "中 边 桩", "高   程"]
    assert s.row_values(4) == ["3", "K0+140.500", "右7.5", "-0.004"]
    assert edges(opened, 0, 0) == (0, 0, 0, 0)
    for row in range(5):
        for col in range(4):
            found = xf(opened, row, col).alignment
            assert (found.hor_align, found.vert_align) == (CENTER, 1)
            assert number_format(opened, row, col) == "@"


def page():
    s = sheet("page")
    assert s.row_values(0) == [float(col) for col in range(1, 23)]


def chinese():
    s = sheet("chinese")

    def text(seed, n):
        return "".join(chr(0x4E00 + (seed * 7919 + i * 31) % 0x5000) for i in range(n))

    for row in range(1, 401):
        for col in range(1, 6):
            assert s.cell_value(row - 1, col - 1) == text(row * 5 + col, (row * 37 + col * 101) % 700), (row, col)


def tall():
    s = sheet("tall")
    assert s.nrows == 65536
    assert s.col_values(0) == [float(row) for row in range(1, 65537)]
    assert s.row_values(65535) == [65536.0, "K65+536", "右"]


def random_sheets():
    """Every value of every random sheet, to the last bit, and not one more."""
    lists = sorted((folder / "random").glob("*.txt"))
    assert len(lists) == 300
    for path in lists:
        expected = {}
        for line in path.read_text().splitlines():
            row, col, kind, value = line.split(" ", 3)
            at = (int(row) - 1, int(col) - 1)
            expected[at] = repr(float(value)) if kind == "n" else bytes.fromhex(value).decode()
        s = sheet(f"random/{path.stem}")
        found = {(row, col): repr(cell.value) if cell.ctype == xlrd.XL_CELL_NUMBER else cell.value
                 for row in range(s.nrows) for col, cell in enumerate(s.row(row))
                 if cell.ctype not in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK)}
        # a number under a date format is no number any more; none of the formats used here is one
        assert found == expected, path


for check in (texts, numbers, typed, merges, alignment, borders, fills, fonts, sizes, formats, page, exported, chinese, tall,
              random_sheets):
    check()
