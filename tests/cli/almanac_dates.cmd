# Dates in every form, the calendar reform, and what is no date.
for date in 2000-01-01 2000-01-01T12:00 "2000-01-01 12:00:30.5" -1000-07-12 0-02-29 1582-10-04 1582-10-15 \
  "jd 0" "jd -1.5" 6000-12-31T23:59:59; do
  $ALMANAC today --date "$date" --format csv | sed -n 1p
done
for date in tomorrow 2000-13-01 2001-02-29 1900-02-29 1582-10-10 2000-01-01T24:00; do
  $ALMANAC today --date "$date" --format csv | sed -n 1p || true
done
