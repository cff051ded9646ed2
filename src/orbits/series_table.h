#pragma once

#include <array>
#include <cstdint>

namespace zenithor {

// The tables of the PLAN404 series: trigonometric series fitted to the ephemeris DE404 over the
// years -3000 to 3000. Outside them the polynomials in T run away.

constexpr int kArgumentLimit = 18;

// The argument stream: per term the number of pairs, then that many pairs (multiplier, argument
// counted from 1), then the highest power of T; no pairs make a polynomial term; -1 ends it. Each
// coordinate's array is consumed in step with it: a periodic term takes (cosine, sine) pairs from
// the highest power of T down to power 0, a polynomial term single coefficients.
struct PlanetSeriesTable {
  std::uint8_t argument_count;
  std::array<std::int8_t, kArgumentLimit> highest_harmonic;  // per argument, 0 where unused
  std::int8_t highest_power_of_time;
  const std::int8_t* arguments;  // the stream
  const double* longitude;       // [coefficient_scale arcsec], null where the series has none
  const double* latitude;        // the same
  const double* radius;          // the same, of the mean distance as radius of the circle
  double mean_distance;          // [au]
  double time_scale;             // [day], the unit of T
  double coefficient_scale;
};

extern const PlanetSeriesTable kEarthMoonBarycentreSeries;  // heliocentric, ecliptic J2000.0
extern const PlanetSeriesTable kPlutoSeries;                // heliocentric, ecliptic J2000.0
extern const PlanetSeriesTable kMoonLongitudeSeries;  // geocentric, with radius, equinox of date
extern const PlanetSeriesTable kMoonLatitudeSeries;   // geocentric, ecliptic of date

}  // namespace zenithor
