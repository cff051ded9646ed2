#!/bin/bash
# Builds the DLL again from a copy of the sources in another folder, without the compiler cache,
# and compares it byte for byte, import libraries included.
#   check_reproducible.sh SOURCE_DIR PRESET BUILT_DIR WORK_DIR
set -eu
source=$1 preset=$2 built=$3 work=$4
rm -rf "$work"
mkdir -p "$work/elsewhere"
tar -C "$source" --exclude=./build --exclude=./out --exclude=./.git -cf - . |
  tar -C "$work/elsewhere" -xf -
export CCACHE_DISABLE=1 TZ=Pacific/Kiritimati
unset SOURCE_DATE_EPOCH
(cd "$work/elsewhere" && cmake --preset "$preset" && cmake --build --preset "$preset" --target zenithor) \
  >"$work/log" 2>&1 || { tail -n 20 "$work/log" >&2; exit 1; }
for file in zenithor.dll libzenithor.dll.a zenithor.lib; do
  if [ "$file" = zenithor.lib ] && [ ! -f "$built/$file" ]; then
    continue
  fi
  cmp "$built/$file" "$work/elsewhere/out/$preset/$file"
  sha256sum "$built/$file"
done
rm -rf "$work"
