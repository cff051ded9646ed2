#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "support/text_files.h"
#include "time/transforms.h"

namespace zenithor::testing {

// The Earth's heliocentric place, ecliptic and equinox J2000.0, by VSOP87B (Bretagnon and Francou
// 1988), summed term by term from data/vsop87/vsop87b-earth.csv. Good to 0.01" for some centuries
// about J2000.0.
inline Spherical Vsop87bEarth(double julian_day) {
  struct Term {
    char coordinate;
    int power;
    double amplitude, phase, frequency;
  };
  static const std::vector<Term> terms = [] {
    std::vector<Term> read;
    for (const std::string& line : LinesOf("data/vsop87/vsop87b-earth.csv")) {
      const std::vector<std::string> field = Split(line, ',');
      if (field.at(0).size() == 1) {
        read.push_back({field[0][0], std::stoi(field[1]), std::stod(field[2]), std::stod(field[3]),
                        std::stod(field[4])});
      }
    }
    return read;
  }();
  const double t = (julian_day - 2451545.0) / 365250.0;
  Spherical place{0.0, 0.0, 0.0};
  for (const Term& term : terms) {
    const double value =
        term.amplitude * std::cos(term.phase + term.frequency * t) * std::pow(t, term.power);
    (term.coordinate == 'L'   ? place.longitude
     : term.coordinate == 'B' ? place.latitude
                              : place.radius) += value;
  }
  return place;
}

}  // namespace zenithor::testing
