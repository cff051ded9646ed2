# The first and the last year that can be asked for, inside the program and of the main library, and the
# last day of each end.
$ALMANAC events --year -2000 --kind seasons,solar-eclipses --format csv
$ALMANAC events --year 3999 --kind seasons,solar-eclipses --zone -12 --format csv
$ALMANAC --library "$LIBRARY" events --year -4712 --kind seasons,solar-eclipses --time tt --format csv
$ALMANAC --library "$LIBRARY" events --year 9999 --kind seasons,solar-eclipses --time tt --format csv
$ALMANAC --library "$LIBRARY" events --from -4712-01-01 --to "jd 29.5" --time tt --format csv
$ALMANAC --library "$LIBRARY" events --from "jd 5373454.5" --to 10000-01-01 --time tt --format csv
