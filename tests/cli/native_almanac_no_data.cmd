# Without the data files the program answers from the data inside; the main library is not asked without
# its files, nor with one that is cut short, too long or has other bytes.
export XDG_DATA_HOME="$PWD"
almanac=$ROOT/out/linux/almanac
library="--library $ROOT/out/linux/libzenithor.so"
told() { status=0; "$almanac" "$@" >out 2>&1 || status=$?; sed "s|$PWD|FOLDER|g; s|$ROOT|ROOT|g" out; echo "exit status $status"; }
told today --date 2000-01-01T12:00 --body mars
told $library today
told $library rise --date 2000-01-01 --lat 59 --lon 18
told $library events --year 2000
told $library check "$ROOT/tests/golden/rising.tsv"
told --library ./absent.so today
archive=tavvin_files/archive
mkdir -p $archive
cp "$ROOT"/out/data/archive/* $archive
told --library ./absent.so today
told $library today --date 2000-01-01T12:00 --format csv | sed -n 2p
head -c 819383 "$ROOT/out/data/archive/karvo.dat" >$archive/karvo.dat
told $library today
cp "$ROOT"/out/data/archive/* $archive
printf 'x' >>$archive/karvo.ndx
told $library check "$ROOT/tests/golden/rising.tsv"
cp "$ROOT"/out/data/archive/* $archive
printf '\377' | dd of=$archive/karvo.dat bs=1 seek=100000 conv=notrunc 2>/dev/null
told $library events --year 2000
rm $archive/manifest.json
told $library rise --lat 59 --lon 18
