#pragma once

#include <atomic>
#include <cstdint>

#include "ephemeris/store.h"
#include "host/answer_room.h"

namespace zenithor {

// What the library keeps for the whole process; the values library keeps its guide besides
// (values/values_state.h). Written while the library loads, before any export can be called, and
// read-only afterwards, but for what finds the threads' sets and their memories of answers.
struct ProcessState {
  static constexpr std::uint32_t kNoKey = 0xFFFFFFFF;

  EphemerisStore store;       // the terms; their memory is never released
  bool keeps_values = false;  // whether a thread's set comes with ThreadValues (thread_state.h)

  // The system's key under which a thread finds its own set (thread_state.h): taken at the first
  // call of the process, given back at unload.
  std::atomic<std::uint32_t> thread_key{kNoKey};
  std::atomic<bool> unloading{false};  // no key is taken any more

  AnswerRooms answer_rooms;
};

// Constant-initialized and without a destructor: no code of the library runs for it at load or
// unload.
extern ProcessState process_state;

}  // namespace zenithor
