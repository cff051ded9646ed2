# Names in capitals or small letters, with commas or blanks between, each once; what is no name is
# refused with those that are.
$ALMANAC rise --date 2026-06-21 --lat 59 --lon 18 --body SUN,moon --format CSV
$ALMANAC rise --date 2026-06-21 --lat 59 --lon 18 --body "Moon, sun" Sun --format Csv
$ALMANAC events --from 2026-01-01 --to 2026-04-01 --kind Full-Moon,SEASONS --format csv
$ALMANAC events --from 2026-01-01 --to 2026-04-01 --kind seasons full-moon --format csv
for format in xml 1 "" "text,csv"; do
  $ALMANAC today --format "$format" && exit 1
done
$ALMANAC rise --lat 59 --lon 18 --body "" && exit 1
$ALMANAC rise --lat 59 --lon 18 --body sun,ceres && exit 1
$ALMANAC events --kind full-moon,comet && exit 1
exit 0
