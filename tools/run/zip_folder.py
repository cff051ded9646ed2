#!/usr/bin/env python3
"""Packs a folder as a zip archive: names in order, one date and one system for all, programs may be run.

    zip_folder.py FOLDER ARCHIVE
"""
import os
import sys
import zipfile
from pathlib import Path

DATE = (2026, 1, 1, 0, 0, 0)
UNIX = 3


def main():
    folder, archive = Path(sys.argv[1]), sys.argv[2]
    files = sorted((file for file in folder.rglob("*") if file.is_file()), key=lambda file: file.as_posix())
    with zipfile.ZipFile(archive, "w") as packed:
        for file in files:
            entry = zipfile.ZipInfo(file.relative_to(folder.parent).as_posix(), DATE)
            entry.create_system = UNIX
            entry.external_attr = (0o100755 if os.access(file, os.X_OK) else 0o100644) << 16
            packed.writestr(entry, file.read_bytes(), zipfile.ZIP_DEFLATED, 9)


if __name__ == "__main__":
    main()
