"""Roads in which each field that a load reads is damaged by itself, and geometry that fails without a damaged field."""

from second import ALIGNMENT, BREAKS, CRLF, PROFILE, SETTINGS, SLOPES, STATIONS, WIDTHS


def files_of(texts):
    return {name: text.replace("\n", "\r\n").encode("gbk") for name, text in texts.items()}


# Right with unequal spirals, left over 90 degrees, right without spirals; a jump and an overlap; four rows a table.
BY_POINTS = files_of({
    SETTINGS: "交点法\n线性\n2\n3\n12\n",
    ALIGNMENT: "1000,5000,3000\n"
               "JD1,5400.5,3100.25,40.123,50.37,200.05\n"
               "JD2,5600,3600,30,30,90\n"
               "JD3,5200.125,3550,0,0,150\n"
               "5100,3900\n",
    BREAKS: "1200,1230\n1500,1490\n1700,1705\n",
    STATIONS: "G1,5000.5,3000.25,山\nG2,5100,3100,\nG3,5200,3200,x\n",
    PROFILE: "1000,100.5\n1180,104,3000\n1400,101,4000\n1800,108\n",
    SLOPES: "1000,-2,-2,1100,4,-4\n1100,4,-4,1300,-3,5\n1300,-3,5,1800,2,2\n",
    WIDTHS: "1000,1100,2,5,6,1,1.5,7,8,.75,.5,-4\n"
            "1100,1300,2.5,7,8,.75,.5,7.5,8.5,1,1.25,-3\n"
            "1300,1800,3,9,10,2,2.5,11,12,3,3.5,4\n"})

BY_BLOCKS = BY_POINTS | files_of({
    SETTINGS: "积木法\n三次抛物线\n2\n3\n12\n",
    ALIGNMENT: "1000,1100,5000,3000,30.1520,0,0\n"
               "1100,1190,5086.4,3050.4,30.1520,0,-250\n"
               "1190,1400,5160,3090,19.5535,-250,-120\n"})

# Another project, larger and smaller in its parts.
OTHER = files_of({
    SETTINGS: "交点法\n三次抛物线\n1\n1\n0\n",
    ALIGNMENT: "0,0,0\n甲,200,50,20,20,100\n乙,300,300,10,15,80\n丙,600,320,0,10,120\n丁,700,600,25,0,90\n900,500\n",
    BREAKS: "50,60\n",
    STATIONS: "老点,9,8,\n",
    PROFILE: "0,9\n900,8\n",
    SLOPES: "0,-1,-1.5,900,-1,-1.5\n",
    WIDTHS: "0,900,1,2,3,4,5,6,7,8,9,10\n"})

DAMAGES = {
    "no number": lambda row, field: row[:field] + [b"1.2.3"] + row[field + 1:],
    "empty": lambda row, field: row[:field] + [b""] + row[field + 1:],
    "too large": lambda row, field: row[:field] + [b"1e999"] + row[field + 1:],
    "cut off": lambda row, field: row[:field],
    "zero": lambda row, field: row[:field] + [b"0"] + row[field + 1:],
    "negative": lambda row, field: row[:field] + [b"-" + row[field]] + row[field + 1:],
    "at the edge of a double": lambda row, field: row[:field] + [b"1.7e308"] + row[field + 1:],
    "tiny": lambda row, field: row[:field] + [b"1e-200"] + row[field + 1:],
}

# Statements of the intersection-point compile that read no field of their own fail by what others hold.
GEOMETRY = {
    "p, q, T, 1/R: radius 0 first": "0,0,0\nA,100,0,20,30,0\nB,150,90,10,20,40\n300,100\n",
    "p, q, T, 1/R: radius 0 later": "0,0,0\nA,100,0,20,30,50\nB,150,90,10,20,0\n300,100\n",
    "all radii 0": "0,0,0\nA,100,0,20,30,0\nB,150,90,10,20,0\n300,100\n",
    "T1, T2: deflection 0": "0,0,0\nA,100,100,20,30,50\nB,200,200,10,20,50\n300,100\n",
    "deflection: legs past the range": "0,0,0\nA,1e308,0,20,30,50\nB,-1e308,9,10,20,50\n300,100\n",
    "distance past the range": "0,0,0\nA,1e200,1e200,20,30,50\nB,200,9,10,20,50\n300,100\n",
    "azimuth: quotient past the range": "0,0,0\nA,1e-300,1e300,20,30,50\nB,200,9,10,20,50\n300,100\n",
    "p: cube of a tiny radius is 0": "0,0,0\nA,100,0,20,30,1e-120\n100,100\n",
    "p: powers of a long spiral": "0,0,0\nA,100,0,1e100,1e60,50\n100,100\n",
    "q: tiny spiral, powers are 0": "0,0,0\nA,100,0,1e-40,1e-30,50\n90,100\n",
    "big deflection, radius 0": "0,0,0\nA,100,0,20,30,50\nB,50,90,20,30,0\n100,-100\n",
    "arc of length 0": "0,0,0\nA,100,0,0,0,0\n100,100\n",
    "arc of length 0 with a radius": "0,0,0\nA,0,100,8,8,50\n0,200\n",
    "curve length past the range": "0,0,0\nA,100,0,20,30,1.7e308\n90,100\n",
    "stakes past the range": "1.7e308,0,0\nA,1e154,0,20,30,50\n1e154,1e154\n",
    "equal vertices": "0,0,0\nA,0,0,20,30,50\nB,0,0,20,30,50\n0,0\n",
    "due south": "0,0,0\nA,-100,0,20,30,50\nB,-200,0,20,30,50\n-100,0\n",
    "no name": "0,0,0\n,100,0,20,30,50\n100,100\n",
    "vertex without a comma": "0,0,0\nA\nB,100,0,20,30,50\n100,100\n",
    "two lines": "5,1,2\n3,4\n",
    "one line": "5,1,2\n",
    "negative radii": "0,0,0\nA,100,0,20,30,-50\nB,150,90,10,20,-40\n300,100\n",
    "exactly 90 left and right": "0,0,0\nA,100,0,20,30,50\nB,100,100,10,20,40\n300,100\n",
    "exactly 180": "0,0,0\nA,0,100,20,30,50\nB,0,50,10,20,40\n0,300\n",
}


def damaged_roads():
    """Each as its name and its files."""
    for model, whole in (("points", BY_POINTS), ("blocks", BY_BLOCKS)):
        for name in (ALIGNMENT, BREAKS, STATIONS, PROFILE, SLOPES, WIDTHS):
            rows = [line.split(b",") for line in whole[name].split(CRLF)[:-1]]
            for n, row in enumerate(rows):
                for field in range(len(row)):
                    for damage, apply in DAMAGES.items():
                        lines = [b",".join(apply(row, field) if i == n else r) for i, r in enumerate(rows)]
                        yield f"{model} {name} row {n} field {field}: {damage}", whole | {name: CRLF.join(lines) + CRLF}
    for statement, text in GEOMETRY.items():
        yield statement, {name: b"" for name in OTHER} | {SETTINGS: BY_POINTS[SETTINGS]} | files_of({ALIGNMENT: text})
