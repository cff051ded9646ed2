# What is refused, and what is said of it: each line of the table is a command line. A few are taken.
export TZDIR=/usr/share/zoneinfo
while read -r words; do
  [ -n "$words" ] || continue
  status=0
  eval "\$ALMANAC $words" </dev/null >told 2>&1 || status=$?
  [ $status != 0 ] || echo accepted >told
  printf '%s\n  %s %s\n' "$words" "$status" "$(cat told)"
done <<'TABLE'
today --date xyzzy
today --date nwo
today --date ""
today --date " "
today --date 2461365.75
today --date 21.11.2026
today --date 11/21/2026
today --date 2000-13-01
today --date 2000-00-01
today --date 2001-02-29
today --date 1900-02-29
today --date 2000-04-31
today --date 2000-01-00
today --date 1582-10-10
today --date 2000-01-01T24:00
today --date 2000-01-01T12:60
today --date 2000-01-01T12:00:60
today --date 2000-01-01T12:59:61
today --date 2000-01-01T1:2:3:4
today --date 2000-01-01T12:00+25:00
today --date 2000-01-01T12:00+1:2:3
today --date 2000-01-01T12:00X
today --date 2000-01-01Z
today --date "jd nan"
today --date "jd"
today --date "jd 1e3"
today --date jd99999999999999
today --date "jd -1.51"
today --date jd5373485.6
today --date -4713-12-30
today --date 10001-01-01
today --date 9999999-01-01
today --date 2000-01-01 2000-01-02
today --date 2000-01-01T12:00:00.0000000000000000000000000000000000000000000000000000000000001
today --date ٢٠٠٠-01-01
today --zone +25
today --zone ++1
today --zone 1:2:3
today --zone Mars/Olympus
today --zone ../../etc/passwd
today --zone /etc/passwd
today --zone +1 --time tt
today --time ut1
today --time ""
today --width ten
today --width 10
today --width -5
today --width 99999
today --color blue
today --format yaml
today --notes=maybe
today --body
today --body sun,,moon
today --body "sun;moon"
today mars
events --year 2026.5
events --year MMXXVI
events --year 0x7ea
events --year ""
events --year 99999999999999999999
events --year -2001
events --year 4000
events --from 2027 --to 2026
events --from 2026 --to 2026
events --from 2026 --to +0d
events --from 2026 --to +5m
events --from 2026 --to +5parsec
events --from 2026 --to +1.5mo
events --from -3000 --to -2000
events --from 3999 --to 4001
events --kind
events --kind full-moon,,new-moon
next
next --after 2026
next full-moon --after 4001
next full-moon --count 0
next full-moon --count 1001
next full-moon --count one
next full-moon new-moon
positions --step 1d
positions --date 2026 --from 2027
positions --date 2026 --step 1h
positions --year 2026 --step 0h
positions --year 2026 --step -1h
positions --year 2026 --step 1
positions --year 2026 --step h
positions --year 2026 --step 1m
positions --year 2026 --step 1.5y
positions --year 2026 --step 1fortnight
positions --field
positions --helio --geometric
ingresses --every 0
ingresses --every 361
ingresses --every nan
ingresses --body earth
ingresses --helio --body sun
stations --body moon
retrogrades --body earth
aspects --angle -1
aspects --angle 90x
aspects --angle conjuction
aspects --body earth
aspects --helio --body moon,mars
rise
rise --lat 59
rise --lon 18
rise --lat 90.001 --lon 18
rise --lat nan --lon 18
rise --lat 0x10 --lon 18
rise --lat 50N --lon 18
rise --lat 59 --lon -360.5
rise --lat 59 --lon inf
rise --lat 59 --lon 1e999
rise --lat 59 --lon 18 --time tt
rise --lat 59 --lon 18 --date 2026 --year 2026
rise --lat 59 --lon 18 --place Boston
rise --place Boston --places /absent/places.csv
doctor --yes
doctor --date 2026
check
check ""
version --date 2026
definitions perl
--library
--library ""
-x
TABLE
