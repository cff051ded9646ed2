#pragma once

namespace zenithor {

// The clock's time and dynamical time (TT), both as Julian days.
//
// The clock's time is UTC from 1972 January 1 on, and universal time (UT) before.
// TT - UTC is 32.184 s plus the leap seconds so far: exact. None has been announced after that of
// 2017 January 1; 69.184 s hold for all later days, so that from 2017 on this is the time of clocks
// as they go today, whatever the Earth does.
// TT - UT before 1972 follows published polynomials of the year y = 2000 + (day - 2451544.5) /
// 365.2425, before -500 a parabola. Newer values (L. V. Morrison, F. R. Stephenson, C. Y.
// Hohenkerk, M. Zawilski, 2021) differ by up to 3 s from 1750 on and by 60 to 125 s from -500 to
// 1500. The days of the Julian calendar shift y; what that changes is 0.4 s in -500, 1.2 s in
// -2000. Days: -1e8 to 1e8 are answered (some 270 000 years either way); others, infinities and NaN
// give NaN.
//
// Where one polynomial or leap second ends and the next begins, TT - UT steps by at most 0.26 s and
// TT - UTC by 1 s. The clock shows a Julian day of 86400 s, which has no room for a leap second:
// all moments of dynamical time within one give the midnight that ends it. So does a gap between
// two polynomials; where two overlap (by 0.07 s at 1972) the later holds. Elsewhere a moment comes
// back within 1e-9 day when converted there and back. Later moments never give earlier ones.
// Source: F. Espenak, J. Meeus, Five Millennium Canon of Solar Eclipses, NASA/TP-2006-214141,
// section 2.7; IERS Bulletin C.

// Dynamical time of a moment of the clock's time [day].
double ClockToDynamical(double clock_day);

// The clock's time of a moment of dynamical time [day].
double DynamicalToClock(double dynamical_day);

// Dynamical time less the clock's time [s] at a moment of the clock's time.
double DynamicalLessClock(double clock_day);

}  // namespace zenithor
