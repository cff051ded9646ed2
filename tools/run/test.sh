#!/bin/bash
# Builds the given presets and runs all their tests in one run of ctest, which says at its end what
# each preset's tests of each kind took, and whose closing line is the last that is printed.
#   test.sh PRESET...
set -eu
cd "$(dirname "$0")/../.."
jobs=$(nproc)
asked="$*"
presets=$(tools/setup/presets.sh $asked)
if [ "$(echo $presets)" != "$(echo $asked)" ]; then
  echo "Not everything can be built here, so only these are tested: $presets" >&2
  [ -z "${ZENITHOR_CI:-}" ] || exit 1
fi
mkdir -p build
: >build/CTestTestfile.cmake
for preset in $presets; do
  started=$SECONDS
  echo "Building $preset"
  tools/run/build.sh "$preset"
  echo "Built $preset in $((SECONDS - started)) s"
  echo "subdirs(\"$PWD/build/$preset\")" >>build/CTestTestfile.cmake
done
exec ctest --test-dir build -j"$jobs" --output-on-failure
