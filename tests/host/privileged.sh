#!/bin/bash
# A program that runs with more rights than its caller does not follow the environment: where its
# caller says the data are, it does not look.
#   privileged.sh LOAD_HOST LIBRARY ARCHIVE DIR
# Needs to be root, to make a copy of the program that runs as somebody else (exit code 77 where it
# cannot).
set -eu
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
export XDG_DATA_HOME=$directory/share HOME=$directory
"$copies/ordinary" "$copies/library.so" full
"$copies/privileged" "$copies/library.so" empty
