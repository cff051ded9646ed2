#pragma once

#include <new>

#include "positions/position.h"

namespace zenithor {

// What the library keeps from call to call: one set per thread.
struct ThreadState {
  PositionState position;
};

// The calling thread's own set, made on the thread's first call and released when the thread ends.
// Null where the process has no per-thread slot or no memory left.
ThreadState* FindThreadState();

// The set that one export works on: looked up once and handed on. Where the thread cannot have one
// of its own, a fresh one that serves this call only: the same answers, nothing is kept.
class CallState {
 public:
  CallState() : state_(FindThreadState()) {
    if (state_ == nullptr) {
      state_ = new (spare_) ThreadState;
    }
  }
  CallState(const CallState&) = delete;
  CallState& operator=(const CallState&) = delete;

  ThreadState& Get() { return *state_; }

 private:
  ThreadState* state_;
  alignas(ThreadState) unsigned char spare_[sizeof(ThreadState)];
};

}  // namespace zenithor
