#pragma once

#include "orbits/series_table.h"

namespace zenithor {

// A body's orbital elements, or the series that replaces them. Angles in degrees unless said
// otherwise.
struct OrbitalElementRecord {
  char name[16];  // padded with blanks to 15 characters
  double epoch;   // [day] of the elements, or of perihelion for e >= 1; the series way
                  // leaves the day of the latest evaluation here
  double inclination;
  double node;
  double argument_of_perihelion;
  double semi_major_axis;  // [au]; the perihelion distance q for e >= 1
  double daily_motion;     // [deg/day]; 0: derived from the semi-major axis
  double eccentricity;
  double mean_anomaly;  // at the epoch
  double equinox;       // [day] equinox of the elements; the series way leaves J2000.0 here
  double absolute_magnitude;
  double semidiameter;              // [arcsec] at 1 au
  const PlanetSeriesTable* series;  // null: the conic way
  double mean_longitude;  // [deg], see OrbitAngles; the series way leaves its longitude [rad]
  double radius;          // [au] the series way leaves its radius here
  double unused;          // zero, read by nothing
};

constexpr OrbitalElementRecord kEarthElements{"Earth          ",
                                              2446800.5,
                                              0.0,
                                              0.0,
                                              102.884,
                                              0.999999,
                                              0.985611,
                                              0.016713,
                                              1.1791,
                                              2446800.5,
                                              -3.86,
                                              0.0,
                                              &kEarthMoonBarycentreSeries,
                                              0.0,
                                              0.0,
                                              0.0};
constexpr OrbitalElementRecord kPlutoElements{
    "Pluto          ", 2446640.5, 17.1346, 110.204, 114.21,        39.4633, 0.0039757, 0.248662,
    355.0554,          2446640.5, -1.0,    2.07,    &kPlutoSeries, 0.0,     0.0,       0.0};

}  // namespace zenithor
