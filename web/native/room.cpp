// Where JavaScript puts the arrays of a call and finds those of its answer: it has nothing else of
// the module's memory to write to.

#include <cstdint>

namespace {

alignas(16) unsigned char room[1U << 20];

}  // namespace

extern "C" {

__attribute__((visibility("default"))) void* ZenithorRoom() { return room; }

__attribute__((visibility("default"))) std::int32_t ZenithorRoomBytes() {
  return static_cast<std::int32_t>(sizeof room);
}
}
