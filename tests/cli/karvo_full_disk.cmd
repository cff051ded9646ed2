# Output that cannot be written is no success.
$KARVO --help >/dev/full
