#pragma once

// Constants of angles, shared by every room. Decimal doubles, as the computations need them.

namespace zenithor {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kHoursPerRadian = 3.819718634205488;         // 12 / pi
constexpr double kRadiansPerArcsecond = 4.84813681109536e-6;  // pi / 648000
constexpr double kArcsecondsPerTurn = 1296000.0;

}  // namespace zenithor
