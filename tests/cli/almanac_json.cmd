# JSON: units, and rows that other programs can read; what a body does not have is null.
$ALMANAC --library "$LIBRARY" today --time tt --date 2000-01-01T12:00 --format json >today.json
python3 - <<'PYTHON'
import json
with open("today.json") as file:
    report = json.load(file)
places = report["tables"][0]
print(report["head"][0])
print(places["units"])
for row in places["rows"]:
    print(row["body"], *(f"{row[k]:.6f}" if row[k] is not None else "null"
                         for k in ("helio_longitude", "geo_longitude", "declination", "phase_angle")))
PYTHON
