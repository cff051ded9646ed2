# Moments in every form, the calendar reform, both ends of the calendar, zones behind a time.
for date in 2000-01-01 2000-01-01T12 2000-01-01T12:00 "2000-01-01 12:00:30.5" 2000-01-01T12:00Z "2000-01-01 12:00 utc" \
  2000-01-01T12:00+02:00 2000-01-01T12-0330 2000-02 2000 -1000-07-12 -43-03-15 0-02-29 1582-10-04 1582-10-15 jd0 \
  "jd 2451545" JD2451545.25 -4712-01-01 10000-01-01 2016-12-31T23:59:60; do
  printf '%s: ' "$date"
  $ALMANAC today --body mars --date "$date" --format csv | sed -n 2p | cut -d, -f2,3
done
echo "Dynamical time, and zones"
for zone in "--time tt" "--zone +1" "--zone -03:30" "--zone +0545" "--zone 5.5" "--zone UTC+2" "--zone utc"; do
  printf '%s: ' "$zone"
  $ALMANAC today --body mars --date 2000-01-01T12:00 $zone --format jsonl | grep -o '"time":[^,]*,"julian_day":[^,]*'
done
for word in now today tomorrow yesterday; do
  $ALMANAC today --body mars --date $word --format csv | wc -l
done
