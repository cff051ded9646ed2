#pragma once

namespace zenithor::testing {

// For second evaluations in extended precision.
constexpr long double kExtendedPi = 3.14159265358979323846264338327950288L;
constexpr long double kExtendedDegree = kExtendedPi / 180.0L;  // [rad]

}  // namespace zenithor::testing
