$ALMANAC events --year 2026 --to 2026-01-02
