#pragma once

#include "numerics/pair.h"

namespace zenithor {

#include "numerics/turn_constants.inc"

}  // namespace zenithor
