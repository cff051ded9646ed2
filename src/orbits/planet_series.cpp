#include "orbits/planet_series.h"

#include "numerics/constants.h"
#include "orbits/mean_elements.h"
#include "time/constants.h"

namespace zenithor {

Spherical EvaluatePlanetSeries(double julian_day, const PlanetSeriesTable& table,
                               SeriesScratch& scratch) {
  const double t = (julian_day - kJ2000) / table.time_scale;
  ArgumentList arguments = {};
  for (int k = 0; k < table.argument_count; ++k) {
    if (table.highest_harmonic[static_cast<std::size_t>(k)] > 0) {
      arguments[k] = PlanetMeanLongitude(k + 1, t);
    }
  }
  const SeriesSums sums =
      SumSeries(table, t, arguments, LongitudePolynomial::kReduced, scratch.room);
  return {kRadiansPerArcsecond * sums.longitude, kRadiansPerArcsecond * sums.latitude,
          table.mean_distance + kRadiansPerArcsecond * table.mean_distance * sums.radius};
}

Spherical EvaluateEarthSeries(double julian_day, const PlanetSeriesTable& table, int body_index,
                              SeriesScratch& scratch) {
  FillMeanElements(julian_day, scratch.arguments);
  const SeriesSums sums = SumEarthTable(table, julian_day, scratch);
  const double scale = kRadiansPerArcsecond * table.coefficient_scale;
  return {scale * sums.longitude + scratch.arguments[body_index - 1], scale * sums.latitude,
          (scale * sums.radius + 1.0) * table.mean_distance};
}

}  // namespace zenithor
