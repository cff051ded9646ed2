#!/bin/bash
# Links a program for Windows with LLVM's stand-in for Microsoft's linker and zenithor.lib.
#   check_msvc_link.sh i686|x86_64 INCLUDE_DIR ZENITHOR.lib SOURCE.c PROGRAM.exe
# Ends with 77 (skipped) where clang or lld-link is not installed.
set -eu
machine=$1 include=$2 library=$3 source=$4 program=$5
linker=$(command -v lld-link || true)
if [ -z "$linker" ] || ! command -v clang >/dev/null; then
  echo "no clang or no lld-link: apt-get install clang lld"
  exit 77
fi
# There is no C library for this target here; of <math.h> the header needs one function.
mkdir -p "$program.include"
echo 'double floor(double);' >"$program.include/math.h"
clang --target=$machine-pc-windows-msvc -std=c11 -ffreestanding -O1 -Wall -Wextra -Werror \
  -I"$include" -isystem "$program.include" -c "$source" -o "$program.obj"
"$linker" /nologo /subsystem:console /entry:Start /nodefaultlib /safeseh:no "/out:$program" \
  "$program.obj" "$library"
