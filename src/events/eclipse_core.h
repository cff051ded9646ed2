#pragma once

#include <cstdint>

namespace zenithor {

// Kinds of eclipses. Solar eclipses take 1 to 6, lunar eclipses 1, 6 and 7.
constexpr std::int32_t kTotalEclipse = 1;
constexpr std::int32_t kAnnularEclipse = 2;
constexpr std::int32_t kAnnularTotalEclipse = 3;
constexpr std::int32_t kNonCentralTotalEclipse = 4;
constexpr std::int32_t kNonCentralAnnularEclipse = 5;
constexpr std::int32_t kPartialEclipse = 6;
constexpr std::int32_t kPenumbralEclipse = 7;

// A search that has looked at so many lunations without an eclipse gives up. No search from a day
// that has a calendar date looks at as many: tests/scan/eclipse_scan walks through all of their
// lunations (docs/reliability.md has what it found). From about 1e10 days on the angles are too
// coarse for a solar search to end by itself.
constexpr std::int32_t kLongestSearch = 30000;

// Whether lunations can be counted from k: whole numbers are exact below 2^53, 2.66e17 days from
// lunation 0. Not so for infinities and NaN.
inline bool CanCountFrom(double k) { return k > -0x1p53 && k < 0x1p53; }

// |gamma| [Earth radii] at which a penumbral eclipse of the Moon begins, for u = 0: farther out
// neither the Sun nor the Moon is eclipsed in any way.
constexpr double kPenumbralLimit = 1.5573;

// Whether the Moon is near enough to a node of its orbit for an eclipse, by the sine of its
// argument of latitude; not so for NaN.
inline bool IsNearNode(double sin_f) { return sin_f < 0.36 && sin_f > -0.36; }

// What decides about an eclipse at one lunation.
struct EclipseGeometry {
  double jde;        // Julian Ephemeris Day of greatest eclipse
  double u;          // [Earth radii] radius of the umbral cone in the fundamental plane
  double abs_gamma;  // [Earth radii] least distance of the shadow axis from the Earth's centre
  double mprime;     // [rad] the Moon's mean anomaly
};

enum class Eclipses { kAny, kSolar };

// The eclipse test at lunation k: whole for a new moon, whole + 0.5 for a full moon. Where the Moon
// is not near a node there is no eclipse: u is 0, |gamma| 2 and mprime 0. There, and where |gamma|
// leaves no eclipse of any kind, jde is the mean phase. Who wants solar eclipses only may get the
// same where it is easy to see that there is none.
// Against the book's worked examples solar instants are within 9 s, lunar ones within 3 minutes, as
// they are corrected with the solar coefficients (up to 142 s from -2000 to 4000); gamma departs
// from the book's by up to 0.00044 from 1000 to 3000 and 0.029 about -2000 (docs/deliberate.md).
// Source: Meeus, Astronomical Algorithms, chapter 54, with the arguments of chapter 47.
EclipseGeometry ComputeEclipseGeometry(double k, Eclipses wanted = Eclipses::kAny);

// The lunation from which a search beginning at a Julian day [day] starts: that of the first mean
// new moon more than 0.03 lunation after it.
double FirstLunationAfter(double julian_day);

}  // namespace zenithor
