# What the program and each command say of themselves.
$ALMANAC --help
for command in today events rise check; do
  $ALMANAC $command --help
done
