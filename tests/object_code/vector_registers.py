#!/usr/bin/env python3
"""Looks at the object code for the upper halves of the vector registers.

    vector_registers.py OBJDUMP none FILE...    no AVX instruction at all (32-bit)
    vector_registers.py OBJDUMP clean FILE...   AVX only where the file's name says so (*avx2*), and
                                                there every return comes after a vzeroupper

A function that returns with dirty upper halves makes every later SSE instruction of the host several
times slower; in a 32-bit process vzeroupper does not help.
"""
import re
import subprocess
import sys

FUNCTION = re.compile(r"^[0-9a-f]+ <(.+)>:$")
# An instruction of the VEX or EVEX kind begins with a v; verr and verw do not belong to them.
VECTOR = re.compile(r"\tv(?!err|erw)[a-z0-9]+\b")


def instructions(objdump, path):
    """(function, instruction) for every instruction of a file."""
    listing = subprocess.run([objdump, "-d", "--no-show-raw-insn", path], check=True,
                             capture_output=True, text=True).stdout
    function = "(no name)"
    for line in listing.splitlines():
        found = FUNCTION.match(line)
        if found:
            function = found.group(1)
        elif "\t" in line:
            yield function, line


def faults(objdump, mode, path):
    avx_file = mode == "clean" and "avx2" in path.rsplit("/", 1)[-1]
    count = avx_count = 0
    dirty = False
    current = None
    for function, line in instructions(objdump, path):
        count += 1
        if function != current:
            current, dirty = function, False
        if VECTOR.search(line):
            avx_count += 1
            if not avx_file:
                yield f"{path}: {function}: an AVX instruction:{line}"
                continue
        if "vzeroupper" in line or "vzeroall" in line:
            dirty = False
        elif "%ymm" in line or "%zmm" in line:
            dirty = True
        elif dirty and re.search(r"\t(ret|jmp +[0-9a-f]+ <(?!" + re.escape(function) + r"[+>])|call)", line):
            yield f"{path}: {function}: leaves with dirty upper halves:{line}"
    if count == 0 and mode == "none":
        yield f"{path}: no instructions found"
    if avx_file and avx_count == 0:
        yield f"{path}: no AVX instruction found, though it is the file for them"


def main():
    objdump, mode, files = sys.argv[1], sys.argv[2], sys.argv[3:]
    if mode not in ("none", "clean") or not files:
        sys.exit(__doc__)
    found = [fault for path in files for fault in faults(objdump, mode, path)]
    for fault in found[:20]:
        print(fault)
    print(f"{len(files)} files, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
