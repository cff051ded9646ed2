#pragma once

#include "orbits/earth_sums.h"
#include "orbits/element_record.h"
#include "time/nutation.h"
#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

// Everything that the orbit machinery keeps from call to call: one record per thread, handed to
// every routine that reads or writes it. Constant-initialized.

// The observer of the topocentric step.
struct PlutoObserver {
  double geodetic_latitude = 0.0;    // [deg] stays 0, which puts every observer on the equator
  double longitude = 0.0;            // [deg] east positive, any number
  double geocentric_latitude = 0.0;  // [deg]
  double geocentric_radius = 0.0;    // [equatorial radii]
};

// Kept for one Julian day.
// Kept on purpose: here and in NutationCache day -1.0 counts as cached from the start, so a thread
// that asks for -1.0 before any other day has neither aberration nor nutation: 39" of longitude.
struct EarthVelocityCache {
  double julian_day = -1.0;
  Rectangular velocity{0.0, 0.0, 0.0};  // [au/day] equatorial J2000.0
  unsigned computations = 0;            // how often it was made anew, modulo 2^32
};

struct NutationCache {
  double julian_day = -1.0;
  NutationAngles angles{0.0, 0.0};
};

// Earth, Sun and object as a triangle: the object's geocentric vector p, the Earth's heliocentric
// e, the object's heliocentric q.
struct Geometry {
  double earth_object = 0.0;  // EO [au]
  double sun_earth = 0.0;     // SE [au]
  double sun_object = 0.0;    // SO [au]
  double pq = 0.0;            // cosines of the angles between the vectors
  double ep = 0.0;
  double qe = 0.0;
};

// The change of right ascension and declination that a step of the reduction made.
struct CorrectionDisplay {
  const char* label = "";
  double dalpha = 0.0;  // [rad]
  double ddelta = 0.0;  // [rad]
};

struct TopocentricPlace {
  double alpha = 0.0;  // [rad]
  double delta = 0.0;  // [rad]
};

struct OrbitsState {
  OrbitalElementRecord earth = kEarthElements;
  OrbitalElementRecord pluto = kPlutoElements;
  SeriesScratch scratch;
  ObliquityCache obliquity;
  EarthVelocityCache earth_velocity;
  NutationCache nutation;

  double current_day = 0.0;    // [day] Julian day of the call
  double dynamical_day = 0.0;  // the current day unchanged
  double universal_day = 0.0;  // the current day unchanged
  int body = 0;
  PlutoObserver observer;
  double light_speed = 0.0;                 // [au/day]
  Rectangular earth_vector{0.0, 0.0, 0.0};  // e, equatorial J2000.0 [au]
  Spherical earth_place{0.0, 0.0, 0.0};     // ecliptic J2000.0
  Rectangular pluto_vector{0.0, 0.0, 0.0};  // q
  Spherical pluto_place{0.0, 0.0, 0.0};
  Geometry geometry;
  Rectangular correction{0.0, 0.0, 0.0};  // dp of the latest step
  CorrectionDisplay display;
  double alpha_rate = 0.0;  // [rad/day] over the light time
  double delta_rate = 0.0;
  Rectangular direction_b1950{0.0, 0.0, 0.0};  // unit vector
  TopocentricPlace topocentric;
};

}  // namespace zenithor
