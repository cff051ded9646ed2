#!/bin/bash
# Runs the installer without a window where other data files are in place and a program is reading one
# of them: what is in place afterwards are the installer's files and their manifest, nothing of the way
# there, and the almanac's doctor is content. Where the program never lets go, the installer fails and
# the old files stay.
#   check_installer.sh MAKENSIS SOURCE OUT IN_USE_HOST DIR
set -eu
makensis=$1 source=$2 out=$3 in_use=$4 directory=$5
here=$(cd "$(dirname "$0")" && pwd)
for file in win32/almanac.exe win64/zenithor.dll data/archive/manifest.json; do
  [ -f "$out/$file" ] || { echo "check_installer: no $out/$file: run make dist" >&2; exit 1; }
done
version=$(sed -n 's/^#define ZENITHOR_VERSION_STRING "\(.*\)"/\1/p' "$source/include/zenithor/zenithor.h")
setup=$(mktemp -d)
trap 'rm -rf "$setup"' EXIT
"$makensis" -V1 -DVERSION="$version" -DOUT="$out" -DSOURCE="$source" \
  "$source/packaging/installer.nsi" "-XOutFile $setup/setup.exe"
archive=$directory/drive_c/users/almanac/AppData/Roaming/tavvin_files/archive
old=$setup/old
mkdir "$old"
head -c 648 /dev/zero >"$old/karvo.ndx"
head -c 240 /dev/zero >"$old/karvo.dat"
install() { # MILLISECONDS [OPTION...]
  local milliseconds=$1
  shift
  "$here/with_profile.sh" "$directory" --archive "$old" "$@" -- "$in_use" \
    'C:\users\almanac\AppData\Roaming\tavvin_files\archive\karvo.dat' "$milliseconds" \
    "Z:${setup//\//\\}\\setup.exe" /S
}
install 700
for file in karvo.ndx karvo.dat manifest.json; do
  cmp "$out/data/archive/$file" "$archive/$file"
done
[ "$(ls "$archive" | LC_ALL=C sort | xargs)" = 'karvo.dat karvo.ndx manifest.json' ] ||
  { echo "check_installer: left beside the files: $(ls "$archive" | xargs)" >&2; exit 1; }
ZENITHOR_WINEPREFIX=$directory "$here/../../tools/run/under_wine.sh" "$out/win32/almanac.exe" doctor
WINEPREFIX=$directory wineserver --kill || true
install 15000 --exit 2
cmp "$old/karvo.ndx" "$archive/karvo.ndx"
cmp "$old/karvo.dat" "$archive/karvo.dat"
echo "three files in place, and none where one is held"
