#include "host/thread_state.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

#include "host/process_state.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <pthread.h>
#include <signal.h>
#endif

// The compiler's own thread_local aborts the process when the memory for it is refused; on Windows
// it takes a new slot of the process with every load of the library, too, and aborts when they are
// used up. Here neither ends a host: a slot of the process and memory that may be refused.

namespace zenithor {

namespace {

static_assert(std::is_trivially_destructible_v<ThreadState> &&
                  std::is_trivially_destructible_v<ThreadValues>,
              "the end of a thread runs no code");
static_assert(alignof(ThreadState) >= alignof(ThreadValues), "the one can follow the other");
static_assert(std::extent_v<decltype(SumRoom::cosine_sine)> >= kRoomOfTwo,
              "Pluto's sums find room where those of the planets do, who are not summed meanwhile");

// The system's slots. Get and Set are those of the calling thread.
#ifdef _WIN32
using Slot = DWORD;
constexpr Slot kNoSlot = TLS_OUT_OF_INDEXES;

Slot AllocateSlot() { return TlsAlloc(); }
void FreeSlot(Slot slot) { TlsFree(slot); }
void* Get(Slot slot) { return TlsGetValue(slot); }
bool Set(Slot slot, void* memory) { return TlsSetValue(slot, memory) != FALSE; }

// TlsGetValue clears the last error, and it is the host's.
class HostsThread {
 public:
  HostsThread() : last_error_(GetLastError()) {}
  ~HostsThread() { SetLastError(last_error_); }
  HostsThread(const HostsThread&) = delete;
  HostsThread& operator=(const HostsThread&) = delete;

 private:
  DWORD last_error_;
};

class WithoutSignals {};
#else
using Slot = pthread_key_t;
constexpr Slot kNoSlot = ~Slot{0};

// What a thread has in its slot goes to the C library's own free when the thread ends. No code of
// this library runs then, so none is missing where the library has been unloaded meanwhile.
Slot AllocateSlot() {
  Slot slot = kNoSlot;
  return pthread_key_create(&slot, std::free) == 0 ? slot : kNoSlot;
}
void FreeSlot(Slot slot) { pthread_key_delete(slot); }
void* Get(Slot slot) { return pthread_getspecific(slot); }
bool Set(Slot slot, void* memory) { return pthread_setspecific(slot, memory) == 0; }

class HostsThread {};

#ifdef __wasm__
class WithoutSignals {};  // nothing interrupts a program of WebAssembly
#else
// No signal handler runs on this thread while it stands: one that called the library while malloc
// is at work for the thread's set would wait for itself. Signals of the thread's own faults are let
// through: blocked, they would end the process without the host's handler.
class WithoutSignals {
 public:
  WithoutSignals() {
    sigset_t blocked;
    sigfillset(&blocked);
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGSYS, SIGABRT}) {
      sigdelset(&blocked, fault);
    }
    pthread_sigmask(SIG_BLOCK, &blocked, &hosts_);
  }
  ~WithoutSignals() { pthread_sigmask(SIG_SETMASK, &hosts_, nullptr); }
  WithoutSignals(const WithoutSignals&) = delete;
  WithoutSignals& operator=(const WithoutSignals&) = delete;

 private:
  sigset_t hosts_;
};
#endif
#endif

static_assert(sizeof(Slot) == sizeof(std::uint32_t) && kNoSlot == ProcessState::kNoKey);

Slot ThreadSlot() {
  std::uint32_t slot = process_state.thread_key.load(std::memory_order_acquire);
  if (slot != kNoSlot || process_state.unloading.load(std::memory_order_relaxed)) {
    return slot;
  }
  const Slot fresh = AllocateSlot();
  if (fresh == kNoSlot) {
    return kNoSlot;
  }
  if (process_state.thread_key.compare_exchange_strong(slot, fresh, std::memory_order_acq_rel)) {
    return fresh;
  }
  FreeSlot(fresh);  // another thread was first
  return slot;
}

// The slot holds what malloc gave, and the set lies in it on the first boundary of its alignment.
ThreadState* SetIn(void* memory) {
  const auto address = reinterpret_cast<std::uintptr_t>(memory);
  const std::size_t skipped = -address % alignof(ThreadState);
  return reinterpret_cast<ThreadState*>(static_cast<char*>(memory) + skipped);
}

