#!/bin/bash
# Builds the DLL again from a copy of the sources in another folder, without the compiler cache,
# and compares it byte for byte, import libraries included.
#   check_reproducible.sh SOURCE_DIR TOOLCHAIN.cmake BUILT_DIR WORK_DIR
set -eu
source=$1 toolchain=$2 built=$3 work=$4
rm -rf "$work"
mkdir -p "$work/elsewhere"
tar -C "$source" --exclude=./build --exclude=./out --exclude=./.git -cf - . |
  tar -C "$work/elsewhere" -xf -
export CCACHE_DISABLE=1 TZ=Pacific/Kiritimati
unset SOURCE_DATE_EPOCH
cmake -S "$work/elsewhere" -B "$work/elsewhere/b" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
  -DCMAKE_BUILD_TYPE=Release -DZENITHOR_UNIT_TESTS=OFF -DZENITHOR_TOOLS=OFF \
  -DZENITHOR_OUT="$work/out" -DZENITHOR_PLATFORM=again >"$work/log" 2>&1 ||
  { tail -n 20 "$work/log" >&2; exit 1; }
cmake --build "$work/elsewhere/b" --target zenithor >>"$work/log" 2>&1 ||
  { tail -n 20 "$work/log" >&2; exit 1; }
for file in zenithor.dll libzenithor.dll.a zenithor.lib; do
  if [ "$file" = zenithor.lib ] && [ ! -f "$built/$file" ]; then
    continue
  fi
  cmp "$built/$file" "$work/out/again/$file"
  sha256sum "$built/$file"
done
rm -rf "$work"
