"""Where points lie on printed sheets, asked of other people's programs.

read_paper.py PDF POINTS       each point of the .json list [x north, y east] is marked on the only page, within 0.02 mm
read_paper.py CALC SAMPLES     the same of .svg sheets made by that velumark-calc, read by librsvg, and of a .dxf that
                               LibreCAD prints
"""
import cmath
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

MM = 72 / 25.4  # points of a printer
LARGE = 75  # points a millimetre of the pages that librsvg makes, see `printed`


def run(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, **more).stdout


def marks(pdf, tolerance, mm=MM, curved=False):
    """Widths and centres of what is as wide as high on a page, complex millimetres, y upwards. Poppler reads it.

    curved: of four curves alone, as circles are drawn.
    """
    root = ElementTree.fromstring(run("pdftocairo", "-svg", "-f", "1", "-l", "1", pdf, "-"))
    found = []
    for path in root.iter("{http://www.w3.org/2000/svg}path"):
        numbers = [float(n) for n in re.findall(r"-?\d+(?:\.\d+)?", path.get("d", ""))]
        turn = re.fullmatch(r"matrix\((.*)\)", path.get("transform", "matrix(1,0,0,1,0,0)"))
        a, b, c, d, e, f = (float(n) for n in re.split(r"[ ,]+", turn.group(1).strip()))
        points = [(a * x + c * y + e, b * x + d * y + f) for x, y in zip(numbers[::2], numbers[1::2])]
        if len(points) < 4 or (curved and path.get("d").count("C") != 4):
            continue
        xs, ys = [p[0] / mm for p in points], [p[1] / mm for p in points]
        w, h = max(xs) - min(xs), max(ys) - min(ys)
        if w > 0 and abs(w - h) < tolerance:
            found.append((w, complex((max(xs) + min(xs)) / 2, -(max(ys) + min(ys)) / 2)))
    return found


