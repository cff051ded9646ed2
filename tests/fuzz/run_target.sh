#!/bin/sh
# Runs one fuzz target for some seconds from its seeds and from what earlier runs found, and prints
# how many executions it reached. A finding ends it with 1 and is kept in build/fuzz/findings.
#   run_target.sh PROGRAM SEEDS SECONDS
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
program=$1
seeds=$here/corpus/$2
seconds=$3
name=$(basename "$program")
found=$root/build/fuzz/corpus/$name
findings=$root/build/fuzz/findings
log=$root/build/fuzz/$name.log
mkdir -p "$found" "$findings"
# A call that takes longer than the timeout is a finding too.
if ! "$program" -max_total_time="$seconds" -timeout=60 -rss_limit_mb=1024 -print_final_stats=1 \
    -artifact_prefix="$findings/$name-" "$found" "$seeds" >"$log" 2>&1; then
  echo "$name: FAILED"
  tail -n 60 "$log"
  exit 1
fi
executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
echo "$name: $executions executions"
[ "${executions:-0}" -gt 0 ]
