# Leading zeros make no octal number of a year; the year before Christ has four digits.
$ALMANAC events --year 0044 --kind march-equinox --format csv
$ALMANAC events --year -0043 --kind march-equinox --format csv
