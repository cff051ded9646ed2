#include "events/season.h"

#include <iterator>

#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "numerics/sine_cosine.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr int kSeasons = 4;

// Mean instants [day]: a quartic in Y for each season, before the year 1000 and from then on.
constexpr double kMeanSeasons[][5] = {
#include "events/season_mean_terms.inc"
};

// A cos(B + C T).
struct SeasonTerm {
  double a;  // [1e-5 day]
  double b;  // [deg]
  double c;  // [deg per Julian century]
};

constexpr SeasonTerm kTerms[] = {
#include "events/season_terms.inc"
};

static_assert(std::size(kMeanSeasons) == 2 * kSeasons, "tables 27.A and 27.B");
static_assert(std::size(kTerms) == 24, "table 27.C has 24 rows");

}  // namespace

double SeasonInstant(std::int32_t year, std::int32_t season) {
  if (season < kMarchEquinox || season > kDecemberSolstice) {
    return 0.0;
  }
  const bool early = year < 1000;
  const double millennia = (static_cast<double>(year) - (early ? 0.0 : 2000.0)) * 0.001;
  const double jde0 =
      EvaluatePolynomial(kMeanSeasons[season + (early ? 0 : kSeasons)], 4, millennia);

  const double centuries = JulianCenturies(jde0);
  const double w = (35999.373 * centuries - 2.47) * kRadiansPerDegree;
  const double delta_lambda = 1.0 + 0.0334 * Cosine(w) + 0.0007 * Cosine(2.0 * w);
  double s = 0.0;
  for (const SeasonTerm& term : kTerms) {
    s += term.a * Cosine((term.b + term.c * centuries) * kRadiansPerDegree);
  }
  return jde0 + 0.00001 * s / delta_lambda;
}

}  // namespace zenithor
