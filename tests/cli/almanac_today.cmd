# The places of two moments whose numbers are in the books.
$ALMANAC --library "$LIBRARY" today --time tt --date 1992-12-20
$ALMANAC --library "$LIBRARY" today --time tt --date "jd 2448908.5" --format csv
# The same places inside the program, as almanacs print them: Venus' apparent place is the book's example
# (Meeus, 33.a: right ascension 21h 4m 41.5s, declination -18 53' 16.8").
$ALMANAC today --time tt --date 1992-12-20
$ALMANAC today --date 2026-11-21T06:30 --zone +1 --width 80
$ALMANAC today --date 2026-11-21T06:30 --body venus,moon --format csv
