#include "values/values_state.h"

#include <type_traits>

namespace zenithor {

// No code of the library runs for them at load or unload.
ValuesState values_state;
ValuesRooms values_rooms;
static_assert(std::is_trivially_destructible_v<ValuesState>);

}  // namespace zenithor
