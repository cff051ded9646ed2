#pragma once

#include <cstddef>
#include <cstdint>

namespace zenithor {

// Values that searches have computed at multiples of a step, kept so that one search after another
// over the same years pays for them once: the nine aspects of a body, the twelve signs. A bounded
// number; a new one takes the place of an old one. What is kept depends on its key and on nothing
// else, so that answers do not depend on what is kept.

struct KeptNode {
  std::uint64_t function;  // what it is a value of; 0 where nothing is kept
  double value;
  std::int32_t index;  // of the multiple
  bool smooth;         // whether the function may be interpolated across the node
};

struct NodeMemory {
  static constexpr std::size_t kNodeCount = 4096;  // of ten bodies two years' worth; a power of two

  bool cleared = false;  // before that the nodes are not initialized: most threads never search
  KeptNode nodes[kNodeCount];  // by function and index
};

}  // namespace zenithor
