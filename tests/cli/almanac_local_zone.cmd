# --zone local is this computer's zone, in summer and in winter, east and west, and where summer begins.
moment() { TZ=$1 $ALMANAC next full-moon --after $2 --zone local --format csv | sed -n '2s/,.*//p'; }
for zone in Europe/Berlin America/New_York Australia/Sydney Asia/Kolkata; do
  echo "$zone $(moment $zone 2026-06-01) $(moment $zone 2026-12-01)"
done
TZ=Europe/Berlin $ALMANAC positions --body moon --field longitude --zone local --format csv \
  --from 2026-03-29T01:30 --to 2026-03-29T04 --step 30min | sed "1d; s|,.*||"
