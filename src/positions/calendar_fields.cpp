#include "positions/calendar_fields.h"

#include "numerics/integers.h"
#include "time/julian_day.h"

namespace zenithor {

void WriteCalendarFields(double julian_day, BodyPositionRecord& record) {
  const CalendarInstant instant = JulianDayToCalendar(julian_day);
  record.Year = instant.Year;
  record.Month = instant.Month;
  record.Day = TruncateToInt32(instant.Day);
  record.Hour = instant.Hour;
  record.Minute = instant.Minute;
  record.Second = TruncateToInt32(instant.Second);
}

}  // namespace zenithor
