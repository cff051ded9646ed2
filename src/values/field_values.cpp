#include "values/field_values.h"

#include <cmath>
#include <limits>

#include "ephemeris/moment_cache.h"
#include "numerics/constants.h"
#include "time/julian_day.h"
#include "time/obliquity.h"
#include "values/fields.h"
#include "values/record_field.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

BodyPositionRecord EmptyRecord() {
  return {kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          kNone,
          {kNone, kNone, kNone, kNone},
          kNone,
          kNone,
          kNone,
          0,
          0,
          0,
          0,
          0,
          0};
}

// Makes `place` that of a moment. Where there are no data it is without fields.
void ComputePlaceAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                    KeptPlace& place) {
  place.record = EmptyRecord();
  place.apparent = {kNone, kNone};
  const double done =
      ComputePlace(store, state, julian_day, 0.0, 0.0, body, place.record, place.apparent);
  place.julian_day = done == ZENITHOR_DONE ? julian_day : KeptPlace::kNever;
}

// Where the place of a body is kept; `spare` for callers who keep nothing.
KeptPlace& MemoryOf(PositionState& state, int body, KeptPlace& spare) {
  return state.places == nullptr ? spare : state.places->bodies[body];
}

KeptPlace& PlaceAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                   KeptPlace& spare) {
  KeptPlace& kept = MemoryOf(state, body, spare);
  if (kept.julian_day != julian_day) {
    ComputePlaceAt(store, state, body, julian_day, kept);
  }
  return kept;
}

// From the true equator to the true ecliptic of date.
// Source: Meeus, Astronomical Algorithms, formulae 13.1 and 13.2.
void TurnToEcliptic(double julian_day, MomentCache& cache, KeptPlace& place) {
  const double centuries = JulianCenturies(julian_day);
  const double epsilon = MeanObliquity(centuries) + CachedNutation(centuries, cache).deps;
  const double sin_epsilon = std::sin(epsilon);
  const double cos_epsilon = std::cos(epsilon);
  const double sin_alpha = std::sin(place.apparent.alpha);
  const double sin_delta = std::sin(place.apparent.delta);
  const double cos_delta = std::cos(place.apparent.delta);
  const double y = sin_alpha * cos_delta * cos_epsilon + sin_delta * sin_epsilon;
  const double x = std::cos(place.apparent.alpha) * cos_delta;
  const double z = sin_delta * cos_epsilon - cos_delta * sin_epsilon * sin_alpha;
  double longitude = std::atan2(y, x) * kDegreesPerRadian;
  if (longitude < 0.0) {
    longitude += 360.0;
  }
  // A longitude just below 0 rounds up to the whole turn.
  place.apparent_longitude = longitude >= 360.0 ? 0.0 : longitude;
  place.apparent_latitude = std::atan2(z, std::hypot(x, y)) * kDegreesPerRadian;
  place.ecliptic_day = place.julian_day;
}

// PlaceAt with the apparent longitude and latitude.
const KeptPlace& EclipticPlaceAt(const EphemerisStore& store, PositionState& state, int body,
                                 double julian_day, KeptPlace& spare) {
  KeptPlace& place = PlaceAt(store, state, body, julian_day, spare);
  if (place.ecliptic_day != julian_day) {
    TurnToEcliptic(julian_day, state.moment, place);
  }
  return place;
}

// The rate of change from values a step and two steps to either side [units per step].
// Source: M. Abramowitz, I. A. Stegun, Handbook of Mathematical Functions, table 25.2, five points.
double RatePerStep(double step_change, double two_step_change) {
  return (8.0 * step_change - two_step_change) / 12.0;
}

constexpr double kMotionStep = 0.0625;  // [day]

