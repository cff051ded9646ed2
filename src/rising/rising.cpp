#include "rising/rising.h"

#include <cmath>
#include <limits>

#include "rising/rising_moon.h"
#include "rising/rising_planet.h"

namespace zenithor {

namespace {

constexpr double kNoAnswer = 0.0;

// No other code has a slot that could be loaded.
bool CanAnswer(const EphemerisStore& store, BodyCode code) {
  return code == ZENITHOR_MOON || HasSlotsForRising(store, code);
}

bool IsFinite(const RisingRequest& request) {
  return std::isfinite(request.day_number) && std::isfinite(request.minutes) &&
         std::isfinite(request.zone_hours) && std::isfinite(request.longitude) &&
         std::isfinite(request.latitude);
}

}  // namespace

double ComputeRising(const EphemerisStore& store, MomentCache& cache, const RisingRequest& request,
                     std::int32_t selector) {
  // A request that names no event or no body has no answer whatever its numbers are, so the
  // integers are looked at first.
  if (selector < ZENITHOR_RISE || selector > ZENITHOR_SET || !CanAnswer(store, request.code)) {
    return kNoAnswer;
  }
  if (!IsFinite(request)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  const RiseSetResult result =
      RiseSetMinutes(request.code == ZENITHOR_MOON ? MoonRiseSetProblem(request)
                                                   : PlanetRiseSetProblem(store, request, cache));
  if (selector == ZENITHOR_TRANSIT) {
    return result.Transit;
  }
  return selector == ZENITHOR_RISE ? result.Rise : result.Set;
}

}  // namespace zenithor
