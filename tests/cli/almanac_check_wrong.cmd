# A wrong answer is found and shown; what is no golden file is refused, with the line and what is wrong.
golden="$ROOT/tests/golden"
sed '/^# cases/s/649/3/; 12,$d' "$golden/rising.tsv" >count.tsv
sed '/^# cases/s/3/2/' count.tsv >right.tsv
sed '10s/Sun/Moon/' right.tsv >wrong.tsv
sed '/^# cases/s/2072/1/; /^2451545\t.*\tSun\t/s/\t280\./\t200./; 17,$d' "$golden/positions.tsv" >field.tsv
sed '10s/rise/up/' right.tsv >word.tsv
sed '/^# tolerance/d' right.tsv >tolerance.tsv
sed '8s/.*//' right.tsv >sentence.tsv
echo "P 2451545 0 0 0 0 0 1	323" >kind.tsv
: >empty.tsv
$ALMANAC check right.tsv
for name in wrong field count word tolerance sentence kind empty absent; do
  $ALMANAC check $name.tsv || true
done
$ALMANAC check /absent.tsv || true
$ALMANAC check ""
