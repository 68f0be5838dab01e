"""Writes report and plan of the sample traverse and reads them back: xlrd and LibreOffice, ezdxf and LibreCAD."""

import io
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import ezdxf
import xlrd

calc, samples = sys.argv[1], Path(sys.argv[2])
N, NAMES = 8, ["A", "B", "1", "2", "3", "4", "C", "D"]
LAST = 2 * N + 7
THIN, MEDIUM, CENTER = 1, 2, 2
STYLE = "自己设置文本样式1"


def run(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, timeout=200, **more).stdout


def cell(address):
    letters = "abcdefghijklm"
    return int(address[1:]) - 1, letters.index(address[0].lower())


def report(path):
    log = io.StringIO()
    book = xlrd.open_workbook(str(path), logfile=log, formatting_info=True)
    assert log.getvalue() == "", log.getvalue()
    sheet = book.sheet_by_name("Sheet1")
    value = lambda address: sheet.cell_value(*cell(address))
    xf = lambda row, col: book.xf_list[sheet.cell_xf_index(row, col)]

    assert value("a1") == "附　合　导　线　计　算　表"
    assert value("b2") == " 观测左角               (  °′ ″ )"
    assert value("d2") == " 方位角                         (  °′ ″ )"
    assert [value(f"a{row}") for row in range(4, 2 * N + 3, 2)] == NAMES
    assert value("b8") == "167°45′36″" and value(f"b{2 * N + 5}") == "fβ=-36″"
    assert isinstance(value("f7"), float) and isinstance(value("l8"), float)
    for row, x, y in ((8, 2299.83, 1303.80), (10, 2186.29, 1383.97), (12, 2192.45, 1556.40), (14, 2179.74, 1655.64)):
        assert abs(value(f"l{row}") - x) < 0.01 and abs(value(f"m{row}") - y) < 0.01, row

    merges = {(0, 1, 0, 13)} | {(1, 3, col, col + 1) for col in range(5)}
    merges |= {(1, 2, col, col + 2) for col in (5, 7, 9, 11)}
    merges |= {(row - 1, row + 1, col, col + 1) for row in range(4, 2 * N + 3, 2) for col in (0, 1, 2, 11, 12)}
    merges |= {(row - 1, row + 1, col, col + 1) for row in range(5, 2 * N + 2, 2) for col in range(3, 11)}
    assert set(sheet.merged_cells) == merges

    widths = {col: info.width / 256 for col, info in sheet.colinfo_map.items()}
    for col, width in {1: 13, 2: 6, 3: 16, 4: 8, 7: 5, 8: 5, 11: 13, 12: 13}.items():
        assert abs(widths[col] - width) < 0.8, (col, widths[col])  # the file counts the cell's own margin
    assert sheet.rowinfo_map[0].height == 28.5 * 20
    title = book.font_list[xf(0, 0).font_index]
    assert title.name == "黑体" and title.height == 20 * 20

    shaded = {(row, col) for row in range(4, 2 * N + 4) for col in (0,)}
    shaded |= {(row, 1) for row in range(6, 2 * N + 2)} | {(row, 4) for row in range(7, 2 * N + 1)}
    shaded |= {(row, col) for row in [*range(4, 8), *range(2 * N, 2 * N + 3)] for col in (11, 12)}
    for row in range(1, LAST + 1):
        for col in range(13):
            look = xf(row - 1, col)
            fill = look.background
            assert (fill.fill_pattern == 1) == ((row, col) in shaded), (row, col)
            if (row, col) in shaded:
                assert book.colour_map[fill.pattern_colour_index] == (204, 255, 204)
            text = book.format_map[look.format_key].format_str == "@"
            assert text == ((col == 0 and 4 <= row <= 2 * N + 2) or 2 * N + 4 <= row), (row, col)
            merged = row <= 3 or any(r1 < row <= r2 and c1 <= col < c2 for r1, r2, c1, c2 in merges)
            assert (look.alignment.vert_align == 1) == merged, (row, col)
            assert (look.alignment.hor_align == CENTER) == (merged or (4 <= row <= 2 * N and col > 0)), (row, col)
            wraps = row in (2, 3) and 1 <= col <= 4
            assert bool(look.alignment.text_wrapped) == wraps, (row, col)
            if row < 2:
                continue
            edge = look.border
            inner = THIN if row <= 2 * N + 3 else 0
            assert edge.left_line_style == (MEDIUM if col == 0 else inner), (row, col)
            assert edge.right_line_style == (MEDIUM if col == 12 else inner), (row, col)
            assert edge.top_line_style == (MEDIUM if row == 2 else inner), (row, col)
            assert edge.bottom_line_style == (MEDIUM if row == LAST else inner), (row, col)


