#!/usr/bin/env python3
"""The page for users as it is installed: its pictures lie beside it, and it names nothing that only the source has.

    readme_test.py FOLDER
"""
import pathlib
import re
import sys


def main():
    folder = pathlib.Path(sys.argv[1])
    text = (folder / "README.zh-CN.md").read_text(encoding="utf-8")
    faults = ["not there: " + target for target in re.findall(r"\]\(([^)]+)\)", text) if not (folder / target).is_file()]
    faults += ["speaks of " + word for word in ("./run", "dist/", "packaging/", "docs/", "<!--") if word in text]
    if not re.search(r"!\[[^]]+\]\([^)]+\.png\)", text):
        faults.append("no picture")
    if "`velumark`" not in text:
        faults.append("does not say how the program is started")
    print("\n".join(faults) or "%d characters" % len(text))
    return 1 if faults else 0


sys.exit(main())
