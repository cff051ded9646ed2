#include "positions/position.h"

#include "positions/calendar_fields.h"
#include "positions/moon_position.h"
#include "positions/planet_position.h"
#include "positions/pluto_position.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr double kNoAnswer = 0.0;

// Whether the slots that a planet's place is made of are loaded: the body's own, and the Earth's
// to look from.
bool CanComputePlanet(const EphemerisStore& store, BodyCode code) {
  const bool own_slot = code == ZENITHOR_SUN || IsLoaded(store, code);
  return own_slot && IsLoaded(store, kEarthSlot);
}

// Has the Earth's places of these moments kept, for a body that is computed moment by moment.
void KeepEarth(const EphemerisStore& store, const double* julian_days, int count,
               MomentCache& cache) {
  double centuries[kMomentsAtOnce] = {};
  Spherical earth[kMomentsAtOnce];
  for (int k = 0; k < count; ++k) {
    centuries[k] = JulianCenturies(julian_days[k]);
  }
  CachedSeriesAt(store, kEarthSlot, centuries, count, cache, earth);
}

// The code as which a body is answered.
BodyCode ServedAs(BodyCode code) {
  return code < ZENITHOR_SUN || code > ZENITHOR_MOON ? ZENITHOR_MERCURY : code;
}

}  // namespace

double ComputePlace(const EphemerisStore& store, PositionState& state, double julian_day,
                    double observer_longitude, double observer_latitude, BodyCode code,
                    BodyPositionRecord& record, Equatorial& apparent) {
  if (code == ZENITHOR_MOON) {
    WriteCalendarFields(julian_day, record);
    apparent = ComputeMoonPosition(store, julian_day, observer_longitude, observer_latitude,
                                   state.moment, record);
    return ZENITHOR_DONE;
  }
  if (code == ZENITHOR_PLUTO) {
    WriteCalendarFields(julian_day, record);
    apparent = ComputePlutoPosition(julian_day, observer_longitude, observer_latitude, state.orbits,
                                    record);
    return ZENITHOR_DONE;
  }
  const BodyCode planet = ServedAs(code);
  if (!CanComputePlanet(store, planet)) {
    return kNoAnswer;
  }
  WriteCalendarFields(julian_day, record);
  apparent = ComputePlanetPosition(store, julian_day, observer_longitude, observer_latitude, planet,
                                   state.moment, record);
  return ZENITHOR_DONE;
}

double ComputePlaces(const EphemerisStore& store, PositionState& state, const double* julian_days,
                     int count, BodyCode code, BodyPositionRecord* records, Equatorial* apparent) {
  if (code < ZENITHOR_SUN || code > ZENITHOR_NEPTUNE) {
    if (code == ZENITHOR_MOON) {
      KeepEarth(store, julian_days, count, state.moment);
    }
    double done = kNoAnswer;
    for (int k = 0; k < count; ++k) {
      done = ComputePlace(store, state, julian_days[k], 0.0, 0.0, code, records[k], apparent[k]);
    }
    return done;
  }
  if (!CanComputePlanet(store, code)) {
    return kNoAnswer;
  }
  for (int k = 0; k < count; ++k) {
    WriteCalendarFields(julian_days[k], records[k]);
  }
  ComputePlanetPositions(store, julian_days, count, code, state.moment, records, apparent);
  return ZENITHOR_DONE;
}

double ComputePosition(const EphemerisStore& store, PositionState& state, double julian_day,
                       double observer_longitude, double observer_latitude, BodyCode code,
                       BodyPositionRecord* record) {
  if (record == nullptr) {
    return kNoAnswer;
  }
  Equatorial apparent{0.0, 0.0};
  const auto compute = [&](BodyPositionRecord& into) {
    return ComputePlace(store, state, julian_day, observer_longitude, observer_latitude, code, into,
                        apparent);
  };
  const BodyCode body = ServedAs(code);
  if (state.answers.capacity == 0 || !CanBeKept(julian_day, body)) {
    return compute(*record);
  }
  if (Recall(state.answers, julian_day, body, *record)) {
    return ZENITHOR_DONE;
  }
  BodyPositionRecord fresh = UnwrittenRecord();
  const double done = compute(fresh);
  if (done != ZENITHOR_DONE || !IsComplete(body, fresh)) {
    return compute(*record);  // it leaves some field of the caller's
  }
  CopyAnswer(body, fresh, *record);
  Keep(julian_day, body, fresh, state.answers);
  return done;
}

}  // namespace zenithor
