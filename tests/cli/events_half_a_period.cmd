# One end of a span: a year from there, or from now; the end may be so much later.
$ALMANAC events --from 2026-02-01 --kind eclipses
$ALMANAC events --from 2026-02-01 --to +60d --kind eclipses
$ALMANAC events --from 2026-01-31 --to +1mo --kind seasons
$ALMANAC events --to 2010-01-01 2>&1 | sed 's/on [0-9-]* [0-9:]* and/on NOW and/'
