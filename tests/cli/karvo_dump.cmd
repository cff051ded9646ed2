# A dumped slot is the file that it came from, number by number.
here=$PWD
(cd "$ROOT" && $KARVO build --out "$here/data" >/dev/null)
$KARVO dump --slot 8 data | sed -n 1,3p
slot=0
for name in vsop87b-earth vsop87d-mercury vsop87d-venus vsop87d-earth vsop87d-mars vsop87d-jupiter \
  vsop87d-saturn vsop87d-uranus vsop87d-neptune; do
  $KARVO dump --slot $slot data >dumped.csv
  python3 - "$ROOT/data/vsop87/$name.csv" dumped.csv <<'PYTHON'
import csv, sys
def terms(path):
    with open(path) as file:
        return [(row["coordinate"], int(row["power"]), *(float(row[k]) for k in ("amplitude", "phase", "frequency")))
                for row in csv.DictReader(file)]
source, dumped = map(terms, sys.argv[1:])
print(f"{len(dumped)} terms,", "the same" if source == dumped else "not the same")
PYTHON
  slot=$((slot + 1))
done
$KARVO dump --slot 9 data || true
$KARVO dump data
