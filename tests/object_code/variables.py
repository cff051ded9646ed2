#!/usr/bin/env python3
"""variables.py OBJDUMP NAMES OBJECT... : what the library keeps stands in named records. The objects
define no variable but those of NAMES, with commas between them, and each of these once."""
import collections
import re
import subprocess
import sys

objdump, names, *objects = sys.argv[1:]
# What can be written to; .data.rel.ro is made read-only once the addresses in it are known.
WRITABLE = re.compile(r"\.(data|bss|tdata|tbss)(\.(?!rel\.ro)\S+)?$|\*COM\*$")
found = collections.defaultdict(list)
for path in objects:
    symbols = subprocess.run([objdump, "-t", "-C", path], check=True, capture_output=True, text=True).stdout
    for line in symbols.splitlines():
        # value, seven flags, section, size, visibility, name
        match = re.match(r"[0-9a-f]+ (.{7}) (\S+)\t[0-9a-f]+ +(?:\.(?:hidden|internal|protected) )?(.*)$", line)
        if match and WRITABLE.match(match.group(2)) and "d" not in match.group(1):
            found[match.group(3)].append(path)

failed = False
for name, paths in sorted(found.items()):
    if name not in names.split(","):
        print(f"{name} of {', '.join(paths)} is in no named record")
        failed = True
for name in names.split(","):
    if len(found.get(name, [])) != 1:
        print(f"{name} is defined {len(found.get(name, []))} times")
        failed = True
if failed:
    sys.exit("FAILED: state outside the records for it")
print(f"{len(objects)} objects have no variables but {names}")
