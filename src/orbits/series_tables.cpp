#include <cstddef>
#include <iterator>

#include "numerics/multiples.h"
#include "orbits/series_table.h"

namespace zenithor {

namespace {

// Whether reading the stream to its end meets `terms` terms, the polynomial first, and takes every
// code and every one of `coefficients`, with the arguments, harmonics and powers that the header
// allows.
constexpr bool ReadsToItsEnd(const std::int8_t* stream, std::size_t size, int argument_count,
                             const std::array<std::int8_t, kArgumentLimit>& highest_harmonic,
                             int highest_power, std::size_t terms, std::size_t coordinates,
                             std::size_t coefficients) {
  std::size_t codes = 0;
  while (codes < size && stream[codes] >= 0) {
    if ((codes == 0) != (stream[codes] == 0)) {
      return false;
    }
    const int pairs = stream[codes++];
    const std::size_t end = codes + 2 * static_cast<std::size_t>(pairs);
    if (end >= size || terms-- == 0) {
      return false;
    }
    for (; codes < end; codes += 2) {
      const int harmonic = stream[codes] < 0 ? -stream[codes] : stream[codes];
      const int argument = stream[codes + 1];
      if (argument < 1 || argument > argument_count ||
          harmonic > highest_harmonic[static_cast<std::size_t>(argument - 1)]) {
        return false;
      }
    }
    const int power = stream[codes++];
    const std::size_t taken =
        coordinates * static_cast<std::size_t>(power + 1) * (pairs == 0 ? 1 : 2);
    if (power < 0 || power > highest_power || taken > coefficients) {
      return false;
    }
    coefficients -= taken;
  }
  return codes + 1 == size && terms == 0 && coefficients == 0;
}

constexpr bool FitsTheRows(const std::array<std::int8_t, kArgumentLimit>& highest_harmonic) {
  for (const std::int8_t harmonic : highest_harmonic) {
    if (harmonic < 0 || harmonic > kMultipleLimit) {
      return false;
    }
  }
  return true;
}

// Whether every product is of angles that stand before it, the first of which is number `next`.
template <std::size_t kCount>
constexpr bool FollowTheirFactors(const AngleProduct (&products)[kCount], std::size_t next) {
  for (const AngleProduct& product : products) {
    for (const std::int16_t factor : {product.first, product.second}) {
      if (factor < 0 || static_cast<std::size_t>(factor) >= next) {
        return false;
      }
    }
    ++next;
  }
  return true;
}

template <std::size_t kCount>
constexpr bool AreBelow(const std::int16_t (&numbers)[kCount], std::size_t limit) {
  for (const std::int16_t number : numbers) {
    if (number < 0 || static_cast<std::size_t>(number) >= limit) {
      return false;
    }
  }
  return true;
}

template <std::size_t kCount>
constexpr bool AreBelow(const TermAngle (&terms)[kCount], std::size_t limit) {
  for (const TermAngle& term : terms) {
    if (term.angle < 0 || static_cast<std::size_t>(term.angle) >= limit || term.power < 0) {
      return false;
    }
  }
  return true;
}

template <class Entry, std::size_t kCount>
constexpr ListOf<Entry> List(const Entry (&entries)[kCount]) {
  return {entries, kCount};
}

// What holds for the tables of the namespace that it stands in, and their record.
#define ZENITHOR_SERIES_TABLE                                                                      \
  constexpr std::size_t kMultiplesEnd = 1 + std::size(kMovingArguments) + std::size(kMultiples);   \
  constexpr std::size_t kOppositesEnd = kMultiplesEnd + std::size(kOpposites);                     \
  constexpr std::size_t kAnglesEnd = kOppositesEnd + std::size(kProducts);                         \
  static_assert(FitsTheRows(kHighestHarmonic) && std::size(kCoordinates) <= kCoordinateLimit);     \
  static_assert(ReadsToItsEnd(kArguments, std::size(kArguments), kArgumentCount, kHighestHarmonic, \
                              kHighestPowerOfTime, kTermCount, std::size(kCoordinates),            \
                              std::size(kCoefficients)));                                          \
  static_assert(kAnglesEnd <= kAngleLimit && std::size(kTermAngles) + 1 == kTermCount);            \
  static_assert(FollowTheirFactors(kMultiples, 1 + std::size(kMovingArguments)));                  \
  static_assert(AreBelow(kOpposites, kMultiplesEnd));                                              \
  static_assert(FollowTheirFactors(kProducts, kOppositesEnd));                                     \
  static_assert(AreBelow(kTermAngles, kAnglesEnd));                                                \
  constexpr PlanetSeriesTable kTable = {kArgumentCount,                                            \
                                        kHighestHarmonic,                                          \
                                        kHighestPowerOfTime,                                       \
                                        List(kCoordinates),                                        \
                                        kArguments,                                                \
                                        kCoefficients,                                             \
                                        {List(kMovingArguments), List(kMultiples),                 \
                                         List(kOpposites), List(kProducts), List(kTermAngles)},    \
                                        kMeanDistance,                                             \
                                        kTimeScaleDays,                                            \
                                        kCoefficientScale}

namespace barycentre {
#include "orbits/barycentre_terms.inc"
static_assert(kTermCount == 233);
ZENITHOR_SERIES_TABLE;
}  // namespace barycentre

namespace pluto {
#include "orbits/pluto_series_terms.inc"
static_assert(kTermCount == 173);
ZENITHOR_SERIES_TABLE;
}  // namespace pluto

namespace moon_longitude {
#include "orbits/moon_longitude_terms.inc"
static_assert(kTermCount == 632);
ZENITHOR_SERIES_TABLE;
}  // namespace moon_longitude

namespace moon_latitude {
#include "orbits/moon_latitude_terms.inc"
static_assert(kTermCount == 361);
ZENITHOR_SERIES_TABLE;
}  // namespace moon_latitude

#undef ZENITHOR_SERIES_TABLE

}  // namespace

const PlanetSeriesTable kEarthMoonBarycentreSeries = barycentre::kTable;
const PlanetSeriesTable kPlutoSeries = pluto::kTable;
const PlanetSeriesTable kMoonLongitudeSeries = moon_longitude::kTable;
const PlanetSeriesTable kMoonLatitudeSeries = moon_latitude::kTable;

}  // namespace zenithor
