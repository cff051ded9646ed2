#pragma once

#include <cstdint>

#include "golden/untouched.h"
#include "support/same_bytes.h"
#include "zenithor/zenithor.h"

namespace zenithor::testing {

// Records as they are before a call, and what of them a call has left alone.
using golden::kUntouchedDouble;
using golden::kUntouchedInteger;
using golden::UntouchedBlock;
using golden::UntouchedEvents;
using golden::UntouchedRecord;

constexpr int kDoubleCount = 17;

// The numbers of a record in a row, field 1 and field 18 first.
inline const double* Doubles(const BodyPositionRecord& record) { return &record.HelioLongitude; }
inline const std::int32_t* Integers(const BodyPositionRecord& record) { return &record.Year; }

inline bool IsZeroBits(const EventTimeBlock& block) { return SameBytes(block, EventTimeBlock{}); }

}  // namespace zenithor::testing
