#pragma once

#include "zenithor/zenithor.h"

namespace zenithor {

// The field of `record` that has a number of values.h, 1 to 10 and 15 to 23, in the record's unit.
// NaN for any other number.
double RecordField(const BodyPositionRecord& record, int field);

}  // namespace zenithor
