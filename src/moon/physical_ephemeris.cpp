#include "moon/physical_ephemeris.h"

#include <cmath>

#include "moon/lunar_arguments.h"
#include "moon/physical_libration.h"
#include "numerics/angles.h"
#include "numerics/constants.h"

namespace zenithor {

namespace {

// I, the inclination of the mean lunar equator to the ecliptic [rad], 1.54242 degrees.
constexpr double kEquatorInclination = 0.026920307448610938;

constexpr long double kAuPerKm = 6.684587153547039138993e-9L;  // 1 / 149597870

// i, the phase angle, from the elongation and the distances of the Sun and the Moon [au].
double PhaseAngle(double elongation, double sun_distance, double moon_distance) {
  const double i = std::atan(sun_distance * std::sin(elongation) /
                             (moon_distance - sun_distance * std::cos(elongation)));
  return i < 0.0 ? i + kPi : i;
}

}  // namespace

MoonPhysicalEphemeris ComputeMoonPhysicalEphemeris(double centuries, const LunarPosition& moon,
                                                   const Spherical& sun, double epsilon0,
                                                   const NutationAngles& nutation) {
  const LunarArguments arguments = ComputeLunarArguments(centuries);
  const double sin_inclination = std::sin(kEquatorInclination);
  const double cos_inclination = std::cos(kEquatorInclination);
  const double sin_beta = std::sin(moon.beta);
  const double cos_beta = std::cos(moon.beta);
  MoonPhysicalEphemeris out;

  // Optical librations.
  const double w = moon.lambda - arguments.Omega;
  const double sin_w = std::sin(w);
  const double cos_w = std::cos(w);
  const double a =
      std::atan2(sin_w * cos_beta * cos_inclination - sin_beta * sin_inclination, cos_w * cos_beta);
  const double b_optical =
      std::asin(-sin_w * cos_beta * sin_inclination - sin_beta * cos_inclination);
  out.optical_libration_longitude = ReduceAngleSigned(a - arguments.F);
  out.optical_libration_latitude = b_optical;

  // Physical librations.
  const MoonPhysicalLibration physical = ComputeMoonPhysicalLibration(centuries, arguments);
  const double sin_a = std::sin(a);
  const double cos_a = std::cos(a);
  out.physical_libration_longitude =
      -physical.tau + (physical.rho * cos_a + physical.sigma * sin_a) * std::tan(b_optical);
  out.physical_libration_latitude = physical.sigma * cos_a - physical.rho * sin_a;
  out.libration_longitude = out.optical_libration_longitude + out.physical_libration_longitude;
  out.libration_latitude = out.optical_libration_latitude + out.physical_libration_latitude;

  // The axis.
  const double epsilon = epsilon0 + nutation.deps;
  const double apparent_lambda = moon.lambda + nutation.dpsi;
  const Equatorial place = EclipticToEquatorial(apparent_lambda, moon.beta, epsilon);
  const double v = arguments.Omega + nutation.dpsi + physical.sigma / sin_inclination;
  const double inclination = kEquatorInclination + physical.rho;
  const double x = std::sin(inclination) * std::sin(v);
  const double y = std::sin(inclination) * std::cos(v) * std::cos(epsilon) -
                   std::cos(inclination) * std::sin(epsilon);
  const double omega = std::atan2(x, y);
  // Kept on purpose: divided by the cosine of the ecliptic latitude where the book has that of the
  // total libration in latitude; up to 0.075 degree.
  out.axis_position_angle =
      std::asin(std::sqrt(x * x + y * y) * std::cos(place.alpha - omega) / cos_beta);

  // The illumination.
  // Kept on purpose: the Moon's longitude with nutation against the Sun's without; up to 19" in
  // the phase angle.
  const double elongation = std::acos(std::cos(apparent_lambda - sun.longitude) * cos_beta);
  const auto moon_distance = static_cast<double>(moon.distance_km * kAuPerKm);
  out.phase_angle = PhaseAngle(elongation, sun.radius, moon_distance);
  out.illuminated_fraction = (std::cos(out.phase_angle) + 1.0) * 0.5;

  const Equatorial sun_place = EclipticToEquatorial(sun.longitude, sun.latitude, epsilon);
  const double east = sun_place.alpha - place.alpha;
  out.bright_limb_position_angle = ReduceAngle(
      std::atan2(std::cos(sun_place.delta) * std::sin(east),
                 std::sin(sun_place.delta) * std::cos(place.delta) -
                     std::cos(sun_place.delta) * std::sin(place.delta) * std::cos(east)));
  return out;
}

}  // namespace zenithor
