#pragma once

#include <cstdint>

namespace zenithor {

// The sentence of ZenithorMessage for any number; never null.
const char* MessageOf(std::int32_t code);

}  // namespace zenithor
