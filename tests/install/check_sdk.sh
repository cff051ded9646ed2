#!/bin/bash
# Packs the SDK twice, in another time zone and with another umask, and compares the bytes; unpacks it and
# looks at it: its digests, its list of materials, the pages that its documents link to, a program built
# by the README's line for Linux, the golden answers from the unpacked libraries, and, under Wine,
# check-release.bat.
#   check_sdk.sh OUT WORK
# Ends with 77 where what is packed has not been built here.
set -eu
export LC_ALL=C
root=$(cd "$(dirname "$0")/../.." && pwd)
out=$1 work=$2
for file in win32/zenithor.dll win32/zenithor.lib win32/almanac.exe win64/zenithor.lib linux/karvo; do
  if [ ! -f "$out/$file" ]; then
    echo "check_sdk: $out/$file is not built"
    exit 77
  fi
done
fail() {
  echo "check_sdk: $*" >&2
  exit 1
}
rm -rf "$work"
mkdir -p "$work"
"$root/tools/run/dist.sh" --sdk "$work/first" >/dev/null
(umask 077 && TZ=Pacific/Kiritimati "$root/tools/run/dist.sh" --sdk "$work/second" >/dev/null)
archive=$(basename "$work"/first/*.zip)
cmp "$work/first/$archive" "$work/second/$archive" || fail "packed again, it has other bytes"

python3 -m zipfile -e "$work/first/$archive" "$work"
cd "$work/${archive%.zip}"
sha256sum --check --quiet SHA256SUMS || fail "a digest is wrong"
find . -type f ! -name SHA256SUMS | sed 's|^\./||' | sort >../files.txt
sed 's/^[0-9a-f]*  //' SHA256SUMS | sort | diff - ../files.txt >&2 || fail "SHA256SUMS lists other files"
[ "$(jq -r .spdxVersion zenithor.spdx.json)" = SPDX-2.3 ] || fail "zenithor.spdx.json is none"
jq -r '.files[] | "\(.checksums[1].checksumValue)  \(.fileName[2:])"' zenithor.spdx.json | sort >../materials.txt
grep -v ' zenithor.spdx.json$' SHA256SUMS | sort | diff - ../materials.txt >&2 ||
  fail "zenithor.spdx.json lists other files"
for name in $(jq -r '.packages[1:][].name' zenithor.spdx.json | tr ' ' '?'); do
  grep -q "^  ${name//\?/.}" THIRD-PARTY.txt || fail "THIRD-PARTY.txt has no $name"
done

grep -o '\](\([^)#:]*\)[)#]' -- *.md docs/*.md golden/*.md samples/*.md | grep -v '](\.\./\(include\|tests\|apps\)/' |
  sed 's/:](/ /; s/[)#]$//' | while read -r page link; do
  [ -z "$link" ] || [ -e "$(dirname "$page")/$link" ] || echo "$page links to $link"
done >../links.txt
[ ! -s ../links.txt ] || fail "not in the archive: $(cat ../links.txt)"

mkdir -p "../profile/tavvin_files"
cp -r data/archive ../profile/tavvin_files/
export XDG_DATA_HOME=$work/profile
chmod +x linux/almanac  # Python's own unpacking sets no modes
for file in positions events rising; do
  linux/almanac --library linux/libzenithor.so.1 check golden/$file.tsv >../golden.txt ||
    fail "$file.tsv: $(cat ../golden.txt)"
done
printf '#include <stdio.h>\n#include "zenithor/zenithor.h"\nint main(void) {\n  BodyPositionRecord r;\n  %s\n  return 0;\n}\n' \
  'printf("%.0f\n", ZENITHOR(2451545.0, 0, 0, 0, 0, 0, ZENITHOR_MARS, &r));' >host.c
line=$(sed -n 's/^  \(cc .*\)/\1/p' README.txt)
[ -n "$line" ] || fail "README.txt has no line for Linux"
eval "$line"
cp linux/libzenithor.so.1 .
[ "$(./host)" = 323 ] || fail "the program by the README's line does not answer"

if command -v wine >/dev/null; then
  "$root/tools/run/run_almanac.sh" --on win32 version >/dev/null  # puts the data in place
  "$root/tools/run/under_wine.sh" cmd /c check-release.bat >../verify.txt 2>&1 </dev/null ||
    fail "check-release.bat: $(tail -n 20 ../verify.txt)"
  grep -q '^All is as it was released' ../verify.txt || fail "check-release.bat: $(tail -n 20 ../verify.txt)"
fi
echo "check_sdk: $archive, $(grep -c . SHA256SUMS) files"
