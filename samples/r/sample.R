# Zenithor from R, through a shim of a few lines of C that R itself compiles.
#
# Run on Linux: PKG_CPPFLAGS=-I../../include PKG_LIBS="-L../../linux -lzenithor -lzenithor_values" R CMD SHLIB shim.c >/dev/null && LD_LIBRARY_PATH=../../linux Rscript sample.R
#
# Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
# Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
dyn.load(paste0("shim", .Platform$dynlib.ext))

start <- 2461041.5 # Julian day of 2026 January 1, 0h
longitude <- 13.4  # Berlin [deg], positive east
latitude <- 52.5
zone <- 1          # [h] ahead of universal time
sun <- 0L
mars <- 4L
rise <- 1L

print_line <- function(...) cat(sprintf(...), sep = "\n")

print_line("Records")
for (day in 0:4) {
  place <- .C("zenithor_position", start + day, mars, done = 0, date = integer(3), longitude = 0)
  if (place$done != 323) stop("no data files: see \"Where the data are\" in the host guide")
  print_line("Mars %d-%02d-%02d %.6f", place$date[1], place$date[2], place$date[3], place$longitude)
}

events <- .C("zenithor_solar_eclipse", start, julian_days = double(19), date = integer(5))
kinds <- c("total", "annular", "annular-total", "non-central total", "non-central annular", "partial")
found <- which(events$julian_days[9:14] != 0) # blocks 8 to 13, of which one is filled
if (length(found) == 0) stop("no eclipse")
print_line("%d-%02d-%02d %02d:%02d %s solar eclipse", events$date[1], events$date[2],
           events$date[3], events$date[4], events$date[5], kinds[found])

# Days are counted from 2437299.5; longitude and zone are positive west here.
sunrise <- .C("zenithor_rising", start - 2437299.5, -zone, -longitude, latitude, sun, rise,
              minutes = 0, NAOK = TRUE)$minutes
if (is.nan(sunrise) || sunrise <= 0 || sunrise %in% c(16, 32)) { # 16: up all day, 32: down all day
  stop("no sunrise")
}
minutes <- as.integer(sunrise + 0.5)
print_line("Berlin %02d:%02d sunrise", minutes %/% 60L, minutes %% 60L)

geo_longitude <- 4L
solar_eclipses <- 0x03F00L # bits 8 to 13

date_of <- function(julian_day, round_to = 0) {
  answer <- .C("zenithor_calendar", julian_day, round_to, date = integer(5), code = 0L)
  if (answer$code != 0) stop("no calendar date")
  answer$date
}

print_line("Values")
days <- start + 0:4
answer <- .C("zenithor_values", mars, geo_longitude, days, 5L, places = double(5), numbers = 0L)
if (answer$numbers != 5) stop("not all values are numbers")
for (k in 1:5) {
  date <- date_of(days[k])
  print_line("Mars %d-%02d-%02d %.6f", date[1], date[2], date[3], answer$places[k])
}

eclipse <- .C("zenithor_next_event", solar_eclipses, start, kind = 0L, julian_day = 0)
if (is.nan(eclipse$julian_day)) stop("no eclipse")
date <- date_of(eclipse$julian_day)
print_line("%d-%02d-%02d %02d:%02d %s", date[1], date[2], date[3], date[4], date[5],
           .C("zenithor_kind_name", eclipse$kind, name = "")$name)

sunrise <- .C("zenithor_daily_time", sun, rise, start + 0.5, zone, longitude, latitude,
              answer = 0)$answer
if (is.nan(sunrise)) stop("no sunrise")
clock <- date_of(sunrise + zone / 24, 60)
print_line("Berlin %02d:%02d sunrise", clock[4], clock[5])
