# What the doctor says of files that are not as they should be.
export XDG_DATA_HOME="$PWD"
archive=tavvin_files/archive
put() { mkdir -p $archive && cp "$ROOT"/out/data/archive/* $archive; }
doctor() {
  echo "-- $1"
  status=0
  "$ROOT/out/linux/almanac" doctor >told || status=$?
  sed "s|$PWD|FOLDER|; s|\\(is not a manifest\\): .*|\\1|" told
  echo "exit status $status"
}
put
head -c 819383 "$ROOT/out/data/archive/karvo.dat" >$archive/karvo.dat
doctor "a data file that a copy broke off"
put
printf 'x' >>$archive/karvo.ndx
doctor "an index that is too long"
put
printf '\377' | dd of=$archive/karvo.dat bs=1 seek=100000 conv=notrunc 2>/dev/null
doctor "one other byte"
put
rm $archive/manifest.json
doctor "no manifest"
echo '{"terms": 1, "files": [], "sources": []}' >$archive/manifest.json
doctor "a manifest that does not list them"
echo '{' >$archive/manifest.json
doctor "a manifest that is none"
rm $archive/karvo.dat $archive/manifest.json
doctor "no data file"
rm -r tavvin_files
# The folders of the system, the first of which has one file only; a relative one counts as not given.
mkdir -p a/$archive b/$archive
cp "$ROOT"/out/data/archive/karvo.ndx a/$archive
cp "$ROOT"/out/data/archive/* b/$archive
export XDG_DATA_DIRS="$PWD/a:b:$PWD/b:$PWD/c"
doctor "the system's folder"
rm b/$archive/karvo.dat
doctor "one file in each of the system's folders"
export XDG_DATA_DIRS=relative
"$ROOT/out/linux/almanac" doctor --format csv | sed "s|$PWD|FOLDER|"
unset XDG_DATA_HOME
HOME= "$ROOT/out/linux/almanac" doctor
