#pragma once

#include "orbits/state.h"

namespace zenithor {

// What the library keeps from call to call: one set per thread.
struct ThreadState {
  OrbitsState orbits;
};

// The calling thread's own set. Looked up once per export and handed on.
ThreadState& CurrentThreadState();

}  // namespace zenithor
