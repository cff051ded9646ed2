#!/bin/bash
# Builds and runs every fuzz target, two at a time, for SECONDS in all, and prints the executions
# that each reached. A finding ends it with 1.
#   fuzz.sh SECONDS
set -eu
cd "$(dirname "$0")/../.."
seconds=${1:-600}
jobs=$(nproc)
tools/run/build.sh linux data
tools/run/build.sh fuzz

targets=$(cd build/fuzz/tests/fuzz && ls *.seeds | sed 's/\.seeds$//')
count=$(echo "$targets" | wc -l)
each=$((seconds * jobs / count))
[ "$each" -ge 1 ] || each=1
echo "$count targets, $each s each, $jobs at a time"
status=0
for target in $targets; do
  echo "build/fuzz/tests/fuzz/$target $(cat "build/fuzz/tests/fuzz/$target.seeds") $each"
done | xargs -P "$jobs" -L 1 tests/fuzz/run_target.sh | tee build/fuzz/executions.txt || status=1
[ "${PIPESTATUS[1]:-0}" = 0 ] || status=1
awk '{sum += $2} END {print sum " executions in all"}' build/fuzz/executions.txt
exit "$status"
