# Stations, retrograde times, ingresses and aspects of 2026, as almanacs have them: Mercury's stations of
# that year are those of the ephemerides, February 26 6:48 UTC the first.
$ALMANAC stations --year 2026
$ALMANAC stations --year 2026 --body mercury --geometric --format csv
$ALMANAC retrogrades --year 2026 --body mercury,mars
$ALMANAC retrogrades --from 2024-12-01 --to 2025-03-01 --body mars,venus --zone -5 --width 80
$ALMANAC ingresses --year 2026 --body sun
$ALMANAC ingresses --from 2026-10-01 --to 2026-12-15 --body venus,mercury --format jsonl
$ALMANAC ingresses --from 2026-11-01 --to 2026-12-01 --body moon --every 90 --zone +9
$ALMANAC ingresses --year 2026 --body mars --every 45 --helio --format csv
$ALMANAC ingresses --from 2026-01-01 --to 2026-02-01 --body sun --every 7.5
$ALMANAC aspects --from 2026-11-20 --to 2026-12-01
$ALMANAC aspects --body jupiter,saturn --from 2000 --to 2050 --angle conjunction --format csv
$ALMANAC aspects --body sun --with moon --from 2026-11-01 --to 2026-12-01 --angle 0,square,180
$ALMANAC aspects --helio --body earth,mars --from 2024 --to 2030 --angle 0,72 --format jsonl
$ALMANAC stations --from 2026-01-01 --to 2026-01-10
$ALMANAC aspects --from 2026-01-01 --to 2026-01-02 --body sun,neptune
