# The first and the last year that can be asked for, and the last day of each end.
$ALMANAC events --year -4712 --kind seasons,solar-eclipses --format csv
$ALMANAC events --year 9999 --kind seasons,solar-eclipses --format csv
$ALMANAC events --from -4712-01-01 --to "jd 29.5" --format csv
$ALMANAC events --from "jd 5373454.5" --to 10000-01-01 --format csv
