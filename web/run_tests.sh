#!/bin/bash
# Packs the npm package of the module below OUT, unpacks it into a new folder and runs the tests from
# there with Node's own runner.
#   run_tests.sh OUT FOLDER
# Ends with 77 where esbuild or TypeScript's compiler is missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
"$here/pack.sh" "$1" "$2"
cd "$2"
rm -rf fresh
mkdir -p fresh/node_modules/zenithor
tar -xzf zenithor-*.tgz -C fresh/node_modules/zenithor --strip-components=1
cp "$here"/tests/* fresh/
cd fresh
export ZENITHOR_REPOSITORY=${here%/*}
exec node --test ./*.test.mjs
