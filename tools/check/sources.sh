#!/bin/sh
# The repository's C and C++ sources below the given folders, one per line.
#   sources.sh FOLDER...
cd "$(dirname "$0")/../.."
find "$@" \( -name '*.h' -o -name '*.c' -o -name '*.cpp' \) -type f | LC_ALL=C sort
