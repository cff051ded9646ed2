#!/usr/bin/env python3
"""Holds the declarations of the VBA module, which nothing here can run, against the headers and the
lists of exported names: names, parameters, results, the layout of the records, the constants.

    check_vba.py REPOSITORY
"""
import re
import sys
from pathlib import Path

root = Path(sys.argv[1])
headers = "".join((root / "include/zenithor" / name).read_text() for name in ("zenithor.h", "values.h"))
module = (root / "samples/vba/ZenithorSample.bas").read_text()
code = re.sub(r"(?m)\s'.*$|^'.*$", "", module).replace(" _\n", " ")
exports = {"zenithor.dll": ["_" + name for name in (root / "tests/host/abi_exports.txt").read_text().split()],
           "zenithor_values.dll": (root / "tests/host/abi_values.txt").read_text().split()}
faults = []


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found}, not {wanted}")


# The headers' prototypes as VBA declares them.
def parameter_as_declared(parameter):
    kind, pointer = re.fullmatch(r"(?:const )?(\w+)(\*?) *\w+", parameter.strip()).groups()
    kind = {"double": "Double", "int32_t": "Long", "BodyCode": "Long"}.get(kind, kind)
    return ("ByRef" if pointer else "ByVal", kind)


prototypes = {}
for result, name, parameters in re.findall(
        r"(?m)^(double|int32_t) ZENITHOR_(?:VALUES_)?CALL (\w+)\(([^)]*)\)", headers):
    prototypes[name] = ([parameter_as_declared(parameter) for parameter in parameters.split(",")],
                        {"double": "Double", "int32_t": "Long"}[result])

declarations = re.findall(
    r'(?m)^Private Declare (PtrSafe )?Function (\w+) Lib "([\w.]+)"(?: Alias "(\w+)")? \((.*)\) As (\w+)$',
    code)
expect("declarations understood", len(declarations), code.count("Declare "))
for safe, name, library, alias, parameters, result in declarations:
    exported = alias or name
    if exported not in exports.get(library, []):
        faults.append(f"{name}: {library} does not export {exported}")
    declared = re.findall(r"(ByVal|ByRef) \w+ As (\w+)", parameters)
    expect(f"{name}: parameters understood", len(declared), parameters.count(" As "))
    expect(name, (declared, result), prototypes.get(exported.lstrip("_")))

# Where each declaration stands: 64 bits only, VBA7, or before VBA7.
conditions, places = [], {}
for line in code.splitlines():
    if line.startswith("#If"):
        conditions.append(line.split()[1])
    elif line.startswith("#Else"):
        conditions[-1] = "not " + conditions[-1]
    elif line.startswith("#End If"):
        conditions.pop()
    elif "Declare " in line:
        words = line.split()
        safe = "PtrSafe" in words
        name = words[words.index("Function") + 1]
        places.setdefault(name, []).append((tuple(conditions), safe))
        if '"zenithor.dll"' in line:
            expect(f"{name} (C calling convention)", (tuple(conditions), safe), (("Win64",), True))
for name, found in places.items():
    if name.startswith("Zenithor"):
        expect(name, found, [(("VBA7",), True), (("not VBA7",), False)])

# The records: names, offsets and sizes of the members, as the headers assert them.
sizes = {"Double": 8, "Long": 4}
for name, body in re.findall(r"(?ms)^Private Type (\w+)\n(.*?)^End Type", code):
    offset = 0
    layout, kinds = {}, {}
    for member, first, last, kind in re.findall(r"(\w+)(?:\((\d+) To (\d+)\))? As (\w+)", body):
        alignment = min(sizes[kind], 8)
        offset = (offset + alignment - 1) // alignment * alignment
        layout[member] = offset
        kinds[member] = kind
        offset += sizes[kind] * (int(last) - int(first) + 1 if first else 1)
    sizes[name] = (offset + 7) // 8 * 8
    asserted = {member: int(number) for member, number in re.findall(
        rf"offsetof\({name}, (\w+)\) == (\d+)", headers)} or {"Blocks": 0}
    expect(f"{name}: offsets", layout, asserted)
    defined = re.search(rf"(?s)typedef struct {name} {{(.*?)}} {name};", headers).group(1)
    expect(f"{name}: members", kinds, {
        member: {"double": "Double", "int32_t": "Long"}.get(kind, kind)
        for kind, member in re.findall(r"(?m)^  (\w+) (\w+)(?:\[\w+\])?;", defined)})
    size = re.search(rf"sizeof\({name}\) == (\d+)", headers)
    expect(f"sizeof {name}", sizes[name], int(size.group(1)))
expect("records", sorted(sizes), ["BodyPositionRecord", "Double", "EventRecord", "EventTimeBlock", "Long"])

# The constants that have a name of the headers.
constants = re.findall(r"(?m)^Private Const (ZENITHOR_\w+) As (?:Long|Double) = (\S+)", code)
for name, value in constants:
    number = float(int(value[2:].rstrip("&"), 16) if value.startswith("&H") else float(value))
    defined = re.search(rf"(?:#define {name} |\b{name} =\s)\s*(\S+?),?\s", headers)
    expect(name, number, float(int(defined.group(1), 16) if "x" in defined.group(1)
                               else float(defined.group(1))) if defined else None)

for fault in faults:
    print(f"samples/vba/ZenithorSample.bas: {fault}", file=sys.stderr)
print(f"{len(declarations)} declarations, {len(sizes) - 2} records, {len(constants)} constants: "
      f"{'as the headers have them' if not faults else 'FAILED'}")
sys.exit(1 if faults or not declarations or not constants else 0)
