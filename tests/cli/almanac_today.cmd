# The places of two moments whose numbers are in the books.
$ALMANAC today --date 1992-12-20
$ALMANAC today --date "jd 2448908.5" --format csv
