# The compiled files hold what the manifest and the coefficients say.
here=$PWD
(cd "$ROOT" && $KARVO build --out "$here/data" >/dev/null)
$KARVO verify data
$KARVO verify data/archive
