#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "positions/answer_memory.h"

namespace zenithor {

// Where a thread's memory of answers lies. The process knows all of them, for three reasons: to
// hold their sum within bounds, to give back what the library would leave behind when it is
// unloaded while other threads live on, and, on Linux, to give back what a thread had that ended,
// at the next call that looks: no code of the library runs at the end of a thread there
// (thread_state.cpp).
// Who uses a room, or takes it away, claims it first, so that a thread that still calls, at the end
// of the process or in the child of a fork, finds its room or finds it gone.
struct AnswerRoom {
  // Odd while it is claimed; a thread that has been given the room knows the even number that it
  // finds between its calls. Taken away, the room counts on.
  std::atomic<std::uint32_t> claim{0};
  std::atomic<std::uint32_t> owner{0};  // the system's number of the thread; 0: nobody's
  void* block = nullptr;                // what malloc gave
  std::size_t bytes = 0;
};

// What the process keeps of them.
struct AnswerRooms {
  static constexpr int kRooms = 64;  // for so many threads; others go without

  AnswerRoom rooms[kRooms];
  std::atomic<std::size_t> bytes{0};  // of all
};

// What a thread keeps of its own.
struct AnswerHolder {
  AnswerRoom* room = nullptr;
  std::uint32_t ticket = 0;    // room->claim between the calls
  std::uint32_t calls = 0;     // modulo 2^32
  std::uint32_t patience = 0;  // calls until it may ask for room
  bool claimed = false;        // by the call at work
};

// At most so many bytes of a process. A thread takes 11.5 MB at most, less by far where it asks for
// fewer days: 0.2 MB up to 2048 answers, 1.4 MB up to 16384; none before it has made kCallsBefore
// calls. Five threads that draw ten thousand bars of eleven bodies have room, and a 32-bit host
// keeps its address space.
constexpr std::size_t kMostBytesOfProcess = std::size_t{64} << 20;
constexpr std::uint32_t kCallsBefore = 256;

// Makes `memory` what the calling thread's call may use: its own room, larger where that has become
// too small and there is more, or none. Never fails.
void ClaimAnswers(AnswerHolder& holder, AnswerMemory& memory);

// At the end of the call.
inline void LeaveAnswers(AnswerHolder& holder) {
  if (holder.claimed) {
    holder.claimed = false;
    holder.room->claim.store(holder.ticket, std::memory_order_release);
  }
}

// At the end of the thread, where its code may run.
void ReleaseAnswers(AnswerHolder& holder);

// Gives back what threads had that have ended.
void ReleaseAnswersOfEnded(const AnswerHolder& holder);

// Gives back all that nobody claims just now. No thread is given room again.
void ReleaseAllAnswers();

}  // namespace zenithor
