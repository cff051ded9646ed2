#include "positions/pluto_position.h"

#include "numerics/arctangent.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "orbits/constants.h"
#include "orbits/earth_velocity.h"
#include "orbits/ecliptic_place.h"
#include "orbits/light.h"
#include "orbits/precession.h"
#include "orbits/propagate_body.h"
#include "orbits/topocentric.h"
#include "orbits/vectors.h"
#include "orbits/whole_nutation.h"

namespace zenithor {

namespace {

constexpr double kB1950 = 2433282.423;

void SetUp(double julian_day, double observer_longitude, double observer_latitude,
           OrbitsState& state) {
  state.observer.longitude = observer_longitude;
  state.observer.geocentric_latitude = observer_latitude;
  // Kept on purpose: the latitude handed in is overwritten by that of the fixed geodetic latitude,
  // 0; the topocentric place is that of the equator, and no field feels it.
  DeriveObserver(state.observer);
  state.light_speed = 86400.0 * kLightSpeedKmPerSecond / kAstronomicalUnitKm;
  state.current_day = julian_day;
  state.dynamical_day = julian_day;
  state.universal_day = julian_day;
  state.body = ZENITHOR_PLUTO;
  const HeliocentricPlace earth = PropagateBody(julian_day, state.earth, state);
  state.earth_vector = earth.equatorial;
  state.earth_place = earth.ecliptic;
  const HeliocentricPlace pluto = PropagateBody(julian_day, state.pluto, state);
  state.pluto_vector = pluto.equatorial;
  state.pluto_place = pluto.ecliptic;
}

// Keeps the change of right ascension and declination from p by dp; delivers nothing.
void DisplayCorrection(const char* label, const Rectangular& p, const Rectangular& dp,
                       CorrectionDisplay& display) {
  const DirectionChange change = ChangeOfDirection(p, p + dp);
  display.label = label;
  display.dalpha = change.alpha;
  display.ddelta = change.delta;
}

// From the mean to the true equator and equinox.
Rectangular Nutate(const Rectangular& p, const NutationAngles& nutation,
                   const ObliquityCache& mean) {
  const double true_epsilon = mean.epsilon + nutation.deps;
  const auto [cp, sp] = CosineAndSine(nutation.dpsi);
  const double ce = mean.cos_epsilon;
  const double se = mean.sin_epsilon;
  const auto [cet, set] = CosineAndSine(true_epsilon);
  const double sde = Sine(nutation.deps);
  return {cp * p.x - sp * ce * p.y - sp * se * p.z,
          sp * cet * p.x + (cp * ce * cet + se * set) * p.y - ((1.0 - cp) * se * cet + sde) * p.z,
          sp * set * p.x + ((cp - 1.0) * set * ce + sde) * p.y + (cp * se * set + ce * cet) * p.z};
}

}  // namespace

Equatorial ComputePlutoPosition(double julian_day, double observer_longitude,
                                double observer_latitude, OrbitsState& state,
                                BodyPositionRecord& record) {
  SetUp(julian_day, observer_longitude, observer_latitude, state);

  // Kept on purpose: the heliocentric longitude carries no nutation, where the planets' does; up to
  // 19".
  const Spherical heliocentric =
      EclipticPlaceFromJ2000(julian_day, state.pluto_vector, state.obliquity);
  record.HelioLongitude = heliocentric.longitude * kDegreesPerRadian;
  record.HelioLatitude = heliocentric.latitude * kDegreesPerRadian;
  record.HelioDistance = heliocentric.radius;

  ApplyLightTime(state);
  const Rectangular& e = state.earth_vector;
  const Rectangular& q = state.pluto_vector;
  Rectangular p = q - e;
  state.geometry = MeasureTriangle(p, e, q);
  p = p / state.geometry.earth_object;
  state.direction_b1950 = p;
  PrecessVector(kB1950, PrecessionDirection::kFromJ2000, state.obliquity, state.direction_b1950);

  Rectangular next = DeflectLight(p, e, q, state.geometry);
  state.correction = next - p;
  p = next;

  UpdateEarthVelocity(julian_day, state);
  next = AberrateLight(p, state.earth_velocity.velocity / state.light_speed);
  state.correction = next - p;
  p = next;

  PrecessVector(julian_day, PrecessionDirection::kFromJ2000, state.obliquity, p);
  CachedObliquity(julian_day, state.obliquity);
  CachedWholeNutation(state.dynamical_day, state.nutation);
  next = Nutate(p, state.nutation.angles, state.obliquity);
  state.correction = next - p;
  DisplayCorrection("nutation", p, state.correction, state.display);
  p = next;

  const double alpha = FullCircleArctan(p.x, p.y);
  const double delta = Declination(p);
  record.RightAscension = alpha * kHoursPerRadian;
  record.Declination = delta * kDegreesPerRadian;
  state.topocentric = ComputeTopocentric(alpha, delta, state.geometry.earth_object,
                                         state.universal_day, state.observer);

  // Kept on purpose: the vector is that of the true equator, the rotation that of the mean
  // obliquity; against the true ecliptic of date the longitude is up to 3.0" off, the latitude up
  // to 9.9".
  // Kept on purpose: the distance is that of the place which the light left, up to 1.7e-4 au from
  // the geometric one.
  p = state.geometry.earth_object * p;
  const Spherical geocentric = EclipticPlaceOfDate(julian_day, p, state.obliquity);
  record.GeoLongitude = geocentric.longitude * kDegreesPerRadian;
  record.GeoLatitude = geocentric.latitude * kDegreesPerRadian;
  record.GeoDistance = geocentric.radius;
  return {alpha, delta};
}

}  // namespace zenithor
