#include "events/event_block.h"

#include "numerics/integers.h"
#include "time/julian_day.h"

namespace zenithor {

EventTimeBlock EventBlockAt(double julian_day) {
  const CalendarInstant instant = JulianDayToCalendar(julian_day);
  return {julian_day,
          instant.Year,
          instant.Month,
          TruncateToInt32(instant.Day),
          instant.Hour,
          instant.Minute,
          TruncateToInt32(instant.Second)};
}

}  // namespace zenithor
