#pragma once

namespace zenithor {

// Mean obliquity of the ecliptic [rad] at T Julian centuries from J2000.0.
// Laskar's polynomial of degree 10, good to 0.01" over 1000 years and a few arcseconds over 10 000
// years either side of J2000.0. Source: Meeus, Astronomical Algorithms, formula 22.3.
double MeanObliquity(double centuries);

// The obliquity of the orbit machinery with its sine and cosine, kept for the last Julian day.
struct ObliquityCache {
  double julian_day = -1.0;  // day of the values below; -1.0 counts as already cached
  double epsilon = 0.0;      // [rad]
  double cos_epsilon = 0.0;
  double sin_epsilon = 0.0;
};

// Brings `cache` to `julian_day`; returns at once when it is there already.
// Its polynomial is referred to another epoch value than MeanObliquity's, 84381.406173": the two
// are different on purpose, the position drivers use the one, the orbit machinery the other.
void CachedObliquity(double julian_day, ObliquityCache& cache);

}  // namespace zenithor