ThreadState* MakeThreadState(Slot slot) {
  [[maybe_unused]] const WithoutSignals without_signals;
  if (void* const made_by_handler = Get(slot)) {
    return SetIn(made_by_handler);
  }
  const std::size_t of_values = process_state.keeps_values ? sizeof(ThreadValues) : 0;
  void* const memory = std::malloc(alignof(ThreadState) + sizeof(ThreadState) + of_values);
  if (memory == nullptr) {
    return nullptr;
  }
  auto* const state = new (SetIn(memory)) ThreadState;
  state->position.moment.room = &state->room;
  state->position.orbits.scratch.room_of_two = state->room.cosine_sine;
  if (process_state.keeps_values) {
    auto* const values = new (state + 1) ThreadValues;
    state->position.places = &values->places;
    state->position.nodes = &values->nodes;
    state->position.moment.moments_room = &values->room;
  }
  if (!Set(slot, memory)) {
    std::free(memory);
    return nullptr;
  }
  ReleaseAnswersOfEnded(state->answers);
  return state;
}

// The calling thread's set.
void ReleaseOwn(Slot slot) {
  void* const memory = Get(slot);
  if (memory != nullptr) {
    ReleaseAnswers(SetIn(memory)->answers);
  }
  std::free(memory);
  Set(slot, nullptr);
}

// At unload the slot goes back to the host, who would run out after a thousand reloads. The sets of
// other threads that live on stay in memory: nobody can take them from those threads. Their
// memories of answers, which are larger by far, go.
#ifdef _WIN32

// When a thread ends its set goes; and so it does when the library is unloaded, but not when the
// process ends, which leaves `reserved` set.
void NTAPI ReleaseThreadState(void* /*module*/, DWORD reason, void* reserved) {
  const Slot slot = process_state.thread_key.load(std::memory_order_acquire);
  if (slot == kNoSlot) {
    return;
  }
  const bool unloaded = reason == DLL_PROCESS_DETACH && reserved == nullptr;
  if (reason == DLL_THREAD_DETACH || unloaded) {
    ReleaseOwn(slot);
  }
  if (unloaded) {
    FreeSlot(slot);
    ReleaseAllAnswers();
  }
}

#else

// At the end of the process too, where other threads may still call: they go on without sets.
__attribute__((destructor)) void GiveSlotBack() {
  process_state.unloading.store(true);
  const Slot slot = process_state.thread_key.exchange(kNoSlot);
  if (slot != kNoSlot) {
    ReleaseOwn(slot);
    FreeSlot(slot);
  }
  ReleaseAllAnswers();
}

#endif

}  // namespace

#ifdef _WIN32
// The C run-time's table of routines that the system calls when a thread ends and at detach.
extern "C" {
__attribute__((section(".CRT$XLY"), used)) const PIMAGE_TLS_CALLBACK zenithor_release_thread_state =
    ReleaseThreadState;
}
#endif

ThreadState* FindThreadState() {
  [[maybe_unused]] const HostsThread hosts_thread;
  const Slot slot = ThreadSlot();
  if (slot == kNoSlot) {
    return nullptr;
  }
  void* const memory = Get(slot);
  return memory == nullptr ? MakeThreadState(slot) : SetIn(memory);
}

// A handler interrupts its own thread only, so an ordinary flag will do; the fences keep the
// compiler from moving work on the set across it. A handler that comes between the test and the
// setting of the flag finds and leaves the set as it is between two calls.
CallState::CallState() : own_(FindThreadState()) {
  if (own_ != nullptr && !own_->in_call) {
    own_->in_call = true;
    position_ = &own_->position;
  } else {
    own_ = nullptr;
    position_ = new (spare_) PositionState;
  }
  std::atomic_signal_fence(std::memory_order_seq_cst);
}

PositionState& CallState::WithAnswers() {
  if (own_ != nullptr) {
    ClaimAnswers(own_->answers, own_->position.answers);
  }
  return *position_;
}

CallState::~CallState() {
  std::atomic_signal_fence(std::memory_order_seq_cst);
  if (own_ != nullptr) {
    LeaveAnswers(own_->answers);
    own_->in_call = false;
  }
}

}  // namespace zenithor
