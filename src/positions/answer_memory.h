#pragma once

#include <cstddef>
#include <cstdint>

#include "zenithor/zenithor.h"

namespace zenithor {

// The answers of ZENITHOR that a thread had lately, so that a host that draws its chart again, or
// draws a second indicator on the same body, pays for a look-up. What is kept depends on the day
// and the body alone, to the bit of the day, and holds the bits that were answered. Serves one
// store.
// An answer that leaves a field of its body unwritten is not kept, nor one that could depend on
// earlier calls (CanBeKept), so that every answer is the one that would be computed.

struct KeptAnswer {
  double julian_day;
  double fields[8];    // those of the body (FieldsOf), in the order of the record
  std::int32_t year;   // field 18
  std::uint32_t rest;  // the body and fields 19 to 23, packed
};

// Answers stand in the order in which they came, so a second round over the same bars walks along
// them; an index of hashes finds the first, and all of those who ask in another order. The memory
// is the host's (SetRoom), and can be none. Once it is full, every other new answer takes the place
// of the oldest: a round that is longer than the memory then still finds a part of itself.
struct AnswerMemory {
  KeptAnswer* answers = nullptr;
  std::uint32_t* index = nullptr;  // twice as many slots as answers: 0, or tag and number + 1
  std::uint32_t capacity = 0;      // of answers; a power of two, or 0
  std::uint32_t count = 0;         // answers kept
  std::uint32_t oldest = 0;        // the one to be replaced next
  std::uint32_t following = 0;     // behind the one recalled or kept last
  bool skip = false;               // the next new answer of a full memory
};

// The most answers that a memory holds: ten thousand bars of eleven bodies, and some.
constexpr std::uint32_t kMostAnswers = std::uint32_t{1} << 17;

// Bytes that a memory of so many answers takes.
constexpr std::size_t RoomOfAnswers(std::uint32_t capacity) {
  return capacity * (sizeof(KeptAnswer) + 2 * sizeof(std::uint32_t));
}

// Lets `memory` keep `capacity` answers, a power of two from 2 to kMostAnswers, in `room`, which
// holds RoomOfAnswers(capacity) bytes, aligned for doubles. What it keeps moves there, if the new
// room is not smaller than the old one, which it no longer uses.
void SetRoom(void* room, std::uint32_t capacity, AnswerMemory& memory);

// Whether an answer may be kept. Not those of Pluto on day -1.0, which is answered in another way
// where it is a thread's first (orbits/state.h); nor those of days without an ordinary date.
bool CanBeKept(double julian_day, BodyCode code);

// Writes the kept answer of a day and a body (code 0 to 10) into `record`, all fields that the body
// fills and no others; false where there is none.
bool Recall(AnswerMemory& memory, double julian_day, BodyCode code, BodyPositionRecord& record);

// Keeps what `record` holds of a day and a body that CanBeKept, whose answer is not kept yet and is
// complete: all that the body fills was written, and the date is an ordinary one.
void Keep(double julian_day, BodyCode code, const BodyPositionRecord& record, AnswerMemory& memory);

// A record in which IsComplete sees what a driver wrote: fields that one may leave are NaN.
BodyPositionRecord UnwrittenRecord();
bool IsComplete(BodyCode code, const BodyPositionRecord& record);

// Copies what a body fills, and nothing else.
void CopyAnswer(BodyCode code, const BodyPositionRecord& from, BodyPositionRecord& record);

}  // namespace zenithor
