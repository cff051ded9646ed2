#pragma once

#include <cstddef>
#include <cstdint>

// A number of the input alone, by which slow inputs are thinned out: the same ones every time, so
// that a finding can be repeated. FNV-1a.
inline std::uint32_t HashOf(const std::uint8_t* data, std::size_t size) {
  std::uint32_t hash = 2166136261U;
  for (std::size_t k = 0; k < size; ++k) {
    hash = (hash ^ data[k]) * 16777619U;
  }
  return hash;
}
