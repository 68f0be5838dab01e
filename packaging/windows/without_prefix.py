#!/usr/bin/env python3
"""without_prefix.py PROGRAM: takes the folder out of the program into which Qt was built. Qt keeps it in a field of its own
for plugins and translations beside it, of which this program has none; with it, one commit would give other bytes to
everybody who builds it elsewhere.
"""

import pathlib
import re
import sys

FIELD = re.compile(rb"qt_prfxpath=[^\0]*")


def main(program):
    program = pathlib.Path(program)
    found = FIELD.findall(program.read_bytes())
    if len(found) != 1:
        sys.exit(f"{program}: {len(found)} folders of Qt")
    program.write_bytes(FIELD.sub(b"qt_prfxpath=/qt".ljust(len(found[0]), b"\0"), program.read_bytes()))


main(*sys.argv[1:])
