# Not-a-number, infinities, other words and numbers out of range are refused, each by its option.
export TZDIR=/usr/share/zoneinfo
refused() { status=0; $ALMANAC "$@" || status=$?; [ $status = 2 ]; }
for word in nan -NAN inf -inf 1e999 abc 50N 0x10 "" 90.001; do
  refused rise --lat "$word" --lon 18
done
refused rise --lat 59 --lon nan
refused rise --lat 59 --lon -360.5
refused rise --lat 59 --lon 18 --zone nan
refused rise --lat 59 --lon 18 --zone 25
refused rise --lat 59
$ALMANAC rise --lat 59 --lon 18 --date 2026-06-21 --body sun --zone 5:30
