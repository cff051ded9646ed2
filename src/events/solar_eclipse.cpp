#include "events/solar_eclipse.h"

#include <cmath>

#include "events/eclipse_core.h"
#include "events/lunar_phase.h"

namespace zenithor {

namespace {

constexpr double kCentralLimit = 0.9972;
constexpr double kPartialLimit = 1.5433;

}  // namespace

std::int32_t ClassifySolarEclipse(double u, double abs_gamma) {
  if (abs_gamma < kCentralLimit) {
    if (u < 0.0) {
      return kTotalEclipse;
    }
    const bool annular_total = u <= 0.0047 && 0.00464 * std::sqrt(1.0 - abs_gamma * abs_gamma) > u;
    return annular_total ? kAnnularTotalEclipse : kAnnularEclipse;
  }
  if (abs_gamma >= kCentralLimit + std::fabs(u)) {
    return kPartialEclipse;
  }
  // Kept on purpose: a non-central eclipse is called total up to u = 0.0047, not only below zero: 4
  // of the 122 non-central ones from -2000 to 4000, among them that of 2014 April 29.
  return u <= 0.0047 ? kNonCentralTotalEclipse : kNonCentralAnnularEclipse;
}

SolarEclipse DescribeSolarEclipse(const EclipseGeometry& at) {
  if (!(at.abs_gamma <= kPartialLimit + at.u)) {
    return {};
  }
  const std::int32_t kind = ClassifySolarEclipse(at.u, at.abs_gamma);
  const double magnitude =
      kind == kPartialEclipse ? (kPartialLimit + at.u - at.abs_gamma) / (0.5461 + 2.0 * at.u) : 0.0;
  return {true, at.jde, kind, magnitude};
}

SolarEclipse FindSolarEclipse(double julian_day) {
  double k = FirstLunationAfter(julian_day);
  if (!CanCountFrom(k)) {
    return {};
  }
  for (std::int32_t lunation = 0; lunation < kLongestSearch; ++lunation, k += 1.0) {
    const SolarEclipse eclipse = DescribeSolarEclipse(ComputeEclipseGeometry(k, Eclipses::kSolar));
    if (eclipse.found) {
      return eclipse;
    }
  }
  return {};
}

}  // namespace zenithor
