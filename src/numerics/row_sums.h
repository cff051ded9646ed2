#pragma once

namespace zenithor {

// Adds a multiple, known to the compiler, of an angle to a sum of angles; of 0 nothing is left.
template <int multiplier>
void AddMultiple(double angle, double& sum) {
  if constexpr (multiplier != 0) {
    sum += multiplier * angle;
  }
}

}  // namespace zenithor
