# What the two files hold.
here=$PWD
(cd "$ROOT" && $KARVO build --out "$here/data" >/dev/null)
$KARVO info data/archive/karvo.ndx
$KARVO info data/archive/karvo.dat
$KARVO info data/archive/manifest.json
