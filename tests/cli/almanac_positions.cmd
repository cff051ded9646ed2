# Places at a moment and over spans, in every frame, clock and format.
$ALMANAC positions --date 2026-11-21T06:30
$ALMANAC positions --date 2026-11-21 --helio --body all --format csv
$ALMANAC positions --date 2026-11-21 --geometric --body sun,mars,moon --time tt
$ALMANAC positions --from 2026-01-30 --to 2026-05-01 --step 1mo --body saturn --field longitude,motion,direction
$ALMANAC positions --from 2026-03-28T12 --to +3d --step 1d --body sun --field zodiac --zone +1 --format jsonl
$ALMANAC positions --from 2026-11-21T06 --to 2026-11-21T07 --step 20min --body moon --field \
  longitude,phase-angle,axis-angle,illumination,distance --format csv --notes
$ALMANAC positions --from 2020-02-29 --to 2025-01-01 --step 1y --body sun --field right-ascension,elongation
$ALMANAC positions --date 2026-11-21T06:30 --body moon,mars --format json
$ALMANAC positions --from 2026-11-21 --to +2d --body sun,moon --width 80
$ALMANAC positions --from 2026-11-21 --to +1d --body sun --color always
