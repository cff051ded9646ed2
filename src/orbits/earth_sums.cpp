#include "orbits/earth_sums.h"

#include "orbits/mean_elements.h"
#include "time/constants.h"

namespace zenithor {

namespace {

constexpr const PlanetSeriesTable* kTables[kEarthTables] = {
    &kEarthMoonBarycentreSeries, &kMoonLongitudeSeries, &kMoonLatitudeSeries};

double TimeOf(const PlanetSeriesTable& table, double julian_day) {
  return (julian_day - kJ2000) / table.time_scale;
}

// The kept sums of a day, made with those of the step before it where they are not there.
const EarthSums& SumsOf(double julian_day, SeriesScratch& scratch) {
  for (const EarthSums& sums : scratch.earth) {
    if (sums.kept && sums.julian_day == julian_day) {
      return sums;
    }
  }
  const double days[kMomentsOfEarth] = {julian_day, julian_day - kVelocityStepDays};
  ArgumentList arguments[kMomentsOfEarth] = {};
  for (std::size_t moment = 0; moment < kMomentsOfEarth; ++moment) {
    FillMeanElements(days[moment], arguments[moment]);
    scratch.earth[moment].kept = true;
    scratch.earth[moment].julian_day = days[moment];
  }
  for (std::size_t k = 0; k < kEarthTables; ++k) {
    const double t[kMomentsOfEarth] = {TimeOf(*kTables[k], days[0]), TimeOf(*kTables[k], days[1])};
    SeriesSums sums[kMomentsOfEarth];
    SumTwoMoments(*kTables[k], t, arguments, scratch.room_of_two, sums);
    scratch.earth[0].of_tables[k] = sums[0];
    scratch.earth[1].of_tables[k] = sums[1];
  }
  return scratch.earth[0];
}

}  // namespace

SeriesSums SumEarthTable(const PlanetSeriesTable& table, double julian_day,
                         SeriesScratch& scratch) {
  if (scratch.room_of_two != nullptr && OthersStandStill(table, scratch.arguments)) {
    for (std::size_t k = 0; k < kEarthTables; ++k) {
      if (kTables[k] == &table) {
        return SumsOf(julian_day, scratch).of_tables[k];
      }
    }
  }
  return SumSeries(table, TimeOf(table, julian_day), scratch.arguments,
                   LongitudePolynomial::kAsItStands, scratch.room);
}

}  // namespace zenithor
