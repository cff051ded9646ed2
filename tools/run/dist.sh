#!/bin/bash
# Packs what is built: out/dist/zenithor-sdk-<version>.zip and, where makensis is installed,
# out/dist/zenithor-setup-<version>.exe.
set -eu
cd "$(dirname "$0")/../.."
version=$(sed -n 's/^#define ZENITHOR_VERSION_STRING "\(.*\)"/\1/p' include/zenithor/zenithor.h)
name=zenithor-sdk-$version
staging=build/dist/$name
rm -rf build/dist
mkdir -p out/dist "$staging"/{include/zenithor,win32,win64,linux,data/archive,docs}
cp include/zenithor/{zenithor,values}.h "$staging/include/zenithor/"
cp out/win32/{zenithor_values.dll,libzenithor_values.dll.a,zenithor_values.lib} "$staging/win32/"
cp out/win32/{zenithor.dll,libzenithor.dll.a,zenithor.lib,almanac.exe} "$staging/win32/"
cp out/win64/{zenithor_values.dll,libzenithor_values.dll.a,zenithor_values.lib} "$staging/win64/"
cp out/win64/{zenithor.dll,libzenithor.dll.a,zenithor.lib} "$staging/win64/"
# Files under both names, not links: not everything that unpacks a zip archive makes links.
cp out/linux/libzenithor{,_values}.so{,.1} "$staging/linux/"
cp out/data/archive/{karvo.ndx,karvo.dat,manifest.json} "$staging/data/archive/"
cp docs/*.md "$staging/docs/"
cp -r docs/pictures "$staging/docs/"
cp -r samples "$staging/"
cp packaging/sdk-readme.txt "$staging/README.txt"
# The same archive from the same files: names in order, one date for all.
find "$staging" -exec touch -d '2026-01-01T00:00:00Z' {} +
rm -f "out/dist/$name.zip"
(cd build/dist && find "$name" -type f | LC_ALL=C sort |
  cmake -E tar cf "../../out/dist/$name.zip" --format=zip --files-from=/dev/stdin)
echo "out/dist/$name.zip"
if command -v makensis >/dev/null; then
  makensis -V1 -DVERSION="$version" -DOUT="$PWD/out" -DSOURCE="$PWD" packaging/installer.nsi
  echo "out/dist/zenithor-setup-$version.exe"
else
  echo "makensis is not installed (Debian package nsis), so there is no installer" >&2
fi
