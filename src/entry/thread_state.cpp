#include "entry/thread_state.h"

#include <type_traits>

namespace zenithor {

namespace {

// Constant-initialized and without a destructor: a thread's first call runs no code for it, and
// neither does the end of the thread.
thread_local ThreadState thread_state;
static_assert(ThreadState{}.orbits.body == 0, "a constant expression makes it");
static_assert(std::is_trivially_destructible_v<ThreadState>);

}  // namespace

ThreadState& CurrentThreadState() { return thread_state; }

}  // namespace zenithor
