#!/bin/bash
# Runs a host program with a user profile of its own, made afresh, and ends with 0 where all is as the
# options say.
#   with_profile.sh DIR [OPTION...] -- PROGRAM [ARGUMENT...]
# A Windows program (PROGRAM.exe) gets a Wine prefix in DIR: its own registry, users and Wine
# server, so that tests neither see nor wait for each other; only the windows folder is that of
# build/wine. Any other program gets DIR/share as XDG_DATA_HOME and DIR/system as XDG_DATA_DIRS.
#   --archive DIR    where the two data files are copied from
#   --files WHICH    which of them the profile holds: both (the default), index, data, none
#   --cut BYTES      the data file ends after so many bytes
#   --user NAME      the name of the profile folder (Windows)
#   --no-desktop     the profile lacks its Desktop folder, where Wine's shell finds no folder at all
#   --screen         gives the program a virtual screen of its own; without this it has none
#   --opens COUNT    fails unless each data file was opened exactly COUNT times (Windows)
#   --warnings COUNT fails unless the warning stands COUNT times on standard error (Linux)
#   --exit CODE      the exit code that the program must have, if not 0
#   --expect FILE    fails unless the program prints what the file holds
#   --home           the data are in ~/.local/share and XDG_DATA_HOME is not set (Linux)
#   --no-home        neither HOME nor XDG_DATA_HOME is set (Linux)
#   --home-is PATH, --data-home-is PATH
#                    the same with HOME or XDG_DATA_HOME set to PATH as it stands: a name in DIR, where
#                    the program then runs; the root, where nothing is put; - for an empty one (Linux)
#   --system WHICH   which of the two files DIR/system holds: both, index, empty (both, without a byte);
#                    without this it has none (Linux)
#   --data-dirs LIST XDG_DATA_DIRS, in which % stands for DIR (Linux)
set -eu
here=$(cd "$(dirname "$0")" && pwd)
directory=$1
shift
archive='' files=both user=almanac desktop=yes screen='' opens='' warnings='' expected='' code=0 home=''
home_is='' data_home_is=unset cut='' system='' data_dirs=%/system
while [ "$1" != -- ]; do
  case $1 in
    --archive) archive=$2; shift ;;
    --files) files=$2; shift ;;
    --cut) cut=$2; shift ;;
    --user) user=$2; shift ;;
    --opens) opens=$2; shift ;;
    --warnings) warnings=$2; shift ;;
    --no-desktop) desktop='' ;;
    --screen) screen=yes ;;
    --expect) expected=$2; shift ;;
    --exit) code=$2; shift ;;
    --home) home=yes ;;
    --no-home) home=none ;;
    --home-is) home=is home_is=${2#-}; shift ;;
    --data-home-is) home=${home:-data} data_home_is=${2#-}; shift ;;
    --system) system=$2; shift ;;
    --data-dirs) data_dirs=$2; shift ;;
    *) echo "with_profile: unknown option $1" >&2; exit 1 ;;
  esac
  shift
done
shift

# Writes text as the strings of Wine's registry files: characters beyond ASCII as \xHHHH.
registry_text() {
  python3 -c 'import sys
for c in sys.argv[1].replace("\\", "\\\\"):
    print(c if ord(c) < 128 else "\\x%04x" % ord(c), end="")' "$1"
}

windows=''
case $1 in *.exe) windows=yes ;; esac
chmod -R u+w "$directory" 2>/dev/null || true
rm -rf "$directory"
mkdir -p "$directory"
directory=$(cd "$directory" && pwd)
unset DISPLAY WAYLAND_DISPLAY XDG_DATA_HOME XDG_DATA_DIRS
export LC_ALL=C.UTF-8

