$ALMANAC events --year 2026 --kind comet
