#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "span.h"

namespace zenithor::almanac {

// A moment that a search of values.h found, and its code: a direction or a kind.
struct Found {
  double day;
  std::int32_t code;
};

// The search over one span: bounds, arrays, their capacity; as in values.h.
using Search = std::function<std::int32_t(double from, double to, double* days, std::int32_t* codes,
                                          std::int32_t capacity)>;

// Everything that a search finds in a span, century by century. `advanced` is told how much of the
// span is done, from 0 to 1.
std::vector<Found> FindAll(const Search& search, const Span& span,
                           const std::function<void(double)>& advanced);

}  // namespace zenithor::almanac
