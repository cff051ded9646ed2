#!/bin/bash
# Installs a build into a folder and uses it as somebody outside would: a project of CMake, and programs
# compiled by what pkg-config says. Then moves the tree and does so again.
#   check_installed.sh CMAKE BUILD LIBDIR VERSION WORK
set -eu
export LC_ALL=C
here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
cmake=$1 build=$2 libdir=$3 version=$4 work=$5
major=${version%%.*}
fail() {
  echo "check_installed: $*" >&2
  exit 1
}
rm -rf "$work"
mkdir -p "$work/home"

# The longitude that tests/golden has for Venus at J2000.0, which both libraries must print.
expected=$(awk -F'\t' '$1 == 2451545 && $7 == "Venus" {print $12; exit}' "$source/tests/golden/positions.tsv")
[ -n "$expected" ] || fail "no Venus in tests/golden/positions.tsv"
compare() {
  awk -v a="$2" -v b="$expected" 'BEGIN {exit !(a != "" && a - b < 5e-9 && b - a < 5e-9)}' ||
    fail "$1 prints \"$2\", not $expected"
  echo "$1: $2"
}

# The programs have the data of the tree, and nothing else.
run() { env -u LD_LIBRARY_PATH HOME="$work/home" XDG_DATA_HOME= XDG_DATA_DIRS="$prefix/share" "$@"; }

use() {
  prefix=$1
  local outside=$2 cc=${CC:-cc} flags program library needed
  "$cmake" -S "$here/outside" -B "$outside" -DCMAKE_PREFIX_PATH="$prefix" >"$outside.log" 2>&1 ||
    { cat "$outside.log" >&2; fail "the outside project is not configured"; }
  "$cmake" --build "$outside" >>"$outside.log" 2>&1 || { cat "$outside.log" >&2; fail "it is not built"; }
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  for program in venus:zenithor venus_value:zenithor_values; do
    library=${program#*:} program=${program%:*}
    compare "$program, CMake" "$(run "$outside/$program")"
    [ "$(pkg-config --modversion $library)" = "$version" ] || fail "$library.pc has another version"
    [ -f "$(pkg-config --variable=datadir $library)/tavvin_files/archive/karvo.dat" ] ||
      fail "$library.pc has another datadir"
    flags="$(pkg-config --cflags --libs $library) -Wl,-rpath,$(pkg-config --variable=libdir $library)"
    $cc -Wall -Werror "$here/outside/$program.c" $flags -o "$outside/$program.pc"
    compare "$program, pkg-config" "$(run "$outside/$program.pc")"
    needed=$(readelf --dynamic --version-info --wide "$outside/$program" "$outside/$program.pc")
    [ "$(grep -c "NEEDED.*\[lib$library\.so\.$major\]" <<<"$needed")" = 2 ] ||
      fail "$program does not ask for lib$library.so.$major"
    [ "$(grep -c "Name: ${library^^}_$major " <<<"$needed")" = 2 ] ||
      fail "$program does not ask for ${library^^}_$major"
  done
  run "$prefix/bin/almanac" doctor | grep 'All is well' || fail "the almanac does not find all"
  run "$prefix/bin/karvo" verify "$prefix/share/tavvin_files/archive" >/dev/null
}

"$cmake" --install "$build" --prefix "$work/first" >"$work/install.log"
(cd "$work/first" && find . ! -type d | sed 's|^\./||' | sort) >"$work/installed_files.txt"
sed "s|LIBDIR|$libdir|; s|MAJOR|$major|; s|VERSION|$version|" "$here/installed_files.txt" | sort |
  diff - "$work/installed_files.txt" >&2 || fail "these files are not as in installed_files.txt"
for place in "$work" "$build" "$source"; do
  ! grep -rlF "$place" "$work/first" >&2 || fail "these files say where they were built or installed"
done
use "$work/first" "$work/outside"
mkdir "$work/moved"
mv "$work/first" "$work/moved/second"
use "$work/moved/second" "$work/outside_again"
