#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"

namespace zenithor {

// Rise, transit and set on a civil day, with everyday signs.

struct DailyRequest {
  int body;           // 0 to 10, not the Earth
  double julian_day;  // [day] universal time; any moment of the day
  double zone_hours;  // [h] what the day's clock is ahead of universal time
  double longitude;   // [deg] east positive
  double latitude;    // [deg] north positive, -90 to 90
};

constexpr int kDailyEvents = 3;  // rise, transit, set

struct DailyEvents {
  double julian_days[kDailyEvents];     // [day] universal time; NaN where there is none
  std::int32_t statuses[kDailyEvents];  // ZENITHOR_DAILY_...
};

// 0, or the error code of a request that has no answer: a body that does not rise, an angle or zone
// that is not finite or a latitude beyond a pole, a day without a calendar date.
std::int32_t DailyError(const DailyRequest& request);

// What happens on the day of a request without error. The places of the rising export are taken (of
// Pluto those of its own machinery), and where the export iterates from an estimate, the altitude
// is followed over the whole day: between two culminations it rises or falls, and crosses the
// horizon once or not at all. So no event is shifted from another day, none is lost, and none
// belongs to two days. What is missed is an appearance between two culminations that shifts of
// declination alone make, at the poles. Times are good to 2 minutes up to latitude 60.
DailyEvents EventsOfDay(const EphemerisStore& store, PositionState& state,
                        const DailyRequest& request);

}  // namespace zenithor
