#!/usr/bin/env python3
"""Holds docs/deliberate.md, the comments that begin "Kept on purpose" and the tests together.

Of each file that a row names, the k-th row belongs to the k-th such comment: there are as many, and
no other row of the file shares more words and numbers with that comment. Each row names its tests, at least
one; each of them exists and shares such a word with the row or with its comment. And every test
whose name has KeptOnPurpose is named by one row."""
import re
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COMMENT = "Kept on purpose"
TEST = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)", re.M)
# Words that say nothing of a single row.
COMMON = {"where", "which", "there", "their", "other", "after", "befor", "with", "without", "purpo", "that", "this",
          "from", "than", "only", "those", "given", "value", "longi", "latit", "moon", "moons", "earth", "times",
          "degre", "minut", "secon", "taken", "takes", "positi", "kept"}


def stems(text):
    """What a text is about: its numbers of two digits or more, and the beginnings of its longer words,
    those of a name in CamelCase, too."""
    text = re.sub(r"(?<=[a-z])(?=[A-Z0-9])|(?<=[A-Z])(?=[A-Z][a-z])", " ", text)
    words = {word.lower()[:5] for word in re.findall(r"[A-Za-z]{4,}", text)} - COMMON
    return words | {number for number in re.findall(r"\d[\d.e-]*\d", text)}


def rows_of(text):
    rows = []
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip().strip("|").split(" | ")]
        if line.startswith("| ") and len(cells) == 4 and cells[0] != "behaviour":
            behaviour, where, effect, tests = cells
            rows.append({"name": behaviour, "about": stems(behaviour + " " + effect),
                         "files": re.findall(r"`([\w/.]+)`", where), "tests": re.findall(r"`(\w+\.\w+)`", tests)})
        elif line.startswith("| ") and cells[0] != "behaviour":
            sys.exit(f"docs/deliberate.md: not four cells: {line}")
    return rows


def comments_of(path):
    """What stands from each "Kept on purpose" to the end of its comment or to the next one."""
    found, current = [], None
    for line in path.read_text(encoding="utf-8").splitlines():
        comment = re.search(r"//(.*)", line)
        if comment is None:
            current = None
            continue
        for part in re.split(f"(?={COMMENT})", comment.group(1)):
            if part.startswith(COMMENT):
                current = len(found)
                found.append(part[len(COMMENT):])
            elif current is not None:
                found[current] += " " + part
    return found


def main():
    rows = rows_of((ROOT / "docs/deliberate.md").read_text(encoding="utf-8"))
    comments = {str(path.relative_to(ROOT / "src")): comments_of(path) for path in (ROOT / "src").rglob("*.[ch]*")}
    tests = {".".join(names) for path in (ROOT / "tests/unit").glob("*.cpp")
             for names in TEST.findall(path.read_text(encoding="utf-8"))}
    faults = []

    rows_in = defaultdict(list)
    for row in rows:
        for file in row["files"]:
            rows_in[file].append(row)
    for file in sorted(set(rows_in) | {file for file, found in comments.items() if found}):
        found = comments.get(file, [])
        if len(found) != len(rows_in[file]):
            faults.append(f"{file}: {len(found)} comments and {len(rows_in[file])} rows")
            continue
        for row, comment in zip(rows_in[file], found):
            shared = {other["name"]: len(other["about"] & stems(comment)) for other in rows_in[file]}
            if shared[row["name"]] == 0 or shared[row["name"]] < max(shared.values()):
                faults.append(f"{file}: the row '{row['name']}' is not about '{comment.strip(' :')}'")
            row.setdefault("comments", set()).update(stems(comment))

    named = defaultdict(list)
    for row in rows:
        if not row["tests"] or not row["files"]:
            faults.append(f"'{row['name']}' names no test or no file")
        for test in row["tests"]:
            named[test].append(row["name"])
            if test not in tests or "KeptOnPurpose" not in test:
                faults.append(f"'{row['name']}' names {test}, and there is no such test of something kept on purpose")
            elif not stems(test.replace("KeptOnPurpose", "")) & (row["about"] | row.get("comments", set())):
                faults.append(f"'{row['name']}' is not about {test}")
    for test in sorted(test for test in tests if "KeptOnPurpose" in test):
        if len(named[test]) != 1:
            faults.append(f"{test} is named by {len(named[test])} rows")

    print("\n".join(faults + [f"{len(rows)} rows, {sum(map(len, comments.values()))} comments, "
                              f"{len([test for test in named if named[test]])} tests, {len(faults)} faults"]))
    return 1 if faults or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
