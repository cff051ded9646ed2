#include "entry/rising_export.h"

#include <cmath>
#include <limits>

#include "entry/process_store.h"
#include "rising/rising_moon.h"
#include "rising/rising_planet.h"

namespace zenithor {

namespace {

constexpr double kNoAnswer = 0.0;

bool CanAnswer(const EphemerisStore& store, BodyCode code) {
  if (code < ZENITHOR_SUN || code > ZENITHOR_MOON) {
    return false;
  }
  return code == ZENITHOR_MOON || CanPoseRisingPlanet(store, code);
}

bool IsFinite(const RisingRequest& request) {
  return std::isfinite(request.day_number) && std::isfinite(request.minutes) &&
         std::isfinite(request.zone_hours) && std::isfinite(request.longitude) &&
         std::isfinite(request.latitude);
}

}  // namespace

double AnswerRisingFrom(const EphemerisStore& store, ThreadState& state, double day_number,
                        double minutes, double zone_hours, double longitude_west, double latitude,
                        BodyCode code, int32_t selector) {
  // A request that names no event or no body has no answer whatever its numbers are, so the
  // integers are looked at first.
  if (selector < ZENITHOR_RISE || selector > ZENITHOR_SET || !CanAnswer(store, code)) {
    return kNoAnswer;
  }
  const RisingRequest request{day_number, minutes, zone_hours, longitude_west, latitude, code};
  if (!IsFinite(request)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  const RiseSetResult result =
      AnswerEvents(code == ZENITHOR_MOON ? PoseRisingMoon(request)
                                         : PoseRisingPlanet(store, request, state.moment));
  if (selector == ZENITHOR_TRANSIT) {
    return result.Transit;
  }
  return selector == ZENITHOR_RISE ? result.Rise : result.Set;
}

double AnswerRising(double day_number, double minutes, double zone_hours, double longitude_west,
                    double latitude, BodyCode code, int32_t selector) {
  CallState state;
  return AnswerRisingFrom(ProcessStore(), state.Get(), day_number, minutes, zone_hours,
                          longitude_west, latitude, code, selector);
}

}  // namespace zenithor
