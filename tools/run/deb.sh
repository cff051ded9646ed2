#!/bin/bash
# Builds the Debian packages, from a copy of the sources and with the distribution's flags.
#   deb.sh [FOLDER [BUILT]]
# They go into FOLDER, out/dist without it. What is compiled stays in build/deb for the next time. With
# BUILT, the full name of a folder such as out/, its finished files are packed and nothing is compiled.
set -eu
cd "$(dirname "$0")/../.."
mkdir -p "${1:-out/dist}"
into=$(cd "${1:-out/dist}" && pwd)
export ZENITHOR_BUILT=${2:-}
work=$PWD/build/deb${2:+-none}
version=$(sed -n 's/^#define ZENITHOR_VERSION_STRING "\(.*\)"/\1/p' include/zenithor/zenithor.h)
packed=$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)
if [ "${packed%-*}" != "$version" ]; then
  echo "packaging/debian/changelog:1: not the version of zenithor.h, $version" >&2
  exit 1
fi
# CMake takes the flags when it starts anew; what they leave as it was is not compiled again.
rm -rf "$work"/zenithor "$work"/*.deb "$work"/objects*/CMakeCache.txt
mkdir -p "$work/zenithor"
cp -a CMakeLists.txt CHANGELOG.md LICENSE README.md apps cmake data docs include packaging src "$work/zenithor"
mv "$work/zenithor/packaging/debian" "$work/zenithor/debian"
cd "$work/zenithor"
! command -v ccache >/dev/null || export CCACHE_DIR=$(ccache --get-config cache_dir)
if ! DEB_BUILD_OPTIONS="parallel=$(nproc) noautodbgsym" DEB_CFLAGS_STRIP=-g DEB_CXXFLAGS_STRIP=-g \
  dpkg-buildpackage --build=binary --unsigned-changes --no-pre-clean >"$work/log" 2>&1; then
  tail -n 30 "$work/log" >&2
  echo "The packages could not be built; all of it: $work/log" >&2
  exit 1
fi
for file in "$work"/*.deb; do
  cp "$file" "$into"
  echo "$into/$(basename "$file")"
done
