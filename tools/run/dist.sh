#!/bin/bash
# Packs what is built: zenithor-sdk-<version>.zip and, where makensis is installed,
# zenithor-setup-<version>.exe, into out/dist. The same bytes from the same files, whatever the folder,
# the day, the time zone and the umask. What is not built everywhere is left out where it is missing: the
# libraries for 64-bit ARM, the page.
#   dist.sh [--sdk] [FOLDER]
#   --sdk    the archive alone
set -eu
cd "$(dirname "$0")/../.."
installer=yes
if [ "${1:-}" = --sdk ]; then
  installer=
  shift
fi
mkdir -p "${1:-out/dist}"
into=$(cd "${1:-out/dist}" && pwd)
export LC_ALL=C
version=$(sed -n 's/^#define ZENITHOR_VERSION_STRING "\(.*\)"/\1/p' include/zenithor/zenithor.h)
name=zenithor-sdk-$version
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
staging=$work/$name
mkdir -p "$staging"/{include/zenithor,win32,win64,linux,data/archive,golden}
cp include/zenithor/{zenithor,values}.h "$staging/include/zenithor/"
for width in win32 win64; do
  cp out/$width/{zenithor,zenithor_values}.{dll,lib} out/$width/libzenithor{,_values}.dll.a "$staging/$width/"
done
cp out/win32/almanac.exe "$staging/win32/"
# Files under both names, not links: not everything that unpacks a zip archive makes links.
for system in linux linux-arm64; do
  if [ -f out/$system/libzenithor_values.so ]; then
    mkdir -p "$staging/$system"
    cp out/$system/libzenithor{,_values}.so{,.1} "$staging/$system/"
  fi
done
for program in almanac karvo; do
  [ ! -f out/linux/$program ] || cp out/linux/$program "$staging/linux/"
done
cp out/data/archive/{karvo.ndx,karvo.dat,manifest.json} "$staging/data/archive/"
cp tests/golden/{positions,events,rising}.tsv tests/golden/README.md "$staging/golden/"
cp packaging/check-release.bat LICENSE CHANGELOG.md "$staging/"
cp packaging/sdk-readme.txt "$staging/README.txt"
mkdir "$staging/docs"
cp -r docs/* "$staging/docs/"
cp -r samples "$staging/"
[ ! -f out/dist/zenithor-almanac.html ] || cp out/dist/zenithor-almanac.html "$staging/"
tools/run/sdk_papers.py "$staging" "$version"

rm -f "$into/$name.zip"
tools/run/zip_folder.py "$staging" "$into/$name.zip"
echo "${into#"$PWD"/}/$name.zip"

if [ -z "$installer" ]; then
  exit 0
fi
if command -v makensis >/dev/null; then
  makensis -V1 -DVERSION="$version" -DOUT="$PWD/out" -DSOURCE="$PWD" packaging/installer.nsi
  [ "$into" = "$PWD/out/dist" ] || mv "out/dist/zenithor-setup-$version.exe" "$into"
  echo "${into#"$PWD"/}/zenithor-setup-$version.exe"
else
  echo "makensis is not installed (Debian package nsis), so there is no installer" >&2
fi
