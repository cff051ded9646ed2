#include "host/process_store.h"

#include <type_traits>

namespace zenithor {

namespace {

// Constant-initialized and without a destructor: no code of the library runs for it at load or
// unload.
EphemerisStore process_store;
static_assert(std::is_trivially_destructible_v<EphemerisStore>);

}  // namespace

EphemerisStore& ProcessStore() { return process_store; }

}  // namespace zenithor
