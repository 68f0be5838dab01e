"""Reads the seven saved sheets with xlrd, formatting on: title, headers, values, merges, widths, alignments, the line on
every edge of every cell, number formats. A warning is a failure."""

import io
import sys
from pathlib import Path

import xlrd

folder = Path(sys.argv[1])
STATION = "GP01 2856355.635,512438.128"
PARAMETERS = ["斜交斜做：K前3,K后3.5,Z左12,Z右12.25"] * 4 + ["斜交斜做：K前1.5,K后1.5,Z左9,Z右9"] * 4
CENTER_ACROSS, CENTER_DOWN = 2, 1
THIN, MEDIUM = 1, 2

COORDINATES = [(6, "序号"), (14, "里   程"), (14, "中 边 桩"), (16, "夹   角"), (16, "方 位 角"), (12, "距  离"),
               (12, "X 坐 标"), (12, "Y 坐 标"), (16, "切线方位角"), (20, "测 站 坐 标")]
MAIN_POINTS = ["序号", "交点编号", "第一切线长", "第二切线长", "第一缓曲长", "第二缓曲长"] + [
    point + what for point in ("ZH", "HY", "YH", "HZ") for what in ("点里程", "点X坐标", "点Y坐标", "点切线方位角")]
SHEETS = {
    "frmDgdZb": COORDINATES,
    "frmPlfy": COORDINATES,
    "frmFs": [(10, "序号"), (18, "X 坐 标"), (18, "Y 坐 标"), (18, "反 算 里 程"), (18, "反 算 偏 距")],
    "frmDgdGc": [(6, "序号"), (14, "里   程"), (14, "中 边 桩"), (14, "高   程")],
    "frmPlGc": [(6, "序号"), (14, "里   程")] + [(14, "中 边 桩"), (14, "高   程")] * 3,
    "frmJgw": [(6, "序号"), (14, "里   程"), (8, "点位置")] + COORDINATES[3:] + [(50, "参  数")],
    "frmZdcs": list(zip([6, 14, 14, 16, 16, 12, 12, 12, 16] + [20] * 13, MAIN_POINTS)),
}
TEXT_COLUMNS = {"frmPlGc": 4}


def is_number(text):
    try:
        float(text)
        return True
    except ValueError:
        return False


for form, columns in SHEETS.items():
    log = io.StringIO()
    book = xlrd.open_workbook(str(folder / f"{form}.xls"), logfile=log, formatting_info=True)
    assert log.getvalue() == "", log.getvalue()
    assert book.sheet_names() == ["Sheet1"]
    sheet = book.sheet_by_index(0)
    grid = [line.split("\t") for line in (folder / f"{form}.txt").read_text().splitlines()]
    last, bottom = len(columns), len(grid) + 2
    text_columns = TEXT_COLUMNS.get(form, last)
    assert len(grid) > 1 and (sheet.nrows, sheet.ncols) == (bottom, last), form

    assert sheet.row_values(0) == ["示例一"] + [""] * (last - 1)
    assert sheet.merged_cells == [(0, 1, 0, last)]
    assert sheet.row_values(1) == [header for _, header in columns]
    assert [sheet.colinfo_map[col].width for col in range(last)] == [(width * 8 + 5) * 32 for width, _ in columns]
    assert len(sheet.colinfo_map) == last
    assert not any(row.height_mismatch for row in sheet.rowinfo_map.values())

    # On paper: landscape, as wide as the page, rows 1 and 2 on each page.
    names = [(name.name, name.builtin, name.scope) for name in book.name_obj_list]
    assert names == [("Print_Titles", 1, 0)], names
    titles = book.name_obj_list[0].result.value[0].coords
    assert titles == (0, 1, 0, 2, 0, 256), titles

    for row, texts in enumerate(grid):
        if form in ("frmDgdZb", "frmPlfy", "frmJgw"):
            texts = texts + [STATION]
        if form == "frmJgw":
            texts = texts + [PARAMETERS[row]]
        for col, text in enumerate(texts):
            cell = sheet.cell(row + 2, col)
            if col >= text_columns and is_number(text):
                assert (cell.ctype, cell.value) == (xlrd.XL_CELL_NUMBER, float(text)), (form, row, col)
            elif text:
                assert (cell.ctype, cell.value) == (xlrd.XL_CELL_TEXT, text), (form, row, col)
            else:
                assert cell.ctype == xlrd.XL_CELL_BLANK, (form, row, col)

    for row in range(bottom):
        for col in range(last):
            look = book.xf_list[sheet.cell_xf_index(row, col)]
            assert (look.alignment.hor_align, look.alignment.vert_align) == (CENTER_ACROSS, CENTER_DOWN)
            wanted = "@" if col < text_columns else "General"
            assert book.format_map[look.format_key].format_str == wanted, (form, row, col)
            font = book.font_list[look.font_index]
            assert (font.name, font.height, font.bold, font.italic) == ("宋体", 240, 0, 0)
            assert look.background.fill_pattern == 0
            border = look.border
            lines = (border.left_line_style, border.right_line_style, border.top_line_style, border.bottom_line_style)
            colors = (border.left_colour_index, border.right_colour_index, border.top_colour_index, border.bottom_colour_index)
            assert (border.diag_down, border.diag_up) == (0, 0)
            if row == 0:
                assert lines == (0, 0, 0, 0), (form, col)
            else:
                assert lines == (MEDIUM if col == 0 else THIN, MEDIUM if col == last - 1 else THIN,
                                 MEDIUM if row == 1 else THIN, MEDIUM if row == bottom - 1 else THIN), (form, row, col)
                assert colors == (64, 64, 64, 64), (form, row, col)
