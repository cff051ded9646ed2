#!/bin/bash
# Runs a host program with the full data in a profile of its own: natively, or under Wine where it
# is a Windows program.
#   run.sh PROGRAM LIBRARY [ARGUMENT...]
# The program exit_during_calls ends with 42 when all is well, and is run again and again.
set -eu
root=$(cd "$(dirname "$0")/../../.." && pwd)
program=$1
library=$2
shift 2
archive=$root/out/data/archive
if [ ! -f "$archive/karvo.ndx" ]; then
  echo "no data in out/data/archive: run make data" >&2
  exit 1
fi

case $program in
  *.exe)
    ZENITHOR_WINEPREFIX=$root/build/wine-hostile
    export ZENITHOR_WINEPREFIX
    run=("$root/tools/run/under_wine.sh")
    mkdir -p "$ZENITHOR_WINEPREFIX"
    (
      flock 9
      [ -d "$ZENITHOR_WINEPREFIX/drive_c/users" ] || "${run[@]}" cmd /c exit 9>&-
      for roaming in "$ZENITHOR_WINEPREFIX"/drive_c/users/*/AppData/Roaming; do
        mkdir -p "$roaming/tavvin_files/archive"
        cp -u "$archive"/karvo.* "$roaming/tavvin_files/archive/"
      done
    ) 9>"$ZENITHOR_WINEPREFIX.data.lock"
    ;;
  *)
    run=()
    XDG_DATA_HOME=$root/build/profile-hostile
    export XDG_DATA_HOME
    mkdir -p "$XDG_DATA_HOME/tavvin_files"
    ln -sfn "$archive" "$XDG_DATA_HOME/tavvin_files/archive"
    ;;
esac

case $program in
  *win64*no_memory.exe)
    ulimit -v 8388608 # see the program
    exec $run "$program" "$library" "$@"
    ;;
  *exit_during_calls*)
    for milliseconds in 1 2 5 10 20 30 40 50 100 200; do
      status=0
      "${run[@]}" "$program" "$library" "$((milliseconds + 50))" "$@" || status=$?
      if [ "$status" != 42 ]; then
        echo "FAILED: exit code $status after $milliseconds ms"
        exit 1
      fi
    done
    ;;
  *)
    exec "${run[@]}" "$program" "$library" "$@"
    ;;
esac
