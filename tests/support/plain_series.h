#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "ephemeris/store.h"
#include "numerics/sine_cosine.h"
#include "support/quadruple.h"
#include "time/transforms.h"

namespace zenithor::testing {

// The series summed as the theory is written, one cosine per term in the stored order: what the
// fast sum is held against. Number is double or Quadruple.

inline double CosineOf(double x) { return Cosine(x); }
inline Quadruple CosineOf(Quadruple x) { return QuadrupleCosine(x); }

// L, B, R at t Julian millennia from J2000.0.
template <class Number>
std::array<Number, 3> PlainSum(const EphemerisStore& store, int slot, double millennia) {
  const auto s = static_cast<std::size_t>(slot);
  const SeriesTerm* term = store.bodies[s].terms;
  const SeriesTerm* const end = term + store.bodies[s].term_count;
  const Number t = millennia;
  std::array<Number, 3> place{};
  std::size_t series = 0;
  for (Number& coordinate : place) {
    Number power = 1.0;
    for (int p = 0; p < kPowerCount; ++p, ++series) {
      const std::ptrdiff_t count = store.bodies[s].index.series[series].term_count;
      const SeriesTerm* const last = term + std::clamp<std::ptrdiff_t>(count, 0, end - term);
      Number sum = 0.0;
      for (; term != last; ++term) {
        sum +=
            Number(term->amplitude) * CosineOf(Number(term->phase) + Number(term->frequency) * t);
      }
      coordinate += sum * power;
      power *= t;
    }
  }
  return place;
}

inline double Millennia(double centuries) {
  return static_cast<double>(static_cast<long double>(centuries) * 0.1L);
}

inline Spherical SumSeriesPlainly(const EphemerisStore& store, int slot, double centuries) {
  const std::array<double, 3> place = PlainSum<double>(store, slot, Millennia(centuries));
  return {place[0], place[1], place[2]};
}

}  // namespace zenithor::testing
