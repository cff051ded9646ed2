#!/bin/bash
# Configures a preset and builds targets of it, everything where none is named.
#   build.sh PRESET [TARGET...]
set -eu
cd "$(dirname "$0")/../.."
preset=$1
shift
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -j"$(nproc)" ${1:+--target "$@"}
