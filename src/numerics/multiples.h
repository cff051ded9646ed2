#pragma once

#include <cstdlib>

namespace zenithor {

// Sines and cosines of the multiples of an angle, and of sums of such multiples.

constexpr int kMultipleLimit = 31;

// Element j - 1 belongs to the multiple j.
struct MultiplesRow {
  double sine[kMultipleLimit];
  double cosine[kMultipleLimit];
};

// Fills the multiples 1 to `highest` (1 to 31; the second is always filled) of `angle` [rad, any]
// by angle addition from its sine and cosine: double angle first, then each multiple from the one
// before. The 31st is within 2e-14.
void FillMultiples(double angle, int highest, MultiplesRow& row);

// The sum of multiples of several angles, as sine and cosine; empty at first (the angle 0).
struct AngleSum {
  double sine = 0.0;
  double cosine = 1.0;
  bool empty = true;
};

// Adds multiplier x the angle of `row`; a multiplier of 0 adds nothing, any other has been filled.
inline void AddMultiple(int multiplier, const MultiplesRow& row, AngleSum& sum) {
  if (multiplier == 0) {
    return;
  }
  const int index = std::abs(multiplier) - 1;
  const double sine = multiplier < 0 ? -row.sine[index] : row.sine[index];
  const double cosine = row.cosine[index];
  if (sum.empty) {
    sum = {sine, cosine, false};
    return;
  }
  const double combined = sum.sine * cosine + sum.cosine * sine;
  sum.cosine = sum.cosine * cosine - sum.sine * sine;
  sum.sine = combined;
}

}  // namespace zenithor
