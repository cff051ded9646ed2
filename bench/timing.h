#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <time.h>
#endif

namespace zenithor::bench {

// Something to time; every call gets another number, so that no two calls ask the same.
using Contestant = std::function<void(int call)>;

inline double Now() {
  return std::chrono::duration<double, std::micro>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

// Processor time of this thread [microseconds]: for what takes longer than a turn of the scheduler,
// so that the work of others would be in it.
inline double ProcessorNow() {
#if defined(_WIN32)
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
  return 0.1 * (4294967296.0 * user.dwHighDateTime + user.dwLowDateTime);
#else
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return 1e6 * static_cast<double>(now.tv_sec) + 1e-3 * static_cast<double>(now.tv_nsec);
#endif
}

// What a quarter of the values stay below: on a busy machine most turns are disturbed by others,
// and it is the undisturbed ones that can be compared.
inline double LowerQuartile(std::vector<double> values) {
  const auto quarter = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 4);
  std::nth_element(values.begin(), quarter, values.end());
  return *quarter;
}

// Microseconds per call of each contestant: the lower quartile of `rounds` rounds, in each of which
// every contestant has its short turn, so that whatever else the machine does falls on all alike.
inline std::vector<double> TimeInTurn(const std::vector<Contestant>& contestants,
                                      int rounds = 101) {
  constexpr double kTurn = 300.0;  // [microseconds]
  std::vector<int> calls(contestants.size(), 1);
  int number = 0;
  for (std::size_t c = 0; c < contestants.size(); ++c) {
    double each = 1e9;
    for (int trial = 0; trial < 5; ++trial) {
      const double start = Now();
      contestants[c](number++);
      each = std::min(each, Now() - start);
    }
    calls[c] = std::clamp(static_cast<int>(kTurn / std::max(each, 0.1)), 1, 1000);
  }
  std::vector<std::vector<double>> times(contestants.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t c = 0; c < contestants.size(); ++c) {
      const double start = Now();
      for (int k = 0; k < calls[c]; ++k) {
        contestants[c](number++);
      }
      times[c].push_back((Now() - start) / calls[c]);
    }
  }
  std::vector<double> quartiles;
  for (const std::vector<double>& each : times) {
    quartiles.push_back(LowerQuartile(each));
  }
  return quartiles;
}

}  // namespace zenithor::bench
