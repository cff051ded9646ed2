# Without the data files: one warning, the planets are not available, Pluto and the Moon need no file,
# except the Moon's phase. A library that cannot be loaded is named.
export XDG_DATA_HOME="$PWD"
"$ROOT/out/linux/almanac" today --date 2000-01-01T12:00
"$ROOT/out/linux/almanac" rise --date 2000-01-01 --lat 59 --lon 18
"$ROOT/out/linux/almanac" --library ./absent.so today
