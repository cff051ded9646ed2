# On a terminal, which is a console of Windows for the Windows program: letters of any script, the terminal's
# width, a carriage return at each line's end.
printf '# name, latitude, longitude, zone\nZürich, 47.3769, 8.5417, +1\n東京, 35.68, 139.69, +9\n' >places.csv
"$ROOT/tests/cli/on_terminal.py" 80 $ALMANAC rise --places places.csv --place Zürich --date 2026-11-22 --body sun
"$ROOT/tests/cli/on_terminal.py" 60 $ALMANAC rise --places places.csv --place 東京 --date 2026-11-22 --body sun,moon
