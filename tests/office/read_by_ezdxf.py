"""Reads the drawing of the tests with ezdxf and compares what it finds. A repair is a failure."""

import sys
from pathlib import Path

import ezdxf

document = ezdxf.readfile(str(Path(sys.argv[1]) / "plan.dxf"))
audit = document.audit()
assert not audit.errors and not audit.fixes, (audit.errors, audit.fixes)
assert document.dxfversion == "AC1021"

assert sorted(layout.name for layout in document.layouts) == ["Layout1", "Model"]
assert "0" in [layer.dxf.name for layer in document.layers]
assert sorted(kind.dxf.name for kind in document.linetypes) == ["ByBlock", "ByLayer", "Continuous"]
assert sorted(style.dxf.name for style in document.styles) == ["Standard", "样式"]
# The flags by their number: this reader exchanges the names of bold (bit 25) and italic (bit 24).
assert [tag.value for tag in document.styles.get("样式").get_xdata("ACAD")] == ["宋体", 1 << 25 | 134 << 8 | 2]

view = document.viewports.get("*Active")[0]
assert tuple(view.dxf.direction) == (0, 0, 1) and tuple(view.dxf.target) == (0, 0, 0)
assert view.dxf.height > 0 and view.dxf.aspect_ratio == 1.5

polyline, line, circle, text, plain, insert = document.modelspace()
assert [(x, y) for x, y, *_ in polyline.get_points()] == [(1, 2), (3.5, -4)]
assert tuple(line.dxf.start) == (0.1, 0, 0) and tuple(line.dxf.end) == (1e6, 1e-7, 0)
assert tuple(circle.dxf.center) == (7, 8, 0) and circle.dxf.radius == 15
assert (text.dxf.text, text.dxf.style, text.dxf.height, tuple(text.dxf.insert)) == ("点^ 1^J", "样式", 100, (5, 6, 0))
assert (plain.dxf.text, plain.dxf.style, plain.dxf.height) == ("A", "Standard", 2)
assert (insert.dxf.name, insert.dxf.rotation, insert.dxf.xscale) == ("块", 30, 5)
block = document.blocks.get("块")
assert tuple(block.block.dxf.base_point) == (4, 1.67, 0) and [shape.dxftype() for shape in block] == ["LINE"]
