#pragma once

// Angle and time constants shared by every room. Decimal doubles, as the computations need them.

namespace zenithor {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kHoursPerRadian = 3.819718634205488;         // 12 / pi
constexpr double kRadiansPerArcsecond = 4.84813681109536e-6;  // pi / 648000
constexpr double kArcsecondsPerTurn = 1296000.0;

constexpr double kJ2000 = 2451545.0;  // 2000 January 1, 12h, as a Julian day
constexpr double kDaysPerCentury = 36525.0;
constexpr long double kCenturiesPerDay = 1.0L / 36525.0L;

// Obliquity of J2000.0 [rad], 23.43929111 degrees: what Pluto's coordinates are converted with.
constexpr double kObliquityJ2000 = 0.40909280420293637;

// Light time for one astronomical unit [Julian centuries], 0.0057755183 day.
constexpr double kLightTimePerAu = 1.5812507323750856e-7;

}  // namespace zenithor
