#!/usr/bin/env python3
"""Packs the wheels: the package, and the values library of one platform.

    wheel_builder.py [--libraries OUT] [--into FOLDER]

A wheel for each platform whose library lies below OUT (default: out/ of the repository) goes into FOLDER
(default: out/dist); the others are named in one line. Same files, same bytes. As a build backend
(PEP 517) it packs the wheel of this machine.
"""
import argparse
import base64
import hashlib
import platform
import re
import struct
import sys
import sysconfig
import zipfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
REPOSITORY = HERE.parent
# The folder and name of each platform's library, and the tag of its wheel. The Linux libraries are built on
# Debian 12, which has version 2.36 of the GNU C library.
PLATFORMS = {
    "manylinux_2_36_x86_64": "linux/libzenithor_values.so",
    "manylinux_2_36_aarch64": "linux-arm64/libzenithor_values.so",
    "win32": "win32/zenithor_values.dll",
    "win_amd64": "win64/zenithor_values.dll",
}
DATE = (2026, 1, 1, 0, 0, 0)  # of every file in a wheel


def project():
    """Of pyproject.toml what metadata needs; read plainly, as Python 3.9 has no reader of TOML."""
    text = (HERE / "pyproject.toml").read_text(encoding="utf-8")

    def value(name):
        return re.search(rf'^{name} = "(.*)"$', text, re.MULTILINE).group(1)

    def table(heading):
        return re.search(rf"^\[{re.escape(heading)}\]\n((?:[^\[\n].*\n)*)", text, re.MULTILINE).group(1)

    extras = {}
    for line in table("project.optional-dependencies").splitlines():
        name, needed = line.split(" = ")
        extras[name] = re.findall(r'"([^"]*)"', needed)
    return {
        **{name: value(name) for name in ("name", "version", "description", "requires-python", "license")},
        "dependencies": re.findall(r'"([^"]*)"', re.search(r"^dependencies = (.*)$", text, re.MULTILINE).group(1)),
        "extras": extras,
        "scripts": [line.replace('"', "") for line in table("project.scripts").splitlines() if line],
    }


def metadata(described):
    lines = [
        "Metadata-Version: 2.1",
        f"Name: {described['name']}",
        f"Version: {described['version']}",
        f"Summary: {described['description']}",
        f"License: {described['license']}",
        f"Requires-Python: {described['requires-python']}",
        "Description-Content-Type: text/markdown",
    ]
    lines += [f"Requires-Dist: {needed}" for needed in described["dependencies"]]
    for extra, needed in described["extras"].items():
        lines.append(f"Provides-Extra: {extra}")
        lines += [f"Requires-Dist: {name}; extra == '{extra}'" for name in needed]
    return "\n".join(lines) + "\n\n" + (HERE / "README.md").read_text(encoding="utf-8")


def library_machine(path):
    """What a library is for, from its header: the tag without its version."""
    head = path.read_bytes()[:1024]
    if head[:4] == b"\x7fELF":
        return {62: "linux_x86_64", 183: "linux_aarch64"}.get(struct.unpack_from("<H", head, 18)[0])
    if head[:2] == b"MZ":
        start = struct.unpack_from("<I", head, 60)[0]
        return {0x14C: "win32", 0x8664: "win_amd64"}.get(struct.unpack_from("<H", head, start + 4)[0])
    return None


def pack(tag, library, folder):
    """Writes one wheel and returns its path."""
    if library_machine(library) != re.sub(r"^manylinux_\d+_\d+", "linux", tag):
        sys.exit(f"{library}: not a library for {tag}")
    described = project()
    stem = f"{described['name']}-{described['version']}"
    info = f"{stem}.dist-info"
    contents = {}
    for source in sorted((HERE / "src" / "zenithor").rglob("*")):
        if source.suffix == ".py" or source.name == "py.typed":
            contents[source.relative_to(HERE / "src").as_posix()] = source.read_bytes()
    contents[f"zenithor/{library.name}"] = library.read_bytes()
    contents[f"{info}/METADATA"] = metadata(described).encode()
    contents[f"{info}/WHEEL"] = (
        "Wheel-Version: 1.0\nGenerator: zenithor\nRoot-Is-Purelib: false\n" f"Tag: py3-none-{tag}\n"
    ).encode()
    contents[f"{info}/LICENSE"] = (REPOSITORY / "LICENSE").read_bytes()
    scripts = "\n".join(described["scripts"])
    contents[f"{info}/entry_points.txt"] = f"[console_scripts]\n{scripts}\n".encode()
    record = "".join(
        f"{name},sha256={base64.urlsafe_b64encode(hashlib.sha256(data).digest()).decode().rstrip('=')},{len(data)}\n"
        for name, data in contents.items()
    )
    contents[f"{info}/RECORD"] = f"{record}{info}/RECORD,,\n".encode()
    folder.mkdir(parents=True, exist_ok=True)
    path = folder / f"{stem}-py3-none-{tag}.whl"
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as wheel:
        for name, data in contents.items():
            entry = zipfile.ZipInfo(name, DATE)
            entry.create_system = 3
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = (0o100755 if name.endswith(".so") else 0o100644) << 16
            wheel.writestr(entry, data)
    return path


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    """PEP 517: the wheel of this machine, from the library that `make native` or `make dll` built."""
    if sys.platform == "win32":
        tag = sysconfig.get_platform().replace("-", "_")
    else:
        tag = "manylinux_2_36_" + platform.machine()
    library = REPOSITORY / "out" / PLATFORMS.get(tag, "nothing")
    if not library.is_file():
        sys.exit(f"There is no library for {tag} in out/: run `make native` (on Windows `make dll`) first")
    return pack(tag, library, Path(wheel_directory)).name


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--libraries", type=Path, default=REPOSITORY / "out")
    parser.add_argument("--into", type=Path, default=REPOSITORY / "out" / "dist")
    arguments = parser.parse_args()
    lacking = []
    for tag, place in PLATFORMS.items():
        library = arguments.libraries / place
        if library.is_file():
            print(pack(tag, library, arguments.into))
        else:
            lacking.append(f"{tag} ({place})")
    if lacking:
        print(f"No library, so no wheel: {', '.join(lacking)}")
    return 1 if len(lacking) == len(PLATFORMS) else 0


if __name__ == "__main__":
    sys.exit(main())
