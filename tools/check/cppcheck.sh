#!/bin/sh
# cppcheck over the library, the almanac and karvo, without a finding.
set -eu
cd "$(dirname "$0")/../.."
mkdir -p build/cppcheck
cppcheck --enable=warning,performance,portability,style --inline-suppr --error-exitcode=1 --quiet \
  --std=c++17 --std=c11 --library=posix --library=gnu -j "$(nproc)" \
  --cppcheck-build-dir=build/cppcheck \
  --suppressions-list=tools/check/cppcheck_suppressions.txt \
  -Isrc -Iinclude -Itests -Iapps/shared \
  src apps
echo "cppcheck $(cppcheck --version | cut -d' ' -f2): nothing found"
