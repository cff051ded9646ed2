#!/usr/bin/env python3
"""Takes the examples out of the host guide, so that they are compiled and run as they are printed.

    guide_examples.py GUIDE.md DIR

A block of C whose first line is "/* example: NAME" goes to DIR/NAME; what the text after it says it
prints (prints `...`) goes to DIR/NAME.expected.
"""
import pathlib
import re
import sys

guide = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
folder = pathlib.Path(sys.argv[2])
folder.mkdir(parents=True, exist_ok=True)
found = 0
for match in re.finditer(r"```c\n(/\* example: (\S+).*?)```\n(?:\nprints `([^`]*)`)?", guide, re.S):
    source, name, printed = match.groups()
    (folder / name).write_text(source, encoding="utf-8")
    if printed is not None:
        (folder / f"{name}.expected").write_text(printed + "\n", encoding="utf-8")
    found += 1
if found != guide.count("```c\n"):
    sys.exit(f"guide_examples: {found} examples found, {guide.count('```c')} blocks of C stand in it")
