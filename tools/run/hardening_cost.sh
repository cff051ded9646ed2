#!/bin/bash
# What each guard of the compiler costs, as a table: instructions of a call, counted by callgrind on
# native libraries that have no guard, each of them alone, and all.
#   hardening_cost.sh
# Builds six libraries in build/hardening.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD
folder=$root/build/hardening
if ! command -v valgrind >/dev/null || [ "$(uname -m)" != x86_64 ]; then
  echo "hardening_cost.sh: needs valgrind on x86-64: apt-get install valgrind" >&2
  exit 1
fi
tools/run/build.sh linux data
mkdir -p "$folder/profile/tavvin_files"
ln -sfn "$root/out/data/archive" "$folder/profile/tavvin_files/archive"

off="-fno-stack-protector;-fno-stack-clash-protection;-U_FORTIFY_SOURCE;-fcf-protection=none"
names=(none stack-protector stack-clash fortify cf-protection all)
flags=("" ";-fstack-protector-strong" ";-fstack-clash-protection" ";-D_FORTIFY_SOURCE=2"
  ";-fcf-protection=full" "")
for k in "${!names[@]}"; do
  name=${names[$k]}
  build=$folder/$name
  guards=(-DZENITHOR_GUARDS="$off${flags[$k]}")
  [ "$name" != all ] || guards=(-UZENITHOR_GUARDS)
  cmake --preset linux -B "$build" -DZENITHOR_OUT="$build/out" "${guards[@]}" >/dev/null
  cmake --build "$build" -j"$(nproc)" --target zenithor call_loop -- --no-print-directory -s >&2
  rm -f "$build"/calls.*
  XDG_DATA_HOME=$folder/profile valgrind --tool=callgrind --callgrind-out-file="$build/calls" -q \
    "$build/bench/call_loop" "$build/out/linux/libzenithor.so" 2>"$build/valgrind.txt" ||
    { cat "$build/valgrind.txt" >&2; exit 1; }
done
python3 - "$folder" "${names[@]}" <<'PYTHON'
import glob
import re
import sys

folder, names = sys.argv[1], sys.argv[2:]


def counts(name):
    found = {}
    for path in glob.glob(f"{folder}/{name}/calls.*"):
        text = open(path, encoding="utf-8").read()
        trigger = re.search(r"^desc: Trigger: Client Request: (.+)$", text, re.M)
        total = re.search(r"^(?:totals|summary): (\d+)", text, re.M)
        if trigger and total:
            found[trigger[1]] = (int(re.search(r"^part: (\d+)", text, re.M)[1]), int(total[1]) / 100)
    return found


of = {name: counts(name) for name in names}
kinds = sorted(of["none"], key=lambda kind: of["none"][kind][0])
assert len(kinds) == 9 and all(of[name].keys() == of["none"].keys() for name in names), of
print("| instructions of a call | none | " + " | ".join(names[1:]) + " |")
print("|---" * (len(names) + 1) + "|")
for kind in kinds:
    plain = of["none"][kind][1]
    more = [f"{100 * (of[name][kind][1] / plain - 1):+.2f} %" for name in names[1:]]
    print(f"| {kind} | {plain:.0f} | " + " | ".join(more) + " |")
PYTHON
