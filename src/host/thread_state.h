#pragma once

#include <new>

#include "host/answer_room.h"
#include "positions/position.h"

namespace zenithor {

// What the library keeps from call to call: one set per thread.
struct ThreadState {
  PositionState position;
  SumRoom room;                   // position.moment.room and Pluto's, of a set that a thread has
  volatile bool in_call = false;  // by a call of this thread that has not returned
  AnswerHolder answers;           // the room of position.answers
};

// What comes with it where the process keeps values (process_state.h): for one field after another,
// for arrays and for searches.
struct ThreadValues {
  PlaceMemory places;  // position.places
  MomentsRoom room;    // position.moment.moments_room
  NodeMemory nodes;    // position.nodes; last, because few threads touch it
};

// The calling thread's own set, made on the thread's first call and released when the thread ends.
// Null where the process has no per-thread slot or no memory left.
ThreadState* FindThreadState();

// What one export works on: looked up once and handed on. Where the thread cannot have a set of its
// own, or a signal or exception handler calls while it is in use, a fresh one that serves this call
// only: the same answers, nothing is kept, and the kept set is left alone.
class CallState {
 public:
  CallState();
  ~CallState();
  CallState(const CallState&) = delete;
  CallState& operator=(const CallState&) = delete;

  PositionState& Get() { return *position_; }

  // The same, with its memory of answers, which else is not to be used.
  PositionState& WithAnswers();

 private:
  ThreadState* own_;  // null while the spare one serves
  PositionState* position_;
  alignas(PositionState) unsigned char spare_[sizeof(PositionState)];
};

}  // namespace zenithor
