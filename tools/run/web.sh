#!/bin/bash
# Builds the values library as WebAssembly and packs the npm package into out/dist.
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
