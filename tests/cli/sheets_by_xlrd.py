"""Has the companion write every kind of sheet and reads it back with xlrd, formatting on: values as the screen shows
them, merge, widths, alignments, number formats and the border of every cell. A warning of the reader is a failure."""

import io
import json
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import xlrd

program, samples = sys.argv[1], Path(sys.argv[2])
CENTER, NONE, THIN, MEDIUM = 2, 0, 1, 2
SIZE = ["--kq", "2", "--kh", "3", "--zz", "12", "--zy", "13.50"]
STATION = ["--station", "GP01"]
STATION_TEXT = "GP01 2856355.635,512438.128"
COORDINATES = ["序号", "里   程", "中 边 桩", "夹   角", "方 位 角", "距  离", "X 坐 标", "Y 坐 标", "切线方位角", "测 站 坐 标"]
MAIN_POINTS = ["序号", "交点编号", "第一切线长", "第二切线长", "第一缓曲长", "第二缓曲长"] + [
    f"{p}点{what}" for p in ("ZH", "HY", "YH", "HZ") for what in ("里程", "X坐标", "Y坐标", "切线方位角")]

# name, call, headers, widths, columns with the text format, computed columns of data row r (from 1)
SHEETS = [
    ("frmDgdZb", ["coords", "--at", "12100", "--offset", "-5", *STATION], COORDINATES,
     [6, 14, 14, 16, 16, 12, 12, 12, 16, 20], 10, lambda r: [STATION_TEXT]),
    ("frmPlfy", ["stakeout", "--from", "12000", "--to", "12400", "--step", "20", "--offset", "5", *STATION], COORDINATES,
     [6, 14, 14, 16, 16, 12, 12, 12, 16, 20], 10, lambda r: [STATION_TEXT]),
    ("frmFs", ["inverse", "--at", "2856575.1,512894.7"], ["序号", "X 坐 标", "Y 坐 标", "反 算 里 程", "反 算 偏 距"],
     [10, 18, 18, 18, 18], 5, lambda r: []),
    ("frmDgdGc", ["elevation", "--at", "12100"], ["序号", "里   程", "中 边 桩", "高   程"], [6, 14, 14, 14], 4,
     lambda r: []),
    ("frmPlGc", ["elevation", "--from", "12000", "--to", "12400", "--step", "20", "--offset", "5"],
     ["序号", "里   程"] + ["中 边 桩", "高   程"] * 3, [6] + [14] * 7, 4, lambda r: []),
    ("frmJgw", ["corners", "--from", "12100", "--to", "12300", "--step", "100", "--mode", "zz", *SIZE, *STATION],
     COORDINATES[:2] + ["点位置"] + COORDINATES[3:] + ["参  数"], [6, 14, 8, 16, 16, 12, 12, 12, 16, 20, 50], 11,
     lambda r: [STATION_TEXT, "斜交正做：K前2,K后3,Z左12,Z右13.50"]),
    ("frmZdcs", ["mainpoints"], MAIN_POINTS, [6, 14, 14, 16, 16, 12, 12, 12, 16] + [20] * 13, 22, lambda r: []),
]


def shown(text, is_text):
    """The value of a cell that takes a screen's text."""
    if text == "" or is_text:
        return text
    try:
        return float(text)
    except ValueError:
        return text


def check(name, call, headers, widths, text_columns, computed, workspace):
    path = workspace / f"{name}.xls"
    base = [program, "--workspace", str(workspace), "示例一", *call]
    subprocess.run([*base, "-o", str(path)], check=True)
    rows = json.loads(subprocess.run([*base, "--format", "json"], check=True, capture_output=True).stdout)
    assert rows, name

    log = io.StringIO()
    book = xlrd.open_workbook(str(path), logfile=log, formatting_info=True)
    assert log.getvalue() == "", f"{name}: {log.getvalue()}"
    assert book.sheet_names() == ["Sheet1"]
    sheet = book.sheet_by_index(0)
    last, bottom = len(headers), len(rows) + 2
    assert (sheet.nrows, sheet.ncols) == (bottom, last), name
    assert sheet.cell_value(0, 0) == "示例一"
    assert sheet.merged_cells == [(0, 1, 0, last)]
    assert sheet.row_values(1) == headers, sheet.row_values(1)
    for r, row in enumerate(rows, 1):
        wanted = list(row.values())[:last - len(computed(r))] + computed(r)
        wanted += [""] * (last - len(wanted))
        wanted = [shown(text, col < text_columns) for col, text in enumerate(wanted)]
        assert sheet.row_values(r + 1) == wanted, (name, r, sheet.row_values(r + 1), wanted)

    # a digit of the standard font is 8 pixels wide, a cell has 5 more
    assert {col: info.width for col, info in sheet.colinfo_map.items()} == {
        col: (width * 8 + 5) * 32 for col, width in enumerate(widths)}, name
    for row in range(bottom):
        for col in range(last):
            xf = book.xf_list[sheet.cell_xf_index(row, col)]
            assert (xf.alignment.hor_align, xf.alignment.vert_align) == (CENTER, 1), (name, row, col)
            assert book.format_map[xf.format_key].format_str == ("@" if col < text_columns else "General"), (name, row, col)
            border = xf.border
            found = (border.left_line_style, border.top_line_style, border.bottom_line_style, border.right_line_style)
            if row == 0:
                assert found[0] == found[1] == found[3] == NONE, (name, col)
                continue
            assert found == (MEDIUM if col == 0 else THIN, MEDIUM if row == 1 else THIN,
                             MEDIUM if row == bottom - 1 else THIN, MEDIUM if col == last - 1 else THIN), (name, row, col)
            assert border.diag_line_style == NONE


with tempfile.TemporaryDirectory() as folder:
    workspace = Path(folder)
    shutil.copytree(samples, workspace / "参数文件")
    for sheet in SHEETS:
        check(*sheet, workspace)
print(len(SHEETS), "sheets")
