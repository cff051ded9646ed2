#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "progress.h"
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

// Is told how much of a search is done, from 0 to 1.
using Advanced = std::function<void(double)>;

// Everything that a search finds in a span, century by century.
std::vector<Found> FindAll(const Search& search, const Span& span, const Advanced& advanced);

// What `search(k, advanced)` finds for every k below `count`, in the order of `day_of`, with a bar
// named `name` for all of it.
template <class SearchOne, class DayOf>
auto FindEach(const std::string& name, std::size_t count, const SearchOne& search,
              const DayOf& day_of) {
  Progress progress(name);
  decltype(search(count, Advanced())) all;
  for (std::size_t k = 0; k < count; ++k) {
    const auto some = search(k, [&](double part) {
      progress.Show((static_cast<double>(k) + part) / static_cast<double>(count));
    });
    all.insert(all.end(), some.begin(), some.end());
  }
  std::stable_sort(all.begin(), all.end(),
                   [&](const auto& a, const auto& b) { return day_of(a) < day_of(b); });
  return all;
}

}  // namespace zenithor::almanac
