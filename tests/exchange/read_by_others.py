"""What other programs read out of the files that exchange_files wrote: openpyxl, LibreOffice, GDAL, PROJ."""
import csv
import json
import math
import pathlib
import subprocess
import sys
import tempfile

folder = pathlib.Path(sys.argv[1])


def run(*words, **more):
    return subprocess.run(words, check=True, capture_output=True, text=True, **more).stdout


def workbook():
    import openpyxl
    book = openpyxl.load_workbook(folder / "table.xlsx")
    assert book.sheetnames == ["数值", "文本"], book.sheetnames
    numbers, texts = book["数值"], book["文本"]
    assert [c.value for c in numbers[2]] == [1, 12345.678, 2856498.5734, -0.0625, "=1+1"] or \
        [c.value for c in numbers[2]] == [1, 12345.678, 2856498.573, -0.062, "=1+1"], [c.value for c in numbers[2]]
    assert numbers["E2"].data_type == "s"  # no formula
    assert [c.value for c in texts[2]] == ["1", "K12+345.678", "2856498.573", "-0.062", "=1+1"]
    assert numbers["B3"].value == "无"
    for sheet in (numbers, texts):
        assert sheet.freeze_panes == "A2"
        assert sheet.sheet_properties.pageSetUpPr.fitToPage
    assert numbers["B2"].fill.fgColor.rgb.endswith("FFF3CD") and not numbers["B3"].fill.fgColor.rgb.endswith("FFF3CD")


def office():
    with tempfile.TemporaryDirectory() as home:
        run("soffice", "--headless", f"-env:UserInstallation=file://{home}/user", "--convert-to", "csv", "--outdir", home,
            str(folder / "table.xlsx"))
        rows = list(csv.reader(open(pathlib.Path(home) / "table.csv", encoding="utf-8")))
    assert rows[1][:3] == ["1", "12345.678", "2856498.573"], rows[1]


def maps():
    plane = {name: (float(x), float(y)) for name, x, y in csv.reader(open(folder / "plane.txt"))}
    lines = "".join(f"{y} {x}\n" for x, y in plane.values())
    answer = run("cs2cs", "-f", "%.12f", "+proj=tmerc", "+lon_0=117", "+k=1", "+x_0=500000", "+ellps=GRS80", "+to",
                 "+proj=longlat", "+ellps=GRS80", input=lines)
    degrees = dict(zip(plane, ([float(n) for n in line.split()[:2]] for line in answer.splitlines())))
    for name in ("map.geojson", "map.kml"):
        read = json.loads(run("ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=12", "/vsistdout/",
                              str(folder / name)))
        axis = [f for f in read["features"] if f["geometry"]["type"] == "LineString"]
        assert len(axis) == 1 and len(axis[0]["geometry"]["coordinates"]) > 40
        seen = {}
        for feature in read["features"]:
            properties = feature["properties"]
            if feature["geometry"]["type"] == "Point":
                seen[properties.get("name") or properties["Name"]] = feature["geometry"]["coordinates"]
        assert set(seen) == set(plane), name
        for point, (lon, lat) in degrees.items():
            east = (seen[point][0] - lon) * math.pi / 180 * 6378137 * math.cos(math.radians(lat))
            north = (seen[point][1] - lat) * math.pi / 180 * 6378137
            assert math.hypot(east, north) < 0.001, (name, point, east, north)
    own = json.load(open(folder / "own.geojson", encoding="utf-8"))
    for feature in own["features"][1:]:
        east, north = feature["geometry"]["coordinates"][:2]
        assert (north, east) == plane[feature["properties"]["name"]]


workbook()
office()
maps()
