#pragma once

#include <cstdint>

namespace zenithor {

constexpr std::int32_t kNewMoon = 0;
constexpr std::int32_t kFirstQuarter = 1;
constexpr std::int32_t kFullMoon = 2;
constexpr std::int32_t kLastQuarter = 3;

// Lunations are counted from the mean new moon of 2000 January 6: whole numbers are new moons,
// .25 first quarters, .5 full moons, .75 last quarters.
constexpr double kMeanNewMoonOf2000 = 2451550.09765;             // Julian Ephemeris Day
constexpr double kCenturiesPerLunation = 0.0008085054776246109;  // 1 / 1236.85

// Julian Ephemeris Day of the mean phase of lunation k; T = k kCenturiesPerLunation.
double MeanPhase(double k, double centuries);

// The number of the lunation in which PhaseInstant looks: the one whose mean new moon falls at or
// before the day plus one; for the new moon the one after it.
double PhaseLunation(double julian_day, std::int32_t phase);

// Julian Ephemeris Day of the phase of that lunation: mean phase, 25 periodic terms, the correction
// of the quarters and 14 planetary terms. Against the book's second edition up to 98 s apart for
// full moons and 30 s for the other phases from 1900 to 2100, 5 minutes from 1000 to 3000, 40
// minutes in -1000 (docs/deliberate.md has what makes the difference). Any day that is finite has a
// value; where T^4 is not finite (from 1e81 days on) it is NaN.
//   phase   0 to 3 as above; anything else is computed as a quarter without the quarters'
//           correction, a quarter lunation later for each unit
// Source: Meeus, Astronomical Algorithms, chapter 49 (first edition: 47).
double PhaseInstant(double julian_day, std::int32_t phase);

}  // namespace zenithor