def margins(path):
    """xlrd does not read them: the records themselves, number, length and a double of inches."""
    import struct
    data = path.read_bytes()
    for number in (0x26, 0x27):
        assert data.count(struct.pack("<HHd", number, 8, 0.5)) == 1, number
    # SETUP: upright and unscaled, as a new sheet is; how it is printed is the user's own business.
    at = data.index(struct.pack("<HH", 0xA1, 34)) + 4
    _, scale, _, across, down, flags = struct.unpack_from("<6H", data, at)
    assert (scale, across, down) == (100, 1, 1) and flags & 2, (scale, across, down, flags)


def pages(path, folder):
    run("soffice", f"-env:UserInstallation=file://{folder}/office", "--headless", "--convert-to", "pdf", "--outdir",
        str(folder), str(path))
    words = run("pdftotext", "-layout", str(folder / "report.pdf"), "-").decode()
    for text in ("167°45′36″", "2299.8", "fβ=-36″", "不符合精度要求"):
        assert text in words, text


def plan(path):
    document = ezdxf.readfile(str(path))
    audit = document.audit()
    assert not audit.errors and not audit.fixes, (audit.errors, audit.fixes)
    model = document.modelspace()
    kinds = [entity.dxftype() for entity in model]
    assert kinds == ["LWPOLYLINE"] + ["TEXT"] * N + ["INSERT"] * 4 + ["CIRCLE"] * (N - 4) + ["LINE"] * 2

    points = [(x, y) for x, y, *_ in model.query("LWPOLYLINE").first.get_points()]
    assert len(points) == N and points[1] == (1215.63, 2507.69)  # x is Y of the survey
    assert abs(points[2][0] - 1303.80) < 0.01 and abs(points[2][1] - 2299.83) < 0.01

    texts = list(model.query("TEXT"))
    assert [text.dxf.text for text in texts] == NAMES
    for text, (x, y) in zip(texts, points):
        assert text.dxf.height == 100 and text.dxf.style == STYLE
        assert text.dxf.insert.isclose((x + 50, y, 0))
    style = document.styles.get(STYLE)
    assert style.get_extended_font_data() == ("宋体", True, True)
    assert style.get_xdata("ACAD")[1].value & 0xFFFF == 0x111  # character set 1, pitch and family 17
    assert document.header["$TEXTSTYLE"] == STYLE

    inserts = list(model.query("INSERT"))
    for insert, k in zip(inserts, (0, 1, N - 2, N - 1)):
        assert insert.dxf.name == "三角形" and insert.dxf.insert.isclose((*points[k], 0))
        assert (insert.dxf.xscale, insert.dxf.yscale, insert.dxf.zscale, insert.dxf.rotation) == (5, 5, 5, 0)
    block = document.blocks.get("三角形")
    assert block.block.dxf.base_point.isclose((4, 1.67, 0))
    shapes = [[(x, y) for x, y, *_ in shape.get_points()] for shape in block]
    assert shapes == [[(0, 0)] * 4, [(0, 0), (10, 0), (5, 5), (0, 0)]]

    for circle, (x, y) in zip(model.query("CIRCLE"), points[2:-2]):
        assert circle.dxf.radius == 15 and circle.dxf.center.isclose((x, y, 0))
    for line, (k, m) in zip(model.query("LINE"), ((0, 1), (N - 2, N - 1))):
        assert line.dxf.start.isclose((points[k][0] + 10, points[k][1], 0))
        assert line.dxf.end.isclose((points[m][0] + 10, points[m][1], 0))


def drawn(path, folder):
    """LibreCAD opens it and has something to print."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=str(folder), XDG_RUNTIME_DIR=str(folder))
    run("librecad", "dxf2pdf", "-a", "-m", "-o", str(folder / "plan.pdf"), str(path), env=environment, cwd=folder)
    image = run("pdftoppm", "-r", "40", "-gray", str(folder / "plan.pdf"))
    width, height = (int(size) for size in image.split(b"\n", 3)[1].split())
    dark = sum(byte < 128 for byte in image[-width * height:])
    assert dark > 200, dark


folder = Path(tempfile.mkdtemp(prefix="traverse-"))
try:
    xls, dxf = folder / "report.xls", folder / "plan.dxf"
    run(calc, "traverse", "--file", str(samples / "附合导线.csv"), "--left", "-o", str(xls), "--dxf", str(dxf))
    report(xls)
    margins(xls)
    pages(xls, folder)
    plan(dxf)
    drawn(dxf, folder)
finally:
    shutil.rmtree(folder)
