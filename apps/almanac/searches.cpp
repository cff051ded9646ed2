#include "searches.h"

#include <algorithm>

#include "trouble.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

std::vector<Found> FindAll(const Search& search, const Span& span, const Advanced& advanced) {
  constexpr double kCentury = 36525.0;
  std::vector<Found> found;
  std::vector<double> days(1024);
  std::vector<std::int32_t> codes(days.size());
  for (double from = span.from; from < span.to; from += kCentury) {
    const double to = std::min(from + kCentury, span.to);
    std::int32_t count = 0;
    while (true) {
      count = search(from, to, days.data(), codes.data(), static_cast<std::int32_t>(days.size()));
      if (count < 0) {
        throw Trouble("the search was refused: {}", ZenithorMessage(count));
      }
      if (static_cast<std::size_t>(count) <= days.size()) {
        break;
      }
      days.resize(static_cast<std::size_t>(count));
      codes.resize(days.size());
    }
    for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
      found.push_back({days[k], codes[k]});
    }
    advanced((to - span.from) / (span.to - span.from));
  }
  return found;
}

}  // namespace zenithor::almanac
