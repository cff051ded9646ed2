#include "moon/physical_libration.h"

#include <cstddef>
#include <iterator>

#include "numerics/constants.h"
#include "numerics/sincos.h"

namespace zenithor {

namespace {

enum class Trigonometric { kSine, kCosine };

// One term: multipliers of the seven arguments, its function, the coefficient [deg], and the power
// of E it is multiplied by.
struct LibrationTerm {
  double d, m, mprime, f, omega, k1, k2;
  Trigonometric function;
  double coefficient;
  int e_power;
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

// The two arguments that librations alone have [rad].
struct LibrationArguments {
  double K1, K2;
};

// The sum over one table, in its order [rad].
template <std::size_t N>
double SumTerms(const LibrationTerm (&terms)[N], const LunarArguments& lunar,
                const LibrationArguments& own) {
  double angles[N];
  double cosine_sine[2 * N];
  for (std::size_t k = 0; k < N; ++k) {
    const LibrationTerm& term = terms[k];
    angles[k] = term.mprime * lunar.Mprime + term.m * lunar.M + term.f * lunar.F +
                term.d * lunar.D + term.omega * lunar.Omega + term.k1 * own.K1 + term.k2 * own.K2;
  }
  CosinesAndSines(angles, static_cast<int>(N), cosine_sine);
  double sum = 0.0;
  for (std::size_t k = 0; k < N; ++k) {
    const LibrationTerm& term = terms[k];
    const double value = cosine_sine[2 * k + (term.function == Trigonometric::kSine ? 1 : 0)];
    sum += term.coefficient * value * (term.e_power == 1 ? lunar.E : 1.0);
  }
  return sum * kRadiansPerDegree;
}

}  // namespace

MoonPhysicalLibration ComputeMoonPhysicalLibration(double centuries,
                                                   const LunarArguments& arguments) {
  const LibrationArguments own{(131.849 * centuries + 119.75) * kRadiansPerDegree,
                               (20.186 * centuries + 72.56) * kRadiansPerDegree};
  return {SumTerms(kRhoTerms, arguments, own), SumTerms(kSigmaTerms, arguments, own),
          SumTerms(kTauTerms, arguments, own)};
}

}  // namespace zenithor
