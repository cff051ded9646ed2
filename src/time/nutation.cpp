#include "time/nutation.h"

#include <cstddef>
#include <iterator>

#include "numerics/constants.h"
#include "numerics/trigonometric_series.h"
#include "time/mean_angle.h"

namespace zenithor {

namespace {

// Fundamental arguments, cubics in T [deg], rising powers.
constexpr double kMoonNode[] = {125.0445222, -1934.1362608, 0.00207833, 2.22e-06};
constexpr double kSunAnomaly[] = {357.5277233, 35999.05034, -0.0001603, -3.33e-06};
constexpr double kMoonAnomaly[] = {134.9629814, 477198.8673981, 0.0086972, 1.778e-05};
constexpr double kMoonLatitudeArgument[] = {93.2719103, 483202.0175381, -0.0036825, 3.056e-06};
constexpr double kMoonElongation[] = {297.8503631, 445267.11148, -0.0019142, 5.278e-06};

// One row of the theory.
struct NutationTerm {
  int multipliers[5];                // of D, M, M', F and Omega
  double longitude, longitude_rate;  // sine [arcsec], and per Julian century
  double obliquity, obliquity_rate;  // cosine, likewise
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

}  // namespace

NutationAngles Nutation(double centuries) {
  const double arguments[] = {MeanAngle(kMoonElongation, centuries),
                              MeanAngle(kSunAnomaly, centuries), MeanAngle(kMoonAnomaly, centuries),
                              MeanAngle(kMoonLatitudeArgument, centuries),
                              MeanAngle(kMoonNode, centuries)};
  const auto arcseconds = SumRows<NutationAngles, kNutationTerms>(
      arguments,
      [centuries](const NutationTerm& term, double cosine, double sine, NutationAngles& sums) {
        sums.dpsi += (term.longitude + term.longitude_rate * centuries) * sine;
        if (term.obliquity != 0.0) {
          sums.deps += (term.obliquity + term.obliquity_rate * centuries) * cosine;
        }
      });
  return {arcseconds.dpsi * kRadiansPerArcsecond, arcseconds.deps * kRadiansPerArcsecond};
}

}  // namespace zenithor
