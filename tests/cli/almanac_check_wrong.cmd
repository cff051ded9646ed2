# A wrong answer is found and shown; what is no golden file is refused.
sed -n 1,3p "$ROOT/tests/golden/positions.tsv" >right.tsv
sed '2s/\t323 [^ ]*/\t323 200.5/' right.tsv >wrong.tsv
$ALMANAC check right.tsv
$ALMANAC check wrong.tsv || true
echo "Q 1 2	3" >kind.tsv
$ALMANAC check kind.tsv || true
echo "P 2451545" >half.tsv
$ALMANAC check half.tsv || true
: >empty.tsv
$ALMANAC check empty.tsv || true
$ALMANAC check absent.tsv || true
$ALMANAC check /absent.tsv || true
echo "P 2451545 a b c d e 1	323" >word.tsv
$ALMANAC check word.tsv || true
echo "S SPR_EQUX	0" >short.tsv
$ALMANAC check short.tsv || true
$ALMANAC check ""
