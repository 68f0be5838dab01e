#!/usr/bin/env python3
"""The help as it is installed: every link and picture resolves, every screen behind the menus has its chapter, and
what it says of breaks and of the road's end is so.

    help_test.py HELP.html SOURCE_DIR
"""
import base64
import html.parser
import pathlib
import re
import sys


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.ids, self.links, self.pictures = set(), [], []

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if "id" in attrs:
            self.ids.add(attrs["id"])
        if tag == "a":
            self.links.append(attrs["href"])
        if tag == "img":
            self.pictures.append(attrs)


def words(text):
    """短链: numbers are skipped, the road is shorter than they say. 长链: numbers stand there twice."""
    faults = []
    for kind, back, ahead in re.findall(r"([长短])链(?:\*\*|</strong>)?：来向 ?(\d+)，去向 ?(\d+)", text):
        if (kind == "短") != (int(back) < int(ahead)):
            faults.append("%s链 from %s to %s" % (kind, back, ahead))
    for wrong in ("长链跳过", "短链重复", "有短链时，负号", "来向小于去向是长链", "来向大于去向是短链", "小为短链", "大为长链"):
        if wrong in text:
            faults.append("wrong way round: " + wrong)
    if len(re.findall(r"[长短]链(?:\*\*|</strong>)?：来向", text)) < 4:
        faults.append("the two breaks and their drawings are not explained")
    # The closing row lies behind the end, which so has a point of its own.
    if "减去 0.001" in text or "终点不属于任何一段" in text:
        faults.append("the end of the road has its own point")
    for word, what in {'id="update"': "how a newer version is put in place", "先启动一次窗口程序": "when velumark-calc knows the samples",
                       "<code>cmd</code>": "how a command window is opened", "存文件请用 <code>-o</code>": "how it writes files",
                       "无法写入！正被其他程序使用": "what to do about a file that another program holds"}.items():
        if word not in text:
            faults.append("nothing about " + what)
    if "Windows (CRLF)" in text:
        faults.append("a choice that no editor of Windows has")
    if "K0+257.89999999999" not in text:
        faults.append("nothing about steps whose sums show")
    return faults


def main():
    page = Page()
    page.feed(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    source = pathlib.Path(sys.argv[2])
    faults = words(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    for link in page.links:
        if not link.startswith("#") or link[1:] not in page.ids:
            faults.append("link to nowhere: " + link)
    for picture in page.pictures:
        kind, _, data = picture["src"].partition(",")
        if kind != "data:image/png;base64" or base64.b64decode(data)[:8] != b"\x89PNG\r\n\x1a\n":
            faults.append("no picture: " + picture.get("alt", "?"))
        if not picture.get("alt"):
            faults.append("a picture without words")
    # F1 goes to the place of the form's name.
    forms = {path.stem for path in (source / "src").rglob("frm*.h")} - {"frmJgwDrawing"}
    for form in sorted(forms):
        if form not in page.ids:
            faults.append("no chapter for " + form)
    if len(page.pictures) < 25 or len(forms) < 25:
        faults.append("only %d pictures and %d forms" % (len(page.pictures), len(forms)))
    print("\n".join(faults) or "%d links, %d pictures, %d forms" % (len(page.links), len(page.pictures), len(forms)))
    return 1 if faults else 0


sys.exit(main())
