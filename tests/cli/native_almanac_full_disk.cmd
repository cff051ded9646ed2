# Output that cannot be written is no success.
$ALMANAC today --help >/dev/full && exit 1
$ALMANAC today >/dev/full
