events --year 2026
