#!/bin/sh
# Every source is as clang-format leaves it.
set -eu
cd "$(dirname "$0")/../.."
# shellcheck disable=SC2046
clang-format --dry-run -Werror $(tools/check/sources.sh src include apps tests bench samples)
echo "formatted: $(tools/check/sources.sh src include apps tests bench | wc -l) files"
