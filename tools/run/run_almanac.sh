#!/bin/sh
# Runs the almanac in a Windows process under Wine; where Wine is missing, the native one. Words are
# handed to it. Without any it prints today's places as the main library answers them, the 32-bit DLL.
#   run_almanac.sh [--on win32|linux] [ARGUMENT...]
# The data files are put into a private profile below build/ (Wine's is the one of under_wine.sh);
# nobody's own profile is touched.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
data=$root/out/data/archive

# put FOLDER: the two files and their manifest into FOLDER, where they are not there already.
put() {
  mkdir -p "$1"
  for file in karvo.dat karvo.ndx manifest.json; do
    if [ ! -f "$data/$file" ]; then
      echo "$data/$file is missing; make data builds it" >&2
      exit 1
    fi
    # By rename: another run may be reading them.
    cmp -s "$data/$file" "$1/$file" || { cp "$data/$file" "$1/$file.$$" && mv "$1/$file.$$" "$1/$file"; }
  done
}

run_native() {
  put "$root/build/profile/tavvin_files/archive"
  [ $# -gt 0 ] || set -- --library "$root/out/linux/libzenithor.so" today
  XDG_DATA_HOME=$root/build/profile exec "$root/out/linux/almanac" "$@"
}

run_under_wine() {
  prefix=${ZENITHOR_WINEPREFIX:-$root/build/wine}
  # The Windows environment names the folder in the form C:\users\...\AppData\Roaming; it is asked
  # once.
  known=$prefix/application-data
  if [ ! -s "$known" ]; then
    answer=$("$root/tools/run/under_wine.sh" cmd /c 'echo %APPDATA%' 2>/dev/null)
    printf '%s' "$answer" | tr -d '\r\n' | tr '\\' / >"$known.$$"
    mv "$known.$$" "$known"
  fi
  roaming=$(cat "$known")
  case $roaming in
    [Cc]:/*) put "$prefix/drive_c/${roaming#??/}/tavvin_files/archive" ;;
    *)
      echo "Wine does not say where its application-data folder is (\"$roaming\")" >&2
      exit 1
      ;;
  esac
  [ $# -gt 0 ] || set -- --library "Z:$root/out/win32/zenithor.dll" today
  exec "$root/tools/run/under_wine.sh" "$root/out/win32/almanac.exe" "$@"
}

platform=win32
if [ "${1:-}" = --on ]; then
  platform=$2
  shift 2
fi
if [ "$platform" = linux ]; then
  run_native "$@"
fi
if command -v wine >/dev/null; then
  run_under_wine "$@"
fi
if [ -n "${ZENITHOR_CI:-}" ]; then
  echo "Wine is not installed, and here it must be" >&2
  exit 1
fi
echo "Wine is not installed, so this is the native library:" >&2
run_native "$@"
