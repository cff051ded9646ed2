// The rooms of the threads' memories of answers: how much, for whom, and for how long.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "entry/answers.h"
#include "host/answer_room.h"
#include "host/process_state.h"
#include "host/thread_state.h"
#include "support/same_bytes.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::SameBytes;
using testing::UntouchedRecord;

std::size_t BytesOfProcess() { return process_state.answer_rooms.bytes.load(); }

BodyPositionRecord PlutoAt(double julian_day) {
  BodyPositionRecord record = UntouchedRecord();
  EXPECT_EQ(AnswerPosition(julian_day, 0.0, 0.0, ZENITHOR_PLUTO, &record), ZENITHOR_DONE);
  return record;
}

// What a call does with its room, without computing an answer.
void KeepOne(double day, AnswerHolder& holder, AnswerMemory& memory) {
  BodyPositionRecord record = UnwrittenRecord();
  record.Month = 1;
  record.Day = 1;
  record.Hour = record.Minute = record.Second = 0;
  ClaimAnswers(holder, memory);
  Keep(day, ZENITHOR_MARS, record, memory);
  LeaveAnswers(holder);
}

TEST(AnswerRoom, IsTakenAfterSomeHundredCallsAndGoesWithTheThread) {
  ReleaseAnswersOfEnded({});
  const std::size_t before = BytesOfProcess();
  std::thread([&] {
    for (std::uint32_t k = 0; k < kCallsBefore; ++k) {
      PlutoAt(2451545.0 + k);
    }
    EXPECT_EQ(BytesOfProcess(), before);
    EXPECT_EQ(FindThreadState()->position.answers.capacity, 0U);
    PlutoAt(2451545.0);
    EXPECT_EQ(BytesOfProcess(), before + RoomOfAnswers(2048));
    const BodyPositionRecord first = PlutoAt(2451545.5);
    EXPECT_EQ(FindThreadState()->position.answers.count, 2U);
    EXPECT_TRUE(SameBytes(PlutoAt(2451545.5), first));
    EXPECT_EQ(FindThreadState()->position.answers.count, 2U);
  }).join();
  PlutoAt(2451545.0);
  // On Linux another thread's call has to look; that of a new one does.
  std::thread([] { PlutoAt(2451545.0); }).join();
  EXPECT_EQ(BytesOfProcess(), before);
}

TEST(AnswerRoom, GrowsInStepsUpToItsLimit) {
  const std::size_t before = BytesOfProcess();
  AnswerHolder holder;
  AnswerMemory memory;
  std::size_t most = 0;
  for (std::uint32_t k = 0; k < kMostAnswers + 1000; ++k) {
    KeepOne(k, holder, memory);
    most = std::max(most, BytesOfProcess() - before);
  }
  EXPECT_EQ(memory.capacity, kMostAnswers);
  EXPECT_EQ(memory.count, kMostAnswers);
  EXPECT_EQ(most, RoomOfAnswers(kMostAnswers));
  EXPECT_LE(most, std::size_t{16} << 20);
  ReleaseAnswers(holder);
  EXPECT_EQ(BytesOfProcess(), before);
}

// One thread after the other fills its memory, and all stay.
TEST(AnswerRoom, OfAllThreadsStayWithinTheLimitOfTheProcess) {
  constexpr std::size_t kLarge = 8;
  constexpr std::size_t kThreads = 70;
  ReleaseAnswersOfEnded({});
  const std::size_t before = BytesOfProcess();
  std::vector<std::uint32_t> capacities(kThreads);
  std::atomic<bool> finished{false};
  std::vector<std::thread> threads;
  for (std::size_t k = 0; k < kThreads; ++k) {
    std::atomic<bool> filled{false};
    threads.emplace_back([&finished, &filled, &capacity = capacities[k], large = k < kLarge] {
      AnswerHolder holder;
      AnswerMemory memory;
      const std::uint32_t answers = large ? kMostAnswers : 3000;
      for (std::uint32_t day = 0; day < answers; ++day) {
        KeepOne(day, holder, memory);
      }
      capacity = memory.capacity;
      filled = true;
      while (!finished) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      ReleaseAnswers(holder);
    });
    while (!filled) {
      std::this_thread::yield();
    }
    EXPECT_LE(BytesOfProcess(), kMostBytesOfProcess);
    EXPECT_TRUE(k >= 5 || capacities[k] == kMostAnswers) << k;
  }
  EXPECT_LT(capacities[5], kMostAnswers);
  EXPECT_GT(BytesOfProcess(), kMostBytesOfProcess - RoomOfAnswers(kMostAnswers));
  EXPECT_EQ(capacities.back(), 0U);
  finished = true;
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(BytesOfProcess(), before);
}

