#include "values/field_values.h"

#include <cmath>
#include <limits>

#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "values/fields.h"
#include "values/kept_places.h"
#include "values/record_field.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// The angle between two directions [deg], good where it is small too.
double AngleBetween(const Equatorial& a, const Equatorial& b) {
  const Rectangular u = SphericalToRectangular({a.alpha, a.delta, 1.0});
  const Rectangular v = SphericalToRectangular({b.alpha, b.delta, 1.0});
  const double x = u.y * v.z - u.z * v.y;
  const double y = u.z * v.x - u.x * v.z;
  const double z = u.x * v.y - u.y * v.x;
  const double across = std::sqrt(x * x + y * y + z * z);
  return ArctangentOfPoint(across, u.x * v.x + u.y * v.y + u.z * v.z) * kDegreesPerRadian;
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
      return place.has_place ? RecordField(place.record, field) : kNone;
    }
  }
}

}  // namespace

void PrepareField(const EphemerisStore& store, PositionState& state, int body, int field,
                  const double* julian_days) {
  // Motions are made of four places of their own.
  const bool of_one_moment = field != ZENITHOR_FIELD_LONGITUDE_MOTION &&
                             field != ZENITHOR_FIELD_DECLINATION_MOTION &&
                             field != ZENITHOR_FIELD_DIRECTION;
  if (!of_one_moment || !HasField(body, field)) {
    return;
  }
  if (field == ZENITHOR_FIELD_ELONGATION) {
    PreparePlaces(store, state, ZENITHOR_BODY_SUN, julian_days);
  }
  PreparePlaces(store, state, body, julian_days);
}

void FieldValues(const EphemerisStore& store, PositionState& state, int body, int field,
                 const double* julian_days, std::int32_t count, double* values) {
  const bool has_field = HasField(body, field);
  for (std::int32_t k = 0; k < count; ++k) {
    if (k % kMomentsAtOnce == 0 && count - k >= kMomentsAtOnce) {
      PrepareField(store, state, body, field, julian_days + k);
    }
    const double julian_day = julian_days[k];
    values[k] = has_field && std::isfinite(julian_day)
                    ? FieldValue(store, state, body, field, julian_day)
                    : kNone;
  }
}

}  // namespace zenithor
