# Zenithor from Ruby through Fiddle, which comes with it.
#
# Run on Linux: LD_LIBRARY_PATH=../../linux ruby sample.rb
#
# Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
# Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
require "fiddle/import"

START = 2461041.5 # Julian day of 2026 January 1, 0h
LONGITUDE, LATITUDE, ZONE = 13.4, 52.5, 1 # Berlin: [deg] positive east, [deg], [h] ahead of UT
SUN, MARS = 0, 4
RISE = 1
GEO_LONGITUDE = 4
SOLAR_ECLIPSES = 0x03F00 # bits 8 to 13

module Zenithor
  extend Fiddle::Importer
  dlload Gem.win_platform? ? "zenithor.dll" : "libzenithor.so"
  BodyPositionRecord = struct [
    "double HelioLongitude", "double HelioLatitude", "double HelioDistance",
    "double GeoLongitude", "double GeoLatitude", "double GeoDistance",
    "double RightAscension", "double Declination", "double MoonPhaseAngle",
    "double MoonAxisPositionAngle", "double ReservedA[4]", "double MoonIlluminatedFraction",
    "double Obliquity", "double Centuries",
    "int Year", "int Month", "int Day", "int Hour", "int Minute", "int Second"
  ]
  # The main library's names have one leading underscore.
  extern "double _ZENITHOR(double, double, double, double, double, double, int, void*)"
  extern "double _ALL_SE(double, double, double, void*)"
  extern "double _GEO_RISE(double, double, double, double, double, int, int)"
end

module Values # of a 32-bit Ruby on Windows: extern "...", :stdcall
  extend Fiddle::Importer
  dlload Gem.win_platform? ? "zenithor_values.dll" : "libzenithor_values.so"
  extern "int ZenithorValues(int, int, void*, int, void*)"
  extern "int ZenithorCalendar(double, double, void*, void*)"
  extern "double ZenithorNextEventOfKinds(int, double, void*)"
  extern "char* ZenithorKindName(int)"
  extern "double ZenithorDailyTime(int, int, double, double, double, double)"
end

puts "Records"
mars = Zenithor::BodyPositionRecord.malloc(Fiddle::RUBY_FREE)
5.times do |day|
  if Zenithor._ZENITHOR(START + day, 0, 0, 0, 0, 0, MARS, mars) != 323
    abort 'No data files: see "Where the data are" in the host guide.'
  end
  puts format("Mars %d-%02d-%02d %.6f", mars.Year, mars.Month, mars.Day, mars.GeoLongitude)
end

# An EventRecord is 19 blocks of 32 bytes: the Julian day, then year, month, day, hour, minute, second.
events = "\0" * 608
abort "No eclipse." if Zenithor._ALL_SE(START, 0, 0, events) == 0
kinds = { 8 => "total", 9 => "annular", 10 => "annular-total", 11 => "non-central total",
          12 => "non-central annular", 13 => "partial" }
kinds.each do |block, kind|
  julian_day, *date = events[32 * block, 32].unpack("dl6")
  puts format("%d-%02d-%02d %02d:%02d #{kind} solar eclipse", *date[0, 5]) if julian_day != 0
end

# Days are counted from 2437299.5; longitude and zone are positive west here.
sunrise = Zenithor._GEO_RISE(START - 2437299.5, 0, -ZONE, -LONGITUDE, LATITUDE, SUN, RISE)
# 16: up all day, 32: down all day
abort "No sunrise." if sunrise.nan? || sunrise <= 0 || sunrise == 16 || sunrise == 32
puts format("Berlin %02d:%02d sunrise", *sunrise.round.divmod(60))

def date_of(julian_day, round_to = 0)
  date = "\0" * 20
  abort "No calendar date." if Values.ZenithorCalendar(julian_day, round_to, date, nil) != 0
  date.unpack("l5")
end

puts "Values"
days = Array.new(5) { |day| START + day }
places = "\0" * 40
if Values.ZenithorValues(MARS, GEO_LONGITUDE, days.pack("d*"), 5, places) != 5
  abort "Not all values are numbers."
end
days.zip(places.unpack("d*")) do |day, place|
  puts format("Mars %d-%02d-%02d %.6f", *date_of(day)[0, 3], place)
end

kind = "\0" * 4
eclipse = Values.ZenithorNextEventOfKinds(SOLAR_ECLIPSES, START, kind)
abort "No eclipse." if eclipse.nan?
puts format("%d-%02d-%02d %02d:%02d", *date_of(eclipse)) +
     " #{Values.ZenithorKindName(kind.unpack1('l'))}"

sunrise = Values.ZenithorDailyTime(SUN, RISE, START + 0.5, ZONE, LONGITUDE, LATITUDE)
abort "No sunrise." if sunrise.nan?
puts format("Berlin %02d:%02d sunrise", *date_of(sunrise + ZONE / 24.0, 60)[3, 2])
