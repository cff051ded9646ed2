#pragma once

namespace zenithor {

// Greenwich mean sidereal time [rad], not reduced, at a Julian day of universal time [day]; T is
// the same instant in Julian centuries from J2000.0. Valid for any instant, not only 0h.
// Source: Meeus, Astronomical Algorithms, formula 12.4.
double GreenwichMeanSiderealTime(double julian_day, double centuries);

// The same for an instant counted in days from J2000.0, which holds the start of a day in any zone
// 200 times more finely than a Julian day does.
double SiderealTimeFromDays(double days, double centuries);

}  // namespace zenithor
