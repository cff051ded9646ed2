# Names in capitals or small letters, with commas or blanks between, each once; of what is no name the
# nearest is guessed, or all are told.
$ALMANAC rise --date 2026-06-21 --lat 59 --lon 18 --body SUN,moon --format CSV
$ALMANAC rise --date 2026-06-21 --lat 59 --lon 18 --body "Moon, sun" Sun --format Csv
$ALMANAC events --from 2026-01-01 --to 2026-04-01 --kind Full-Moon,SEASONS --format csv
$ALMANAC events --from 2026-01-01 --to 2026-04-01 --kind seasons full_moon --format csv
refused() { status=0; $ALMANAC "$@" || status=$?; [ $status = 2 ]; }
for format in xml jsn "" "text,csv"; do
  refused today --format "$format"
done
refused today --body marz
refused today --body "mars,jupitr"
refused rise --lat 59 --lon 18 --body ""
refused rise --lat 59 --lon 18 --body ceres
refused rise --lat 59 --lon 18 --body earth
refused stations --body sun
refused positions --field longtude
refused events --kind full-moon,comet
refused next fullmoon
refused aspects --angle sqare
refused aspects --angle 181
refused evnts
refused xyz
refused today --bdy mars
refused today --date
refused rise --year
refused events --places x
refused --libary x today
refused aspects --helio --geometric
refused positions --library x
