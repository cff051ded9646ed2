#pragma once

namespace zenithor {

struct NutationAngles {
  double dpsi;  // [rad] nutation in longitude
  double deps;  // [rad] nutation in obliquity
};

// Nutation at T Julian centuries from J2000.0: the 63 largest terms of the 1980 IAU theory, summed
// in table order. Good to a few milliarcseconds over some centuries about J2000.0.
// Source: Meeus, Astronomical Algorithms, chapter 22, table 22.A.
NutationAngles Nutation(double centuries);

}  // namespace zenithor
