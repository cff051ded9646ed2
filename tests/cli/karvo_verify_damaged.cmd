# Every kind of damage is named: a wrong count, a term that is not finite, a changed byte, a short file.
here=$PWD
(cd "$ROOT" && $KARVO build --out "$here/data" >/dev/null)
poke() { printf "$3" | dd of="data/archive/$1" bs=1 seek="$2" conv=notrunc 2>/dev/null; }
keep() { cp -r data kept; }
restore() { rm -r data; cp -r kept data; }
keep
echo "-- the count of slot 0, L0"
poke karvo.ndx 2 '\000\200'
$KARVO verify data || true
restore
echo "-- the first term of slot 5"
poke karvo.ndx 360 '\001\000'
$KARVO verify data || true
restore
echo "-- an amplitude that is infinite, a phase that is too large"
poke karvo.dat 0 '\000\000\000\000\000\000\360\177'
poke karvo.dat 32 '\000\000\000\000\000\000\131\100'
$KARVO verify data || true
restore
echo "-- a data file that is one byte short"
head -c 819383 kept/archive/karvo.dat >data/archive/karvo.dat
$KARVO verify data || true
restore
echo "-- an index that is too long"
printf 'x' >>data/archive/karvo.ndx
$KARVO verify data || true
restore
echo "-- no manifest"
rm data/archive/manifest.json
$KARVO verify data || true
restore
echo "-- a manifest that is none"
echo '{}' >data/archive/manifest.json
$KARVO verify data || true
echo "-- no files"
$KARVO verify nowhere
