#include "orbits/series_sum.h"

#include "numerics/angles.h"

namespace zenithor {

namespace {

// One coordinate of a periodic term by Horner's rule in T; moves `coefficients` past the term.
double PeriodicTerm(const double*& coefficients, int power, double t, const AngleSum& angle) {
  double c = coefficients[0];
  double s = coefficients[1];
  coefficients += 2;
  for (int k = 0; k < power; ++k, coefficients += 2) {
    c = c * t + coefficients[0];
    s = s * t + coefficients[1];
  }
  return c * angle.cosine + s * angle.sine;
}

double PolynomialTerm(const double*& coefficients, int power, double t) {
  double sum = *coefficients++;
  for (int k = 0; k < power; ++k) {
    sum = sum * t + *coefficients++;
  }
  return sum;
}

}  // namespace

SeriesSums SumPlanetSeries(const PlanetSeriesTable& table, double t,
                           const MultiplesRow (&rows)[kArgumentLimit],
                           LongitudePolynomial polynomial) {
  const std::int8_t* code = table.arguments;
  const double* longitude = table.longitude;
  const double* latitude = table.latitude;
  const double* radius = table.radius;
  SeriesSums sums{0.0, 0.0, 0.0};
  for (int pairs = *code++; pairs >= 0; pairs = *code++) {
    if (pairs == 0) {
      const int power = *code++;
      if (longitude != nullptr) {
        const double value = PolynomialTerm(longitude, power, t);
        sums.longitude +=
            polynomial == LongitudePolynomial::kReduced ? ReduceArcseconds(value) : value;
      }
      if (latitude != nullptr) {
        sums.latitude += PolynomialTerm(latitude, power, t);
      }
      if (radius != nullptr) {
        sums.radius += PolynomialTerm(radius, power, t);
      }
      continue;
    }
    AngleSum angle;
    for (int k = 0; k < pairs; ++k, code += 2) {
      AddMultiple(code[0], rows[code[1] - 1], angle);
    }
    const int power = *code++;
    if (longitude != nullptr) {
      sums.longitude += PeriodicTerm(longitude, power, t, angle);
    }
    if (latitude != nullptr) {
      sums.latitude += PeriodicTerm(latitude, power, t, angle);
    }
    if (radius != nullptr) {
      sums.radius += PeriodicTerm(radius, power, t, angle);
    }
  }
  return sums;
}

void FillRowsFromList(const PlanetSeriesTable& table, SeriesScratch& scratch) {
  for (std::size_t k = 0; k < table.argument_count; ++k) {
    if (table.highest_harmonic[k] > 0) {
      FillMultiples(scratch.arguments[k], table.highest_harmonic[k], scratch.rows[k]);
    }
  }
}

}  // namespace zenithor
