# The date is shown whole before Christ and at both ends of the calendar.
for date in -1000-01-05 -43-03-15 0-02-29 -4712-01-01 9999-12-31; do
  $ALMANAC rise --date "$date" --lat 42.3333 --lon -71.0833 --body sun --format csv | sed -n 2p
done
$ALMANAC rise --date -4713-12-30 --lat 42.3333 --lon -71.0833 && exit 1
$ALMANAC rise --date 999999-01-01 --lat 42.3333 --lon -71.0833 && exit 1
exit 0
