# What the main library sees: its files, the data, a position; and that nothing is written without a yes.
told() { status=0; $ALMANAC "$@" >told </dev/null || status=$?; tr '\\' / <told | sed 's|  [^ ]*/tavvin|  FOLDER/tavvin|; s|  [^ ]*/zenithor.dll|  LIBRARY|; s|  [^ ]*/libzenithor.so|  LIBRARY|' | sed '/^library  *bits/,/^$/d; /^[36][24]-bit hosts/d'; echo "exit status $status"; }
told doctor
$ALMANAC doctor --format json | jq -r '.tables[] | "\(.name) \(.rows | length > 0)"'
$ALMANAC doctor --format csv | head -n 1
