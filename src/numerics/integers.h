#pragma once

#include <cstdint>

namespace zenithor {

// From doubles to whole numbers, of any unit; defined for every input.

// Integer part of x toward zero, as a double; NaN and infinities come back as they are.
double IntegerPart(double x);

// x truncated toward zero; values outside the 32-bit range saturate, NaN gives 0.
std::int32_t TruncateToInt32(double x);

}  // namespace zenithor
