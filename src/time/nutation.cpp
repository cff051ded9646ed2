#include "time/nutation.h"

#include <cstddef>
#include <iterator>

#include "time/angles.h"
#include "time/constants.h"
#include "time/sincos.h"

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
  double d, m, mprime, f, omega;
  double longitude, longitude_rate;
  double obliquity, obliquity_rate;
};

constexpr NutationTerm kTerms[] = {
#include "time/nutation_terms.inc"
};

constexpr std::size_t CountObliquityTerms() {
  std::size_t count = 0;
  for (const NutationTerm& term : kTerms) {
    count += term.obliquity != 0.0 ? 1 : 0;
  }
  return count;
}

static_assert(std::size(kTerms) == 63, "table 22.A has 63 rows");
static_assert(CountObliquityTerms() == 38, "38 rows have a cosine coefficient");

double FundamentalArgument(const double (&coefficients)[4], double centuries) {
  return ReduceAngle(EvaluatePolynomial(coefficients, 3, centuries) * kRadiansPerDegree);
}

}  // namespace

NutationAngles Nutation(double centuries) {
  const double omega = FundamentalArgument(kMoonNode, centuries);
  const double m = FundamentalArgument(kSunAnomaly, centuries);
  const double mprime = FundamentalArgument(kMoonAnomaly, centuries);
  const double f = FundamentalArgument(kMoonLatitudeArgument, centuries);
  const double d = FundamentalArgument(kMoonElongation, centuries);

  double arguments[std::size(kTerms)];
  double cosine_sine[2 * std::size(kTerms)];
  for (std::size_t k = 0; k < std::size(kTerms); ++k) {
    const NutationTerm& term = kTerms[k];
    arguments[k] = term.d * d + term.m * m + term.mprime * mprime + term.f * f + term.omega * omega;
  }
  CosinesAndSines(arguments, std::size(kTerms), cosine_sine);

  double dpsi = 0.0;
  double deps = 0.0;
  for (std::size_t k = 0; k < std::size(kTerms); ++k) {
    const NutationTerm& term = kTerms[k];
    dpsi += (term.longitude + term.longitude_rate * centuries) * cosine_sine[2 * k + 1];
    if (term.obliquity != 0.0) {
      deps += (term.obliquity + term.obliquity_rate * centuries) * cosine_sine[2 * k];
    }
  }
  return {dpsi * kRadiansPerArcsecond, deps * kRadiansPerArcsecond};
}

}  // namespace zenithor
