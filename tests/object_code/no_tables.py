#!/usr/bin/env python3
"""Looks for constant tables that the compiler should have used up.

    no_tables.py NM FILE TABLE...    fails where a TABLE is data of the object file or archive, and
                                     where no function has been made of it
"""
import subprocess
import sys


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    nm, path, tables = sys.argv[1], sys.argv[2], sys.argv[3:]
    listing = subprocess.run([nm, "-C", path], check=True, capture_output=True, text=True).stdout
    # Address, kind, name: r, d and b are data, t is code.
    symbols = [line.split(maxsplit=2)[1:] for line in listing.splitlines() if line[:1].isalnum() and len(line.split()) > 2]
    faults = 0
    for table in tables:
        if any(kind in "rRdDbB" and table in name for kind, name in symbols):
            print(f"{path}: {table} is walked at run time")
            faults += 1
        if not any(kind in "tTwW" and table in name for kind, name in symbols):
            print(f"{path}: no code is made of {table}")
            faults += 1
    print(f"{len(tables)} tables, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
