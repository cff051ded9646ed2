#include "values/smooth_values.h"

#include <cmath>
#include <limits>

#include "moon/lunar_series.h"
#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "positions/planet_position.h"
#include "time/julian_day.h"
#include "time/obliquity.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// On the true ecliptic of date [deg]. Source: Meeus, Astronomical Algorithms, formulas 13.1, 13.2.
void TurnIntoEcliptic(double centuries, const NutationAngles& nutation, SmoothPlace& place) {
  const double alpha = place.values[ZENITHOR_FIELD_RIGHT_ASCENSION] / kHoursPerRadian;
  const double delta = place.values[ZENITHOR_FIELD_DECLINATION] * kRadiansPerDegree;
  const double epsilon = MeanObliquity(centuries) + nutation.deps;
  const auto [ce, se] = CosineAndSine(epsilon);
  const auto [cd, sd] = CosineAndSine(delta);
  const auto [ca, sa] = CosineAndSine(alpha);
  place.longitude = ArctangentOfPoint(sa * cd * ce + sd * se, cd * ca) * kDegreesPerRadian;
  place.latitude = Arcsine(sd * ce - cd * se * sa) * kDegreesPerRadian;
}

void TakePlanet(const PlanetPlace& from, double centuries, SmoothPart part, SmoothPlace& place) {
  double* const v = place.values;
  v[ZENITHOR_FIELD_HELIO_LONGITUDE] = from.heliocentric.longitude * kDegreesPerRadian;
  v[ZENITHOR_FIELD_HELIO_LATITUDE] = from.heliocentric.latitude * kDegreesPerRadian;
  v[ZENITHOR_FIELD_HELIO_DISTANCE] = from.heliocentric.radius;
  v[ZENITHOR_FIELD_GEO_LONGITUDE] = from.geometric.longitude * kDegreesPerRadian;
  v[ZENITHOR_FIELD_GEO_LATITUDE] = from.geometric.latitude * kDegreesPerRadian;
  v[ZENITHOR_FIELD_GEO_DISTANCE] = from.geometric.radius;
  v[ZENITHOR_FIELD_RIGHT_ASCENSION] = from.apparent.alpha * kHoursPerRadian;
  v[ZENITHOR_FIELD_DECLINATION] = from.apparent.delta * kDegreesPerRadian;
  v[ZENITHOR_FIELD_OBLIQUITY] = from.epsilon0;
  v[ZENITHOR_FIELD_CENTURIES] = centuries;
  if (part >= SmoothPart::kApparent) {
    TurnIntoEcliptic(centuries, from.nutation, place);
  }
}

void TakeRecord(const BodyPositionRecord& record, SmoothPlace& place) {
  double* const v = place.values;
  v[ZENITHOR_FIELD_HELIO_LONGITUDE] = record.HelioLongitude;
  v[ZENITHOR_FIELD_HELIO_LATITUDE] = record.HelioLatitude;
  v[ZENITHOR_FIELD_HELIO_DISTANCE] = record.HelioDistance;
  v[ZENITHOR_FIELD_GEO_LONGITUDE] = record.GeoLongitude;
  v[ZENITHOR_FIELD_GEO_LATITUDE] = record.GeoLatitude;
  v[ZENITHOR_FIELD_GEO_DISTANCE] = record.GeoDistance;
  v[ZENITHOR_FIELD_RIGHT_ASCENSION] = record.RightAscension;
  v[ZENITHOR_FIELD_DECLINATION] = record.Declination;
  const double half_phase = Sine(0.5 * record.MoonPhaseAngle);
  v[ZENITHOR_FIELD_MOON_PHASE_ANGLE] = half_phase * half_phase;
  v[ZENITHOR_FIELD_MOON_AXIS_ANGLE] = record.MoonAxisPositionAngle;
  v[ZENITHOR_FIELD_MOON_ILLUMINATION] = record.MoonIlluminatedFraction;
}

// Half the squared distance of two directions on the unit sphere, halved again: exact for small
// angles too.
double HalfAngleSine(const SmoothPlace& a, const SmoothPlace& b) {
  const double half_width = Sine(0.5 * (a.longitude - b.longitude) * kRadiansPerDegree);
  const double half_height = Sine(0.5 * (a.latitude - b.latitude) * kRadiansPerDegree);
  return half_height * half_height + Cosine(a.latitude * kRadiansPerDegree) *
                                         Cosine(b.latitude * kRadiansPerDegree) * half_width *
                                         half_width;
}

// The Moon without its illumination: a third of the cost.
void ComputeMoonDirection(PositionState& state, double centuries, SmoothPlace& place) {
  const NutationAngles nutation = CachedNutation(centuries, state.moment);
  const LunarPosition moon = ComputeLunarPosition(centuries);
  const double lambda = moon.lambda + nutation.dpsi;
  const Equatorial equatorial =
      EclipticToEquatorial(lambda, moon.beta, MeanObliquity(centuries) + nutation.deps);
  double* const v = place.values;
  v[ZENITHOR_FIELD_GEO_LONGITUDE] = lambda * kDegreesPerRadian;
  v[ZENITHOR_FIELD_GEO_LATITUDE] = moon.beta * kDegreesPerRadian;
  v[ZENITHOR_FIELD_GEO_DISTANCE] = moon.distance_km;
  v[ZENITHOR_FIELD_RIGHT_ASCENSION] = equatorial.alpha * kHoursPerRadian;
  v[ZENITHOR_FIELD_DECLINATION] = equatorial.delta * kDegreesPerRadian;
  TurnIntoEcliptic(centuries, nutation, place);
}

