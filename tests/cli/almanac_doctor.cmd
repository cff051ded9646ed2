# Where the data files are, that they are the ones of their manifest, and that the library reads them.
status=0
$ALMANAC doctor >told || status=$?
tr -d '\r' <told | tr '\\' / | sed 's|in /.*/tavvin|in FOLDER/tavvin|; s|in C:/.*/tavvin|in FOLDER/tavvin|'
exit $status
