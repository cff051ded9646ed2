#!/bin/bash
# Builds the values library of every platform for which there is a compiler, and packs the wheels.
set -eu
cd "$(dirname "$0")/../.."
tools/run/build.sh linux zenithor_values
for preset in $(tools/setup/presets.sh --build win32 win64 arm64); do
  tools/run/build.sh "$preset" zenithor_values
done
exec python3 python/wheel_builder.py
