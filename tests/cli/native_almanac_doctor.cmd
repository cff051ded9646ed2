# What the doctor says of files that are not as they should be, and what it puts in place.
export XDG_DATA_HOME="$PWD"
archive=tavvin_files/archive
put() { mkdir -p $archive && cp "$ROOT"/out/data/archive/* $archive; }
doctor() {
  echo "-- $1"
  shift
  status=0
  "$ROOT/out/linux/almanac" doctor "$@" >told 2>&1 </dev/null || status=$?
  sed "s|$PWD|FOLDER|g; s|$ROOT|ROOT|g; s|\\(is not a manifest\\): .*|\\1|" told | sed '/^library  *bits/,/^$/d'
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
echo "-- no answer, no"
for answer in "" no y; do
  status=0
  echo "$answer" | "$ROOT/out/linux/almanac" doctor --install >told 2>&1 || status=$?
  head -n 1 told | sed "s|$PWD|FOLDER|g"
  echo "exit status $status"
done
echo old >$archive/karvo.dat
doctor "others are kept" --install --yes
echo older >$archive/karvo.dat
doctor "again" --install --yes | sed -n 2p
ls $archive
cat $archive/karvo.dat.old $archive/karvo.dat.old2
cmp $archive/karvo.dat "$ROOT/out/data/archive/karvo.dat"
cmp $archive/karvo.ndx "$ROOT/out/data/archive/karvo.ndx"
cmp $archive/manifest.json "$ROOT/out/data/archive/manifest.json"
doctor "nothing to do" --install --yes | sed -n 2p
"$ROOT/out/linux/almanac" --library ./absent.so doctor | grep -c BAD
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
unset XDG_DATA_HOME
HOME= "$ROOT/out/linux/almanac" doctor
