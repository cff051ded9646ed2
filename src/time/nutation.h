#pragma once

namespace zenithor {

struct NutationAngles {
  double dpsi;  // [rad] nutation in longitude
  double deps;  // [rad] nutation in obliquity
};

// Nutation at T Julian centuries from J2000.0, any: the 63 largest terms of the 1980 IAU theory,
// summed in table order; at most 20" in longitude and 10" in obliquity. Good to a few
// milliarcseconds over some centuries about J2000.0.
// Source: Meeus, Astronomical Algorithms, chapter 22, table 22.A.
NutationAngles Nutation(double centuries);

}  // namespace zenithor
