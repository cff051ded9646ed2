// A small memory of answers beside none, with any bytes as calls: pieces of two bytes choose a day
// and a body, a piece of eight the bits of a day of its own. Every answer has the same bits.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/process_state.h"
#include "positions/position.h"
#include "support/linked_exports.h"

namespace {

using zenithor::AnswerMemory;
using zenithor::PositionState;

constexpr std::uint32_t kCapacity = 16;
constexpr std::size_t kMostCalls = 40;

bool FillOnce() {
  zenithor::testing::FillProcessStore();
  return true;
}

// The same call with a memory and with a state that has kept nothing but what earlier calls of
// Pluto leave behind.
void Compare(double day, BodyCode code, PositionState& with, PositionState& without) {
  BodyPositionRecord remembered;
  BodyPositionRecord computed;
  std::memset(&remembered, 0xA5, sizeof remembered);
  std::memset(&computed, 0xA5, sizeof computed);
  const zenithor::EphemerisStore& store = zenithor::process_state.store;
  const double done = ComputePosition(store, with, day, 0.0, 0.0, code, &remembered);
  const double expected = ComputePosition(store, without, day, 0.0, 0.0, code, &computed);
  if (std::memcmp(&done, &expected, sizeof done) != 0 ||
      std::memcmp(&remembered, &computed, sizeof computed) != 0) {
    std::fprintf(stderr, "fuzz_answers: day %a of body %d is remembered with other bits\n", day,
                 code);
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool filled = FillOnce();
  static_cast<void>(filled);
  alignas(double) static unsigned char room[zenithor::RoomOfAnswers(2 * kCapacity)];
  alignas(double) static unsigned char larger[zenithor::RoomOfAnswers(2 * kCapacity)];
  PositionState with;
  PositionState without;
  SetRoom(room, kCapacity, with.answers);
  double own = 2451545.0;
  std::size_t at = 0;
  for (std::size_t call = 0; call < kMostCalls && at + 2 <= size; ++call) {
    const unsigned choice = data[at];
    const BodyCode code = static_cast<BodyCode>(data[at + 1] % 13U) - 1;
    at += 2;
    double day = own;
    if (choice < 128) {  // days of a chart, some of them side by side
      day = 2461000.5 + (choice % 32U) * (choice < 64 ? 1.0 : 1.0 / 64.0);
    } else if (choice < 160) {
      constexpr double kOdd[] = {-1.0, 0.0, -0.0, -1402.0, 5e-324, 1e9, -1e9, 2299160.5};
      day = kOdd[choice % 8U];
    } else if (choice == 255 && with.answers.capacity == kCapacity) {
      SetRoom(larger, 2 * kCapacity, with.answers);
    } else if (at + sizeof own <= size) {
      std::memcpy(&own, data + at, sizeof own);
      at += sizeof own;
      // Pluto's day is reduced turn by turn where it is far away, which takes long.
      day = std::fabs(own) < 1e8 || !std::isfinite(own) ? own : std::fmod(own, 1e8);
    }
    Compare(day, code, with, without);
  }
  return 0;
}
