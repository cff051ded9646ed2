#!/bin/bash
# Builds the page from the module below OUT and runs its tests: its modules in Node, the page in
# Debian's Chromium.
#   run_tests.sh OUT FOLDER
# Ends with 77 where a tool, npm's packages or Chromium are missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
"$here/build.sh" "$1" "$2"
if ! CHROMIUM=$(command -v chromium); then
  echo "run_tests.sh: needs Debian's chromium" >&2
  exit 77
fi
cd "$2"
rm -rf modules tests
# The sources as modules for Node, which share what they have in common.
(cd sources && esbuild src/unpack.ts src/index.ts page/src/*.ts page/src/*/*.ts --bundle --splitting \
  --format=esm --platform=node --target=node18 --outbase=. --out-extension:.js=.mjs \
  --loader:.gz=binary --loader:.css=empty --log-level=error --outdir="../modules")
cp -r "$here/tests" tests
cp "$here/../tests/golden.mjs" tests/
export CHROMIUM ZENITHOR_REPOSITORY=${here%/web/page}
exec node --test tests/*.test.mjs
