// How fast the fields change and bend, from -2000 to 4000: the table src/values/field_bounds.inc.
//   field_bounds_scan [WINDOWS [SEED [BODY]]] > src/values/field_bounds.inc
// For every body and field the greatest first, second and third derivative met in WINDOWS windows
// of 17 moments, random and evenly spread over the span by a draw in each of as many equal parts,
// times a margin of 1.5 (kMargin); and the rounding noise, twice the greatest scatter met.
// How far the track (field_track.h) is off, in value, rate and bend, has the first margin too.
// Left out are windows in which Pluto is within 3 degrees of the Sun: the bending of its light
// grows there without limit, as 0.008" / elongation, also where the Sun's disc would hide it.
// Derivatives are taken from seven values `spacing` apart, which suits the body.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "positions/position.h"
#include "support/full_store.h"
#include "values/field_track.h"
#include "values/guide_store.h"
#include "values/smooth_values.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

constexpr double kMargin = 1.5;
constexpr double kNoiseMargin = 2.0;
constexpr int kMoments = 17;
constexpr double kPlutoTooNear = 0.000685;  // square of the sine of 1.5 degrees
constexpr int kFields[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 15, 16, 17, 101, 102, 103, 104, 105};

// [day] between the moments of a window, by body.
constexpr double kSpacings[] = {0.5, 0.25, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.0625};

double PeriodOf(int field) {
  const bool longitude = field == 1 || field == 4 || field == 101;
  return longitude ? 360.0 : field == 7 ? 24.0 : 0.0;
}

bool Has(int body, int field) {
  const bool sun = body == ZENITHOR_BODY_SUN;
  const bool moon = body == ZENITHOR_BODY_MOON;
  if (field <= 3) {
    return !sun && !moon;
  }
  if (field == 9 || field == 10 || field == 15) {
    return moon;
  }
  if (field == 16 || field == 17) {
    return !moon && body != ZENITHOR_BODY_PLUTO;
  }
  return body != ZENITHOR_BODY_EARTH && !(field == 105 && sun);
}

struct Extremes {
  double lowest_rate = 1e300;
  double highest_rate = -1e300;
  double bend = 0.0;
  double bend_rate = 0.0;
  double noise = 0.0;
  double guide_error = 0.0;
  double guide_rate_error = 0.0;
  double guide_bend_error = 0.0;
};

double Unwrapped(double x, double near, double period) {
  return period > 0.0 ? near + std::remainder(x - near, period) : x;
}

// The derivatives from f[-3] to f[3].
void Measure(const double* f, double h, Extremes& out) {
  const double first = (45.0 * (f[1] - f[-1]) - 9.0 * (f[2] - f[-2]) + (f[3] - f[-3])) / (60.0 * h);
  const double second =
      (-490.0 * f[0] + 270.0 * (f[1] + f[-1]) - 27.0 * (f[2] + f[-2]) + 2.0 * (f[3] + f[-3])) /
      (180.0 * h * h);
  const double third =
      (-13.0 * (f[1] - f[-1]) + 8.0 * (f[2] - f[-2]) - (f[3] - f[-3])) / (8.0 * h * h * h);
  out.lowest_rate = std::min(out.lowest_rate, first);
  out.highest_rate = std::max(out.highest_rate, first);
  out.bend = std::max(out.bend, std::fabs(second));
  out.bend_rate = std::max(out.bend_rate, std::fabs(third));
}

// What the track has more than the field, from d[-3] to d[3].
void MeasureGuide(const double* d, double h, bool motion, Extremes& out) {
  Extremes rest;
  Measure(d, h, rest);
  const double rate = std::max(std::fabs(rest.lowest_rate), std::fabs(rest.highest_rate));
  out.guide_error = std::max(out.guide_error, motion ? rate : std::fabs(d[0]));
  out.guide_rate_error = std::max(out.guide_rate_error, motion ? rest.bend : rate);
  out.guide_bend_error = std::max(out.guide_bend_error, motion ? rest.bend_rate : rest.bend);
}

// Motions are the derivatives of another field: their own, from one derivative higher.
void MeasureMotion(const double* f, double h, Extremes& out) {
  Extremes of_field;
  Measure(f, h, of_field);
  out.lowest_rate = std::min(out.lowest_rate, -of_field.bend);
  out.highest_rate = std::max(out.highest_rate, of_field.bend);
  out.bend = std::max(out.bend, of_field.bend_rate);
  const double fourth =
      (56.0 * f[0] - 39.0 * (f[1] + f[-1]) + 12.0 * (f[2] + f[-2]) - (f[3] + f[-3])) /
      (6.0 * h * h * h * h);
  out.bend_rate = std::max(out.bend_rate, std::fabs(fourth));
}

// The scatter of five values so close together that they lie on a parabola.
void MeasureNoise(const double* f, Extremes& out) {
  const double rest = f[4] - 4.0 * f[3] + 6.0 * f[2] - 4.0 * f[1] + f[0];
  out.noise = std::max(out.noise, std::fabs(rest) / 8.0);
}

bool HasGuide(int field) { return field != 16 && field != 17; }

// The nodes of the tracks that a window needs, all fields at once.
struct NodePlaces {
  static constexpr int kMost = 32;
  double spacing;
  double first;  // its number
  int count;
  SmoothPlace places[kMost];
};

