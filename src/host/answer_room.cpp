#include "host/answer_room.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "host/process_state.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#elif !defined(__wasm__)
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace zenithor {

namespace {

constexpr std::uint32_t kSteps[] = {std::uint32_t{1} << 11, std::uint32_t{1} << 14, kMostAnswers};
constexpr std::uint32_t kCallsBetween = std::uint32_t{1} << 16;  // tries of one who was refused

// The system's number of the calling thread, never 0, and whether the thread of a number lives. A
// number may be given out again, so a thread may be taken for one that has ended; its room is given
// back later then.
#ifdef _WIN32
std::uint32_t ThisThread() { return GetCurrentThreadId(); }
// ReleaseAnswers has run for those that ended.
bool Lives(std::uint32_t /*thread*/) { return true; }
#elif defined(__wasm__)
std::uint32_t ThisThread() { return 1; }
bool Lives(std::uint32_t /*thread*/) { return true; }
#else
std::uint32_t ThisThread() { return static_cast<std::uint32_t>(gettid()); }
bool Lives(std::uint32_t thread) {
  constexpr int kNoSignal = 0;  // only whether one could be sent
  return tgkill(getpid(), static_cast<pid_t>(thread), kNoSignal) == 0 || errno != ESRCH;
}
#endif

// Asks the system for large pages: a first drawing pays for each page that it touches.
#if defined(_WIN32) || defined(__wasm__)
void AskForLargePages(void* /*block*/, std::size_t /*bytes*/) {}
#else
void AskForLargePages(void* block, std::size_t bytes) {
  constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;
  const auto address = reinterpret_cast<std::uintptr_t>(block);
  const std::uintptr_t first = (address + kLargePage - 1) / kLargePage * kLargePage;
  const std::uintptr_t end = (address + bytes) / kLargePage * kLargePage;
  if (first < end) {
    madvise(static_cast<char*>(block) + (first - address), end - first, MADV_HUGEPAGE);
  }
}
#endif

AnswerRooms& Rooms() { return process_state.answer_rooms; }

bool Claim(AnswerRoom& room, std::uint32_t even) {
  return even % 2 == 0 &&
         room.claim.compare_exchange_strong(even, even + 1, std::memory_order_acquire);
}

// What a claimed room holds goes back to the system.
void Empty(AnswerRoom& room) {
  std::free(room.block);
  Rooms().bytes.fetch_sub(room.bytes);
  room.block = nullptr;
  room.bytes = 0;
  room.owner.store(0);
}

bool Reserve(std::size_t bytes) {
  std::size_t sum = Rooms().bytes.load();
  while (sum + bytes <= kMostBytesOfProcess) {
    if (Rooms().bytes.compare_exchange_weak(sum, sum + bytes)) {
      return true;
    }
  }
  return false;
}

// A room that is nobody's becomes this thread's, claimed.
bool TakeRoom(AnswerHolder& holder) {
  for (AnswerRoom& room : Rooms().rooms) {
    const std::uint32_t even = room.claim.load();
    if (room.owner.load() == 0 && Claim(room, even)) {
      if (room.owner.load() == 0) {
        room.owner.store(ThisThread());
        holder.room = &room;
        holder.ticket = even;
        holder.claimed = true;
        return true;
      }
      room.claim.store(even);  // another thread was first, and is between two calls
    }
  }
  return false;
}

bool Grow(AnswerHolder& holder, AnswerMemory& memory) {
  ReleaseAnswersOfEnded(holder);
  if (holder.room == nullptr && !TakeRoom(holder)) {
    return false;
  }
  const std::uint32_t capacity =
      *std::upper_bound(std::begin(kSteps), std::end(kSteps) - 1, memory.capacity);
  const std::size_t bytes = RoomOfAnswers(capacity);
  if (!Reserve(bytes)) {
    return false;
  }
  void* const block = std::malloc(bytes);
  if (block == nullptr) {
    Rooms().bytes.fetch_sub(bytes);
    return false;
  }
  AskForLargePages(block, bytes);
  SetRoom(block, capacity, memory);
  std::free(holder.room->block);
  Rooms().bytes.fetch_sub(holder.room->bytes);
  holder.room->block = block;
  holder.room->bytes = bytes;
  return true;
}

}  // namespace

void ClaimAnswers(AnswerHolder& holder, AnswerMemory& memory) {
  if (holder.room != nullptr) {
    holder.claimed = Claim(*holder.room, holder.ticket);
    if (!holder.claimed) {  // it was taken away
      holder.room = nullptr;
      memory = {};
    }
  }
  ++holder.calls;
  if (holder.calls % kCallsBetween == 0) {
    ReleaseAnswersOfEnded(holder);
  }
  if (holder.patience > 0) {
    --holder.patience;
  } else if (memory.count == memory.capacity && memory.capacity < kMostAnswers &&
             holder.calls > kCallsBefore && !Grow(holder, memory)) {
    holder.patience = kCallsBetween;
  }
}

void ReleaseAnswers(AnswerHolder& holder) {
  AnswerRoom* const room = holder.room;
  holder.room = nullptr;
  if (room == nullptr) {
    return;
  }
  // The thread may end within a call.
  const bool within = holder.claimed && room->claim.load() == holder.ticket + 1;
  holder.claimed = false;
  if (within || Claim(*room, holder.ticket)) {
    Empty(*room);
    room->claim.store(holder.ticket + 2, std::memory_order_release);
  }
}

void ReleaseAnswersOfEnded(const AnswerHolder& holder) {
  for (AnswerRoom& room : Rooms().rooms) {
    const std::uint32_t owner = room.owner.load();
    if (owner == 0 || &room == holder.room) {
      continue;
    }
    // This thread's number on a room that it has not is that of a thread before it.
    const bool ended = owner == ThisThread() || !Lives(owner);
    const std::uint32_t even = room.claim.load();
    if (ended && Claim(room, even)) {
      if (room.owner.load() == owner) {
        Empty(room);
      }
      room.claim.store(even + 2, std::memory_order_release);
    }
  }
}

void ReleaseAllAnswers() {
  for (AnswerRoom& room : Rooms().rooms) {
    if (Claim(room, room.claim.load())) {
      Empty(room);  // and stays claimed
    }
  }
}

}  // namespace zenithor
