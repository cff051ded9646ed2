#!/bin/bash
# The C header compiles without a warning in every language and with every compiler a host may have.
#   check_header.sh INCLUDE_DIR WORK_DIR
set -eu
include=$1 work=$2
mkdir -p "$work"
cat >"$work/header.c" <<'SOURCE'
#include "zenithor/zenithor.h"
#include "zenithor/zenithor.h"
double Distance(double julian_day);
double Distance(double julian_day) {
  BodyPositionRecord record;
  return ZENITHOR(julian_day, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_MARS, &record) == ZENITHOR_DONE
             ? record.GeoDistance
             : 0.0;
}
SOURCE
cat >"$work/loader.c" <<'SOURCE'
#define ZENITHOR_LOADER
#include "zenithor/zenithor.h"
int main(void) {
  ZenithorLibrary library;
  if (!ZenithorOpen(&library, NULL)) {
    return 1;
  }
  ZenithorClose(&library);
  return 0;
}
SOURCE
cp "$work/header.c" "$work/header.cpp"
cp "$work/loader.c" "$work/loader.cpp"
warnings="-Wall -Wextra -pedantic -Wshadow -Wconversion -Wcast-qual -Werror"
compiled=0 failures=0
try() {  # COMPILER STANDARD SUFFIX
  command -v "$1" >/dev/null || return 0
  for source in header loader; do
    if "$1" -std="$2" $warnings -I"$include" -c "$work/$source.$3" -o "$work/$source.o"; then
      compiled=$((compiled + 1))
    else
      echo "check_header: $1 -std=$2 does not take $source.$3" >&2
      failures=$((failures + 1))
    fi
  done
}
for standard in c89 c11; do
  for compiler in gcc clang i686-w64-mingw32-gcc x86_64-w64-mingw32-gcc; do
    try $compiler $standard c
  done
done
for standard in c++17; do
  for compiler in g++ clang++ i686-w64-mingw32-g++ x86_64-w64-mingw32-g++; do
    try $compiler $standard cpp
  done
done
# A record of another size must not compile, in any of these languages.
sed 's/double ReservedA\[4\]/double ReservedA[5]/' "$include/zenithor/zenithor.h" >"$work/wrong.h"
! cmp -s "$include/zenithor/zenithor.h" "$work/wrong.h"
cp "$work/wrong.h" "$work/wrong.c"
cp "$work/wrong.h" "$work/wrong.cpp"
for standard in c89 c99 c11; do
  if gcc -std=$standard -c "$work/wrong.c" -o "$work/wrong.o" 2>/dev/null; then
    echo "check_header: $standard does not notice a wrong layout" >&2
    failures=$((failures + 1))
  fi
done
if g++ -std=c++17 -c "$work/wrong.cpp" -o "$work/wrong.o" 2>/dev/null; then
  echo "check_header: c++17 does not notice a wrong layout" >&2
  failures=$((failures + 1))
fi
[ "$failures" = 0 ]
[ "$compiled" -ge 6 ]
echo "$compiled compilations without a warning"
