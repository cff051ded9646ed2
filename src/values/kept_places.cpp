#include "values/kept_places.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "ephemeris/moment_cache.h"
#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "time/julian_day.h"
#include "time/obliquity.h"

namespace zenithor {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

constexpr BodyPositionRecord kEmptyRecord = {kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             kNone,
                                             {kNone, kNone, kNone, kNone},
                                             kNone,
                                             kNone,
                                             kNone,
                                             0,
                                             0,
                                             0,
                                             0,
                                             0,
                                             0};

// The index of a moment's place; kMomentsAtOnce where it is not kept.
int FindKept(const KeptPlaces& kept, double julian_day) {
  int k = 0;
  while (k < kMomentsAtOnce && kept.places[k].julian_day != julian_day) {
    ++k;
  }
  return k;
}

// Makes room for another moment.
KeptPlace& ReplaceOldest(KeptPlaces& kept, double julian_day) {
  KeptPlace& place = kept.places[kept.oldest];
  kept.oldest = (kept.oldest + 1) % kMomentsAtOnce;
  place.julian_day = julian_day;
  place.has_place = false;
  place.has_ecliptic = false;
  place.has_motion = false;
  return place;
}

KeptPlace& KeptAt(PositionState& state, int body, double julian_day, KeptPlace& spare) {
  if (state.places == nullptr) {
    return spare;
  }
  KeptPlaces& kept = state.places->bodies[body];
  const int k = FindKept(kept, julian_day);
  return k == kMomentsAtOnce ? ReplaceOldest(kept, julian_day) : kept.places[k];
}

// Fills the places of `count` moments, 1 to kMomentsAtOnce. Without data their fields are NaN.
void ComputeKept(const EphemerisStore& store, PositionState& state, int body,
                 const double* julian_days, int count, KeptPlace* const* places) {
  BodyPositionRecord records[kMomentsAtOnce];
  Equatorial apparent[kMomentsAtOnce];
  std::fill_n(records, count, kEmptyRecord);
  std::fill_n(apparent, count, Equatorial{kNone, kNone});
  const double done = ComputePlaces(store, state, julian_days, count, body, records, apparent);
  for (int k = 0; k < count; ++k) {
    places[k]->record = records[k];
    places[k]->apparent = apparent[k];
    places[k]->has_place = done == ZENITHOR_DONE;
  }
}

// From the true equator to the true ecliptic of date.
// Source: Meeus, Astronomical Algorithms, formulae 13.1 and 13.2.
void TurnToEcliptic(double julian_day, MomentCache& cache, KeptPlace& place) {
  const double centuries = JulianCenturies(julian_day);
  const double epsilon = MeanObliquity(centuries) + CachedNutation(centuries, cache).deps;
  const auto [cos_epsilon, sin_epsilon] = CosineAndSine(epsilon);
  const auto [cos_alpha, sin_alpha] = CosineAndSine(place.apparent.alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(place.apparent.delta);
  const double y = sin_alpha * cos_delta * cos_epsilon + sin_delta * sin_epsilon;
  const double x = cos_alpha * cos_delta;
  const double z = sin_delta * cos_epsilon - cos_delta * sin_epsilon * sin_alpha;
  double longitude = ArctangentOfPoint(y, x) * kDegreesPerRadian;
  if (longitude < 0.0) {
    longitude += 360.0;
  }
  // A longitude just below 0 rounds up to the whole turn.
  place.apparent_longitude = longitude >= 360.0 ? 0.0 : longitude;
  place.apparent_latitude = ArctangentOfPoint(z, std::sqrt(x * x + y * y)) * kDegreesPerRadian;
  place.has_ecliptic = place.has_place;
}

// The rate of change from values a step and two steps to either side [units per step].
// Source: M. Abramowitz, I. A. Stegun, Handbook of Mathematical Functions, table 25.2, five points.
double RatePerStep(double step_change, double two_step_change) {
  return (8.0 * step_change - two_step_change) / 12.0;
}

constexpr double kMotionStep = 0.0625;  // [day]

}  // namespace

KeptPlace& PlaceAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                   KeptPlace& spare) {
  KeptPlace& kept = KeptAt(state, body, julian_day, spare);
  if (!kept.has_place) {
    KeptPlace* const places[] = {&kept};
    ComputeKept(store, state, body, &julian_day, 1, places);
  }
  return kept;
}

KeptPlace& EclipticPlaceAt(const EphemerisStore& store, PositionState& state, int body,
                           double julian_day, KeptPlace& spare) {
  KeptPlace& place = PlaceAt(store, state, body, julian_day, spare);
  if (!place.has_ecliptic) {
    TurnToEcliptic(julian_day, state.moment, place);
  }
  return place;
}

KeptPlace& MotionAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                    KeptPlace& spare) {
  KeptPlace& kept = KeptAt(state, body, julian_day, spare);
  if (kept.has_motion) {
    return kept;
  }
  constexpr double kSteps[] = {-2.0, -1.0, 1.0, 2.0};
  KeptPlace around[4];
  KeptPlace* const places[] = {&around[0], &around[1], &around[2], &around[3]};
  double moments[4];
  for (int k = 0; k < 4; ++k) {
    moments[k] = julian_day + kSteps[k] * kMotionStep;
  }
  ComputeKept(store, state, body, moments, 4, places);
  for (int k = 0; k < 4; ++k) {
    TurnToEcliptic(moments[k], state.moment, around[k]);
  }
  const auto longitude_change = [&](int from, int to) {
    return std::remainder(around[to].apparent_longitude - around[from].apparent_longitude, 360.0);
  };
  const auto declination_change = [&](int from, int to) {
    return around[to].record.Declination - around[from].record.Declination;
  };
  kept.longitude_motion = RatePerStep(longitude_change(1, 2), longitude_change(0, 3)) / kMotionStep;
  kept.declination_motion =
      RatePerStep(declination_change(1, 2), declination_change(0, 3)) / kMotionStep;
  kept.has_motion = true;
  return kept;
}

void PreparePlaces(const EphemerisStore& store, PositionState& state, int body,
                   const double* julian_days) {
  if (state.places == nullptr || state.moment.moments_room == nullptr || body == ZENITHOR_PLUTO) {
    return;
  }
  KeptPlaces& kept = state.places->bodies[body];
  for (int k = 0; k < kMomentsAtOnce; ++k) {
    const bool again = std::find(julian_days, julian_days + k, julian_days[k]) != julian_days + k;
    if (again || !std::isfinite(julian_days[k]) ||
        FindKept(kept, julian_days[k]) != kMomentsAtOnce) {
      return;
    }
  }
  KeptPlace* places[kMomentsAtOnce];
  for (int k = 0; k < kMomentsAtOnce; ++k) {
    places[k] = &ReplaceOldest(kept, julian_days[k]);
  }
  ComputeKept(store, state, body, julian_days, kMomentsAtOnce, places);
}

}  // namespace zenithor
