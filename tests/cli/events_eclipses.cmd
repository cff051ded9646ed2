$ALMANAC events --year 1994 --kind solar-eclipses,lunar-eclipses
