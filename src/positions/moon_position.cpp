#include "positions/moon_position.h"

#include "ephemeris/series.h"
#include "moon/lunar_series.h"
#include "moon/physical_ephemeris.h"
#include "numerics/constants.h"
#include "positions/stored_angles.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

Equatorial ComputeMoonPosition(const EphemerisStore& store, double julian_day,
                               double /*observer_longitude*/, double /*observer_latitude*/,
                               MomentCache& cache, BodyPositionRecord& record) {
  const double t = JulianCenturies(julian_day);
  const double epsilon0 = MeanObliquity(t);
  const NutationAngles nutation = CachedNutation(t, cache);
  const Spherical sun = CachedSunGeocentric(store, kEarthSlot, t, cache);
  const LunarPosition moon = ComputeLunarPosition(t);

  // Kept on purpose: nutation in longitude is all that lies between the series and the record,
  // geocentric for every observer; parallax would move the Moon by up to 61'.
  const double apparent_lambda = moon.lambda + nutation.dpsi;
  StoreMoonLongitude(apparent_lambda * kDegreesPerRadian, record.GeoLongitude);
  record.GeoLatitude = moon.beta * kDegreesPerRadian;
  // Kept on purpose: kilometres here, and below the phase angle and the axis in radians, beside
  // degrees, hours and the other bodies' astronomical units.
  record.GeoDistance = moon.distance_km;

  const Equatorial place =
      EclipticToEquatorial(apparent_lambda, moon.beta, epsilon0 + nutation.deps);
  record.RightAscension = place.alpha * kHoursPerRadian;
  record.Declination = place.delta * kDegreesPerRadian;

  const MoonPhysicalEphemeris physical =
      ComputeMoonPhysicalEphemeris(t, moon, sun, epsilon0, nutation);
  record.MoonAxisPositionAngle = physical.axis_position_angle;
  if (IsLoaded(store, kEarthSlot)) {
    record.MoonPhaseAngle = physical.phase_angle;
    record.MoonIlluminatedFraction = physical.illuminated_fraction;
  }
  return place;
}

}  // namespace zenithor
