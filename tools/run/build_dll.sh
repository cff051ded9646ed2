#!/bin/bash
# Builds both DLLs in every width for which there is a compiler. The 32-bit one must be there.
set -eu
cd "$(dirname "$0")/../.."
widths=$(tools/setup/presets.sh --build win32 win64)
case $widths in
  *win32*) ;;
  *)
    echo "There is no 32-bit compiler for Windows (Debian package g++-mingw-w64-i686)" >&2
    exit 1
    ;;
esac
for width in $widths; do
  tools/run/build.sh "$width" zenithor zenithor_values
  echo "out/$width/zenithor.dll out/$width/zenithor_values.dll"
done