def laid(points, centres, tolerance, scale=None):
    """Turned, scaled and shifted as one, every point lies on a mark within `tolerance` mm. Its factor, mm a metre."""
    if not centres or len(points) > len(centres):
        raise AssertionError("too few marks")

    # The first and the last point lie on two of the marks: of all pairs the one that brings all others onto marks.
    def worst(factor, shift):
        return max(min(abs(factor * p + shift - c) for c in centres) for p in points)
    tried = []
    for first in centres:
        for last in centres:
            if first == last:
                continue
            factor = (last - first) / (points[-1] - points[0])
            if scale and abs(abs(factor) / scale - 1) > 1e-3:
                continue
            far = points[len(points) // 2]
            if min(abs(factor * (far - points[0]) + first - c) for c in centres) < 10 * tolerance:
                tried.append((worst(factor, first - factor * points[0]), factor, first))
    assert tried, "no two marks are the first and the last point"
    _, factor, first = min(tried, key=lambda each: each[0])
    # Least squares over all of them.
    pairs = [(p, min(centres, key=lambda c: abs(factor * (p - points[0]) + first - c))) for p in points]
    p0, c0 = (sum(each) / len(pairs) for each in zip(*pairs))
    factor = (sum((c - c0) * (p - p0).conjugate() for p, c in pairs) / sum(abs(p - p0) ** 2 for p, _ in pairs))
    off = max(abs(factor * (p - p0) + c0 - c) for p, c in pairs)
    assert off < tolerance, f"{off} mm off"
    return factor, off


def east_north(points):
    """Complex with y east and x north, counted from the first."""
    return [complex(y - points[0][1], x - points[0][0]) for x, y in points]


def of_diameter(found, mm, tolerance):
    return [c for w, c in found if abs(w - mm) < tolerance]


def window(pdf, points):
    with open(points, encoding="utf-8") as file:
        wanted = json.load(file)
    centres = of_diameter(marks(pdf, 0.02), 1.4, 0.02)
    factor, off = laid(east_north(wanted["points"]), centres, 0.02, 1000 / wanted["scale"])
    assert abs(abs(factor) * wanted["scale"] / 1000 - 1) < 1e-4, abs(factor)
    assert abs(cmath.phase(factor)) < 1e-4, "north is not up"
    print(f"{len(wanted['points'])} points, at most {off:.4f} mm off")


def main_points(tables):
    """The start of each element that has a length."""
    lc, n = tables["gElemLc"], tables["gElemCount"]
    return [(lc[i], tables["gElemX"][i], tables["gElemY"][i]) for i in range(n) if lc[i + 1] - lc[i] > 1e-4]


def printed(svg, pdf):
    """By librsvg, which rounds a page to whole pixels: made so large that nothing is rounded."""
    with open(svg, encoding="utf-8") as file:
        text = file.read()
    text, count = re.subn(r'width="(\d+)mm" height="(\d+)mm"', r'width="\g<1>00px" height="\g<2>00px"', text, count=1)
    assert count == 1
    run("rsvg-convert", "-f", "pdf", "-o", pdf, input=text.encode())


def sheets(calc, work, project, scale):
    """Each sheet by librsvg's eyes."""
    options = ["--scale", f"1:{scale}"] if scale else []
    written = run(calc, "--workspace", work, project, "plot", "--plan", *options, "-o", os.path.join(work, "plan.svg"))
    tables = json.loads(run(calc, "--workspace", work, project, "tables", "--format", "json"))
    points = [(x, y) for _, x, y in main_points(tables)]
    done, most = 0, 0
    for svg in written.decode().splitlines():
        root = ElementTree.parse(svg).getroot()
        texts = [t.text for t in root.iter("{http://www.w3.org/2000/svg}text")]
        told = next(float(t[2:]) for t in texts if t.startswith("1:"))
        assert scale is None or told == scale
        pdf = svg[:-4] + ".pdf"
        printed(svg, pdf)
        # The file says in millimetres where its marks are; librsvg must agree.
        said = [complex(float(c.get("cx")), -float(c.get("cy"))) for c in root.iter("{http://www.w3.org/2000/svg}circle")
                if abs(float(c.get("r")) - 0.7) < 1e-6]
        read = of_diameter(marks(pdf, 0.02, LARGE), 1.4, 0.02)
        for centre in said:
            assert min(abs(centre - c) for c in read) < 0.02, centre
        # Which of the points a sheet holds its marks tell: those from the next one on that can all be laid on marks.
        for last in range(len(points), done + 1, -1):
            try:
                factor, off = laid(east_north(points[done:last]), read, 0.02, 1000 / told)
            except AssertionError:
                continue
            assert abs(abs(factor) * told / 1000 - 1) < 1e-3
            assert scale or abs(cmath.phase(factor)) < 1e-4, "north is not up"
            most, done = max(most, off), last
            break
    assert done == len(points), f"point {done} of {len(points)} is on no sheet"
    print(f"{project} 1:{scale or told}: {done} points, at most {most:.4f} mm off")


def librecad(calc, work, project):
    """The .dxf printed on one page: every main point has its mark, in one scale."""
    dxf, pdf = os.path.join(work, "printed.dxf"), os.path.join(work, "printed.pdf")  # it names the page after the drawing
    run(calc, "--workspace", work, project, "plot", "--plan", "-o", dxf)
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=work, XDG_RUNTIME_DIR=work)
    run("librecad", "dxf2pdf", "-a", "-m", dxf, env=environment, cwd=work)
    tables = json.loads(run(calc, "--workspace", work, project, "tables", "--format", "json"))
    points = [(x, y) for _, x, y in main_points(tables)]
    centres = [c for _, c in marks(pdf, 0.1, curved=True)]
    factor, off = laid(east_north(points), centres, 0.02)
    width, height = (float(n) for n in re.search(rb"Page size: +([\d.]+) x ([\d.]+)", run("pdfinfo", pdf)).groups())
    assert (round(width / MM), round(height / MM)) == (420, 297), (width, height)
    print(f"{project} by LibreCAD: {len(points)} points at {abs(factor):.5f} mm a metre, at most {off:.4f} mm off")


if __name__ == "__main__":
    if sys.argv[1].endswith(".pdf"):
        window(*sys.argv[1:])
    else:
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(sys.argv[2], os.path.join(folder, "参数文件"))
            for name in ("示例一", "示例二"):
                sheets(sys.argv[1], folder, name, None)
                sheets(sys.argv[1], folder, name, 2000)
                librecad(sys.argv[1], folder, name)
