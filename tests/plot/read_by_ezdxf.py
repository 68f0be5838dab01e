"""read_by_ezdxf.py VELUMARK-CALC SAMPLES: the drawings pass the audit, and what they hold lies where the tables say."""
import json
import math
import os
import shutil
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf import recover

calc, samples = sys.argv[1:]


def run(work, *args):
    return subprocess.run([calc, "--workspace", work, *args], check=True, capture_output=True).stdout


def read(path):
    _, auditor = recover.readfile(path)
    assert not auditor.has_errors and not auditor.has_fixes, [e.message for e in auditor.errors + auditor.fixes]
    return ezdxf.readfile(path)


def near(a, b, tolerance):
    return math.dist(a, b) <= tolerance


def plan(work, project):
    path = os.path.join(work, "plan.dxf")
    run(work, project, "plot", "--plan", "-o", path)
    doc = read(path)
    assert {"直线", "缓和曲线", "圆曲线", "主点"} <= {layer.dxf.name for layer in doc.layers}
    model = doc.modelspace()
    tables = json.loads(run(work, project, "tables", "--format", "json"))
    n = tables["gElemCount"]
    marks = [tuple(c.dxf.center)[:2] for c in model.query("CIRCLE[layer=='主点']")]
    ends = []
    for line in model.query("LINE[layer=='直线']"):
        ends += [tuple(line.dxf.start)[:2], tuple(line.dxf.end)[:2]]
    for line in model.query("LWPOLYLINE[layer=='缓和曲线']"):
        points = [p[:2] for p in line.get_points()]
        ends += [points[0], points[-1]]
    for arc in model.query("ARC[layer=='圆曲线']"):
        ends += [tuple(arc.start_point)[:2], tuple(arc.end_point)[:2]]
    for i in range(n):  # x is east, y north
        if i + 1 < n and abs(tables["gElemLc"][i + 1] - tables["gElemLc"][i]) < 1e-4:
            continue
        point = (tables["gElemY"][i], tables["gElemX"][i])
        assert any(near(point, m, 0.001) for m in marks), (i, point)
        assert any(near(point, e, 0.001) for e in ends), (i, point)
    radii = sorted(round(a.dxf.radius, 3) for a in model.query("ARC[layer=='圆曲线']"))
    arcs = sorted(abs(tables["gElemR1"][i]) for i in range(n) if tables["gElemR1"][i] and tables["gElemR1"][i] == tables["gElemR2"][i])
    assert radii == arcs, (radii, arcs)
    texts = [t.dxf.text for t in model.query("TEXT")]
    assert any(t.startswith("终点 K") for t in texts)
    names = [t.dxf.text for t in model.query("TEXT[layer=='导线点']")]
    assert names == tables["gDxdName"], names


def profile(work, project):
    path = os.path.join(work, "profile.dxf")
    run(work, project, "plot", "--profile", "--exaggeration", "10", "-o", path)
    model = read(path).modelspace()
    tables = json.loads(run(work, project, "tables", "--format", "json"))
    corners = [tuple(c.dxf.center)[:2] for c in model.query("CIRCLE[layer=='交点导线']")]
    changes = [(lc, 10 * gc) for lc, gc in zip(tables["gSqxLc"][1:-1], tables["gSqxGc"][1:-1])]
    assert len(corners) == len(changes)
    for change in changes:
        assert any(near(change, c, 0.001) for c in corners), change


def section(work):
    path = os.path.join(work, "section.dxf")
    run(work, "示例一", "plot", "--section", "12400", "--thickness", "0.2", "-o", path)
    model = read(path).modelspace()
    surface = [p[:2] for p in model.query("LWPOLYLINE[layer=='路面']").first.get_points()]
    for offset, y in surface:
        row = json.loads(run(work, "示例一", "elevation", "--at", "12400", f"--offset={offset}", "--format", "json"))[0]
        assert abs(row["elevation"] - y) < 0.001, (offset, y, row)
    bottom = [p[:2] for p in model.query("LWPOLYLINE[layer=='路面底']").first.get_points()]
    assert all(abs(b[1] - s[1] + 0.2) < 1e-6 for b, s in zip(bottom, surface))


with tempfile.TemporaryDirectory() as work:
    shutil.copytree(samples, os.path.join(work, "参数文件"))
    for project in ("示例一", "示例二"):
        plan(work, project)
        profile(work, project)
    section(work)
