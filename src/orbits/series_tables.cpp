#include <cstddef>
#include <iterator>

#include "numerics/multiples.h"
#include "orbits/series_table.h"

namespace zenithor {

namespace {

// Whether reading the stream to its end meets `terms` terms and takes every code and every one of
// `coefficients` per coordinate, with the arguments, harmonics and powers that the header allows.
constexpr bool ReadsToItsEnd(const std::int8_t* stream, std::size_t size, int argument_count,
                             const std::array<std::int8_t, kArgumentLimit>& highest_harmonic,
                             int highest_power, std::size_t terms, std::size_t coefficients) {
  std::size_t codes = 0;
  while (codes < size && stream[codes] >= 0) {
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
    const std::size_t taken = static_cast<std::size_t>(power + 1) * (pairs == 0 ? 1 : 2);
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

namespace barycentre {
#include "orbits/barycentre_terms.inc"
static_assert(kTermCount == 233 && FitsTheRows(kHighestHarmonic));
static_assert(ReadsToItsEnd(kArguments, std::size(kArguments), kArgumentCount, kHighestHarmonic,
                            kHighestPowerOfTime, kTermCount, std::size(kLongitude)));
static_assert(std::size(kLatitude) == std::size(kLongitude));
static_assert(std::size(kRadius) == std::size(kLongitude));
}  // namespace barycentre

namespace pluto {
#include "orbits/pluto_series_terms.inc"
static_assert(kTermCount == 173 && FitsTheRows(kHighestHarmonic));
static_assert(ReadsToItsEnd(kArguments, std::size(kArguments), kArgumentCount, kHighestHarmonic,
                            kHighestPowerOfTime, kTermCount, std::size(kLongitude)));
static_assert(std::size(kLatitude) == std::size(kLongitude));
static_assert(std::size(kRadius) == std::size(kLongitude));
}  // namespace pluto

namespace moon_longitude {
#include "orbits/moon_longitude_terms.inc"
static_assert(kTermCount == 632 && FitsTheRows(kHighestHarmonic));
static_assert(ReadsToItsEnd(kArguments, std::size(kArguments), kArgumentCount, kHighestHarmonic,
                            kHighestPowerOfTime, kTermCount, std::size(kLongitude)));
static_assert(std::size(kRadius) == std::size(kLongitude));
}  // namespace moon_longitude

namespace moon_latitude {
#include "orbits/moon_latitude_terms.inc"
static_assert(kTermCount == 361 && FitsTheRows(kHighestHarmonic));
static_assert(ReadsToItsEnd(kArguments, std::size(kArguments), kArgumentCount, kHighestHarmonic,
                            kHighestPowerOfTime, kTermCount, std::size(kLatitude)));
}  // namespace moon_latitude

}  // namespace

const PlanetSeriesTable kEarthMoonBarycentreSeries = {
    barycentre::kArgumentCount,   barycentre::kHighestHarmonic, barycentre::kHighestPowerOfTime,
    barycentre::kArguments,       barycentre::kLongitude,       barycentre::kLatitude,
    barycentre::kRadius,          barycentre::kMeanDistance,    barycentre::kTimeScaleDays,
    barycentre::kCoefficientScale};

const PlanetSeriesTable kPlutoSeries = {
    pluto::kArgumentCount,   pluto::kHighestHarmonic, pluto::kHighestPowerOfTime,
    pluto::kArguments,       pluto::kLongitude,       pluto::kLatitude,
    pluto::kRadius,          pluto::kMeanDistance,    pluto::kTimeScaleDays,
    pluto::kCoefficientScale};

const PlanetSeriesTable kMoonLongitudeSeries = {moon_longitude::kArgumentCount,
                                                moon_longitude::kHighestHarmonic,
                                                moon_longitude::kHighestPowerOfTime,
                                                moon_longitude::kArguments,
                                                moon_longitude::kLongitude,
                                                nullptr,
                                                moon_longitude::kRadius,
                                                moon_longitude::kMeanDistance,
                                                moon_longitude::kTimeScaleDays,
                                                moon_longitude::kCoefficientScale};

const PlanetSeriesTable kMoonLatitudeSeries = {moon_latitude::kArgumentCount,
                                               moon_latitude::kHighestHarmonic,
                                               moon_latitude::kHighestPowerOfTime,
                                               moon_latitude::kArguments,
                                               nullptr,
                                               moon_latitude::kLatitude,
                                               nullptr,
                                               moon_latitude::kMeanDistance,
                                               moon_latitude::kTimeScaleDays,
                                               moon_latitude::kCoefficientScale};

}  // namespace zenithor
