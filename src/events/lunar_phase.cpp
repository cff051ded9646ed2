#include "events/lunar_phase.h"

#include <cmath>
#include <iterator>

#include "moon/lunar_arguments.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

// Quantities of the mean phase, r0 + r1 k + r2 T^2 + r3 T^3 + r4 T^4.
enum ElementRow { kJdeRow, kSunAnomalyRow, kMoonAnomalyRow, kLatitudeArgumentRow, kNodeRow };

// Kept on purpose: the mean phase of the book's first edition (the second is 1.8 s later in 1900,
// 3.5 s in 2100, 197 s in 1000).
// Kept on purpose: the T^3 coefficient of the mean phase is positive, the book's is negative: 0.2 s
// later in 2200, 26 s earlier in 1000, 28 minutes earlier in -2000.
constexpr double kElements[][5] = {
#include "events/phase_element_terms.inc"
};

struct PhaseTerm {
  double new_moon, full_moon, quarter;  // [day]
  double m, mprime, f;                  // multipliers
  int e;                                // power of the eccentricity factor
};

// Kept on purpose: the full moon's coefficient of sin 3M' is +0.00042, the book's -0.00042: up to
// 73 s.
// Kept on purpose: row 15 stands without the E^2 that the book has for the quarters (up to 0.12 s
// from 1900 to 2100, 4.5 s from -2000 to 4000), row 21 with an E that the book does not have (0.01
// s, 0.23 s).
constexpr PhaseTerm kTerms[] = {
#include "events/phase_correction_terms.inc"
};

// Kept on purpose: the coefficients stand interleaved, A2 has what the book gives to A8 and so on:
// up to 31 s from 1900 to 2100.
struct PlanetaryTerm {
  double a;  // [deg]
  double b;  // [deg per lunation]
  double c;  // [day]
};

constexpr PlanetaryTerm kPlanetaryTerms[] = {
#include "events/phase_planetary_terms.inc"
};

static_assert(std::size(kElements) == 5, "one row per quantity");
static_assert(kElements[kJdeRow][0] == kMeanNewMoonOf2000, "lunation 0");
static_assert(std::size(kTerms) == 25, "25 periodic terms");
static_assert(std::size(kPlanetaryTerms) == 14, "A1 to A14");

double MeanElement(ElementRow row, double k, double centuries) {
  const double(&r)[5] = kElements[row];
  const double t2 = centuries * centuries;
  return r[0] + r[1] * k + r[2] * t2 + r[3] * t2 * centuries + r[4] * t2 * t2;
}

double MeanAngle(ElementRow row, double k, double centuries) {
  return ReduceAngle(MeanElement(row, k, centuries) * kRadiansPerDegree);
}

double Coefficient(const PhaseTerm& term, std::int32_t phase) {
  switch (phase) {
    case kNewMoon:
      return term.new_moon;
    case kFullMoon:
      return term.full_moon;
    default:
      return term.quarter;
  }
}

}  // namespace

double MeanPhase(double k, double centuries) { return MeanElement(kJdeRow, k, centuries); }

double PhaseLunation(double julian_day, std::int32_t phase) {
  const double synodic_month = kElements[kJdeRow][1];
  double k = std::floor((julian_day + 1.0 - kMeanNewMoonOf2000) / synodic_month) +
             0.25 * static_cast<double>(phase);
  if (phase == kNewMoon) {
    k += 1.0;
  }
  return k;
}

double PhaseInstant(double julian_day, std::int32_t phase) {
  const double k = PhaseLunation(julian_day, phase);
  const double centuries = k * kCenturiesPerLunation;
  double jde = MeanPhase(k, centuries);

  const double m = MeanAngle(kSunAnomalyRow, k, centuries);
  const double mprime = MeanAngle(kMoonAnomalyRow, k, centuries);
  const double f = MeanAngle(kLatitudeArgumentRow, k, centuries);
  const double omega = MeanAngle(kNodeRow, k, centuries);
  const double e = EccentricityFactor(centuries);
  const double power_of_e[] = {1.0, e, e * e};

  jde -= 0.00017 * Sine(omega);
  double sum = 0.0;
  for (const PhaseTerm& term : kTerms) {
    const double argument = term.m * m + term.mprime * mprime + term.f * f;
    sum += Coefficient(term, phase) * (Sine(argument) * power_of_e[term.e]);
  }
  jde += sum;

  if (phase == kFirstQuarter || phase == kLastQuarter) {
    const double w = 0.00306 - 0.00038 * e * Cosine(m) + 0.00026 * Cosine(mprime) -
                     0.00002 * Cosine(mprime - m) + 0.00002 * Cosine(mprime + m) +
                     0.00002 * Cosine(2.0 * f);
    jde += phase == kFirstQuarter ? w : -w;
  }

  for (const PlanetaryTerm& term : kPlanetaryTerms) {
    double argument = term.a + term.b * k;
    // Kept on purpose: the T^2 term stands on A2, in the book on A1: up to 0.44 s from 1000 to
    // 3000.
    if (&term == &kPlanetaryTerms[1]) {
      argument -= 0.009173 * centuries * centuries;
    }
    jde += term.c * Sine(argument * kRadiansPerDegree);
  }
  return jde;
}

}  // namespace zenithor
