#!/bin/sh
# Runs a Windows program under Wine in a private profile below build/, without Wine's own messages.
#   under_wine.sh PROGRAM.exe [ARGUMENT...]
# The profile is made on first use; ZENITHOR_WINEPREFIX names another one. ZENITHOR_WINEDEBUG asks
# for messages.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
WINEPREFIX=${ZENITHOR_WINEPREFIX:-$root/build/wine}
WINEDEBUG=${ZENITHOR_WINEDEBUG:--all}
WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export WINEPREFIX WINEDEBUG WINEDLLOVERRIDES
mkdir -p "$WINEPREFIX"
if [ ! -f "$WINEPREFIX/.ready" ]; then
  (
    flock 9
    if [ ! -f "$WINEPREFIX/.ready" ]; then
      wineboot --init >/dev/null 2>&1
      wineserver --wait
      : >"$WINEPREFIX/.ready"
    fi
  ) 9>"$WINEPREFIX.lock"
fi
# A server that closes down for lack of programs refuses one that starts meanwhile, so it stays for a
# minute. Its own processes stay as long, so they are started here, where they get neither the
# program's output, whose reader would wait for them, nor a lock that a caller holds.
(
  flock 8
  if wineserver -p60 8>&- 9>&-; then
    wine cmd /c exit 8>&- 9>&-
  fi
) </dev/null >/dev/null 2>&1 8>"$WINEPREFIX.start.lock" || true
exec wine "$@"
