#pragma once

#include "moon/lunar_arguments.h"

namespace zenithor {

// The physical librations of the Moon [rad]: how its rotation departs from Cassini's laws.
struct MoonPhysicalLibration {
  double rho;    // of the inclination of its equator
  double sigma;  // of the node, times the sine of the inclination
  double tau;    // in longitude
};

// The librations at T Julian centuries from J2000.0, with the arguments of that moment; each below
// 0.062 degree. Source: D. H. Eckhardt, Theory of the libration of the Moon, The Moon and the
// Planets 25 (1981), as in Meeus, Astronomical Algorithms, chapter 53.
MoonPhysicalLibration ComputeMoonPhysicalLibration(double centuries,
                                                   const LunarArguments& arguments);

}  // namespace zenithor
