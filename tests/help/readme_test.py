#!/usr/bin/env python3
"""The page for users as it is installed: its pictures lie beside it, it names nothing that only the source has, and it
says what somebody needs who has the program alone. On Windows it is a plain text, without a mark of Markdown.

    readme_test.py FOLDER
"""
import pathlib
import re
import subprocess
import sys
import unicodedata

PLAIN = pathlib.Path(__file__).resolve().parents[2] / "packaging/windows/readme.py"
# A word of what must be told, and what it is.
TOLD = {"`velumark`": "how the program is started", "velumark.exe": "how it is started on Windows",
        "## 升级": "how it is updated", "setup.exe": "how what was installed is updated",
        ".tar.xz": "how what was unpacked is updated", ".deb": "how the package is updated",
        "先启动一次窗口程序": "when velumark-calc knows the samples", "`cmd`": "how a command window is opened",
        "存文件请用 `-o`": "how velumark-calc writes files"}


def column(text):
    """Where its second column begins, a Chinese character taking two."""
    begin = text[:re.match(r".*?\S(?=  )\s+", text).end()] if re.search(r"\S  +\S", text) else ""
    return sum(2 if unicodedata.east_asian_width(char) in "FWA" else 1 for char in begin)


def plain(page):
    """The faults of the plain text of the page."""
    data = subprocess.run([sys.executable, PLAIN, page], check=True, capture_output=True).stdout
    text = data.decode("utf-8-sig")
    faults = [] if data.startswith(b"\xef\xbb\xbf") and "\n" not in text.replace("\r\n", "") else ["no text of Windows"]
    faults += ["in the plain text: " + line for line in text.split("\r\n") if re.search(r"^\s*[|#]|[`|]|\*\*|\]\(", line)]
    table = text[text.index("菜单 "):].split("\r\n\r\n")[0].split("\r\n")
    if len(table) < 9 or len({column(line) for line in table}) != 1 or column(table[0]) == 0:
        faults.append("the table's columns do not stand below each other: " + repr(table))
    return faults


def main():
    folder = pathlib.Path(sys.argv[1])
    text = (folder / "README.zh-CN.md").read_text(encoding="utf-8")
    faults = ["not there: " + target for target in re.findall(r"\]\(([^)]+)\)", text) if not (folder / target).is_file()]
    faults += ["speaks of " + word for word in ("./run", "dist/", "packaging/", "docs/", "<!--") if word in text]
    if not re.search(r"!\[[^]]+\]\([^)]+\.png\)", text):
        faults.append("no picture")
    faults += ["does not say " + what for word, what in TOLD.items() if word not in text]
    faults += plain(folder / "README.zh-CN.md")
    print("\n".join(faults) or "%d characters" % len(text))
    return 1 if faults else 0


sys.exit(main())
