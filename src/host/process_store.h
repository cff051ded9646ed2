#pragma once

#include "ephemeris/store.h"

namespace zenithor {

// The store of this process: filled once while the library loads, read-only afterwards, never
// released.
EphemerisStore& ProcessStore();

}  // namespace zenithor
