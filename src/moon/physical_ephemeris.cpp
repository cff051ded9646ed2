#include "moon/physical_ephemeris.h"

#include <cmath>

#include "moon/lunar_arguments.h"
#include "moon/physical_libration.h"
#include "numerics/angles.h"
#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "numerics/extended.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

// I, the inclination of the mean lunar equator to the ecliptic [rad], 1.54242 degrees.
constexpr double kEquatorInclination = 0.026920307448610938;

constexpr Extended kAuPerKm = {0x1.cb5c8036be38bp-28, 0x1.538p-82};  // 1 / 149597870

// i, the phase angle, from the elongation and the distances of the Sun and the Moon [au].
double PhaseAngle(double elongation, double sun_distance, double moon_distance) {
  const auto [cosine, sine] = CosineAndSine(elongation);
  const double i = Arctangent(sun_distance * sine / (moon_distance - sun_distance * cosine));
  return i < 0.0 ? i + kPi : i;
}

}  // namespace

MoonPhysicalEphemeris ComputeMoonPhysicalEphemeris(double centuries, const LunarPosition& moon,
                                                   const Spherical& sun, double epsilon0,
                                                   const NutationAngles& nutation) {
  const LunarArguments arguments = ComputeLunarArguments(centuries);
  const auto [cos_inclination, sin_inclination] = CosineAndSine(kEquatorInclination);
  const auto [cos_beta, sin_beta] = CosineAndSine(moon.beta);
  MoonPhysicalEphemeris out;

  // Optical librations.
  const double w = moon.lambda - arguments.Omega;
  const auto [cos_w, sin_w] = CosineAndSine(w);
  const double a = ArctangentOfPoint(
      sin_w * cos_beta * cos_inclination - sin_beta * sin_inclination, cos_w * cos_beta);
  const double b_optical =
      Arcsine(-sin_w * cos_beta * sin_inclination - sin_beta * cos_inclination);
  out.optical_libration_longitude = ReduceAngleSigned(a - arguments.F);
  out.optical_libration_latitude = b_optical;

  // Physical librations.
  const MoonPhysicalLibration physical = ComputeMoonPhysicalLibration(centuries, arguments);
  const auto [cos_a, sin_a] = CosineAndSine(a);
  out.physical_libration_longitude =
      -physical.tau + (physical.rho * cos_a + physical.sigma * sin_a) * Tangent(b_optical);
  out.physical_libration_latitude = physical.sigma * cos_a - physical.rho * sin_a;
  out.libration_longitude = out.optical_libration_longitude + out.physical_libration_longitude;
  out.libration_latitude = out.optical_libration_latitude + out.physical_libration_latitude;

  // The axis.
  const double epsilon = epsilon0 + nutation.deps;
  const double apparent_lambda = moon.lambda + nutation.dpsi;
  const Equatorial place = EclipticToEquatorial(apparent_lambda, moon.beta, epsilon);
  const double v = arguments.Omega + nutation.dpsi + physical.sigma / sin_inclination;
  const double inclination = kEquatorInclination + physical.rho;
  const CosineSine tilt = CosineAndSine(inclination);
  const CosineSine node = CosineAndSine(v);
  const auto [cos_epsilon, sin_epsilon] = CosineAndSine(epsilon);
  const double x = tilt.sine * node.sine;
  const double y = tilt.sine * node.cosine * cos_epsilon - tilt.cosine * sin_epsilon;
  const double omega = ArctangentOfPoint(x, y);
  // Kept on purpose: divided by the cosine of the ecliptic latitude where the book has that of the
  // total libration in latitude; up to 0.075 degree.
  out.axis_position_angle =
      Arcsine(std::sqrt(x * x + y * y) * Cosine(place.alpha - omega) / cos_beta);

  // The illumination.
  // Kept on purpose: the Moon's longitude with nutation against the Sun's without; up to 19" in
  // the phase angle.
  const double elongation = Arccosine(Cosine(apparent_lambda - sun.longitude) * cos_beta);
  const double moon_distance = TimesExtended(moon.distance_km, kAuPerKm);
  out.phase_angle = PhaseAngle(elongation, sun.radius, moon_distance);
  out.illuminated_fraction = (Cosine(out.phase_angle) + 1.0) * 0.5;

  const Equatorial sun_place = EclipticToEquatorial(sun.longitude, sun.latitude, epsilon);
  const auto [cos_east, sin_east] = CosineAndSine(sun_place.alpha - place.alpha);
  const auto [cos_sun_delta, sin_sun_delta] = CosineAndSine(sun_place.delta);
  const auto [cos_delta, sin_delta] = CosineAndSine(place.delta);
  out.bright_limb_position_angle = ReduceAngle(ArctangentOfPoint(
      cos_sun_delta * sin_east, sin_sun_delta * cos_delta - cos_sun_delta * sin_delta * cos_east));
  return out;
}

}  // namespace zenithor
