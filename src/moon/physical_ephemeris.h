#pragma once

#include "moon/lunar_series.h"
#include "time/nutation.h"
#include "time/transforms.h"

namespace zenithor {

// How the Moon's globe is turned toward the Earth and lit by the Sun, seen from the Earth's centre.
// Angles in radians.
struct MoonPhysicalEphemeris {
  double libration_longitude;           // total: optical and physical
  double libration_latitude;            // total
  double optical_libration_longitude;   // [-pi, pi)
  double optical_libration_latitude;    //
  double physical_libration_longitude;  //
  double physical_libration_latitude;   //
  double axis_position_angle;           // [-pi/2, pi/2], from north toward east
  double phase_angle;                   // [0, pi]
  double illuminated_fraction;          // 0 to 1, no unit
  double bright_limb_position_angle;    // [0, 2 pi)
};

// The physical ephemeris at T Julian centuries from J2000.0.
//   moon      the Moon, mean equinox of date, as ComputeLunarPosition gives it
//   sun       the Sun, geometric, geocentric, mean equinox of date; distance in au
//   epsilon0  mean obliquity [rad]; nutation of that moment
// The librations and the axis do not depend on the Sun. Nothing is clamped: real lunar geometry
// keeps every arcsine within its range.
// Meets the book's examples within 0.001 degree (librations), 0.0006 rad (axis) and 0.1 degree
// (bright limb); what differs on purpose: docs/deliberate.md.
// Source: Meeus, Astronomical Algorithms, chapters 48 and 53.
MoonPhysicalEphemeris ComputeMoonPhysicalEphemeris(double centuries, const LunarPosition& moon,
                                                   const Spherical& sun, double epsilon0,
                                                   const NutationAngles& nutation);

}  // namespace zenithor