void ComputeNodes(const EphemerisStore& store, PositionState& state, int body, double from,
                  double to, NodePlaces& nodes) {
  nodes.spacing = NodeSpacing(body);
  nodes.first = std::floor(from / nodes.spacing) - kNodesBefore;
  nodes.count = static_cast<int>(std::floor(to / nodes.spacing) - nodes.first) + kNodesBefore + 2;
  if (nodes.count > NodePlaces::kMost) {
    std::abort();
  }
  for (int i = 0; i < nodes.count; ++i) {
    nodes.places[i] = {};
    ComputeSmoothPlace(store, state, body, (nodes.first + i) * nodes.spacing, SmoothPart::kWhole,
                       nodes.places[i]);
  }
}

// What a track makes of the nodes; `computed` where it would not interpolate.
double Tracked(const NodePlaces& nodes, int body, int field, double day, double computed) {
  const double steps = day / nodes.spacing;
  const double interval = std::floor(steps);
  const SmoothPlace* const first =
      nodes.places + static_cast<int>(interval - nodes.first) - kNodesBefore;
  double values[kInterpolantNodes];
  for (int i = 0; i < kInterpolantNodes; ++i) {
    if (!IsSmoothNode(body, first[i])) {
      return computed;
    }
    values[i] = FieldOfPlace(first[i], field);
  }
  return InterpolantValue(InterpolantThrough(values, PeriodOf(field)),
                          kNodesBefore + (steps - interval));
}

void ScanBody(int body, int windows, unsigned seed, const EphemerisStore& guide) {
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  Extremes extremes[std::size(kFields)];
  static SumRoom room;
  PositionState state;
  state.moment.room = &room;
  const double h = kSpacings[body];
  const double width = (ZENITHOR_LAST_DAY - ZENITHOR_FIRST_DAY) / windows;
  for (int w = 0; w < windows; ++w) {
    const double start = ZENITHOR_FIRST_DAY + (w + part(random)) * width;
    const bool noise = w % 8 == 0;
    const int count = noise ? 5 : kMoments;
    const double step = noise ? std::ldexp(1.0, -20) : h;
    SmoothPlace places[kMoments];
    bool too_near = false;
    for (int i = 0; i < count; ++i) {
      places[i] = {};
      ComputeSmoothPlace(testing::FullStore(), state, body, start + i * step, SmoothPart::kWhole,
                         places[i]);
      too_near |= body == ZENITHOR_BODY_PLUTO && places[i].half_angle_sine < kPlutoTooNear;
    }
    if (too_near) {
      continue;
    }
    static NodePlaces nodes;
    if (!noise) {
      ComputeNodes(body <= ZENITHOR_BODY_NEPTUNE ? guide : testing::FullStore(), state, body, start,
                   start + count * step, nodes);
    }
    for (std::size_t k = 0; k < std::size(kFields); ++k) {
      const int field = kFields[k];
      const bool motion = field == 103 || field == 104;
      const int source = field == 103 ? 101 : field == 104 ? 8 : field;
      double f[kMoments];
      double d[kMoments];
      for (int i = 0; i < count; ++i) {
        const double x = FieldOfPlace(places[i], source);
        f[i] = i == 0 ? x : Unwrapped(x, f[i - 1], PeriodOf(source));
        d[i] = noise || !HasGuide(field)
                   ? 0.0
                   : Unwrapped(Tracked(nodes, body, source, start + i * step, x), x,
                               PeriodOf(source)) -
                         x;
      }
      if (noise) {
        MeasureNoise(f, extremes[k]);
        continue;
      }
      for (int i = 3; i + 3 < count; ++i) {
        motion ? MeasureMotion(f + i, h, extremes[k]) : Measure(f + i, h, extremes[k]);
        if (HasGuide(field)) {
          MeasureGuide(d + i, h, motion, extremes[k]);
        }
      }
    }
  }
  for (std::size_t k = 0; k < std::size(kFields); ++k) {
    const int field = kFields[k];
    if (!Has(body, field)) {
      continue;
    }
    const Extremes& e = extremes[k];
    const bool motion = field == 103 || field == 104;
    // At its nodes a track's rate is a quotient.
    const double spacing = NodeSpacing(body);
    const double guide_error =
        e.guide_error + (motion && HasGuide(field) ? spacing * spacing / 6.0 * e.bend : 0.0);
    // The definition of a motion adds up 18 values with 16 / 12.
    const double noise = kNoiseMargin * e.noise * (motion ? 24.0 : 1.0);
    std::printf("    {%d, %d, %.2e, %.2e, %.2e, %.2e, %.2e, %.2e, %.2e, %.2e},\n", body, field,
                e.lowest_rate, e.highest_rate, kMargin * e.bend, kMargin * e.bend_rate, noise,
                kMargin * guide_error, kMargin * e.guide_rate_error, kMargin * e.guide_bend_error);
  }
  std::fflush(stdout);
}

}  // namespace
}  // namespace zenithor

int main(int argc, char** argv) {
  const int windows = argc > 1 ? std::atoi(argv[1]) : 40000;
  const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
  std::printf(
      "// By tests/scan/field_bounds_scan. Body, field, lowest and highest rate met [unit/day];\n"
      "// second and third derivative [unit/day^2, unit/day^3] and noise [unit], with margins;\n"
      "// how far the track is off [unit, unit/day, unit/day^2].\n");
  static zenithor::EphemerisStore guide;
  static zenithor::GuideRooms rooms;
  zenithor::MakeGuide(zenithor::testing::FullStore(), guide, rooms);
  const int only = argc > 3 ? std::atoi(argv[3]) : -1;
  for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    if (only < 0 || only == body) {
      zenithor::ScanBody(body, windows, seed, guide);
    }
  }
  return 0;
}
