# A day at Boston: Venus is the book's example (Meeus, 15.a: rise 12:25, transit 19:41, set 2:55 UTC),
# and with the zone's clock its set is that evening's.
$ALMANAC rise --date 1988-03-20 --lat 42.3333 --lon -71.0833
$ALMANAC --library "$LIBRARY" rise --date 1988-03-20 --lat 42.3333 --lon -71.0833
$ALMANAC rise --date 1988-03-20 --lat 42.3333 --lon -71.0833 --zone -5 --body venus --format csv
$ALMANAC --library "$LIBRARY" rise --date 1988-03-20 --lat 42.3333 --lon -71.0833 --zone -5 --body venus --format csv
# Stockholm and Sydney, north and south, east of Greenwich.
$ALMANAC rise --date 2026-06-21 --lat 59.3293 --lon 18.0686 --zone 2 --body sun moon
$ALMANAC --library "$LIBRARY" rise --date 2026-06-21 --lat 59.3293 --lon 18.0686 --zone 2 --body sun moon
$ALMANAC rise --date 2026-06-21 --lat -33.8688 --lon 151.2093 --zone 10 --body sun moon
$ALMANAC --library "$LIBRARY" rise --date 2026-06-21 --lat -33.8688 --lon 151.2093 --zone 10 --body sun moon
