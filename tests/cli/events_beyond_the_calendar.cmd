# Years and dates out of reach are refused with the reason; so is what is no year.
for year in -4713 -4800 10000 99998 99999999999999999999 2026.5 nan 0x7D0 ""; do
  $ALMANAC events --year "$year" && exit 1
done
$ALMANAC events --from -4713-12-31 --to -4711-01-01 && exit 1
$ALMANAC events --from "jd -1" --to "jd 100" && exit 1
$ALMANAC events --from 9999-01-01 --to 10000-01-02 && exit 1
$ALMANAC events --from 9999-01-01 --to "jd 1e9" && exit 1
$ALMANAC events --year 2026 --to "" && exit 1
exit 0
