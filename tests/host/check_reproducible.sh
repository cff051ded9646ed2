#!/bin/bash
# Builds both DLLs again from a copy of the sources in another folder, without the compiler cache,
# and compares them byte for byte, import libraries included.
#   check_reproducible.sh SOURCE_DIR PRESET BUILT_DIR WORK_DIR
set -eu
source=$1 preset=$2 built=$3 work=$4
rm -rf "$work"
mkdir -p "$work/elsewhere"
tar -C "$source" --exclude=./build --exclude=./out --exclude=./.git -cf - . |
  tar -C "$work/elsewhere" -xf -
mkdir -p "$work/elsewhere/out/data"
cp -R "$source/out/data/archive" "$work/elsewhere/out/data/"
export CCACHE_DISABLE=1 TZ=Pacific/Kiritimati
unset SOURCE_DATE_EPOCH
(cd "$work/elsewhere" && cmake --preset "$preset" && cmake --build --preset "$preset" --target zenithor zenithor_values) \
  >"$work/log" 2>&1 || { tail -n 20 "$work/log" >&2; exit 1; }
for file in zenithor{.dll,.lib,_values.dll,_values.lib} libzenithor{,_values}.dll.a; do
  if [ "${file%.lib}" != "$file" ] && [ ! -f "$built/$file" ]; then
    continue
  fi
  cmp "$built/$file" "$work/elsewhere/out/$preset/$file"
  sha256sum "$built/$file"
done
rm -rf "$work"
