# The next events of a kind, and the end of what the values answer.
$ALMANAC next full-moon --after 2026-11-21
$ALMANAC next eclipses --after 2026-11-21 --count 4 --zone +1
$ALMANAC next seasons --after 2026-11-21 --count 2 --format csv
$ALMANAC next solar-total --after 2026-11-21 --format json
$ALMANAC next new-moon --after 3999-12-25 --count 3 --time tt
