#include "events/lunar_eclipse.h"

#include <cmath>

#include "events/eclipse_core.h"
#include "events/lunar_phase.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

// |gamma| [Earth radii] at which the phases in the umbra begin, for u = 0.
constexpr double kUmbralLimit = 1.0128;
constexpr double kTotalityLimit = 0.4678;
constexpr double kMagnitudePerRadius = 1.8348623853211008;  // 1 / 0.545

// Days for the Moon to cross half the chord that it cuts at |gamma| from a circle of that radius;
// 0 when it passes outside. n: Earth radii per day.
double Semiduration(double radius, double abs_gamma, double n) {
  return abs_gamma < radius ? std::sqrt(radius * radius - abs_gamma * abs_gamma) / n : 0.0;
}

}  // namespace

LunarEclipse DescribeLunarEclipse(const EclipseGeometry& at) {
  double magnitude = (kUmbralLimit - at.u - at.abs_gamma) * kMagnitudePerRadius;
  const bool umbral = !(magnitude < 0.0);
  if (!umbral) {
    magnitude = (kPenumbralLimit + at.u - at.abs_gamma) * kMagnitudePerRadius;
  }
  // A magnitude of exactly zero does not count.
  if (!(magnitude > 0.0)) {
    return {};
  }
  const double n = (0.5458 + 0.04 * Cosine(at.mprime)) * 24.0;
  LunarEclipse eclipse{true, at.jde, kPenumbralEclipse, magnitude, 0.0, 0.0};
  if (!umbral) {
    eclipse.outer_semiduration = Semiduration(kPenumbralLimit + at.u, at.abs_gamma, n);
    return eclipse;
  }
  const double totality_radius = kTotalityLimit - at.u;
  eclipse.kind = at.abs_gamma < totality_radius ? kTotalEclipse : kPartialEclipse;
  eclipse.totality_semiduration = Semiduration(totality_radius, at.abs_gamma, n);
  eclipse.outer_semiduration = Semiduration(kUmbralLimit - at.u, at.abs_gamma, n);
  return eclipse;
}

LunarEclipse FindLunarEclipse(double julian_day) {
  double k = FirstLunationAfter(julian_day) + 0.5;
  if (!CanCountFrom(k)) {
    return {};
  }
  for (std::int32_t lunation = 0; lunation < kLongestSearch; ++lunation, k += 1.0) {
    const LunarEclipse eclipse = DescribeLunarEclipse(ComputeEclipseGeometry(k));
    if (eclipse.found) {
      return eclipse;
    }
  }
  return {};
}

}  // namespace zenithor
