#!/bin/bash
# clang-tidy over the library, the almanac and karvo, without a finding. A file that was found
# clean is not looked at again until it, what it includes, or the way it is built changes.
#   tidy.sh BUILD_FOLDER     one that holds compile_commands.json
set -eu
cd "$(dirname "$0")/../.."
build=$1
cache=$build/tidy
mkdir -p "$cache"
common=$({
  clang-tidy --version
  cat .clang-tidy CMakeLists.txt cmake/*
} | sha256sum)

# What is compiled for Windows only has no entry there and gets the flags of the cross compiler.
windows_flags="--target=i686-w64-mingw32 -std=c++17 -Isrc -Iinclude -msse2"
for folder in $(i686-w64-mingw32-g++ -xc++ -E -v - </dev/null 2>&1 |
    sed -n '/^#include </,/^End/s/^ //p' | grep -v '/lib/gcc/.*/include\(-fixed\)\?$'); do
  windows_flags="$windows_flags -isystem $folder"
done

check() {
  local file=$1 key
  shift
  # The file and what it includes of ours.
  key=$(clang++ -std=c++17 -MM -MG -Isrc -Iinclude -Itests -Iapps/shared "$file" | tr -d '\\' | tr ' ' '\n' |
    while read -r name; do case $name in /*) ;; *) [ ! -f "$name" ] || cat "$name" ;; esac; done | sha256sum)
  key=$cache/$(echo "$common $* $file $key" | sha256sum | cut -d' ' -f1)
  [ -e "$key" ] && return 0
  clang-tidy --quiet "$file" "$@" 2>"$key.notes" || {
    cat "$key.notes"
    return 1
  }
  rm -f "$key.notes"
  : >"$key"
}
export -f check
export common cache

natively=$(tools/check/sources.sh src apps | grep '\.cpp$' |
  while read -r file; do grep -q "/$file\"" "$build/compile_commands.json" && echo "$file"; done)
echo "$natively" | xargs -P "$(nproc)" -I{} bash -c "check {} -p $build"
count=$(echo "$natively" | wc -l)
for_windows="src/entry/attach_windows.cpp src/host/thread_state.cpp src/ephemeris/file_open.cpp"
if command -v i686-w64-mingw32-g++ >/dev/null; then
  echo "$for_windows" | tr ' ' '\n' | xargs -P "$(nproc)" -I{} bash -c "check {} -- $windows_flags"
  count=$((count + 3))
fi
echo "clang-tidy: $count files without a finding"
