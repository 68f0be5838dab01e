#!/usr/bin/env python3
"""Builds the help: the chapters of this folder, in the order of their names, as one HTML file with its pictures inside.

    build.py OUTPUT.html
"""
import base64
import html
import pathlib
import re
import sys

import markdown

HERE = pathlib.Path(__file__).resolve().parent

STYLE = """
body { margin: 0; font: 16px/1.7 "Noto Sans CJK SC", "Microsoft YaHei", "WenQuanYi Micro Hei", sans-serif; color: #1f2733; }
nav { position: fixed; top: 0; bottom: 0; width: 250px; overflow: auto; background: #f2f4f7; padding: 16px; box-sizing: border-box; }
nav a { display: block; color: #1f5fa8; text-decoration: none; padding: 1px 0; }
nav a.h2 { padding-left: 16px; font-size: 14px; } nav a.h3 { padding-left: 32px; font-size: 13px; }
main { margin-left: 250px; padding: 16px 40px 80px; max-width: 900px; }
h1 { border-bottom: 2px solid #1f5fa8; padding-bottom: 4px; margin-top: 48px; }
img { max-width: 100%; border: 1px solid #c8cdd3; } svg { max-width: 620px; display: block; margin: 12px 0; }
table { border-collapse: collapse; } td, th { border: 1px solid #c8cdd3; padding: 4px 10px; text-align: left; }
blockquote { margin: 12px 0; padding: 4px 16px; background: #fff3cd; border-left: 4px solid #e0a458; }
pre, code { background: #f2f4f7; } pre { padding: 12px; overflow: auto; }
@media print { nav { display: none } main { margin: 0 } }
@media (max-width: 700px) { nav { position: static; width: auto } main { margin: 0; padding: 16px } }
"""


def embedded(text):
    """Pictures become part of the file; one that is missing is an error."""
    def picture(match):
        data = (HERE / match[1]).resolve().read_bytes()
        return 'src="data:image/png;base64,%s"' % base64.b64encode(data).decode()
    return re.sub(r'src="([^":]+\.png)"', picture, text)


def contents(body):
    items = re.findall(r'<(h[123]) id="([^"]+)">(.*?)</\1>', body)
    return "\n".join('<a class="%s" href="#%s">%s</a>' % (level, html.escape(name), title) for level, name, title in items)


def slug(text, separator):
    return re.sub(r"\s+", separator, text.strip())


def main():
    chapters = sorted(HERE.glob("*.md"))
    text = "\n\n".join(chapter.read_text(encoding="utf-8") for chapter in chapters)
    body = markdown.markdown(text, extensions=["tables", "attr_list", "fenced_code", "toc", "md_in_html"],
                             extension_configs={"toc": {"slugify": slug}})
    page = ('<!DOCTYPE html>\n<html lang="zh-CN"><head><meta charset="utf-8">'
            '<meta name="viewport" content="width=device-width"><title>Velumark 使用说明</title>'
            "<style>%s</style></head>\n<body><nav>%s</nav><main>%s</main></body></html>\n"
            % (STYLE, contents(body), embedded(body)))
    pathlib.Path(sys.argv[1]).write_text(page, encoding="utf-8")


main()
