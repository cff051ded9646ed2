# Without a command it is today, with that command's options; --library stands before or behind the
# command; words that belong nowhere are named.
$ALMANAC --date 2000-01-01T12:00 --format csv | sed -n 1p
$ALMANAC --library ./absent 2>&1 | cut -d: -f1,2
$ALMANAC today --library ./absent 2>&1 | cut -d: -f1,2
$ALMANAC --library "" && exit 1
other=libm.so.6
if grep -q -- '--on win32' "$ALMANAC"; then
  other=kernel32.dll
fi
$ALMANAC --library $other 2>&1 | sed "s/$other/another library/"
$ALMANAC nonsense && exit 1
$ALMANAC --nonsense && exit 1
$ALMANAC today tomorrow && exit 1
$ALMANAC today events && exit 1
$ALMANAC events --place Boston && exit 1
$ALMANAC check && exit 1
exit 0