SmoothPart PartOf(int body, int field) {
  if (body == ZENITHOR_BODY_MOON &&
      (field == ZENITHOR_FIELD_MOON_PHASE_ANGLE || field == ZENITHOR_FIELD_MOON_AXIS_ANGLE ||
       field == ZENITHOR_FIELD_MOON_ILLUMINATION)) {
    return SmoothPart::kWhole;
  }
  if (field == ZENITHOR_FIELD_ELONGATION) {
    return SmoothPart::kElongation;
  }
  if (field >= ZENITHOR_FIELD_APPARENT_LONGITUDE || field == ZENITHOR_FIELD_RIGHT_ASCENSION ||
      field == ZENITHOR_FIELD_DECLINATION) {
    return SmoothPart::kApparent;
  }
  return field >= ZENITHOR_FIELD_GEO_LONGITUDE && field <= ZENITHOR_FIELD_GEO_DISTANCE
             ? SmoothPart::kGeometric
             : SmoothPart::kHeliocentric;
}

double ValueAtMoment(const EphemerisStore& store, PositionState& state, int body, int field,
                     double julian_day) {
  SmoothPlace place{};
  ComputeSmoothPlace(store, state, body, julian_day, PartOf(body, field), place);
  return FieldOfPlace(place, field);
}

// The rate by the definition of fields 103 and 104.
double MotionAtMoment(const EphemerisStore& store, PositionState& state, int body, int of_field,
                      double julian_day) {
  const auto change = [&](double reach) {
    const double before = ValueAtMoment(store, state, body, of_field, julian_day - reach);
    const double after = ValueAtMoment(store, state, body, of_field, julian_day + reach);
    return std::remainder(after - before, 360.0);
  };
  return (8.0 * change(0.0625) - change(0.125)) * 16.0 / 12.0;
}

}  // namespace

double FieldOfPlace(const SmoothPlace& place, int field) {
  switch (field) {
    case ZENITHOR_FIELD_APPARENT_LONGITUDE:
      return place.longitude;
    case ZENITHOR_FIELD_APPARENT_LATITUDE:
      return place.latitude;
    case ZENITHOR_FIELD_ELONGATION:
      return place.half_angle_sine;
    default:
      return field >= 1 && field <= ZENITHOR_FIELD_CENTURIES ? place.values[field] : kNaN;
  }
}

void ComputeSmoothPlace(const EphemerisStore& store, PositionState& state, int body,
                        double julian_day, SmoothPart part, SmoothPlace& place) {
  const double t = JulianCenturies(julian_day);
  if (body == ZENITHOR_BODY_PLUTO || (body == ZENITHOR_BODY_MOON && part == SmoothPart::kWhole)) {
    BodyPositionRecord record{};
    ComputePosition(store, state, julian_day, 0.0, 0.0, static_cast<BodyCode>(body), &record);
    TakeRecord(record, place);
    TurnIntoEcliptic(t, CachedNutation(t, state.moment), place);
  } else if (body == ZENITHOR_BODY_MOON) {
    ComputeMoonDirection(state, t, place);
  } else {
    const PlaceDepth depth = part == SmoothPart::kHeliocentric ? PlaceDepth::kHeliocentric
                             : part == SmoothPart::kGeometric  ? PlaceDepth::kGeometric
                                                               : PlaceDepth::kApparent;
    TakePlanet(ComputePlanetPlace(store, t, static_cast<BodyCode>(body), depth, state.moment), t,
               part, place);
  }
  if (part >= SmoothPart::kElongation && body != ZENITHOR_BODY_SUN) {
    SmoothPlace sun{};
    ComputeSmoothPlace(store, state, ZENITHOR_BODY_SUN, julian_day, SmoothPart::kApparent, sun);
    place.half_angle_sine = HalfAngleSine(place, sun);
  }
}

void SmoothValues(const EphemerisStore& store, PositionState& state, int body, int field,
                  const double* julian_days, std::int32_t count, double* values) {
  for (std::int32_t i = 0; i < count; ++i) {
    const double day = julian_days[i];
    if (field == ZENITHOR_FIELD_LONGITUDE_MOTION) {
      values[i] = MotionAtMoment(store, state, body, ZENITHOR_FIELD_APPARENT_LONGITUDE, day);
    } else if (field == ZENITHOR_FIELD_DECLINATION_MOTION) {
      values[i] = MotionAtMoment(store, state, body, ZENITHOR_FIELD_DECLINATION, day);
    } else {
      values[i] = ValueAtMoment(store, state, body, field, day);
    }
  }
}

}  // namespace zenithor
