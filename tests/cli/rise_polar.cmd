# Midsummer at Longyearbyen, a rise of the Moon that does not settle, and a place that does not exist.
$ALMANAC rise --date 2026-06-21 --lat 78.2232 --lon 15.6267 --zone 2
$ALMANAC --library "$LIBRARY" rise --date 2026-06-21 --lat 78.2232 --lon 15.6267 --zone 2
$ALMANAC rise --date 1990-03-13 --lat 78.2232 --lon 15.6267 --body moon
$ALMANAC --library "$LIBRARY" rise --date 1990-03-13 --lat 78.2232 --lon 15.6267 --body moon
$ALMANAC rise --date 2026-06-21 --lat 78.2232 --lon 15.6267 --body sun --format json
$ALMANAC --library "$LIBRARY" rise --date 2026-06-21 --lat 78.2232 --lon 15.6267 --body sun --format json
$ALMANAC rise --date 2026-06-21 --lat 98 --lon 15.6267 && exit 1
$ALMANAC rise --date 2026-06-21 --lat 78 --lon 15.6267 --body earth && exit 1
exit 0
