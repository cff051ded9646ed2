#include "orbits/moon_share.h"

#include "numerics/constants.h"
#include "orbits/mean_elements.h"
#include "orbits/precession.h"
#include "orbits/vectors.h"
#include "time/constants.h"

namespace zenithor {

namespace {

constexpr double kEarthMoonMassRatio = 81.300585;

SeriesSums SumLunarSeries(const PlanetSeriesTable& table, double julian_day,
                          SeriesScratch& scratch) {
  SeriesSums sums = SumEarthTable(table, julian_day, scratch);
  sums.longitude *= table.coefficient_scale;
  sums.latitude *= table.coefficient_scale;
  sums.radius *= table.coefficient_scale;
  return sums;
}

}  // namespace

double TurnLunarLongitude(double arcseconds) {
  // Kept on purpose: one turn at 645000", not at the half turn 648000"; only the last bits of the
  // sine and cosine feel it.
  if (arcseconds < -645000.0) {
    return arcseconds + kArcsecondsPerTurn;
  }
  if (arcseconds > 645000.0) {
    return arcseconds - kArcsecondsPerTurn;
  }
  return arcseconds;
}

Rectangular GeocentricMoon(double julian_day, SeriesScratch& scratch, ObliquityCache& obliquity) {
  FillMeanElements(julian_day, scratch.arguments);
  const SeriesSums first = SumLunarSeries(kMoonLongitudeSeries, julian_day, scratch);
  const SeriesSums second = SumLunarSeries(kMoonLatitudeSeries, julian_day, scratch);

  const double arcseconds = TurnLunarLongitude(
      first.longitude + MoonMeanLongitudeArcseconds((julian_day - kJ2000) / kDaysPerCentury));
  const Spherical moon{
      arcseconds * kRadiansPerArcsecond, second.latitude * kRadiansPerArcsecond,
      (kRadiansPerArcsecond * first.radius + 1.0) * kMoonLongitudeSeries.mean_distance};
  CachedObliquity(julian_day, obliquity);
  return EclipticToEquator(SphericalToRectangular(moon), obliquity);
}

double RemoveMoonFromBarycentre(double julian_day, SeriesScratch& scratch,
                                ObliquityCache& obliquity, Rectangular& vector) {
  Rectangular moon = GeocentricMoon(julian_day, scratch, obliquity);
  PrecessVector(julian_day, PrecessionDirection::kToJ2000, obliquity, moon);
  const double f = 1.0 / (kEarthMoonMassRatio + 1.0);
  vector = vector - f * moon;
  return Length(vector);
}

}  // namespace zenithor
