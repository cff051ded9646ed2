# The full data set: sizes, hashes, and the same bytes in every run.
cd "$ROOT"
folder=$(mktemp -d)
$KARVO build --out "$folder" | sed "s|$folder|OUT|"
cd "$folder/archive"
sha256sum karvo.ndx karvo.dat manifest.json
rm -r "$folder"
