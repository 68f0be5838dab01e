#!/usr/bin/env python3
"""pack.py STAGE NAME FOLDER FILES.NSH: FOLDER/NAME.zip with all of STAGE below the folder NAME, and the list of its files
as NSIS puts them down and takes them away. Entries are sorted, their times are SOURCE_DATE_EPOCH.
"""

import datetime
import os
import pathlib
import sys
import zipfile

TRIED = ("样例文件", "示例")  # folders whose files may have been worked on: no update replaces them


def main(stage, name, folder, listed):
    stage, folder = pathlib.Path(stage), pathlib.Path(folder)
    second = int(os.environ["SOURCE_DATE_EPOCH"])
    moment = datetime.datetime.fromtimestamp(second, datetime.timezone.utc)
    paths = sorted(stage.rglob("*"), key=lambda path: path.relative_to(stage).as_posix().encode())
    files = [path for path in paths if path.is_file()]
    for path in paths:
        os.utime(path, (second, second))

    with zipfile.ZipFile(folder / f"{name}.zip", "w") as archive:
        for path in files:
            entry = zipfile.ZipInfo(f"{name}/{path.relative_to(stage).as_posix()}", moment.timetuple()[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, path.read_bytes(), compresslevel=9)

    put, take, place = [], [], None
    for path in files:
        below = path.relative_to(stage)
        there = "\\".join(("$INSTDIR", *below.parent.parts))
        if there != place:
            put.append(f'SetOutPath "{there}"')
            put.append(f'SetOverwrite {"off" if below.parts[0] in TRIED else "on"}')
            place = there
        put.append(f'File "{path}"')
        if below.parts[0] in TRIED:
            take.append(f'!insertmacro DeleteUnchanged "{there}\\{below.name}" {path.stat().st_size}')
        else:
            take.append(f'Delete "{there}\\{below.name}"')
    put.append("SetOverwrite on")
    folders = [path.relative_to(stage) for path in paths if path.is_dir()]
    take += [f'RMDir "$INSTDIR\\{chr(92).join(below.parts)}"' for below in reversed(folders)]
    text = "!macro PutFiles\n  " + "\n  ".join(put) + "\n!macroend\n"
    text += "!macro TakeFiles\n  " + "\n  ".join(take) + "\n!macroend\n"
    pathlib.Path(listed).write_text(text, encoding="utf-8")


main(*sys.argv[1:])
