$ALMANAC events --year 2026 --to 2025-01-01
