$ALMANAC events --year 2026
