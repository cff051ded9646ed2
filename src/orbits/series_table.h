#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zenithor {

// The tables of the PLAN404 series: trigonometric series fitted to the ephemeris DE404 over the
// years -3000 to 3000. Outside them the polynomials in T run away.

constexpr int kArgumentLimit = 18;
constexpr std::size_t kCoordinateLimit = 3;

enum class Coordinate : std::uint8_t { kLongitude, kLatitude, kRadius };

// Two angles by their numbers, to be added.
struct AngleProduct {
  std::int16_t first, second;
};

// A term's angle by its number, and its highest power of T.
struct TermAngle {
  std::int16_t angle;
  std::int8_t power;
};

template <class Entry>
struct ListOf {
  const Entry* entries;
  std::size_t count;

  const Entry* begin() const { return entries; }
  const Entry* end() const { return entries + count; }
};

// The angles of a series when only some arguments are not 0, each made once and numbered in this
// order: the angle 0, the arguments, multiples (products of earlier angles), angles turned about,
// products of earlier angles (tools/tables/plan404_angles.py).
struct SeriesAngles {
  ListOf<std::int8_t> arguments;  // counted from 1
  ListOf<AngleProduct> multiples;
  ListOf<std::int16_t> opposites;
  ListOf<AngleProduct> products;
  ListOf<TermAngle> terms;  // of the periodic terms
};

constexpr std::size_t kAngleLimit = 560;

// The argument stream: per term the number of pairs, then that many pairs (multiplier, argument
// counted from 1), then the highest power of T; no pairs make the polynomial, which comes first; -1
// ends it. The coefficients are consumed in step with it, from the highest power of T down to power
// 0, for each power those of all coordinates: a periodic term takes (cosine, sine) pairs, the
// polynomial single ones.
struct PlanetSeriesTable {
  std::uint8_t argument_count;
  std::array<std::int8_t, kArgumentLimit> highest_harmonic;  // per argument, 0 where unused
  std::int8_t highest_power_of_time;
  ListOf<Coordinate> coordinates;  // 1 to 3
  const std::int8_t* arguments;    // the stream
  const double* coefficients;  // [coefficient_scale arcsec], of the mean distance for the radius
  SeriesAngles angles;
  double mean_distance;  // [au]
  double time_scale;     // [day], the unit of T
  double coefficient_scale;
};

// The first and the last two are evaluated with the list of arguments (mean_elements.h), in which
// the planets but the Earth stay at 0: their angles are made of the other arguments alone.
extern const PlanetSeriesTable kEarthMoonBarycentreSeries;  // heliocentric, ecliptic J2000.0
extern const PlanetSeriesTable kPlutoSeries;                // heliocentric, ecliptic J2000.0
extern const PlanetSeriesTable kMoonLongitudeSeries;  // geocentric, with radius, equinox of date
extern const PlanetSeriesTable kMoonLatitudeSeries;   // geocentric, ecliptic of date

}  // namespace zenithor
