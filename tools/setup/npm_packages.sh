#!/bin/bash
# Puts npm's packages of the page into build/npm, as web/page/package-lock.json has them. Where that
# cannot be done it says so and the rest goes on; it ends with 1 only where ZENITHOR_CI is set.
set -u
cd "$(dirname "$0")/../.."
folder=build/npm
lock=web/page/package-lock.json

give_up() {
  echo "$1 The page is neither built nor tested." >&2
  rm -rf $folder
  [ -z "${ZENITHOR_CI:-}" ]
  exit
}

if [ -d $folder/node_modules ] && cmp -s $lock $folder/package-lock.json; then
  exit 0
fi
command -v npm >/dev/null || give_up "There is no npm."
rm -rf $folder
mkdir -p $folder
cp web/page/package.json web/page/.npmrc $lock $folder/
echo "Installing npm's packages of the page"
if ! (cd $folder && npm ci --ignore-scripts >npm.log 2>&1); then
  tail -n 8 $folder/npm.log | sed 's/^/    /' >&2
  give_up "npm's packages could not be installed."
fi
