$ALMANAC events --from 2026-02-01
