#include "entry/position_export.h"

#include "entry/planet_driver.h"
#include "entry/process_store.h"
#include "entry/thread_state.h"
#include "moon/moon_driver.h"
#include "orbits/pluto_pipeline.h"
#include "time/angles.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr double kNoAnswer = 0.0;

void WriteCalendarFields(double julian_day, BodyPositionRecord& record) {
  const CalendarInstant instant = JulianDayToCalendar(julian_day);
  record.Year = instant.Year;
  record.Month = instant.Month;
  record.Day = TruncateToInt32(instant.Day);
  record.Hour = instant.Hour;
  record.Minute = instant.Minute;
  record.Second = TruncateToInt32(instant.Second);
}

// Whether the slots that a planet's place is made of are loaded: the body's own, and the Earth's
// to look from.
bool CanComputePlanet(const EphemerisStore& store, BodyCode code) {
  const bool own_slot = code == ZENITHOR_SUN || IsLoaded(store, code);
  return own_slot && IsLoaded(store, kEarthSlot);
}

}  // namespace

double AnswerPositionFrom(const EphemerisStore& store, ThreadState& state, double julian_day,
                          double observer_longitude, double observer_latitude, BodyCode code,
                          BodyPositionRecord* record) {
  if (record == nullptr) {
    return kNoAnswer;
  }
  if (code == ZENITHOR_MOON) {
    WriteCalendarFields(julian_day, *record);
    ComputeMoonPosition(store, julian_day, observer_longitude, observer_latitude, state.moment,
                        *record);
    return ZENITHOR_DONE;
  }
  if (code == ZENITHOR_PLUTO) {
    WriteCalendarFields(julian_day, *record);
    ComputePlutoPosition(julian_day, observer_longitude, observer_latitude, state.orbits, *record);
    return ZENITHOR_DONE;
  }
  const BodyCode planet = code < ZENITHOR_SUN || code > ZENITHOR_NEPTUNE ? ZENITHOR_MERCURY : code;
  if (!CanComputePlanet(store, planet)) {
    return kNoAnswer;
  }
  WriteCalendarFields(julian_day, *record);
  ComputePlanetPosition(store, julian_day, observer_longitude, observer_latitude, planet,
                        state.moment, *record);
  return ZENITHOR_DONE;
}

double AnswerPosition(double julian_day, double observer_longitude, double observer_latitude,
                      BodyCode code, BodyPositionRecord* record) {
  CallState state;
  return AnswerPositionFrom(ProcessStore(), state.Get(), julian_day, observer_longitude,
                            observer_latitude, code, record);
}

}  // namespace zenithor
