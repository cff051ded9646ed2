#!/bin/bash
# Builds the given presets and runs all their tests in one run of ctest, whose closing line is the
# last that is printed.
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
  echo "Building $preset"
  cmake --preset "$preset" -DZENITHOR_UNIT_TESTS:BOOL="$(case $preset in win32 | win64 | fuzz) echo OFF ;; *) echo ON ;; esac)" >/dev/null
  # The data files come first: the tests of every preset read them.
  [ "$preset" != linux ] || cmake --build build/linux -j"$jobs" --target data -- --no-print-directory -s
  cmake --build "build/$preset" -j"$jobs" -- --no-print-directory -s
  echo "subdirs(\"$PWD/build/$preset\")" >>build/CTestTestfile.cmake
done
# A test that hangs is a failure with a name: none needs ten minutes that does not say so itself.
exec ctest --test-dir build -j"$jobs" --timeout 600 --output-on-failure
