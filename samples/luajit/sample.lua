-- Zenithor from LuaJIT through its FFI.
--
-- Run on Linux: LD_LIBRARY_PATH=../../linux luajit sample.lua
-- Run on Windows: set PATH=..\..\win64;%PATH% & luajit sample.lua
--
-- Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
-- Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
local ffi = require("ffi")

ffi.cdef [[
typedef struct {
  double HelioLongitude, HelioLatitude, HelioDistance, GeoLongitude, GeoLatitude, GeoDistance,
      RightAscension, Declination, MoonPhaseAngle, MoonAxisPositionAngle, ReservedA[4],
      MoonIlluminatedFraction, Obliquity, Centuries;
  int32_t Year, Month, Day, Hour, Minute, Second;
} BodyPositionRecord;
typedef struct {
  double JulianDay;
  int32_t Year, Month, Day, Hour, Minute, Second;
} EventTimeBlock;
typedef struct { EventTimeBlock Blocks[19]; } EventRecord;
double _ZENITHOR(double, double, double, double, double, double, int32_t, BodyPositionRecord*);
double _ALL_SE(double, double, double, EventRecord*);
double _GEO_RISE(double, double, double, double, double, int32_t, int32_t);

/* stdcall in a 32-bit Windows process; nothing special elsewhere */
int32_t __stdcall ZenithorValues(int32_t, int32_t, const double*, int32_t, double*);
int32_t __stdcall ZenithorCalendar(double, double, int32_t*, double*);
double __stdcall ZenithorNextEventOfKinds(int32_t, double, int32_t*);
const char* __stdcall ZenithorKindName(int32_t);
double __stdcall ZenithorDailyTime(int32_t, int32_t, double, double, double, double);
]]
local zenithor = ffi.load("zenithor")
local values = ffi.load("zenithor_values")

local START = 2461041.5 -- Julian day of 2026 January 1, 0h
local LONGITUDE, LATITUDE, ZONE = 13.4, 52.5, 1 -- Berlin: [deg] positive east, [deg], [h] ahead of UT
local SUN, MARS = 0, 4
local RISE = 1

local function stop(message)
  io.stderr:write(message, "\n")
  os.exit(1)
end

local function printf(...)
  print(string.format(...))
end

print("Records")
local mars = ffi.new("BodyPositionRecord")
for day = 0, 4 do
  if zenithor._ZENITHOR(START + day, 0, 0, 0, 0, 0, MARS, mars) ~= 323 then
    stop('No data files: see "Where the data are" in the host guide.')
  end
  printf("Mars %d-%02d-%02d %.6f", mars.Year, mars.Month, mars.Day, mars.GeoLongitude)
end

local events = ffi.new("EventRecord")
if zenithor._ALL_SE(START, 0, 0, events) == 0 then
  stop("No eclipse.")
end
local kinds = {[8] = "total", [9] = "annular", [10] = "annular-total", [11] = "non-central total",
  [12] = "non-central annular", [13] = "partial"}
for block = 8, 13 do
  if events.Blocks[block].JulianDay ~= 0 then
    local eclipse = events.Blocks[block]
    printf("%d-%02d-%02d %02d:%02d %s solar eclipse", eclipse.Year, eclipse.Month, eclipse.Day,
      eclipse.Hour, eclipse.Minute, kinds[block])
  end
end

-- Days are counted from 2437299.5; longitude and zone are positive west here.
local sunrise = zenithor._GEO_RISE(START - 2437299.5, 0, -ZONE, -LONGITUDE, LATITUDE, SUN, RISE)
if not (sunrise > 0) or sunrise == 16 or sunrise == 32 then -- 16: up all day, 32: down all day
  stop("No sunrise.")
end
local minutes = math.floor(sunrise + 0.5)
printf("Berlin %02d:%02d sunrise", math.floor(minutes / 60), minutes % 60)

local GEO_LONGITUDE = 4
local SOLAR_ECLIPSES = 0x03F00 -- bits 8 to 13

local function date_of(julian_day, round_to)
  local date = ffi.new("int32_t[5]")
  if values.ZenithorCalendar(julian_day, round_to, date, nil) ~= 0 then
    stop(julian_day .. " has no calendar date.")
  end
  return date[0], date[1], date[2], date[3], date[4]
end

print("Values")
local days, places = ffi.new("double[5]"), ffi.new("double[5]")
for k = 0, 4 do
  days[k] = START + k
end
if values.ZenithorValues(MARS, GEO_LONGITUDE, days, 5, places) ~= 5 then
  stop("Not all values are numbers.")
end
for k = 0, 4 do
  local year, month, day = date_of(days[k], 0)
  printf("Mars %d-%02d-%02d %.6f", year, month, day, places[k])
end

local kind = ffi.new("int32_t[1]")
local eclipse = values.ZenithorNextEventOfKinds(SOLAR_ECLIPSES, START, kind)
if eclipse ~= eclipse then -- not a number
  stop("No eclipse.")
end
local year, month, day, hour, minute = date_of(eclipse, 0)
printf("%d-%02d-%02d %02d:%02d %s", year, month, day, hour, minute,
  ffi.string(values.ZenithorKindName(kind[0])))

sunrise = values.ZenithorDailyTime(SUN, RISE, START + 0.5, ZONE, LONGITUDE, LATITUDE)
if sunrise ~= sunrise then
  stop("No sunrise.")
end
_, _, _, hour, minute = date_of(sunrise + ZONE / 24, 60)
printf("Berlin %02d:%02d sunrise", hour, minute)
