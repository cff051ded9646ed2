# What the program and each command say of themselves, and its version.
$ALMANAC --help
for command in today positions events next stations retrogrades ingresses aspects rise doctor check version; do
  echo "---- $command"
  $ALMANAC $command --help
done
$ALMANAC --version
$ALMANAC version | head -n 1
