# The same events inside the program and of the main library.
$ALMANAC events --year 2026
$ALMANAC --library "$LIBRARY" events --year 2026 --format csv >library.csv
$ALMANAC events --year 2026 --format csv | cmp - library.csv
