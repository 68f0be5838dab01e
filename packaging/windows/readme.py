#!/usr/bin/env python3
"""readme.py PAGE.md: the page for users as a plain text with line ends of Windows; pictures and the marks of Markdown go."""

import pathlib
import re
import sys

text = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
text = re.sub(r"^!\[.*\]\(.*\)\n\n?", "", text, flags=re.M)
text = re.sub(r"^#+ +", "", text, flags=re.M)
text = re.sub(r"^```\n", "", text, flags=re.M)
text = re.sub(r"^\|[-|]+\|\n", "", text, flags=re.M)
text = re.sub(r"`|\*\*", "", text)
text = re.sub(r"\n{3,}", "\n\n", text)
sys.stdout.buffer.write(b"\xef\xbb\xbf" + text.strip().replace("\n", "\r\n").encode() + b"\r\n")
