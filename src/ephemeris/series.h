#pragma once

#include "ephemeris/store.h"
#include "time/transforms.h"

namespace zenithor {

// Heliocentric places: longitude L and latitude B in radians, radius vector R in astronomical
// units, ecliptic and mean equinox of date. T is in Julian centuries from J2000.0; any is answered.
//
// The theory is good to 1" for Mercury to Mars over 4000 years either way of J2000.0, for Jupiter
// and Saturn over 2000, for Uranus and Neptune over 6000. The library's sums are within 5.5e-10 rad
// and 1.5e-12 au of the theory's over 5000 years, 5.4e-11 rad and 1.1e-13 au over 500 (Mercury, the
// worst; docs/accuracy.md). Data that karvo has thinned are as coarse as their manifest says.
// Source: P. Bretagnon, G. Francou, Planetary theories in rectangular and spherical variables:
// VSOP87 solutions, Astronomy and Astrophysics 202 (1988); Meeus, chapters 32 and 37.
//
// `room` is working memory for the sum; without it the same bits take several times as long.

// The place of the body `code`: 9 is Pluto from its table (ecliptic and equinox J2000.0), any other
// the series of that slot.
Spherical EvaluateBody(const EphemerisStore& store, int code, double centuries,
                       SumRoom* room = nullptr);

// The stored series of `slot` (0 to 8) corrected to the FK5 frame. A slot that is not loaded, or
// does not exist, gives zeros. L may lie a few milliarcseconds outside [0, 2 pi).
Spherical EvaluateSeries(const EphemerisStore& store, int slot, double centuries,
                         SumRoom* room = nullptr);

// EvaluateSeries at four times side by side: the same bits in about two thirds of the time. False,
// with nothing written, where one of them has to be walked plainly or the slot is not loaded.
bool EvaluateSeriesAtOnce(const EphemerisStore& store, int slot,
                          const double (&centuries)[kMomentsAtOnce], MomentsRoom& room,
                          Spherical (&places)[kMomentsAtOnce]);

// The stored series alone, before any reduction or frame correction: L grows with T. Zeros for a
// slot that is not loaded.
Spherical SumStoredSeries(const EphemerisStore& store, int slot, double centuries,
                          SumRoom* room = nullptr);

// The Sun as seen from the body of `slot`, geometric; its longitude in [0, 2 pi).
Spherical EvaluateSunGeocentric(const EphemerisStore& store, int slot, double centuries);

// The Sun as seen from a body at that heliocentric place.
Spherical SunSeenFrom(const Spherical& body);

// EvaluateSunGeocentric in rectangular coordinates [au], rotated to the equator by `epsilon` [rad],
// or, for slot 0, by the fixed rotation to the equator of J2000.0 in the FK5 frame.
Rectangular EclipticRectangular(const EphemerisStore& store, int slot, double centuries,
                                double epsilon);

}  // namespace zenithor
