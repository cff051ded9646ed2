# What the format cannot hold, or what is no coefficient at all, is refused by name and number.
cp -r "$ROOT/data/vsop87" good
try() {
  $KARVO build --source bad --out out || true
  test ! -e out
  rm -r bad
}
lines() { seq "$1" | sed 's/.*/R,5,1,2,3/'; }
edit() { cp -r good bad; sed -i "$2" "bad/$1.csv"; try; }
edit vsop87d-mars '17s/,[^,]*,\([^,]*\)$/,4.6x,\1/'
edit vsop87d-mars '17s/,[^,]*$/,nan/'
edit vsop87d-mars '17s/,[^,]*$/,1e999/'
edit vsop87d-mars '17s/,[^,]*$//'
edit vsop87d-mars '17s/^L,0/L,6/'
edit vsop87d-mars '17s/^L,0/L,-1/'
edit vsop87d-mars '17s/^L/X/'
edit vsop87d-mars '1s/phase/angle/'
echo "-- a file that is missing, one that is empty"
cp -r good bad
rm bad/vsop87d-venus.csv
try
cp -r good bad
: >bad/vsop87d-venus.csv
try
echo "-- a series of 32768 terms"
cp -r good bad
{ sed -n 1p good/vsop87d-neptune.csv; lines 32768; } >bad/vsop87d-neptune.csv
try
echo "-- a last slot that starts at term 32768"
cp -r good bad
lines 556 >>bad/vsop87d-uranus.csv
try
echo "-- a last slot that starts at term 32767"
cp -r good bad
lines 555 >>bad/vsop87d-uranus.csv
$KARVO build --source bad --out out
$KARVO verify out
