# What the program and each command say of themselves.
$ALMANAC --help
for command in today events rise doctor check; do
  $ALMANAC $command --help
done
