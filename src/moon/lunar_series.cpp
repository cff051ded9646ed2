#include "moon/lunar_series.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

#include "moon/lunar_arguments.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "numerics/row_sums.h"
#include "numerics/sincos.h"

namespace zenithor {

namespace {

// The Moon's mean longitude [deg], rising powers of T.
// Kept on purpose: the quartic coefficient is positive where the theory has it negative; 0.07" at
// T = +-5, 18" at +-20.
// Kept on purpose: the theory's first version, like the other arguments; the Moon's place is 0.06"
// from the second version's about J2000.0, 29" five centuries away.
constexpr double kMeanLongitude[] = {218.3164591, 481267.88134236, -0.0013268, 1.855835e-06,
                                     1.53388e-08};
constexpr double kMeanDistanceKm = 385000.56;

// One term: multipliers of D, M, M' and F, the coefficient, and the power of E it is multiplied by.
struct LunarTerm {
  int d, m, mprime, f;
  double coefficient;
  int e_power;
};

constexpr LunarTerm kLongitudeTerms[] = {
// coefficients [deg]
#include "moon/longitude_terms.inc"
};
constexpr LunarTerm kLatitudeTerms[] = {
// coefficients [deg]
#include "moon/latitude_terms.inc"
};
constexpr LunarTerm kDistanceTerms[] = {
// coefficients [km]
#include "moon/distance_terms.inc"
};

template <std::size_t N>
constexpr std::size_t CountWithPower(const LunarTerm (&terms)[N], int e_power) {
  std::size_t count = 0;
  for (const LunarTerm& term : terms) {
    count += term.e_power == e_power ? 1 : 0;
  }
  return count;
}

// Every term carries the power of E that its multiplier of M asks for.
template <std::size_t N>
constexpr bool PowersFollowTheSunsAnomaly(const LunarTerm (&terms)[N]) {
  for (const LunarTerm& term : terms) {
    if (term.m != term.e_power && term.m != -term.e_power) {
      return false;
    }
  }
  return true;
}

template <std::size_t N>
constexpr double SmallestCoefficient(const LunarTerm (&terms)[N]) {
  double smallest = 1e9;
  for (const LunarTerm& term : terms) {
    const double magnitude = term.coefficient < 0.0 ? -term.coefficient : term.coefficient;
    smallest = magnitude < smallest ? magnitude : smallest;
  }
  return smallest;
}

static_assert(std::size(kLongitudeTerms) == 59, "59 rows of table 47.A have a longitude");
static_assert(CountWithPower(kLongitudeTerms, 1) == 22 && CountWithPower(kLongitudeTerms, 2) == 6,
              "of them 22 carry E and 6 carry E squared");
static_assert(SmallestCoefficient(kLongitudeTerms) == 0.000294, "the longitude is cut there");

static_assert(std::size(kLatitudeTerms) == 60, "table 47.B has 60 rows");
static_assert(CountWithPower(kLatitudeTerms, 1) == 24 && CountWithPower(kLatitudeTerms, 2) == 2,
              "of them 24 carry E and 2 carry E squared");
static_assert(SmallestCoefficient(kLatitudeTerms) == 0.000107, "the latitude is cut there");

static_assert(std::size(kDistanceTerms) == 46, "46 rows of table 47.A have a distance");
static_assert(CountWithPower(kDistanceTerms, 1) == 16 && CountWithPower(kDistanceTerms, 2) == 5,
              "of them 16 carry E and 5 carry E squared");
static_assert(SmallestCoefficient(kDistanceTerms) == 1.117, "the distance is cut there");

static_assert(PowersFollowTheSunsAnomaly(kLongitudeTerms) &&
                  PowersFollowTheSunsAnomaly(kLatitudeTerms) &&
                  PowersFollowTheSunsAnomaly(kDistanceTerms),
              "E goes with the first multiple of M, its square with the second");

// The tables are read by the compiler alone: each term becomes a line of its own with its
// multipliers and its coefficient as constants, and what is multiplied by 0 is left out.
template <const auto& terms, std::size_t row>
double Argument(const LunarSeriesState& state) {
  constexpr LunarTerm term = terms[row];
  double argument = 0.0;
  AddMultiple<term.d>(state.D, argument);
  AddMultiple<term.m>(state.M, argument);
  AddMultiple<term.mprime>(state.Mprime, argument);
  AddMultiple<term.f>(state.F, argument);
  return argument;
}

template <const auto& terms, std::size_t row>
double Term(double sine_or_cosine, const LunarSeriesState& state) {
  constexpr LunarTerm term = terms[row];
  if constexpr (term.e_power == 0) {
    return term.coefficient * sine_or_cosine;
  }
  return term.coefficient * sine_or_cosine * (term.e_power == 1 ? state.E : state.E_squared);
}

enum class Function : std::size_t { kCosine = 0, kSine = 1 };

// The sum of the rows of one table, in its order.
template <const auto& terms, std::size_t... rows>
double SumRows(const LunarSeriesState& state, Function function,
               std::index_sequence<rows...> /*all*/) {
  const double arguments[] = {Argument<terms, rows>(state)...};
  double cosine_sine[2 * sizeof...(rows)];
  CosinesAndSines(arguments, static_cast<int>(sizeof...(rows)), cosine_sine);
  const double* const values = cosine_sine + static_cast<std::size_t>(function);
  double sum = 0.0;
  ((sum += Term<terms, rows>(values[2 * rows], state)), ...);
  return sum;
}

template <const auto& terms>
double SumTerms(const LunarSeriesState& state, Function function) {
  return SumRows<terms>(state, function, std::make_index_sequence<std::size(terms)>());
}

}  // namespace

double SumLunarLongitudeTerms(const LunarSeriesState& state) {
  return SumTerms<kLongitudeTerms>(state, Function::kSine);
}

double SumLunarLatitudeTerms(const LunarSeriesState& state) {
  return SumTerms<kLatitudeTerms>(state, Function::kSine);
}

double SumLunarDistanceTerms(const LunarSeriesState& state) {
  return SumTerms<kDistanceTerms>(state, Function::kCosine);
}

double LiftAboveZero(double angle) {
  while (angle < 0.0) {
    const double next = angle + kTwoPi;
    if (next == angle) {
      return angle;  // a turn is lost in rounding, now and for ever
    }
    // Between two powers of two every turn adds the same rounded amount, so all but the last of
    // them can be added at once; their sum is exact.
    double skipped = 0.0;
    if (next < 0.0 && std::ilogb(next) == std::ilogb(angle)) {
      const double step = (next + kTwoPi) - next;
      const double room = -next - std::ldexp(1.0, std::ilogb(next));
      skipped = std::fmax(0.0, std::floor(room / step) - 1.0) * step;
    }
    angle = next + skipped;
  }
  return angle;
}

LunarPosition ComputeLunarPosition(double centuries) {
  const double lprime =
      ReduceAngle(EvaluatePolynomial(kMeanLongitude, 4, centuries) * kRadiansPerDegree);
  const LunarArguments arguments = ComputeLunarArguments(centuries);
  // Additive arguments: Venus, Jupiter, and the flattening of the Earth.
  const double a1 = (131.849 * centuries + 119.75) * kRadiansPerDegree;
  const double a2 = (479264.29 * centuries + 53.09) * kRadiansPerDegree;
  const double a3 = (481266.484 * centuries + 313.45) * kRadiansPerDegree;

  const LunarSeriesState state{arguments.D, arguments.M, arguments.Mprime,
                               arguments.F, arguments.E, arguments.E * arguments.E};
  double longitude = SumLunarLongitudeTerms(state);
  double latitude = SumLunarLatitudeTerms(state);
  const double distance = SumLunarDistanceTerms(state);

  longitude +=
      0.003958 * std::sin(a1) + 0.001962 * std::sin(lprime - state.F) + 0.000318 * std::sin(a2);
  // The published pair 0.000175 sin(A1 - F) + 0.000175 sin(A1 + F) as one product.
  latitude += -0.002235 * std::sin(lprime) + 0.000382 * std::sin(a3) +
              0.00035 * std::sin(a1) * std::cos(state.F) +
              0.000127 * std::sin(lprime - state.Mprime) -
              0.000115 * std::sin(lprime + state.Mprime);

  // Kept on purpose: lifted from below only; a longitude above a full turn stays there, by up to
  // 7.7 degrees.
  return {LiftAboveZero(lprime + longitude * kRadiansPerDegree), latitude * kRadiansPerDegree,
          kMeanDistanceKm + distance};
}

}  // namespace zenithor
