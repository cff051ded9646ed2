#!/bin/bash
# Builds the values library as WebAssembly, and with it the npm package and the page in out/dist. Where
# npm's packages are missing, the page is left out and that is said.
set -eu
cd "$(dirname "$0")/../.."
if [ -z "$(tools/setup/presets.sh --build wasm)" ]; then
  echo "There is no compiler for WebAssembly (Debian package emscripten)" >&2
  exit 1
fi
tools/run/build.sh wasm zenithor_web
web/pack.sh out build/web
mkdir -p out/dist
rm -f out/dist/zenithor-*.tgz
cp build/web/zenithor-*.tgz out/dist/
ls out/dist/zenithor-*.tgz
rm -f out/dist/zenithor-almanac.html
status=0
web/page/build.sh out build/page || status=$?
case $status in
  0)
    cp build/page/zenithor-almanac.html out/dist/
    ls out/dist/zenithor-almanac.html
    ;;
  77) echo "The page is left out." >&2 ;;
  *) exit $status ;;
esac
