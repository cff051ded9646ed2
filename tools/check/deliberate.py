#!/usr/bin/env python3
"""Compares docs/deliberate.md with the sources: every file that a row names has a comment beginning
"Kept on purpose", and every file that has one is named by a row."""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COMMENT = re.compile(r"Kept on purpose")


def main():
    rows = [line for line in (ROOT / "docs/deliberate.md").read_text(encoding="utf-8").splitlines()
            if line.startswith("| ") and "`" in line]
    named = {name for row in rows for name in re.findall(r"`(\w+/\w+\.(?:cpp|h))`", row)}
    commented = {str(path.relative_to(ROOT / "src")) for path in (ROOT / "src").rglob("*.[ch]*")
                 if COMMENT.search(path.read_text(encoding="utf-8"))}
    faults = [f"docs/deliberate.md names {name}, which has no such comment"
              for name in sorted(named - commented)]
    faults += [f"src/{name} has such a comment and no row of docs/deliberate.md"
               for name in sorted(commented - named)]
    print("\n".join(faults + [f"{len(rows)} rows, {len(commented)} files, {len(faults)} faults"]))
    return 1 if faults or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
