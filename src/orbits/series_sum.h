#pragma once

#include "numerics/multiples.h"
#include "orbits/series_table.h"

namespace zenithor {

// Sums of the PLAN404 series in the stored order: a plain walk for any arguments, and a quick one
// to the same bits where those that a table takes to be 0 are.

constexpr std::size_t kMomentsOfEarth = 2;

// Unscaled sums, in the unit of the table's coefficients; 0 for a coordinate that it lacks.
struct SeriesSums {
  double longitude;
  double latitude;
  double radius;
};

enum class LongitudePolynomial { kReduced, kAsItStands };  // modulo 1296000, or not

using ArgumentList = double[kArgumentLimit];  // the fundamental arguments [rad]

// What a walk writes and reads again; of no use afterwards.
union SeriesRoom {
  MultiplesRow rows[kArgumentLimit];
  double sines_cosines[2 * kAngleLimit];
};

// The same for two moments.
constexpr std::size_t kRoomOfTwo = 2 * kAngleLimit * kMomentsOfEarth;

// Sums `table` at T (in its time scale, from J2000.0) for the arguments that it uses of
// `arguments`.
SeriesSums SumPlanetSeries(const PlanetSeriesTable& table, double t, const ArgumentList& arguments,
                           LongitudePolynomial polynomial, SeriesRoom& room);

// The same where every argument is 0 but those of table.angles.arguments, which may be anything.
SeriesSums SumMovingArguments(const PlanetSeriesTable& table, double t,
                              const ArgumentList& arguments, LongitudePolynomial polynomial,
                              SeriesRoom& room);

// Whether that is so: every other argument that the table uses is 0.
bool OthersStandStill(const PlanetSeriesTable& table, const ArgumentList& arguments);

// By the quick walk where that is so, else by the plain one.
SeriesSums SumSeries(const PlanetSeriesTable& table, double t, const ArgumentList& arguments,
                     LongitudePolynomial polynomial, SeriesRoom& room);

// The quick walk for two moments side by side, the longitude's polynomial as it stands; `room`
// holds kRoomOfTwo numbers.
void SumTwoMoments(const PlanetSeriesTable& table, const double (&t)[kMomentsOfEarth],
                   const ArgumentList (&arguments)[kMomentsOfEarth], double* room,
                   SeriesSums (&sums)[kMomentsOfEarth]);

}  // namespace zenithor
