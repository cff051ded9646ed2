# Every golden answer, from the library that the program loads.
cd "$ROOT"
for file in positions events rising; do
  $ALMANAC check tests/golden/$file.tsv
done
