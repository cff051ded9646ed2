#pragma once

// Constants of the reduction of Pluto's place, in the system of DE404.

namespace zenithor {

constexpr double kAstronomicalUnitKm = 149597870.691;
constexpr double kLightSpeedKmPerSecond = 299792.458;
constexpr double kLightDaysPerAu = 0.005775518330577741;  // light time for unit distance [day]

}  // namespace zenithor
