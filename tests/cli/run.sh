#!/bin/sh
# Runs the almanac with the words of NAME.cmd and compares what it prints with NAME.out.
#   run.sh linux|win32 NAME.cmd
# Standard error counts as well, and an exit status other than 0 as a last line. Of a number six
# decimals are compared: the last bits may differ from platform to platform.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
platform=$1
command=$2

almanac() {
  if [ "$platform" = win32 ]; then
    "$root/tools/run/run_almanac.sh" "$@"
  else
    XDG_DATA_HOME=$root/build/profile-cli "$root/out/linux/almanac" "$@"
  fi
}

if [ ! -f "$root/out/data/archive/karvo.ndx" ]; then
  echo "no data in out/data/archive: run make data" >&2
  exit 1
fi
mkdir -p "$root/build/profile-cli/tavvin_files"
ln -sfn "$root/out/data/archive" "$root/build/profile-cli/tavvin_files/archive"

six_decimals() { tr -d '\r' | sed -E 's/([0-9]\.[0-9]{6})[0-9]+/\1/g'; }

# The words are split and unquoted as a shell does.
eval "set -- $(cat "$command")"
status=0
printed=$(almanac "$@" 2>&1) || status=$?
[ "$status" = 0 ] || printed=$(printf '%s\nexit status %s' "$printed" "$status")
if ! difference=$(printf '%s\n' "$printed" | six_decimals | diff -u "${command%.cmd}.out" -); then
  printf 'almanac %s prints\n%s\n' "$*" "$difference" >&2
  exit 1
fi
