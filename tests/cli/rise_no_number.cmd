# Not-a-number, infinities, other words and numbers out of range are refused, each by its option.
for word in nan -NAN inf -inf 1e999 abc 50N 0x10 "" 90.001; do
  $ALMANAC rise --lat "$word" --lon 18 && exit 1
done
$ALMANAC rise --lat 59 --lon nan && exit 1
$ALMANAC rise --lat 59 --lon -360.5 && exit 1
$ALMANAC rise --lat 59 --lon 18 --zone nan && exit 1
$ALMANAC rise --lat 59 --lon 18 --zone 5:30 && exit 1
$ALMANAC rise --lat 59 && exit 1
exit 0
