#!/bin/sh
# No file of the repository names a folder of somebody's machine. NAME stands for any user; the
# checks that look for such paths name them, too.
set -eu
cd "$(dirname "$0")/../.."
if git rev-parse --git-dir >/dev/null 2>&1; then
  files=$(git ls-files)
else
  files=$(find . \( -path ./build -o -path ./out -o -path ./.git \) -prune -o -type f -print)
fi
pattern='(^|[^A-Za-z0-9_.$}])/(work|root|home|tmp|mnt|Users)/|[A-Za-z]:\\\\?(Users|Documents)'
# shellcheck disable=SC2086
if grep -nIE "$pattern" $files | grep -v 'Users\\NAME' |
    grep -v '^\(\./\)\?\(tools/check/machine_paths\|tests/host/check_dll\)\.sh:'; then
  echo "FAILED: paths of a machine"
  exit 1
fi
echo "no machine paths in $(echo "$files" | wc -l) files"
