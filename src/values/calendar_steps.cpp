#include "values/calendar_steps.h"

#include <cmath>

#include "positions/calendar_fields.h"
#include "values/record_field.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

// How often a mark of the field comes in a day, and how many units of the field a day has.
std::int32_t MarksPerDay(std::int32_t field) {
  switch (field) {
    case ZENITHOR_FIELD_MINUTE:
      return 24;
    case ZENITHOR_FIELD_SECOND:
      return 1440;
    default:
      return 1;
  }
}

double UnitsPerDay(std::int32_t field) {
  switch (field) {
    case ZENITHOR_FIELD_HOUR:
      return 24.0;
    case ZENITHOR_FIELD_MINUTE:
      return 1440.0;
    case ZENITHOR_FIELD_SECOND:
      return 86400.0;
    default:
      return 1.0;
  }
}

double FieldAt(std::int32_t field, double julian_day) {
  BodyPositionRecord record{};
  WriteCalendarFields(julian_day, record);
  return RecordField(record, field);
}

// Whether the field becomes the target within half a unit of `mark`, and when.
bool StepNear(const CalendarWalk& walk, double mark, Root& step) {
  const double half_unit = 0.5 / UnitsPerDay(walk.field);
  double before = mark - half_unit;
  double after = mark + half_unit;
  const double value_before = FieldAt(walk.field, before);
  if (FieldAt(walk.field, after) != walk.target || value_before == walk.target) {
    return false;
  }
  for (;;) {
    const double middle = before + 0.5 * (after - before);
    if (!(middle > before && middle < after)) {
      break;
    }
    (FieldAt(walk.field, middle) == walk.target ? after : before) = middle;
  }
  step = {after, value_before < walk.target ? 1 : -1};
  return true;
}

}  // namespace

bool IsCalendarField(std::int32_t field) {
  return field >= ZENITHOR_FIELD_YEAR && field <= ZENITHOR_FIELD_SECOND;
}

bool IsClockField(std::int32_t field) {
  return field >= ZENITHOR_FIELD_HOUR && field <= ZENITHOR_FIELD_SECOND;
}

void BeginCalendarSteps(CalendarWalk& walk, std::int32_t field, double target, double from,
                        double to) {
  // A first moment may lie a rounding before its mark.
  walk = {field, target, from, to, std::floor(from - 0.5) - 0.5, 0};
}

bool NextCalendarStep(CalendarWalk& walk, Root& step) {
  // Numbers that no field takes would be looked for in vain, at every mark.
  if (!(walk.from < walk.to) || walk.target != std::floor(walk.target) ||
      std::fabs(walk.target) > 10000.0) {
    return false;
  }
  const std::int32_t marks = MarksPerDay(walk.field);
  const double units = UnitsPerDay(walk.field);
  const bool clock = IsClockField(walk.field);
  if (clock && !(walk.target >= 0.0 && walk.target < units / marks)) {
    return false;
  }
  while (walk.midnight <= walk.to + 1.0) {
    const double unit = walk.mark * (units / marks) + (clock ? walk.target : 0.0);
    const double mark = walk.midnight + unit / units;
    if (++walk.mark == marks) {
      walk.mark = 0;
      walk.midnight += 1.0;
    }
    if (StepNear(walk, mark, step) && step.moment >= walk.from && step.moment < walk.to) {
      return true;
    }
  }
  return false;
}

}  // namespace zenithor
