#pragma once

#include <cstring>
#include <type_traits>

namespace zenithor::testing {

// Whether two records are the same in every byte: a NaN equals itself, 0.0 and -0.0 differ.
template <class Record>
bool SameBytes(const Record& a, const Record& b) {
  static_assert(std::is_trivially_copyable_v<Record>);
  return std::memcmp(&a, &b, sizeof a) == 0;
}

}  // namespace zenithor::testing
