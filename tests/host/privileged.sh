#!/bin/bash
# A program that runs with more rights than its caller does not follow the environment: where its
# caller says the data are, it does not look; in the system's folders it does.
#   privileged.sh LOAD_HOST LIBRARY ARCHIVE DIR [--system]
# --system puts the data into a /usr/local/share that only this script sees. Needs to be root, to make
# a copy of the program that runs as somebody else, and for --system to mount (exit code 77 where it
# cannot).
set -eu
if [ "${5:-}" = --system ] && [ -z "${ZENITHOR_MOUNTED:-}" ]; then
  if ! unshare --mount true 2>/dev/null; then
    echo "privileged: nothing can be mounted here"
    exit 77
  fi
  ZENITHOR_MOUNTED=yes exec unshare --mount "$0" "$@"
fi
load_host=$1 library=$2 archive=$3 directory=$4
[ "$(id -u)" = 0 ] || { echo "privileged: not root: no program with other rights can be made"; exit 77; }
mkdir -p "$directory/share/tavvin_files/archive"
cp "$archive"/karvo.* "$directory/share/tavvin_files/archive"
# Below /tmp, for a user who may not look into the build folder.
copies=$(mktemp -d)
trap 'rm -rf "$copies"' EXIT
chmod 755 "$copies"
cp "$load_host" "$copies/privileged"
cp "$load_host" "$copies/ordinary"
cp "$library" "$copies/library.so"
chown nobody "$copies/privileged"
chmod 4755 "$copies/privileged"
expected=empty
for folder in /usr/local/share /usr/share; do
  [ ! -f $folder/tavvin_files/archive/karvo.dat ] || expected=full
done
if [ -n "${ZENITHOR_MOUNTED:-}" ]; then
  mkdir -p "$copies/share/tavvin_files/archive"
  cp "$archive"/karvo.* "$copies/share/tavvin_files/archive"
  mount --bind "$copies/share" /usr/local/share
  trap 'umount /usr/local/share; rm -rf "$copies"' EXIT
  expected=full
  # What the caller says instead of the system's folders is not followed, either.
  export XDG_DATA_HOME=/nonexistent XDG_DATA_DIRS=/nonexistent HOME=/nonexistent
  "$copies/ordinary" "$copies/library.so" empty
else
  export XDG_DATA_HOME=$directory/share XDG_DATA_DIRS=$directory/share HOME=$directory
  "$copies/ordinary" "$copies/library.so" full
fi
"$copies/privileged" "$copies/library.so" $expected
