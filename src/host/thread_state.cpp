#include "host/thread_state.h"

#include <type_traits>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <atomic>
#include <cstdlib>
#endif

namespace zenithor {

static_assert(std::is_trivially_destructible_v<ThreadState>, "the end of a thread runs no code");

#ifdef _WIN32

// The compiler's own thread_local takes a new slot of the process with every load of the library
// and aborts the process when the 1088 slots are used up, or the memory. Here neither ends a host.

namespace {

std::atomic<DWORD> thread_slot{TLS_OUT_OF_INDEXES};

DWORD ThreadSlot() {
  DWORD slot = thread_slot.load(std::memory_order_acquire);
  if (slot != TLS_OUT_OF_INDEXES) {
    return slot;
  }
  const DWORD fresh = TlsAlloc();
  if (fresh == TLS_OUT_OF_INDEXES) {
    return fresh;
  }
  if (thread_slot.compare_exchange_strong(slot, fresh, std::memory_order_acq_rel)) {
    return fresh;
  }
  TlsFree(fresh);  // another thread was first
  return slot;
}

ThreadState* MakeThreadState(DWORD slot) {
  void* const memory = std::malloc(sizeof(ThreadState));
  if (memory == nullptr) {
    return nullptr;
  }
  auto* const state = new (memory) ThreadState;
  if (TlsSetValue(slot, state) == FALSE) {
    std::free(memory);
    return nullptr;
  }
  return state;
}

// When a thread ends its set goes; when the library is unloaded (not when the process ends, which
// leaves `reserved` set) the slot goes back to the host, who would run out after a thousand
// reloads.
void NTAPI ReleaseThreadState(void* /*module*/, DWORD reason, void* reserved) {
  const DWORD slot = thread_slot.load(std::memory_order_acquire);
  if (slot == TLS_OUT_OF_INDEXES) {
    return;
  }
  const bool unloaded = reason == DLL_PROCESS_DETACH && reserved == nullptr;
  if (reason == DLL_THREAD_DETACH || unloaded) {
    std::free(TlsGetValue(slot));
    TlsSetValue(slot, nullptr);
  }
  if (unloaded) {
    TlsFree(slot);
  }
}

}  // namespace

// The C run-time's table of routines that the system calls when a thread ends and at detach.
extern "C" {
__attribute__((section(".CRT$XLY"), used)) const PIMAGE_TLS_CALLBACK zenithor_release_thread_state =
    ReleaseThreadState;
}

ThreadState* FindThreadState() {
  const DWORD last_error = GetLastError();  // TlsGetValue clears it, and it is the host's
  const DWORD slot = ThreadSlot();
  ThreadState* state = nullptr;
  if (slot != TLS_OUT_OF_INDEXES) {
    state = static_cast<ThreadState*>(TlsGetValue(slot));
    if (state == nullptr) {
      state = MakeThreadState(slot);
    }
  }
  SetLastError(last_error);
  return state;
}

#else

namespace {

// Constant-initialized: a thread's first call runs no code for it.
thread_local ThreadState thread_state;
static_assert(ThreadState{}.position.orbits.body == 0, "a constant expression makes it");

}  // namespace

ThreadState* FindThreadState() { return &thread_state; }

#endif

}  // namespace zenithor
