#pragma once

#include <cstdint>

namespace zenithor {

// ZenithorMessage.
const char* MessageOf(std::int32_t code);

}  // namespace zenithor
