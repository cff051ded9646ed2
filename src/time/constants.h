#pragma once

#include "numerics/extended.h"

// Constants of time, and of the two places of the theory that every room agrees on.

namespace zenithor {

constexpr double kJ2000 = 2451545.0;  // 2000 January 1, 12h, as a Julian day
constexpr double kDaysPerCentury = 36525.0;
constexpr Extended kCenturiesPerDay = {0x1.cb55cbc173dd3p-16, 0x1.4dp-70};  // 1 / 36525

// Obliquity of J2000.0 [rad], 23.43929111 degrees: what Pluto's coordinates are converted with.
constexpr double kObliquityJ2000 = 0.40909280420293637;

// Light time for one astronomical unit [Julian centuries], 0.0057755183 day.
constexpr double kLightTimePerAu = 1.5812507323750856e-7;

}  // namespace zenithor
