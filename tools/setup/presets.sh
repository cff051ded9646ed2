#!/bin/bash
# Prints the presets, of those asked for, that this machine can build and run; with --build also
# those that it can only build.
#   presets.sh [--build] PRESET...
set -u
wine=wine
if [ "${1:-}" = --build ]; then
  wine=
  shift
fi
for preset in "$@"; do
  case $preset in
    win32 | win32-unit) needs="i686-w64-mingw32-g++-posix i686-w64-mingw32-g++-win32 $wine" ;;
    win64 | win64-unit) needs="x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-g++-win32 $wine" ;;
    arm64) needs="aarch64-linux-gnu-g++ ${wine:+qemu-aarch64}" ;;
    wasm) needs="em++ em-config node" ;;
    fuzz) needs="clang++" ;;
    *) needs="g++" ;;
  esac
  can=yes
  for tool in $needs; do
    command -v "$tool" >/dev/null || can=
  done
  [ -z "$can" ] || printf '%s ' "$preset"
done
