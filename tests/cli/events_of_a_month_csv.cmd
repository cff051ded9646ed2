$ALMANAC events --from 2000-01-01 --to "2000-02-01 12:00" --format csv
