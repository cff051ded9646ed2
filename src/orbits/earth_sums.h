#pragma once

#include "orbits/series_sum.h"

namespace zenithor {

// The sums of the series that the Earth's place is made of: its barycentre with the Moon, and the
// Moon. The velocity asks for the moment of 0.005 day before, too, so both are summed side by side
// and kept: what is kept is what a new sum would give, to the bit.

constexpr double kVelocityStepDays = 0.005;

constexpr std::size_t kEarthTables = 3;  // the barycentre, the Moon's longitude and its latitude

struct EarthSums {
  bool kept = false;
  double julian_day = 0.0;
  SeriesSums of_tables[kEarthTables] = {};
};

// What the series share from one evaluation to the next: the list of arguments [rad] of the latest
// day, room, and the Earth's sums of a day and of the velocity's step before it. Where there is no
// room for two moments (kRoomOfTwo numbers), each is summed alone and nothing is kept.
struct SeriesScratch {
  ArgumentList arguments = {};
  SeriesRoom room = {};
  double* room_of_two = nullptr;
  EarthSums earth[kMomentsOfEarth];
};

// The sums of a table at a Julian day, the longitude's polynomial as it stands. `scratch.arguments`
// holds the list of that day; where another planet stands elsewhere than at 0 in it, or where the
// table is none of the three, nothing is kept.
SeriesSums SumEarthTable(const PlanetSeriesTable& table, double julian_day, SeriesScratch& scratch);

}  // namespace zenithor
