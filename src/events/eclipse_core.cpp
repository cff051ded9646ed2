#include "events/eclipse_core.h"

#include <cmath>
#include <cstddef>
#include <iterator>

#include "events/lunar_phase.h"
#include "moon/lunar_arguments.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
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
    sum += Weight(term, angles) * Sine(Argument(term, angles));
  }
  return sum;
}

template <std::size_t count>
double SumCosines(const EclipseTerm (&terms)[count], const EclipseAngles& angles) {
  double sum = 0.0;
  for (const EclipseTerm& term : terms) {
    sum += Weight(term, angles) * Cosine(Argument(term, angles));
  }
  return sum;
}

// Whether there is no solar eclipse at a new moon near a node, whatever M' and Omega are. From
// 160 000 years from J2000.0 on E is so large, and negative, that the terms with it decide. They
// are
//   of P: E (sin M (0.2070 + 0.0048 cos M - 0.0140 cos M') - 0.0006 sin M' cos M),
//   of Q: E (0.0101 sin M' sin M - (0.0048 + 0.0019 cos M') cos M + 0.0020 cos 2M),
//   of u: 0.0046 E cos M;
// all others together are below 0.063, 5.56 and 0.025. With |sin F1| < 0.3605 near a node,
//   |gamma| > |E| (0.171 |sin M| - 0.0037) - 2.07,
// and an eclipse needs |gamma| <= 1.5433 + u. A search that cannot end spends its time here.
bool RulesOutSolarEclipse(double m, double e) {
  if (e > -20.0) {
    return false;
  }
  const double of_u = 0.0046 * e * Cosine(m);
  return of_u < -1.6 || -e * (0.171 * std::fabs(Sine(m)) - 0.0037) > 4.0 + of_u;
}

}  // namespace

EclipseGeometry ComputeEclipseGeometry(double k, Eclipses wanted) {
  const double mean_jde = MeanPhase(k, k * kCenturiesPerLunation);
  const double centuries = JulianCenturies(mean_jde);
  // Three lunations of four end here, so nothing else is computed before.
  // Kept on purpose: the arguments of the lunar series with their signs, where the book has those
  // of the mean phase: up to 3.2 s and 0.00044 in gamma within 1000 years of 2000, 84 s and 0.029
  // about 2000 BC. The signs alone make 0.9 s and 0.00006, 244 s and 0.004.
  const double f = LunarLatitudeArgument(centuries);
  if (!IsNearNode(Sine(f))) {
    return {mean_jde, 0.0, 2.0, 0.0};
  }

  EclipseAngles angles{};
  angles.m = LunarSunAnomaly(centuries);
  angles.e = EccentricityFactor(centuries);
  if (wanted == Eclipses::kSolar && RulesOutSolarEclipse(angles.m, angles.e)) {
    return {mean_jde, 0.0, 2.0, 0.0};
  }

  angles.mprime = LunarMoonAnomaly(centuries);
  angles.omega = LunarNode(centuries);
  angles.f1 = f - 0.0004651302456564888 * Sine(angles.omega);  // 0.02665 degree
  angles.a1 = (299.77 + 0.107408 * k - 0.009173 * centuries * centuries) * kRadiansPerDegree;
  const double p = SumSines(kPTerms, angles);
  const double q = SumCosines(kQTerms, angles);
  const double w = std::fabs(Cosine(angles.f1));
  const double gamma = (p * Cosine(angles.f1) + q * Sine(angles.f1)) * (1.0 - 0.0048 * w);
  const double abs_gamma = std::fabs(gamma);
  const double u = SumCosines(kUTerms, angles);

  // No search stops here, so nobody reads the instant.
  if (abs_gamma > kPenumbralLimit + std::fabs(u)) {
    return {mean_jde, u, abs_gamma, angles.mprime};
  }
  return {mean_jde + SumSines(kInstantTerms, angles), u, abs_gamma, angles.mprime};
}

double FirstLunationAfter(double julian_day) {
  return std::floor((julian_day - kMeanNewMoonOf2000) * kLunationsPerDay + 1.03);
}

}  // namespace zenithor
