#pragma once

namespace zenithor {

// Mean obliquity of the ecliptic [rad] at T Julian centuries from J2000.0.
// Laskar's polynomial of degree 10, good to 0.01" over 1000 years and a few arcseconds over 10 000
// years either side of J2000.0. Source: Meeus, Astronomical Algorithms, formula 22.3.
double MeanObliquity(double centuries);

// The obliquity of the orbit machinery with its sine and cosine, kept for the last Julian day.
struct ObliquityCache {
  // Day of the values below. Kept on purpose: -1.0 counts as cached already, so a first call for
  // that day finds 0.
  double julian_day = -1.0;
  double epsilon = 0.0;  // [rad]
  double cos_epsilon = 0.0;
  double sin_epsilon = 0.0;
};

// Brings `cache` to `julian_day`; returns at once when it is there already.
// Kept on purpose: its polynomial is referred to another epoch value than MeanObliquity's,
// 84381.406173"; the position drivers use the one, the orbit machinery the other, 0.0418" apart at
// J2000.0.
void CachedObliquity(double julian_day, ObliquityCache& cache);

}  // namespace zenithor
