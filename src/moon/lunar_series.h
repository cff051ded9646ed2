#pragma once

namespace zenithor {

// The Moon's place, geocentric, ecliptic and mean equinox of date.
struct LunarPosition {
  double lambda;       // [rad] longitude, from 0 to a little above 2 pi
  double beta;         // [rad] latitude
  double distance_km;  // between the centres of the Earth and the Moon
};

// The Moon at T Julian centuries from J2000.0. Neither nutation nor aberration nor light time is
// applied. lambda is lifted above 0 but not reduced from above: it may exceed 2 pi by up to 7.7
// degrees (largest of 100 000 instants from -2000 to +6000), and the caller deals with that.
// Good to about 10" in longitude, 4" in latitude and 30 km near J2000.0.
// Source: ELP-2000/82, truncated as in Meeus, Astronomical Algorithms, chapter 47.
LunarPosition ComputeLunarPosition(double centuries);

// What the three series are evaluated from.
struct LunarSeriesState {
  double D, M, Mprime, F;  // [rad] see LunarArguments
  double E;                // eccentricity factor
  double E_squared;
};

// The periodic series alone, summed in published order: 59 sines [deg], 60 sines [deg] and
// 46 cosines [km]. Source: Meeus, tables 47.A and 47.B.
double SumLunarLongitudeTerms(const LunarSeriesState& state);
double SumLunarLatitudeTerms(const LunarSeriesState& state);
double SumLunarDistanceTerms(const LunarSeriesState& state);

}  // namespace zenithor
