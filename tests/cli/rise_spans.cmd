# Rise, transit and set over spans and at places of a file; a month in which the Moon does not rise one day.
printf '\357\273\277name,latitude,longitude,zone\r\n# home\r\nStockholm, 59.3293, 18.0686, +1\r\n"New York",40.71,-74.01\nLa Paz,-16.5,-68.15,-4\n' >places.csv
$ALMANAC rise --place stockholm --places places.csv --from 2026-11-21 --to +3d --body sun,moon
$ALMANAC rise --place "New York" --places places.csv --date 2026-11-21 --body sun --format csv
$ALMANAC rise --place "la paz" --places places.csv --from 2026-11-01 --to 2026-12-01 --body moon
$ALMANAC rise --place "La Paz" --places places.csv --zone 0 --date 2026-11-21 --body moon,venus --format json
$ALMANAC rise --lat 78.2 --lon 15.6 --from 2026-02-14 --to 2026-02-18 --body sun --format jsonl
echo 'Nowhere, 91, 0' >wrong.csv
echo 'Nowhere' >short.csv
: >empty.csv
for file in places wrong short empty absent; do
  status=0
  $ALMANAC rise --place Stokholm --places $file.csv || status=$?
  echo "exit status $status"
done
