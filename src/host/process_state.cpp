#include "host/process_state.h"

#include <type_traits>

namespace zenithor {

ProcessState process_state;
static_assert(std::is_trivially_destructible_v<ProcessState>);

}  // namespace zenithor
