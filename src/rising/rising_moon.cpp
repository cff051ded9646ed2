#include "rising/rising_moon.h"

#include "moon/lunar_series.h"
#include "numerics/arcs.h"
#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

namespace {

constexpr double kEarthRadiusKm = 6378.14;

}  // namespace

RiseSetProblem MoonRiseSetProblem(const RisingRequest& request) {
  const RisingDay day = FindRisingDay(request);
  const double epsilon = MeanObliquity(day.centuries);
  ThreePlaces places{};
  for (std::size_t k = 0; k < places.size(); ++k) {
    // Kept on purpose: without nutation; 0.03 minute up to latitude 50.
    const LunarPosition moon = ComputeLunarPosition(PlaceCenturies(day, k));
    places[k] = EclipticToEquatorial(moon.lambda, moon.beta, epsilon);
  }
  // Kept on purpose: the parallax of the given instant, not of the event; 0.1 minute up to latitude
  // 50.
  const double distance_km = ComputeLunarPosition(day.centuries).distance_km;
  const double parallax = Arcsine(kEarthRadiusKm / distance_km);
  return PoseRiseSet(day, places, 0.7275 * parallax - kHorizonRefraction);
}

}  // namespace zenithor
