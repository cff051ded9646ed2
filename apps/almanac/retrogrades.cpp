#include "retrogrades.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

// Longer than from a station to the third that follows, of any planet: Mars takes 780 days from
// one retrograde time to the next.
constexpr double kAround = 1000.0;

// The last moment of a span at which the longitude is met, or the first.
double Met(const Body& body, std::int32_t field, double longitude, const Span& span, bool last) {
  const auto search = [&](double from, double to, double* days, std::int32_t* codes,
                          std::int32_t capacity) {
    return ZenithorDirectedCrossings(body.code, field, longitude, from, to, days, codes, capacity);
  };
  const std::vector<Found> found = FindAll(search, span, [](double) {});
  if (found.empty()) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  return last ? found.back().day : found.front().day;
}

}  // namespace

std::vector<Retrograde> RetrogradesOf(const Body& body, std::int32_t field, const Span& span,
                                      const Advanced& advanced) {
  const Span around = {std::max(span.from - kAround, ZENITHOR_FIRST_DAY),
                       std::min(span.to + kAround, ZENITHOR_LAST_DAY)};
  const std::vector<Station> stations = StationsOf(body, field, around, advanced);
  std::vector<Retrograde> retrogrades;
  for (std::size_t k = 0; k + 1 < stations.size(); ++k) {
    const Station& begins = stations[k];
    const Station& ends = stations[k + 1];
    if (begins.direction > 0 || ends.day <= span.from || begins.day >= span.to) {
      continue;
    }
    // The planet is direct between the stations either side. At a station itself rounding may find
    // the longitude once more.
    constexpr double kApart = 1e-3;
    const double before = k > 0 ? stations[k - 1].day : around.from;
    const double behind = k + 2 < stations.size() ? stations[k + 2].day : around.to;
    retrogrades.push_back(
        {body, Met(body, field, ends.longitude, {before + kApart, begins.day - kApart}, true),
         begins, ends,
         Met(body, field, begins.longitude, {ends.day + kApart, behind - kApart}, false)});
  }
  return retrogrades;
}

}  // namespace zenithor::almanac
