// What the library keeps from call to call is kept per thread.

#include <gtest/gtest.h>

#include <cstring>
#include <thread>

#include "entry/answers.h"
#include "host/process_state.h"
#include "host/thread_state.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::UntouchedRecord;

BodyPositionRecord PlutoAt(double julian_day) {
  BodyPositionRecord record = UntouchedRecord();
  EXPECT_EQ(AnswerPosition(julian_day, 0.0, 0.0, ZENITHOR_PLUTO, &record), ZENITHOR_DONE);
  return record;
}

TEST(ThreadState, IsOneSetPerThread) {
  ThreadState* const here = FindThreadState();
  ASSERT_NE(here, nullptr);
  EXPECT_EQ(here, FindThreadState());
  ThreadState* there = nullptr;
  double untouched_cache = 0.0;
  constexpr double kDay = 2433282.625;  // that no other test asks for, so that nobody remembers it
  PlutoAt(kDay);
  std::thread([&] {
    there = FindThreadState();
    untouched_cache = there->position.orbits.earth_velocity.julian_day;
  }).join();
  EXPECT_NE(here, there);
  EXPECT_EQ(untouched_cache, -1.0);
  EXPECT_EQ(here->position.orbits.earth_velocity.julian_day, kDay);
}

TEST(ThreadState, IsLeftAloneByACallWithinACall) {
  CallState outer;
  PositionState& own = outer.Get();
  EXPECT_EQ(&own, &FindThreadState()->position);
  EXPECT_NE(own.moment.room, nullptr);
  {
    CallState inner;
    EXPECT_NE(&inner.Get(), &own);
    EXPECT_EQ(inner.Get().moment.room, nullptr);
    CallState innermost;
    EXPECT_NE(&innermost.Get(), &own);
    EXPECT_NE(&innermost.Get(), &inner.Get());
  }
  CallState second;
  EXPECT_NE(&second.Get(), &own);
}

TEST(ThreadState, IsTheThreadsOwnAgainWhenTheCallHasReturned) {
  const PositionState* first = nullptr;
  {
    CallState call;
    first = &call.Get();
  }
  CallState call;
  EXPECT_EQ(&call.Get(), first);
}

TEST(ThreadState, ComesWithValuesWhereTheProcessKeepsThem) {
  // A set is made at a thread's first call.
  const auto values_of_a_new_thread = [] {
    bool own = false;
    std::thread([&] {
      const ThreadState* const state = FindThreadState();
      const auto* const values = reinterpret_cast<const ThreadValues*>(state + 1);
      own = state->position.places == &values->places;
      EXPECT_TRUE(own || state->position.places == nullptr);
      EXPECT_EQ(state->position.nodes, own ? &values->nodes : nullptr);
      EXPECT_EQ(state->position.moment.moments_room, own ? &values->room : nullptr);
      EXPECT_EQ(state->position.moment.room, &state->room);
    }).join();
    return own;
  };
  EXPECT_FALSE(values_of_a_new_thread());
  process_state.keeps_values = true;
  EXPECT_TRUE(values_of_a_new_thread());
  process_state.keeps_values = false;
}

TEST(ThreadState, ThreadsAtOnceGetTheAnswersOfALoneCaller) {
  constexpr int kThreads = 4;
  constexpr int kCalls = 60;
  const auto day = [](int thread, int call) { return 2440000.5 + 1000.0 * thread + 7.3 * call; };
  BodyPositionRecord answers[kThreads][kCalls];
  std::thread threads[kThreads];
  for (int t = 0; t < kThreads; ++t) {
    threads[t] = std::thread([&, t] {
      for (int k = 0; k < kCalls; ++k) {
        answers[t][k] = PlutoAt(day(t, k));
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (int t = 0; t < kThreads; ++t) {
    for (int k = 0; k < kCalls; ++k) {
      const BodyPositionRecord alone = PlutoAt(day(t, k));
      EXPECT_EQ(std::memcmp(&answers[t][k], &alone, sizeof alone), 0) << t << " " << k;
    }
  }
}

}  // namespace
}  // namespace zenithor
