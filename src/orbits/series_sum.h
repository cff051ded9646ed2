#pragma once

#include "numerics/multiples.h"
#include "orbits/series_table.h"

namespace zenithor {

// What the series share from one evaluation to the next: the list of fundamental arguments [rad]
// and the multiples of each. Every evaluation fills the rows that it reads.
struct SeriesScratch {
  double arguments[kArgumentLimit] = {};
  MultiplesRow rows[kArgumentLimit] = {};
};

// Unscaled sums, in the unit of the table's coefficients; 0 for a coordinate that it lacks.
struct SeriesSums {
  double longitude;
  double latitude;
  double radius;
};

enum class LongitudePolynomial { kReduced, kAsItStands };  // modulo 1296000, or not

// Sums `table` at T (in its time scale, from J2000.0) in stored order over the multiples in `rows`.
SeriesSums SumPlanetSeries(const PlanetSeriesTable& table, double t,
                           const MultiplesRow (&rows)[kArgumentLimit],
                           LongitudePolynomial polynomial);

// Fills the rows of the arguments that `table` uses from the list in `scratch`.
void FillRowsFromList(const PlanetSeriesTable& table, SeriesScratch& scratch);

}  // namespace zenithor
