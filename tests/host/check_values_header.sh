#!/bin/bash
# values.h compiles without a warning in every language and with every compiler a host may have: by
# itself, with its loader, and beside zenithor.h in either order. Its list of functions, its loader's
# and the record of functions agree, and its numbers are those of zenithor.h.
#   check_values_header.sh INCLUDE_DIR WORK_DIR
set -eu
include=$1 work=$2
mkdir -p "$work"
cat >"$work/header.c" <<'SOURCE'
#include "zenithor/values.h"
#include "zenithor/values.h"
double Distance(double julian_day);
double Distance(double julian_day) {
  return ZenithorValue(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_DISTANCE, julian_day);
}
SOURCE
cat >"$work/loader.c" <<'SOURCE'
#define ZENITHOR_VALUES_LOADER
#include "zenithor/values.h"
int main(void) {
  ZenithorValuesLibrary library;
  if (!ZenithorValuesOpen(&library, NULL)) {
    return 1;
  }
  ZenithorValuesClose(&library);
  return 0;
}
SOURCE
cat >"$work/both.c" <<'SOURCE'
#define ZENITHOR_LOADER
#define ZENITHOR_VALUES_LOADER
#include "zenithor/zenithor.h"
#include "zenithor/values.h"
/* Negative when one of the numbers differs from the other header's. */
#define SAME(a, b) ((int)(a) == (int)(b) ? 1 : -1)
extern char bodies[SAME(ZENITHOR_BODY_SUN, ZENITHOR_SUN)];
extern char bodies[SAME(ZENITHOR_BODY_EARTH, ZENITHOR_EARTH)];
extern char bodies[SAME(ZENITHOR_BODY_PLUTO, ZENITHOR_PLUTO)];
extern char bodies[SAME(ZENITHOR_BODY_MOON, ZENITHOR_MOON)];
extern char kinds[SAME(ZENITHOR_KIND_MARCH_EQUINOX, ZENITHOR_BLOCK_MARCH_EQUINOX)];
extern char kinds[SAME(ZENITHOR_KIND_NEW_MOON, ZENITHOR_BLOCK_NEW_MOON)];
extern char kinds[SAME(ZENITHOR_KIND_LAST_QUARTER, ZENITHOR_BLOCK_LAST_QUARTER)];
extern char kinds[SAME(ZENITHOR_KIND_SOLAR_TOTAL, ZENITHOR_BLOCK_SOLAR_TOTAL)];
extern char kinds[SAME(ZENITHOR_KIND_SOLAR_ANY, ZENITHOR_BLOCK_SOLAR_ANY)];
extern char kinds[SAME(ZENITHOR_KIND_LUNAR_TOTAL, ZENITHOR_BLOCK_LUNAR_TOTAL)];
extern char kinds[SAME(ZENITHOR_KIND_LUNAR_ANY, ZENITHOR_BLOCK_LUNAR_ANY)];
extern char kinds[SAME(ZENITHOR_KIND_COUNT, ZENITHOR_BLOCK_COUNT)];
extern char kinds[SAME(ZENITHOR_KINDS_ALL,
                       ZENITHOR_KINDS_SEASONS | ZENITHOR_KINDS_PHASES |
                           ZENITHOR_KINDS_SOLAR_ECLIPSES | ZENITHOR_KINDS_LUNAR_ECLIPSES)];
extern char daily[SAME(ZENITHOR_DAILY_RISE, ZENITHOR_RISE)];
extern char daily[SAME(ZENITHOR_DAILY_TRANSIT, ZENITHOR_TRANSIT)];
extern char daily[SAME(ZENITHOR_DAILY_SET, ZENITHOR_SET)];
extern char fields[SAME((ZENITHOR_FIELD_DECLINATION - 1) * sizeof(double),
                        offsetof(BodyPositionRecord, Declination))];
extern char fields[SAME((ZENITHOR_FIELD_MOON_ILLUMINATION - 1) * sizeof(double),
                        offsetof(BodyPositionRecord, MoonIlluminatedFraction))];
extern char fields[SAME((ZENITHOR_FIELD_CENTURIES - 1) * sizeof(double),
                        offsetof(BodyPositionRecord, Centuries))];
extern char fields[SAME((ZENITHOR_FIELD_SECOND - ZENITHOR_FIELD_YEAR) * sizeof(int32_t),
                        offsetof(BodyPositionRecord, Second) - offsetof(BodyPositionRecord, Year))];
int main(void) {
  ZenithorLibrary records;
  ZenithorValuesLibrary values;
  if (!ZenithorOpen(&records, NULL) || !ZenithorValuesOpen(&values, NULL)) {
    return 1;
  }
  ZenithorValuesClose(&values);
  ZenithorClose(&records);
  return 0;
}
SOURCE
sed -e '/zenithor\/zenithor.h/d' -e 's/.*zenithor\/values.h.*/&\n#include "zenithor\/zenithor.h"/' \
  "$work/both.c" >"$work/reversed.c"
for source in header loader both reversed; do
  cp "$work/$source.c" "$work/$source.cpp"
done
warnings="-Wall -Wextra -pedantic -Wshadow -Wconversion -Wcast-qual -Werror"
compiled=0 failures=0
try() {  # COMPILER STANDARD SUFFIX SOURCE...
  local compiler=$1 standard=$2 suffix=$3 source
  shift 3
  command -v "$compiler" >/dev/null || return 0
  for source in "$@"; do
    if "$compiler" -std="$standard" $warnings -I"$include" -c "$work/$source.$suffix" \
        -o "$work/$source.o"; then
      compiled=$((compiled + 1))
    else
      echo "check_values_header: $compiler -std=$standard does not take $source.$suffix" >&2
      failures=$((failures + 1))
    fi
  done
}
for compiler in gcc clang i686-w64-mingw32-gcc x86_64-w64-mingw32-gcc; do
  for standard in c89 c11; do
    try $compiler $standard c header loader both reversed
  done
done
for compiler in g++ clang++ i686-w64-mingw32-g++ x86_64-w64-mingw32-g++; do
  try $compiler c++98 cpp header loader
  try $compiler c++17 cpp header loader both reversed
done

# The same names, in the same order, as prototypes, as members and in the loader.
header=$include/zenithor/values.h
prototypes=$(grep -o 'ZENITHOR_VALUES_CALL Zenithor[A-Za-z]*' "$header" | sed 's/.* Zenithor//')
members=$(grep -o '(ZENITHOR_VALUES_CALL\* [A-Za-z]*)' "$header" | sed 's/.* //; s/)//')
found=$(grep -o '^  ZENITHOR_VALUES_FIND([A-Za-z]*)' "$header" | sed 's/.*(//; s/)//')
if [ "$prototypes" != "$members" ] || [ "$members" != "$found" ]; then
  echo "check_values_header: prototypes, record and loader do not list the same functions" >&2
  failures=$((failures + 1))
fi
[ "$(echo "$prototypes" | wc -l)" -ge 34 ]
[ "$failures" = 0 ]
[ "$compiled" -ge 18 ]
echo "$compiled compilations without a warning, $(echo "$prototypes" | wc -l) functions"
