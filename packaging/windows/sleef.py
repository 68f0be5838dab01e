#!/usr/bin/env python3
"""sleef.py LIBRARY FOLDER: the functions of base/Trig.cpp out of Debian's libsleef.so as assembler source for Windows.

The digits of the program hang on the last bits of these functions. So both systems run the same machine code, and no
second compiler comes between: the functions are leaves, they call nothing and refer to constants of the library alone.
FOLDER gets sleef.S, constants.bin and the header sleef.h. Everything that is not as expected ends the script: a
library of another version gives these functions whole or not at all.

What changes on the way:
- where a function refers to constants (relative to itself), the reference leads to a copy of them;
- what lies below the stack pointer is nobody's on Windows: there the 128 bytes that Linux grants are made by whoever
  calls, and the function's own references are moved above its return address;
- the caller is told that the functions follow Linux's rules for registers (sysv_abi).
"""

import re
import subprocess
import sys

# How many values each takes, and of what type.
FUNCTIONS = {f"Sleef_cinz_{name}": (count, kind) for name, count, kind in (
    ("sind1_u10purec", 1, "double"), ("cosd1_u10purec", 1, "double"), ("tand1_u10purec", 1, "double"),
    ("atand1_u10purec", 1, "double"), ("atan2d1_u10purec", 2, "double"),
    ("sind2_u10sse2", 1, "__m128d"), ("cosd2_u10sse2", 1, "__m128d"))}
ROOM = 0x88       # what the entry lays open above the return address: 128 bytes, and the stack stays aligned to 16
MOVED = 0x50      # from below the stack pointer (at most 0x40 bytes) to above the return address and one saved register
BELOW_AT_MOST = 0x40


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout


def expect(truth, what):
    if not truth:
        sys.exit(f"sleef.py: {what}")


def constants_of(library):
    row = re.search(r"\.rodata\s+([0-9a-f]+)\s+([0-9a-f]+)\s+[0-9a-f]+\s+([0-9a-f]+)", run("objdump", "-h", library))
    expect(row, "no constants")
    size, address, offset = (int(n, 16) for n in row.groups())
    with open(library, "rb") as file:
        file.seek(offset)
        return address, file.read(size)


def instructions(library, start, size):
    """(address, bytes, text) of each one."""
    listing = run("objdump", "-d", "-w", f"--start-address={start}", f"--stop-address={start + size}", library)
    rows = re.findall(r"^ *([0-9a-f]+):\t((?:[0-9a-f]{2} )+) *\t(.*)$", listing, re.M)
    return [(int(address, 16), bytes.fromhex(code), text.strip()) for address, code, text in rows]


def converted(library, name, constants, first):
    """The lines of one function."""
    row = re.search(rf"^([0-9a-f]{{16}})\s.*\.text\s+([0-9a-f]{{16}})\s+\S*\s+{name}$", run("objdump", "-T", library), re.M)
    expect(row, f"no {name}")
    start, size = int(row[1], 16), int(row[2], 16)
    lines = [f"body_{name}:"]
    at, saved = start, 0
    for address, code, text in instructions(library, start, size):
        expect(address == at, f"{name}: a gap at {at:x}")
        at += len(code)
        expect(not re.search(r"\bcall|%[fg]s:|ymm|zmm|%r?sp\b.*,%r?sp|\bsyscall", text), f"{name}: {text}")
        if text.startswith("push"):
            saved += 1
            expect(saved == 1, f"{name}: saves more than one register")
        if jump := re.match(r"j\w+\s+([0-9a-f]+)", text):
            expect(start <= int(jump[1], 16) < start + size, f"{name}: leaves itself: {text}")
        if "(%rip)" in text:
            target = int(re.search(r"# ([0-9a-f]+)", text)[1], 16)
            expect(first <= target < first + len(constants), f"{name}: refers to {target:x}")
            place = code.rfind((target - at).to_bytes(4, "little", signed=True))
            after = len(code) - place - 4
            expect(place > 0 and after in (0, 1), f"{name}: {text}")
            lines.append(listed(code[:place]))
            lines.append(f"    .long constants + {target - first} - (. + {4 + after})")
            lines += [listed(code[place + 4:])] if after else []
        elif stack := re.search(r"(-?0x[0-9a-f]+)?\(%rsp", text):
            below = int(stack[1] or "0", 16)
            expect(-BELOW_AT_MOST <= below < 0, f"{name}: {text}")
            place = code.rfind(bytes([0x24, below & 0xFF]))   # the byte of (%rsp) alone, then the distance
            expect(place == len(code) - 2, f"{name}: {text}")
            lines.append(listed(code[:-1] + bytes([below + MOVED])))
        else:
            lines.append(listed(code))
    expect(at == start + size, f"{name}: ends at {at:x}")
    return lines + [f"    .globl {name}", f"{name}:",
                    f"    subq ${ROOM}, %rsp", f"    call body_{name}", f"    addq ${ROOM}, %rsp", "    ret"]


def listed(code):
    return "    .byte " + ", ".join(f"0x{byte:02x}" for byte in code)


def main(library, folder):
    first, constants = constants_of(library)
    lines = ["    .text", "    .balign 64", "constants:", '    .incbin "constants.bin"']
    header = ["#pragma once", "// Functions of SLEEF with the machine code of Debian's library.",
              "#include <emmintrin.h>", "#ifdef __cplusplus", 'extern "C" {', "#endif"]
    for name, (count, kind) in FUNCTIONS.items():
        lines += ["    .balign 16"] + converted(library, name, constants, first)
        header.append(f"__attribute__((sysv_abi)) {kind} {name}({', '.join([kind] * count)});")
    header += ["#ifdef __cplusplus", "}", "#endif"]
    for file, text in (("sleef.S", lines), ("sleef.h", header)):
        with open(f"{folder}/{file}", "w") as out:
            out.write("\n".join(text) + "\n")
    with open(f"{folder}/constants.bin", "wb") as out:
        out.write(constants)


main(*sys.argv[1:])
