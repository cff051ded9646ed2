#include "stations.h"

#include "zenithor/values.h"

namespace zenithor::almanac {

Bodies TurningBodies() {
  return BodiesWithout({ZENITHOR_BODY_SUN, ZENITHOR_BODY_MOON, ZENITHOR_BODY_EARTH});
}

std::vector<Station> StationsOf(const Body& body, std::int32_t field, const Span& span,
                                const Advanced& advanced) {
  const auto search = [&](double from, double to, double* days, std::int32_t* codes,
                          std::int32_t capacity) {
    return ZenithorDirectedStations(body.code, field, from, to, days, codes, capacity);
  };
  std::vector<Station> stations;
  for (const Found& found : FindAll(search, span, advanced)) {
    stations.push_back({body, found.day, found.code, ZenithorValue(body.code, field, found.day)});
  }
  return stations;
}

}  // namespace zenithor::almanac
