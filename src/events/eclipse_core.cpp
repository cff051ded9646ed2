#include "events/eclipse_core.h"

#include <cmath>
#include <cstddef>
#include <iterator>

#include "events/lunar_phase.h"
#include "moon/lunar_arguments.h"
#include "numerics/constants.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr double kLunationsPerDay = 0.0338631919931529;  // 1 / 29.530588853

// The angles that the series are made of [rad], and the eccentricity factor.
struct EclipseAngles {
  double m, mprime, f1, a1, omega;
  double e;
};

struct EclipseTerm {
  double coefficient;
  double m, mprime, f1, a1, omega;  // multipliers
  int e;                            // power of the eccentricity factor
};

// Kept on purpose: a full moon's instant is corrected with the leading coefficients of the new
// moon, -0.4075 and 0.1721 (the book: -0.4065 and 0.1727 for lunar eclipses): up to 142 s.
constexpr EclipseTerm kInstantTerms[] = {
#include "events/eclipse_instant_terms.inc"
};

constexpr EclipseTerm kPTerms[] = {
#include "events/eclipse_p_terms.inc"
};

constexpr EclipseTerm kQTerms[] = {
#include "events/eclipse_q_terms.inc"
};

constexpr EclipseTerm kUTerms[] = {
#include "events/eclipse_u_terms.inc"
};

static_assert(std::size(kInstantTerms) == 16 && std::size(kPTerms) == 7, "sine series");
static_assert(std::size(kQTerms) == 6 && std::size(kUTerms) == 5, "cosine series");

double Weight(const EclipseTerm& term, const EclipseAngles& angles) {
  return term.e == 0 ? term.coefficient : term.coefficient * angles.e;
}

double Argument(const EclipseTerm& term, const EclipseAngles& angles) {
  return term.m * angles.m + term.mprime * angles.mprime + term.f1 * angles.f1 +
         term.a1 * angles.a1 + term.omega * angles.omega;
}

template <std::size_t count>
double SumSines(const EclipseTerm (&terms)[count], const EclipseAngles& angles) {
  double sum = 0.0;
  for (const EclipseTerm& term : terms) {
    sum += Weight(term, angles) * std::sin(Argument(term, angles));
  }
  return sum;
}

template <std::size_t count>
double SumCosines(const EclipseTerm (&terms)[count], const EclipseAngles& angles) {
  double sum = 0.0;
  for (const EclipseTerm& term : terms) {
    sum += Weight(term, angles) * std::cos(Argument(term, angles));
  }
  return sum;
}

}  // namespace

EclipseGeometry ComputeEclipseGeometry(double k) {
  const double mean_jde = MeanPhase(k, k * kCenturiesPerLunation);
  const double centuries = JulianCenturies(mean_jde);
  // Kept on purpose: the arguments of the lunar series with their signs, where the book has those
  // of the mean phase: up to 3.2 s and 0.00044 in gamma within 1000 years of 2000, 84 s and 0.029
  // about 2000 BC. The signs alone make 0.9 s and 0.00006, 244 s and 0.004.
  const LunarArguments lunar = ComputeLunarArguments(centuries);
  if (!IsNearNode(std::sin(lunar.F))) {
    return {mean_jde, 0.0, 2.0, lunar.Mprime};
  }

  const double f1 = lunar.F - 0.0004651302456564888 * std::sin(lunar.Omega);  // 0.02665 degree
  const double a1 = (299.77 + 0.107408 * k - 0.009173 * centuries * centuries) * kRadiansPerDegree;
  const EclipseAngles angles{lunar.M, lunar.Mprime, f1, a1, lunar.Omega, lunar.E};

  const double p = SumSines(kPTerms, angles);
  const double q = SumCosines(kQTerms, angles);
  const double w = std::fabs(std::cos(f1));
  const double gamma = (p * std::cos(f1) + q * std::sin(f1)) * (1.0 - 0.0048 * w);
  const double abs_gamma = std::fabs(gamma);
  const double u = SumCosines(kUTerms, angles);

  // No search stops here, so nobody reads the instant.
  if (abs_gamma > kPenumbralLimit + std::fabs(u)) {
    return {mean_jde, u, abs_gamma, lunar.Mprime};
  }
  return {mean_jde + SumSines(kInstantTerms, angles), u, abs_gamma, lunar.Mprime};
}

double FirstLunationAfter(double julian_day) {
  return std::floor((julian_day - kMeanNewMoonOf2000) * kLunationsPerDay + 1.03);
}

}  // namespace zenithor