const KeptPlace& MotionAt(const EphemerisStore& store, PositionState& state, int body,
                          double julian_day, KeptPlace& spare) {
  KeptPlace& kept = MemoryOf(state, body, spare);
  if (kept.motion_day == julian_day) {
    return kept;
  }
  KeptPlace places[4];  // two steps before, one before, one after, two after
  constexpr double kSteps[] = {-2.0, -1.0, 1.0, 2.0};
  for (int k = 0; k < 4; ++k) {
    const double moment = julian_day + kSteps[k] * kMotionStep;
    ComputePlaceAt(store, state, body, moment, places[k]);
    TurnToEcliptic(moment, state.moment, places[k]);
  }
  const auto longitude_change = [&](int from, int to) {
    return std::remainder(places[to].apparent_longitude - places[from].apparent_longitude, 360.0);
  };
  const auto declination_change = [&](int from, int to) {
    return places[to].record.Declination - places[from].record.Declination;
  };
  kept.longitude_motion = RatePerStep(longitude_change(1, 2), longitude_change(0, 3)) / kMotionStep;
  kept.declination_motion =
      RatePerStep(declination_change(1, 2), declination_change(0, 3)) / kMotionStep;
  kept.motion_day = julian_day;
  return kept;
}

// The angle between two directions [deg], good where it is small too.
double AngleBetween(const Equatorial& a, const Equatorial& b) {
  const Rectangular u = SphericalToRectangular({a.alpha, a.delta, 1.0});
  const Rectangular v = SphericalToRectangular({b.alpha, b.delta, 1.0});
  const double x = u.y * v.z - u.z * v.y;
  const double y = u.z * v.x - u.x * v.z;
  const double z = u.x * v.y - u.y * v.x;
  const double across = std::sqrt(x * x + y * y + z * z);
  return std::atan2(across, u.x * v.x + u.y * v.y + u.z * v.z) * kDegreesPerRadian;
}

double ElongationAt(const EphemerisStore& store, PositionState& state, int body,
                    double julian_day) {
  KeptPlace spare_sun;
  const Equatorial sun = PlaceAt(store, state, ZENITHOR_BODY_SUN, julian_day, spare_sun).apparent;
  if (body == ZENITHOR_BODY_SUN) {
    return std::isnan(sun.alpha) ? kNone : 0.0;
  }
  KeptPlace spare;
  return AngleBetween(PlaceAt(store, state, body, julian_day, spare).apparent, sun);
}

double DirectionOf(double motion) {
  if (std::isnan(motion)) {
    return kNone;
  }
  return motion < 0.0 ? -1.0 : 1.0;
}

// Of a field that the body has, at a finite moment.
double FieldValue(const EphemerisStore& store, PositionState& state, int body, int field,
                  double julian_day) {
  KeptPlace spare;
  switch (field) {
    case ZENITHOR_FIELD_APPARENT_LONGITUDE:
      return EclipticPlaceAt(store, state, body, julian_day, spare).apparent_longitude;
    case ZENITHOR_FIELD_APPARENT_LATITUDE:
      return EclipticPlaceAt(store, state, body, julian_day, spare).apparent_latitude;
    case ZENITHOR_FIELD_LONGITUDE_MOTION:
      return MotionAt(store, state, body, julian_day, spare).longitude_motion;
    case ZENITHOR_FIELD_DECLINATION_MOTION:
      return MotionAt(store, state, body, julian_day, spare).declination_motion;
    case ZENITHOR_FIELD_ELONGATION:
      return ElongationAt(store, state, body, julian_day);
    case ZENITHOR_FIELD_DIRECTION:
      return DirectionOf(MotionAt(store, state, body, julian_day, spare).longitude_motion);
    default: {
      const KeptPlace& place = PlaceAt(store, state, body, julian_day, spare);
      return place.julian_day == julian_day ? RecordField(place.record, field) : kNone;
    }
  }
}

}  // namespace

void FieldValues(const EphemerisStore& store, PositionState& state, int body, int field,
                 const double* julian_days, std::int32_t count, double* values) {
  const bool has_field = HasField(body, field);
  for (std::int32_t k = 0; k < count; ++k) {
    const double julian_day = julian_days[k];
    values[k] = has_field && std::isfinite(julian_day)
                    ? FieldValue(store, state, body, field, julian_day)
                    : kNone;
  }
}

}  // namespace zenithor