// As at the end of the process, where other threads may still call.
TEST(AnswerRoom, TakenAwayIsNoLongerUsed) {
  AnswerHolder holder;
  AnswerMemory memory;
  for (std::uint32_t day = 0; day < 1000; ++day) {
    KeepOne(day, holder, memory);
  }
  ASSERT_GT(memory.count, 0U);
  AnswerRoom* const room = holder.room;
  std::vector<std::uint32_t> claims;
  for (const AnswerRoom& one : process_state.answer_rooms.rooms) {
    claims.push_back(one.claim);
  }

  ClaimAnswers(holder, memory);
  ReleaseAllAnswers();
  EXPECT_NE(room->block, nullptr) << "a call is at work on it";
  LeaveAnswers(holder);
  ReleaseAllAnswers();
  EXPECT_EQ(room->block, nullptr);
  for (int k = 0; k < 1000; ++k) {
    KeepOne(k, holder, memory);
    ASSERT_EQ(memory.capacity, 0U);
    ASSERT_EQ(holder.room, nullptr);
  }
  ReleaseAnswers(holder);

  for (std::size_t k = 0; k < claims.size(); ++k) {
    process_state.answer_rooms.rooms[k].claim = claims[k];
  }
}

TEST(AnswerRoom, OfAThreadThatEndsWithinACallIsGivenBack) {
  const std::size_t before = BytesOfProcess();
  AnswerHolder holder;
  AnswerMemory memory;
  for (std::uint32_t day = 0; day < 1000; ++day) {
    KeepOne(day, holder, memory);
  }
  EXPECT_GT(BytesOfProcess(), before);
  ClaimAnswers(holder, memory);
  ReleaseAnswers(holder);
  EXPECT_EQ(BytesOfProcess(), before);
}

// Threads that come, draw twice and go, beside one that looks for rooms of ended ones all the time.
TEST(AnswerRoom, ServesThreadsThatComeAndGo) {
  ReleaseAnswersOfEnded({});
  const std::size_t before = BytesOfProcess();
  std::vector<BodyPositionRecord> expected;
  for (int day = 0; day < 400; ++day) {
    expected.push_back(PlutoAt(2451545.0 + day));
  }
  std::atomic<bool> finished{false};
  std::thread looks([&finished] {
    while (!finished) {
      ReleaseAnswersOfEnded({});
    }
  });
  std::atomic<int> wrong{0};
  for (int round = 0; round < 5; ++round) {
    std::vector<std::thread> threads;
    for (int k = 0; k < 4; ++k) {
      threads.emplace_back([&expected, &wrong] {
        for (int day = 0; day < 1200; ++day) {
          const std::size_t which = static_cast<std::size_t>(day) % expected.size();
          wrong +=
              SameBytes(PlutoAt(2451545.0 + static_cast<double>(which)), expected[which]) ? 0 : 1;
        }
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
  }
  finished = true;
  looks.join();
  EXPECT_EQ(wrong, 0);
  ReleaseAnswersOfEnded(FindThreadState()->answers);
  EXPECT_LE(BytesOfProcess(), before + RoomOfAnswers(2048));
}

#ifndef _WIN32

// In the child the thread that forked has another number, so its room looks like that of one that
// has ended.
TEST(AnswerRoom, MayBeTakenAwayInTheChildOfAFork) {
  std::vector<BodyPositionRecord> expected;
  for (std::uint32_t day = 0; day < kCallsBefore + 100; ++day) {
    expected.push_back(PlutoAt(2451545.0 + day));
  }
  ASSERT_NE(FindThreadState()->answers.room, nullptr);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::thread([] { ReleaseAnswersOfEnded({}); }).join();
    const bool taken_away = BytesOfProcess() == 0;
    int wrong = taken_away ? 0 : 1;
    for (int repeat = 0; repeat < 2; ++repeat) {
      for (std::size_t day = 0; day < expected.size(); ++day) {
        wrong += SameBytes(PlutoAt(2451545.0 + static_cast<double>(day)), expected[day]) ? 0 : 1;
      }
    }
    _exit(wrong == 0 ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
}

#endif

}  // namespace
}  // namespace zenithor
