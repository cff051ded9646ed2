# Dates in every form, the calendar reform, both ends of the calendar, and what is no date.
for date in 2000-01-01 2000-01-01T12:00 "2000-01-01 12:00:30.5" -1000-07-12 -43-03-15 0-02-29 1582-10-04 \
  1582-10-15 "jd 0" -4712-01-01 "jd -0.5" 6000-12-31T23:59:59 10000-01-01 "jd 5373484.5"; do
  $ALMANAC today --date "$date" --format csv | sed -n 1p
done
for date in tomorrow "" 2000-13-01 2001-02-29 1900-02-29 1582-10-10 2000-01-01T24:00 "jd nan" -4713-12-31 \
  "jd -0.51" 10000-01-01T00:00:01 "jd 5373484.51" "jd $(printf '9%.0s' $(seq 90))"; do
  $ALMANAC today --date "$date" --format csv && exit 1
done
exit 0
