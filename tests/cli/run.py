#!/usr/bin/env python3
"""Runs command-line tests: each NAME.cmd is a shell script whose output must be NAME.out.

    run.py [--write] [--set NAME=VALUE...] NAME=COMMAND... TEST.cmd...

In the scripts, $NAME runs the command, which is quoted as a shell wants it, or is the value, and $ROOT is
the repository; they run in an empty folder of their own, without the data files that the system may have.
Standard output and standard error are compared together, the exit status is the last line. Of a
number six decimals are compared: the last bits may differ from platform to platform. --write writes
the .out files instead. A script that ends with 77 says why it cannot be tried here; with none failed,
so does this program.
"""
import argparse
import difflib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def programs(commands, folder):
    """A program without blanks in its path for each command, as $NAME stands unquoted in the scripts."""
    paths = {}
    for name, command in commands.items():
        program = Path(folder) / name.lower()
        program.write_text(f'#!/bin/sh\nexec {command} "$@"\n', encoding="utf-8")
        program.chmod(0o755)
        paths[name] = str(program)
    return paths


def output_of(script, commands, variables):
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as bin_folder:
        run = subprocess.run(["sh", "-eu", str(script)], cwd=folder,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                             env={**os.environ, "ROOT": str(ROOT), "XDG_DATA_DIRS": "relative", **variables,
                                  **programs(commands, bin_folder)})
    output = run.stdout.decode("utf-8") + f"exit status {run.returncode}\n"
    return re.sub(r"([0-9]\.[0-9]{6})[0-9]+", r"\1", output)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--set", action="append", default=[])
    parser.add_argument("words", nargs="+")
    arguments = parser.parse_args()
    commands = dict(word.split("=", 1) for word in arguments.words if "=" in word)
    variables = dict(word.split("=", 1) for word in arguments.set)
    scripts = [Path(word).resolve() for word in arguments.words if "=" not in word]
    failed = skipped = 0
    for script in scripts:
        expected_file = script.with_suffix(".out")
        actual = output_of(script, commands, variables)
        if actual.endswith("exit status 77\n"):
            skipped += 1
            print(f"{script.stem}: {actual}", end="")
            continue
        if arguments.write:
            expected_file.write_bytes(actual.encode("utf-8"))
            continue
        expected = expected_file.read_text(encoding="utf-8")
        if actual != expected:
            failed += 1
            sys.stdout.writelines(difflib.unified_diff(
                expected.splitlines(True), actual.splitlines(True), expected_file.name, "this run"))
    print(f"{len(scripts)} command-line tests, {failed} failed, {skipped} not tried")
    if failed or not scripts:
        return 1
    return 77 if skipped else 0


if __name__ == "__main__":
    sys.exit(main())
