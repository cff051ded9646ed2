# An error budget: few terms are kept, the measured error holds, and every run keeps the same.
mkdir small
for file in "$ROOT"/data/vsop87/*.csv; do
  awk -F, 'NR == 1 || ($2 < 2 && $3 > 2e-6)' "$file" >"small/$(basename "$file")"
done
$KARVO build --source small --max-error 30 --out out
$KARVO verify out
$KARVO build --source small --max-error 30 --out again >/dev/null
cmp out/archive/karvo.dat again/archive/karvo.dat
cmp out/archive/manifest.json again/archive/manifest.json
for budget in 0 -1 nan x; do
  $KARVO build --max-error $budget || true
done
