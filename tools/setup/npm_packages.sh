#!/bin/bash
# Puts npm's packages of the page into build/npm, as web/page/package-lock.json has them.
set -eu
cd "$(dirname "$0")/../.."
folder=build/npm
if [ -d $folder/node_modules ] && cmp -s web/page/package-lock.json $folder/package-lock.json; then
  exit 0
fi
rm -rf $folder
mkdir -p $folder
cp web/page/package.json web/page/.npmrc $folder/
cp web/page/package-lock.json $folder/package-lock.json
if ! (cd $folder && npm ci --ignore-scripts >npm.log 2>&1); then
  tail -n 8 $folder/npm.log | sed 's/^/    /' >&2
  rm -rf $folder
  exit 1
fi
