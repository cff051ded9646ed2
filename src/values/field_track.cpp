#include "values/field_track.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "search/time_function.h"
#include "values/fields.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Every body's fields lose less than the guide's own error by interpolation.
constexpr double kSpacings[ZENITHOR_BODY_COUNT] = {2.0, 1.0, 2.0, 2.0, 2.0, 4.0,
                                                   4.0, 4.0, 4.0, 4.0, 0.5};
constexpr double kSunTooNear = 0.0019;  // square of the sine of 2.5 degrees
constexpr double kRateReach = 0.0625;   // [day]

double ComputedValue(const FieldTrack& track, double day) {
  double value;
  SmoothValues(*track.store, *track.state, track.body, track.field, &day, 1, &value);
  return value;
}

KeptNode ComputedNode(const FieldTrack& track, std::int32_t index) {
  const double day = index * track.spacing;
  if (track.body != ZENITHOR_BODY_PLUTO) {
    return {track.function, ComputedValue(track, day), index, true};
  }
  SmoothPlace place{};
  ComputeSmoothPlace(*track.store, *track.state, track.body, day, SmoothPart::kElongation, place);
  return {track.function, FieldOfPlace(place, track.field), index, IsSmoothNode(track.body, place)};
}

// Where a node is kept: neighbours side by side, every function's at a place of its own.
KeptNode& RoomOf(NodeMemory& memory, std::uint64_t function, std::int32_t index) {
  const std::uint64_t start = function * 0x9E3779B97F4A7C15ULL >> 40;
  const std::uint64_t place = start + static_cast<std::uint32_t>(index);
  return memory.nodes[static_cast<std::size_t>(place) % NodeMemory::kNodeCount];
}

KeptNode NodeOf(const FieldTrack& track, std::int32_t index) {
  NodeMemory* const memory = track.state->nodes;
  if (memory == nullptr || track.function == 0) {
    return ComputedNode(track, index);
  }
  if (!memory->cleared) {
    for (KeptNode& node : memory->nodes) {
      node.function = 0;
    }
    memory->cleared = true;
  }
  KeptNode& kept = RoomOf(*memory, track.function, index);
  if (kept.function != track.function || kept.index != index) {
    kept = ComputedNode(track, index);
  }
  return kept;
}

// Gets the interval ready that holds a moment; returns where the moment is in it.
double PositionIn(FieldTrack& track, double day) {
  const double steps = day / track.spacing;
  const double interval = std::floor(steps);
  if (interval != track.interval) {
    double values[kInterpolantNodes] = {};
    bool smooth = true;
    for (int i = 0; i < kInterpolantNodes; ++i) {
      const KeptNode node = NodeOf(track, static_cast<std::int32_t>(interval) - kNodesBefore + i);
      values[i] = node.value;
      smooth = smooth && node.smooth;
    }
    track.interpolant = InterpolantThrough(values, track.period);
    track.smooth = smooth && !std::isnan(InterpolantValue(track.interpolant, kNodesBefore));
    track.interval = interval;
  }
  return kNodesBefore + (steps - interval);
}

// Whether nodes near the moment can be counted.
bool IsCountable(const FieldTrack& track, double day) {
  return std::fabs(day) < 1e9 * track.spacing;
}

// A key that no other field of a body has; 0 for terms without a fingerprint.
std::uint64_t FunctionKey(const EphemerisStore& store, std::int32_t body, std::int32_t field) {
  const std::uint64_t terms = store.bodies[kEarthSlot].fingerprint;
  return terms == 0 ? 0 : terms ^ (static_cast<std::uint64_t>(256 * body + field) << 40);
}

// Whose rate a motion is; the field itself otherwise.
std::int32_t FieldOfMotion(std::int32_t field) {
  switch (field) {
    case ZENITHOR_FIELD_LONGITUDE_MOTION:
      return ZENITHOR_FIELD_APPARENT_LONGITUDE;
    case ZENITHOR_FIELD_DECLINATION_MOTION:
      return ZENITHOR_FIELD_DECLINATION;
    default:
      return field;
  }
}

}  // namespace

double NodeSpacing(std::int32_t body) { return IsBody(body) ? kSpacings[body] : kNaN; }

bool IsSmoothNode(std::int32_t body, const SmoothPlace& place) {
  return body != ZENITHOR_BODY_PLUTO || place.half_angle_sine >= kSunTooNear;
}

FieldTrack TrackOf(const EphemerisStore& store, PositionState& state, std::int32_t body,
                   std::int32_t field) {
  FieldTrack track{};
  track.store = &store;
  track.state = &state;
  track.body = body;
  track.field = FieldOfMotion(field);
  track.is_motion = track.field != field;
  track.function = FunctionKey(store, body, track.field);
  track.spacing = NodeSpacing(body);
  track.period = PeriodOfField(track.field);
  track.interval = kNaN;
  return track;
}

double TrackValue(FieldTrack& track, double day) {
  if (track.is_motion) {
    return TrackRate(track, day);
  }
  if (!IsCountable(track, day)) {
    return ComputedValue(track, day);
  }
  const double steps = day / track.spacing;
  if (steps == std::floor(steps)) {
    return NodeOf(track, static_cast<std::int32_t>(steps)).value;
  }
  const double s = PositionIn(track, day);
  return track.smooth ? InterpolantValue(track.interpolant, s) : ComputedValue(track, day);
}

double TrackRate(FieldTrack& track, double day) {
  if (IsCountable(track, day)) {
    const double steps = day / track.spacing;
    if (steps == std::floor(steps)) {
      const auto index = static_cast<std::int32_t>(steps);
      const double before = NodeOf(track, index - 1).value;
      return Departure(NodeOf(track, index + 1).value, before, track.period) /
             (2.0 * track.spacing);
    }
    const double s = PositionIn(track, day);
    if (track.smooth) {
      return InterpolantRate(track.interpolant, s) / track.spacing;
    }
  }
  const double before = ComputedValue(track, day - kRateReach);
  return Departure(ComputedValue(track, day + kRateReach), before, track.period) /
         (2.0 * kRateReach);
}

double TrackQuotientError(FieldTrack& track, double day, double reach) {
  if (!IsCountable(track, day)) {
    return 0.0;
  }
  const double s = PositionIn(track, day);
  if (!track.smooth) {
    return 0.0;
  }
  const double reach_in_steps = reach / track.spacing;
  const double change = InterpolantValue(track.interpolant, s + reach_in_steps) -
                        InterpolantValue(track.interpolant, s - reach_in_steps);
  return InterpolantRate(track.interpolant, s) / track.spacing - change / (2.0 * reach);
}

}  // namespace zenithor
