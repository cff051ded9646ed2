#pragma once

#include <cstdint>
#include <cstring>

namespace zenithor {

// The bits of an IEEE double as a number, and back.
inline std::uint64_t BitsOf(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

inline double FromBits(std::uint64_t bits) {
  double x;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}

}  // namespace zenithor
