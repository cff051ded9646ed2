# CSV as Python reads it, JSON as jq reads it, JSON Lines line by line; one heading, no comments, line feeds only.
$ALMANAC positions --from 2026-01-01 --to 2026-02-01 --step 1d --format csv >positions.csv
$ALMANAC events --year 2026 --format csv >events.csv
$ALMANAC aspects --from 2026-01-01 --to 2026-02-01 --format csv >aspects.csv
$ALMANAC retrogrades --year 2026 --format csv >retrogrades.csv
$ALMANAC rise --lat 59 --lon 18 --from 2026-01-01 --to 2026-01-05 --format csv >rise.csv
$ALMANAC today --date 2026-01-01 --format csv >today.csv
$ALMANAC --library "$LIBRARY" today --date 2026-01-01 --format csv >library.csv
python3 - <<'PYTHON'
import csv
for name in ("positions", "events", "aspects", "retrogrades", "rise", "today", "library"):
    data = open(f"{name}.csv", "rb").read()
    assert b"\r" not in data and b"#" not in data, name
    rows = list(csv.reader(data.decode("utf-8").splitlines()))
    assert len({len(row) for row in rows}) == 1, name
    print(name, len(rows), ",".join(rows[0]))
with open("positions.csv", newline="") as file:
    first = next(csv.DictReader(file))
    print(first["body"], float(first["longitude [deg]"]), first["zodiac"], float(first["julian_day [TT]"]))
PYTHON
for command in "positions --from 2026-01-01 --to 2026-01-03" "events --year 2026" "stations --year 2026" \
  "next full-moon --after 2026" "ingresses --from 2026-01-01 --to 2026-02-01" "today --date 2026-01-01" \
  "stations --from 2026-01-01 --to 2026-01-02" "rise --lat 59 --lon 18 --date 2026-01-01" version; do
  $ALMANAC $command --format json >told.json
  jq -r '[.clock, (.tables | map("\(.name) \(.rows | length)") | join(" ")), (.notes | length)] | join("; ")' told.json
  [ "$command" = version ] || $ALMANAC $command --format jsonl | jq -s 'length'
done
$ALMANAC positions --from 2026-01-01 --to 2026-01-02 --notes --format csv --body sun
