#!/bin/sh
# Writes the almanac's manual page and the completions of three shells into a folder, packaging/almanac
# without one. The program writes them itself, from what it takes.
#   almanac_definitions.sh [FOLDER]
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=${1:-$root/packaging/almanac}
almanac=$root/out/linux/almanac
"$almanac" definitions man >"$folder/almanac.1"
"$almanac" definitions bash >"$folder/almanac.bash"
"$almanac" definitions zsh >"$folder/_almanac"
"$almanac" definitions fish >"$folder/almanac.fish"
