# Files named in any script, for what is read and for what is told of them.
export LC_ALL=C.UTF-8
cp "$ROOT/tests/golden/rising.tsv" 升起.tsv
$ALMANAC check 升起.tsv
printf 'Αθήνα, 37.98, 23.73, +2\nТокио, 35.68, 139.69, +9\n' >места.csv
$ALMANAC rise --place Токио --places места.csv --date 2026-11-21 --body sun
$ALMANAC rise --place αθηνα --places места.csv || true
$ALMANAC --library нет.dll check 升起.tsv 2>&1 | sed 's/loaded: .*;/loaded: WHY;/'
$ALMANAC check 没有.tsv || true