if [ -n "$windows" ]; then
  base=${ZENITHOR_WINEPREFIX:-$(cd "$here/../.." && pwd)/build/wine}
  [ -f "$base/.ready" ] || "$here/../../tools/run/under_wine.sh" cmd /c exit
  prefix=$directory
  profile=$prefix/drive_c/users/$user
  mkdir -p "$prefix/dosdevices" "$prefix/drive_c/ProgramData" "$prefix/drive_c/users/Public" \
    "$profile/AppData/Roaming" "$profile/AppData/Local"
  ln -s ../drive_c "$prefix/dosdevices/c:"
  ln -s / "$prefix/dosdevices/z:"
  ln -s "$base/drive_c/windows" "$prefix/drive_c/windows"
  cp "$base"/*.reg "$base/.update-timestamp" "$base/.ready" "$prefix"
  # The shell takes the profile's folders from the registry.
  folder=$(registry_text "C:\\users\\$user") python3 - "$prefix/user.reg" <<'PYTHON'
import os, re, sys
name = sys.argv[1]
with open(name, encoding="utf-8") as file:
    text = file.read()
folder = os.environ["folder"].replace("\\", "\\\\")
text, count = re.subn(r'(?m)^("(?:AppData|Desktop|Local AppData)"=(?:str\(2\):)?")[^"]*?(\\\\(?:AppData|Desktop)[^"]*")$',
                      r'\g<1>' + folder + r'\g<2>', text)
assert count == 6, f"{name}: {count} folders found"
with open(name, "w", encoding="utf-8") as file:
    file.write(text)
PYTHON
  [ -z "$desktop" ] || mkdir "$profile/Desktop"
  data=$profile/AppData/Roaming/tavvin_files/archive
else
  data=$directory/share/tavvin_files/archive
  case $home in
    yes) data=$directory/.local/share/tavvin_files/archive ;;
    is) data=$directory/$home_is/.local/share/tavvin_files/archive ;;
    data) data=$directory/$data_home_is/tavvin_files/archive ;;
  esac
fi

mkdir -p "$data"
case $files in
  both) copied="karvo.ndx karvo.dat" ;;
  index) copied=karvo.ndx ;;
  data) copied=karvo.dat ;;
  none) copied='' ;;
  *) echo "with_profile: --files $files" >&2; exit 1 ;;
esac
for file in $copied; do
  if [ ! -f "$archive/$file" ]; then
    echo "with_profile: no $file in $archive: run make data" >&2
    exit 1
  fi
  cp "$archive/$file" "$data"
done
if [ -n "$system" ]; then
  mkdir -p "$directory/system/tavvin_files/archive"
  case $system in
    both) cp "$archive"/karvo.ndx "$archive"/karvo.dat "$directory/system/tavvin_files/archive" ;;
    index) cp "$archive/karvo.ndx" "$directory/system/tavvin_files/archive" ;;
    empty) : | tee "$directory"/system/tavvin_files/archive/karvo.{ndx,dat} ;;
    *) echo "with_profile: --system $system" >&2; exit 1 ;;
  esac
fi
[ -z "$cut" ] || truncate --size "$cut" "$data/karvo.dat"

screen_process=''
leave() {
  [ -z "$windows" ] || WINEPREFIX=$prefix wineserver --kill 2>/dev/null || true
  [ -z "$screen_process" ] || kill "$screen_process" 2>/dev/null || true
}
trap leave EXIT

if [ -n "$screen" ]; then
  if ! command -v Xvfb >/dev/null; then
    echo "with_profile: no Xvfb: apt-get install xvfb" >&2
    exit 1
  fi
  # Xvfb takes a free display and writes its number when it is ready.
  mkfifo "$directory/display"
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$directory/display" 2>/dev/null &
  screen_process=$!
  read -r number <"$directory/display"
  export DISPLAY=:$number
fi

run=()
if [ -n "$windows" ]; then
  run=("$here/../../tools/run/under_wine.sh")
  export ZENITHOR_WINEPREFIX=$prefix
  [ -z "$opens" ] || export ZENITHOR_WINEDEBUG=-all,trace+file
else
  case $home in
    yes) export HOME=$directory ;;
    none) unset HOME ;;
    is) export HOME=$home_is ;;
    data) ;;
    *) export XDG_DATA_HOME=$directory/share ;;
  esac
  [ "$data_home_is" = unset ] || export XDG_DATA_HOME=$data_home_is
  export XDG_DATA_DIRS=${data_dirs//%/$directory}
  cd "$directory"
fi
status=0
"${run[@]}" "$@" >"$directory/stdout" 2>"$directory/stderr" || status=$?
cat "$directory/stdout"
grep -v ':trace:file:' "$directory/stderr" >&2 || true

fail() {
  echo "with_profile: $*" >&2
  status=1
}
if [ "$status" = "$code" ]; then
  status=0
else
  fail "exit code $status, not $code"
fi
if [ -n "$opens" ]; then
  for file in karvo.ndx karvo.dat; do
    seen=$(grep -c "CreateFileW L\".*$file\"" "$directory/stderr" || true)
    [ "$seen" = "$opens" ] || fail "$file was opened $seen times, not $opens"
  done
fi
if [ -n "$warnings" ]; then
  seen=$(grep -cx 'MISSING FILE: Ephemeris file is missing' "$directory/stderr" || true)
  [ "$seen" = "$warnings" ] || fail "$seen warnings on standard error, not $warnings"
fi
if [ -n "$expected" ]; then
  diff <(tr -d '\r' <"$directory/stdout") "$expected" >&2 || fail "not what $expected holds"
fi
exit "$status"
