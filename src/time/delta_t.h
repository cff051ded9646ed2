#pragma once

namespace zenithor {

// Delta T, dynamical less universal time [s], at T Julian centuries from J2000.0: the table of
// observed values from 1620 to 2000 (its last entry is 1992), parabolas before and after. The
// pieces do not meet: Delta T jumps by 0.6 s at 948, 5.0 s at 1620 and 39.9 s at 2000. Any T is
// answered; infinities and NaN give a value that is not finite.
// Source: Meeus, Astronomical Algorithms, chapter 10 and table 10.A.
double DeltaT(double centuries);

}  // namespace zenithor
