#!/usr/bin/env python3
"""No include points up. The order of the rooms is that of the zenithor_room lines of CMakeLists.txt:
each names rooms above it in the list only, and a file of src/ includes headers of its own room, of
those that its room names and of what these see. Every folder of src/ is a room, includes are written
"<room>/<header>", and the public headers are known to the rooms that name zenithor_header and to no
other. The compiler holds most of this, but not for the files that a room leaves to the libraries,
nor against an include by way of "../"."""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HEADERS = "zenithor_header"
# Made by the build.
GENERATED = {"data_fingerprint.inc"}


def rooms_of(text):
    """Name of each room, in order, and the names behind its USES."""
    lines = re.findall(r"^zenithor_room\((\w+)([^)]*)\)", text, re.M)
    return {name: re.sub(r"EXCEPT.*", "", rest, flags=re.S).split()[1:] for name, rest in lines}


def complaints(rooms):
    seen = {}
    for room, uses in rooms.items():
        for name in uses:
            if name != HEADERS and name not in seen:
                yield f"CMakeLists.txt: {room} names {name}, which does not stand above it"
        seen[room] = {room, *uses}.union(*(seen.get(name, set()) for name in uses))
    for folder in sorted((ROOT / "src").iterdir()):
        if folder.name not in rooms:
            yield f"{folder.relative_to(ROOT)} is no room of CMakeLists.txt"
            continue
        for path in sorted(folder.iterdir()):
            included = re.findall(r'^\s*#\s*include\s+"([^"]+)"', path.read_text(encoding="utf-8"), re.M)
            for name in included:
                room, _, header = name.partition("/")
                if room == "zenithor":
                    room = HEADERS
                if name not in GENERATED and (not header or "/" in header or room not in seen[folder.name]):
                    yield f'{path.relative_to(ROOT)} includes "{name}"'
            yield from [None] * len(included)


def main():
    rooms = rooms_of((ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))
    found = list(complaints(rooms))
    wrong = [complaint for complaint in found if complaint]
    if wrong or len(wrong) == len(found):
        print("\n".join(wrong or ["nothing was looked at"]))
        sys.exit("FAILED: the order of the rooms")
    print(f"{len(found)} includes of {len(rooms)} rooms, none points up")


if __name__ == "__main__":
    main()
