#include "rising/rising_day.h"

#include "numerics/constants.h"
#include "rising/day_start.h"
#include "time/constants.h"
#include "time/delta_t.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr double kMinutesPerHour = 60.0;
constexpr double kMinutesPerDay = 1440.0;

// Of a turn of the Earth [rad]: to hours, then to minutes. One product of both factors would differ
// in the last bit.
double Minutes(double turn) { return turn * kHoursPerRadian * kMinutesPerHour; }

}  // namespace

RisingDay FindRisingDay(const RisingRequest& request) {
  RisingDay day{};
  day.julian_day = request.day_number + kDayNumberEpoch +
                   (request.zone_hours * kMinutesPerHour + request.minutes) / kMinutesPerDay;
  day.centuries = JulianCenturies(day.julian_day);
  day.delta_t = DeltaT(day.centuries);
  day.start_days = DaysToDayStart(request.day_number, request.minutes) + request.zone_hours / 24.0;
  day.start_centuries = day.start_days / kDaysPerCentury;
  day.longitude = request.longitude * kRadiansPerDegree;
  day.latitude = request.latitude * kRadiansPerDegree;
  return day;
}

double PlaceCenturies(const RisingDay& day, std::size_t place) {
  return day.start_centuries + day.delta_t * kCenturiesPerSecond +
         (static_cast<double>(place) - 1.0) * kOneDayInCenturies;
}

RiseSetProblem PoseRiseSet(const RisingDay& day, const ThreePlaces& places, double h0) {
  return {day.start_days,
          day.start_centuries,
          day.delta_t,
          {places[0].alpha, places[1].alpha, places[2].alpha},
          {places[0].delta, places[1].delta, places[2].delta},
          h0,
          day.longitude,
          day.latitude};
}

RiseSetResult RiseSetMinutes(const RiseSetProblem& problem) {
  const RiseSetTimes times = SolveRiseSet(problem);
  // Kept on purpose: the signal stands in the transit too, though the body does cross the meridian.
  if (times.horizon == Horizon::kAlwaysAbove) {
    return {ZENITHOR_ALWAYS_UP, ZENITHOR_ALWAYS_UP, ZENITHOR_ALWAYS_UP, ZENITHOR_ALWAYS_UP};
  }
  if (times.horizon == Horizon::kAlwaysBelow) {
    return {ZENITHOR_NEVER_UP, ZENITHOR_NEVER_UP, ZENITHOR_NEVER_UP, ZENITHOR_NEVER_UP};
  }
  return {0.0, Minutes(times.rise), Minutes(times.transit), Minutes(times.set)};
}

}  // namespace zenithor
