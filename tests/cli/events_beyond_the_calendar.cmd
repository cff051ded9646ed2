# Years out of reach are refused, by the main library, which answers more of them, too.
refused() { status=0; $ALMANAC "$@" || status=$?; [ $status = 2 ]; }
for year in -4713 -4800 10000 99998 99999999999999999999 2026.5 nan 0x7D0 ""; do
  refused --library "$LIBRARY" events --year "$year"
done
refused --library "$LIBRARY" events --from -4713-12-30 --to -4711-01-01
refused --library "$LIBRARY" events --from "jd -2" --to "jd 100"
refused --library "$LIBRARY" events --from 9999-01-01 --to 10000-01-03
refused --library "$LIBRARY" events --from 9999-01-01 --to "jd 1e9"
refused events --year -2001
refused events --year 4000
refused events --from -2000-01-01 --to 4000-01-05
refused events --year 2026 --to ""
