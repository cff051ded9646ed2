# Zones by name, from the system's zone files: winter and summer, the hour that clocks leave out, the hour
# that they show twice (the first time counts), local mean time of old, years behind the file's table.
export TZDIR=/usr/share/zoneinfo
at() { $ALMANAC today --body mars --format jsonl --zone "$1" --date "$2" | grep -o '"time":[^,]*,"julian_day":[^,]*' || true; }
at Europe/Berlin 2026-01-01T12:00
at Europe/Berlin 2026-07-01T12:00
at europe/berlin 2126-07-01T12:00
at Europe/Berlin 2026-03-29T01:59
at Europe/Berlin 2026-03-29T02:30
at Europe/Berlin 2026-03-29T03:00
at Europe/Berlin 2026-10-25T02:30
at Europe/Berlin 2026-10-25T01:30Z
at Europe/Berlin 1880-01-01
at America/New_York 1987-10-19T09:30
at Australia/Lord_Howe 2026-12-01
at Asia/Kathmandu 2026-12-01
at Europe/Dublin 2060-12-01
at America/Sao_Paulo 2026-12-01
at Europe/Berln 2026-01-01
at Nowhere 2026-01-01
$ALMANAC positions --from 2026-03-28 --to 2026-03-31 --step 12h --body sun --field zodiac --zone Europe/Berlin
$ALMANAC positions --from 2026-03-28T02:30 --to 2026-03-31 --body sun --field zodiac --zone Europe/Berlin
