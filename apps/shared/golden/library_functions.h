#pragma once

#include "golden/check.h"
#include "zenithor/zenithor.h"

namespace zenithor::golden {

// The functions of a loaded library, which must outlive them. One that the library does not export
// answers NaN, which meets no expected answer.
Functions FunctionsOf(const ZenithorLibrary& library);

}  // namespace zenithor::golden
