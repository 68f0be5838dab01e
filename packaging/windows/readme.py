#!/usr/bin/env python3
"""readme.py PAGE.md: the page for users as a plain text with line ends of Windows; pictures and the marks of Markdown go,
tables stand in columns.
"""

import pathlib
import re
import sys
import unicodedata


def width(text):
    """In columns of a font of one width, in which a Chinese character takes two."""
    return sum(2 if unicodedata.east_asian_width(char) in "FWA" else 1 for char in text)


def laid_out(table):
    rows = [[cell.strip() for cell in line.strip("|").split("|")] for line in table.splitlines()]
    del rows[1]  # the line below the head
    widths = [max(map(width, column)) for column in zip(*rows)]
    return "".join("  ".join(cell + " " * (most - width(cell)) for cell, most in zip(row, widths)).rstrip() + "\n"
                   for row in rows)


text = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
text = re.sub(r"^!\[.*\]\(.*\)\n\n?", "", text, flags=re.M)
text = re.sub(r"^#+ +", "", text, flags=re.M)
text = re.sub(r"^```\n", "", text, flags=re.M)
text = re.sub(r"`|\*\*", "", text)
text = re.sub(r"^\|.*\n\|[-|]+\|\n(\|.*\n)+", lambda table: laid_out(table[0]), text, flags=re.M)
text = re.sub(r"\n{3,}", "\n\n", text)
sys.stdout.buffer.write(b"\xef\xbb\xbf" + text.strip().replace("\n", "\r\n").encode() + b"\r\n")
