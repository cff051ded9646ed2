#include "time/nutation.h"

#include <cstddef>
#include <iterator>
#include <utility>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "numerics/row_sums.h"
#include "numerics/sincos.h"

namespace zenithor {

namespace {

// Fundamental arguments [deg] as cubics in T.
constexpr double kMoonNode[] = {125.0445222, -1934.1362608, 0.00207833, 2.22e-06};
constexpr double kSunAnomaly[] = {357.5277233, 35999.05034, -0.0001603, -3.33e-06};
constexpr double kMoonAnomaly[] = {134.9629814, 477198.8673981, 0.0086972, 1.778e-05};
constexpr double kMoonLatitudeArgument[] = {93.2719103, 483202.0175381, -0.0036825, 3.056e-06};
constexpr double kMoonElongation[] = {297.8503631, 445267.11148, -0.0019142, 5.278e-06};

// One row of the theory: multipliers of D, M, M', F and Omega; coefficients [arcsec] and their
// rates [arcsec per Julian century].
struct NutationTerm {
  int d, m, mprime, f, omega;
  double longitude, longitude_rate;
  double obliquity, obliquity_rate;
};

constexpr NutationTerm kNutationTerms[] = {
#include "time/nutation_terms.inc"
};

constexpr std::size_t CountObliquityTerms() {
  std::size_t count = 0;
  for (const NutationTerm& term : kNutationTerms) {
    count += term.obliquity != 0.0 ? 1 : 0;
  }
  return count;
}

static_assert(std::size(kNutationTerms) == 63, "table 22.A has 63 rows");
static_assert(CountObliquityTerms() == 38, "38 rows have a cosine coefficient");

double FundamentalArgument(const double (&coefficients)[4], double centuries) {
  return ReduceAngle(EvaluatePolynomial(coefficients, 3, centuries) * kRadiansPerDegree);
}

// The five arguments of a moment [rad].
struct Arguments {
  double d, m, mprime, f, omega;
};

// The table is read by the compiler alone: each row becomes lines of its own with its multipliers
// and coefficients as constants, and what is multiplied by 0 is left out.
template <const auto& terms, std::size_t row>
double RowArgument(const Arguments& of) {
  constexpr NutationTerm term = terms[row];
  double argument = 0.0;
  AddMultiple<term.d>(of.d, argument);
  AddMultiple<term.m>(of.m, argument);
  AddMultiple<term.mprime>(of.mprime, argument);
  AddMultiple<term.f>(of.f, argument);
  AddMultiple<term.omega>(of.omega, argument);
  return argument;
}

// Adds one row to the sums [arcsec].
template <const auto& terms, std::size_t row>
void AddRow(double centuries, const double* cosine_sine, NutationAngles& sums) {
  constexpr NutationTerm term = terms[row];
  sums.dpsi += (term.longitude + term.longitude_rate * centuries) * cosine_sine[2 * row + 1];
  if constexpr (term.obliquity != 0.0) {
    sums.deps += (term.obliquity + term.obliquity_rate * centuries) * cosine_sine[2 * row];
  }
}

template <const auto& terms, std::size_t... rows>
NutationAngles SumRows(double centuries, const Arguments& of,
                       std::index_sequence<rows...> /*all*/) {
  const double arguments[] = {RowArgument<terms, rows>(of)...};
  double cosine_sine[2 * sizeof...(rows)];
  CosinesAndSines(arguments, sizeof...(rows), cosine_sine);
  NutationAngles sums{0.0, 0.0};
  (AddRow<terms, rows>(centuries, cosine_sine, sums), ...);
  return sums;
}

}  // namespace

NutationAngles Nutation(double centuries) {
  const Arguments arguments{FundamentalArgument(kMoonElongation, centuries),
                            FundamentalArgument(kSunAnomaly, centuries),
                            FundamentalArgument(kMoonAnomaly, centuries),
                            FundamentalArgument(kMoonLatitudeArgument, centuries),
                            FundamentalArgument(kMoonNode, centuries)};
  const NutationAngles sums = SumRows<kNutationTerms>(
      centuries, arguments, std::make_index_sequence<std::size(kNutationTerms)>());
  return {sums.dpsi * kRadiansPerArcsecond, sums.deps * kRadiansPerArcsecond};
}

}  // namespace zenithor
