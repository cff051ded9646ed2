# Outside the years of its series Pluto's places come with a warning.
for date in -3101-12-31 -3100-01-01 3100-12-31 3101-01-01; do
  echo "$date"
  $ALMANAC --library "$LIBRARY" today --date "$date" | grep "Pluto's series" || true
done
