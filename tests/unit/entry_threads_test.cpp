#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include "support/linked_exports.h"

namespace zenithor {
namespace {

using testing::FillProcessStore;
using testing::LinkedExport;

constexpr int kThreads = 8;
constexpr int kDistinctCalls = 420;  // twenty of every export
#if defined(__SANITIZE_THREAD__)
constexpr int kCallsPerThread = 25000;
#else
constexpr int kCallsPerThread = 1500;
#endif

struct Answer {
  double result = 0.0;
  double record[kEventRecordSize / sizeof(double)] = {};

  bool operator==(const Answer& other) const {
    return std::memcmp(this, &other, sizeof other) == 0;
  }
};

Answer Call(int which) {
  const int export_number = which % kExportCount;
  const ExportRow& row = kExports[export_number];
  const ExportArguments arguments = OrdinaryArguments(&row, static_cast<std::uint64_t>(which));
  Answer answer;
  answer.result = CallExport(&row, LinkedExport(export_number), &arguments, answer.record);
  return answer;
}

// Two hundred thousand calls where the thread sanitizer watches; as many are made against the
// finished library.
TEST(Threads, EachGetsTheAnswersOfALoneCaller) {
  FillProcessStore();
  std::vector<Answer> lone;
  for (int which = 0; which < kDistinctCalls; ++which) {
    lone.push_back(Call(which));
  }
  std::vector<int> differences(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &lone, &differences] {
      auto random = static_cast<std::uint64_t>(t);
      for (int k = 0; k < kCallsPerThread; ++k) {
        const auto which = static_cast<int>(NextRandom(&random) % kDistinctCalls);
        if (!(Call(which) == lone[static_cast<std::size_t>(which)])) {
          ++differences[static_cast<std::size_t>(t)];
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const int count : differences) {
    EXPECT_EQ(count, 0);
  }
}

// The answers of one thread do not depend on what it asked before.
TEST(Threads, AnswersDoNotDependOnTheOrderOfTheCalls) {
  FillProcessStore();
  std::vector<Answer> forward;
  for (int which = 0; which < kDistinctCalls; ++which) {
    forward.push_back(Call(which));
  }
  int differences = 0;
  for (int which = kDistinctCalls - 1; which >= 0; --which) {
    differences += Call(which) == forward[static_cast<std::size_t>(which)] ? 0 : 1;
  }
  EXPECT_EQ(differences, 0);
}

}  // namespace
}  // namespace zenithor
