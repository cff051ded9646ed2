#include "ephemeris/series.h"

#include <algorithm>

#include "ephemeris/cosine_sum.h"
#include "ephemeris/pluto_table.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/extended.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

constexpr Extended kMillenniaPerCentury = {0x1.999999999999ap-4, -0x1.998p-58};  // 0.1
constexpr double kFk5Amplitude = 0.03916;                                        // [arcsec]
constexpr double kFk5Longitude = -0.09033;                                       // [arcsec]

double Millennia(double centuries) { return TimesExtended(centuries, kMillenniaPerCentury); }

// The rotation from the dynamical ecliptic of VSOP87 to the FK5 (Meeus, formula 32.3).
void CorrectToFk5(double millennia, Spherical& place) {
  // Kept on purpose: the argument counts millennia where the published formula counts centuries; up
  // to 0.0012" a century from J2000.0, 0.012" ten centuries away.
  const double lprime =
      place.longitude - (1.397 * millennia + 0.00031 * millennia * millennia) * kRadiansPerDegree;
  const auto [cos_lprime, sin_lprime] = CosineAndSine(lprime);
  place.longitude +=
      (kFk5Longitude + kFk5Amplitude * (cos_lprime + sin_lprime) * Tangent(place.latitude)) *
      kRadiansPerArcsecond;
  place.latitude += kFk5Amplitude * (cos_lprime - sin_lprime) * kRadiansPerArcsecond;
}

// The sums of the powers of T.
Spherical CoordinatesOf(const double (&sums)[kSeriesCount], double t) {
  double coordinates[3];
  const double* sum = sums;
  for (double& coordinate : coordinates) {
    coordinate = 0.0;
    double power = 1.0;
    for (int p = 0; p < kPowerCount; ++p, ++sum) {
      coordinate += *sum * power;
      power *= t;
    }
  }
  return {coordinates[0], coordinates[1], coordinates[2]};
}

Spherical InFk5(Spherical place, double t) {
  // Kept on purpose: the longitude is not reduced again after the correction; down to -0.1".
  place.longitude = ReduceAngle(place.longitude);
  CorrectToFk5(t, place);
  return place;
}

// Term after term: for terms and times that the fast sum does not take.
void SumPlainly(const BodySeries& body, double t, double (&sums)[kSeriesCount]) {
  const SeriesTerm* term = body.terms;
  // Single counts that disagree with their sum never lead past the block.
  const SeriesTerm* const end = term + body.term_count;
  for (std::size_t series = 0; series < kSeriesCount; ++series) {
    const std::ptrdiff_t count = body.index.series[series].term_count;
    const SeriesTerm* const last = term + std::clamp<std::ptrdiff_t>(count, 0, end - term);
    sums[series] = 0.0;
    for (; term != last; ++term) {
      sums[series] += term->amplitude * Cosine(term->phase + term->frequency * t);
    }
  }
}

}  // namespace

Spherical SumStoredSeries(const EphemerisStore& store, int slot, double centuries, SumRoom* room) {
  if (!IsLoaded(store, slot)) {
    return {0.0, 0.0, 0.0};
  }
  const double t = Millennia(centuries);
  const BodySeries& body = store.bodies[slot];
  double sums[kSeriesCount];
  if (CanSumTracks(body.tracks, t)) {
    SumTracks(body.tracks, t, room, sums);
  } else {
    SumPlainly(body, t, sums);
  }
  return CoordinatesOf(sums, t);
}

Spherical EvaluateSeries(const EphemerisStore& store, int slot, double centuries, SumRoom* room) {
  if (!IsLoaded(store, slot)) {
    return {0.0, 0.0, 0.0};
  }
  return InFk5(SumStoredSeries(store, slot, centuries, room), Millennia(centuries));
}

bool EvaluateSeriesAtOnce(const EphemerisStore& store, int slot,
                          const double (&centuries)[kMomentsAtOnce], MomentsRoom& room,
                          Spherical (&places)[kMomentsAtOnce]) {
  if (!IsLoaded(store, slot)) {
    return false;
  }
  const TermTracks& tracks = store.bodies[slot].tracks;
  double t[kMomentsAtOnce];
  for (int k = 0; k < kMomentsAtOnce; ++k) {
    t[k] = Millennia(centuries[k]);
    if (!CanSumTracks(tracks, t[k])) {
      return false;
    }
  }
  double sums[kMomentsAtOnce][kSeriesCount] = {};
  SumMoments(tracks, t, room, sums);
  for (int k = 0; k < kMomentsAtOnce; ++k) {
    places[k] = InFk5(CoordinatesOf(sums[k], t[k]), t[k]);
  }
  return true;
}

Spherical EvaluateBody(const EphemerisStore& store, int code, double centuries, SumRoom* room) {
  constexpr int kPlutoCode = 9;
  return code == kPlutoCode ? EvaluatePluto(centuries)
                            : EvaluateSeries(store, code, centuries, room);
}

Spherical SunSeenFrom(const Spherical& body) {
  return {ReduceAngle(body.longitude + kPi), -body.latitude, body.radius};
}

Spherical EvaluateSunGeocentric(const EphemerisStore& store, int slot, double centuries) {
  return SunSeenFrom(EvaluateSeries(store, slot, centuries));
}

Rectangular EclipticRectangular(const EphemerisStore& store, int slot, double centuries,
                                double epsilon) {
  const Rectangular r = SphericalToRectangular(EvaluateSunGeocentric(store, slot, centuries));
  if (slot != kEarthJ2000Slot) {
    const auto [cos_epsilon, sin_epsilon] = CosineAndSine(epsilon);
    return TurnBackAboutFirstAxis(r, cos_epsilon, sin_epsilon);
  }
  // Meeus, formula 26.3.
  return {r.x + 4.4036e-7 * r.y - 1.90919e-7 * r.z,
          -4.79966e-7 * r.x + 0.917482137087 * r.y - 0.397776982902 * r.z,
          0.397776982902 * r.y + 0.917482137087 * r.z};
}

}  // namespace zenithor
