#pragma once

#include <cstdint>

#include "zenithor/zenithor.h"

namespace zenithor::golden {

// What records hold before a call, so that a field which the call leaves alone shows.
constexpr double kUntouchedDouble = -777.25;
constexpr std::int32_t kUntouchedInteger = -777;

inline BodyPositionRecord UntouchedRecord() {
  constexpr double d = kUntouchedDouble;
  constexpr std::int32_t i = kUntouchedInteger;
  return {d, d, d, d, d, d, d, d, d, d, {d, d, d, d}, d, d, d, i, i, i, i, i, i};
}

inline EventTimeBlock UntouchedBlock() {
  return {kUntouchedDouble,  kUntouchedInteger, kUntouchedInteger, kUntouchedInteger,
          kUntouchedInteger, kUntouchedInteger, kUntouchedInteger};
}

inline EventRecord UntouchedEvents() {
  EventRecord record;
  for (EventTimeBlock& block : record.Blocks) {
    block = UntouchedBlock();
  }
  return record;
}

}  // namespace zenithor::golden
