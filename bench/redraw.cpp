// What the memory of answers brings and costs, in turns of threads that begin with nothing:
//
//   bench_redraw LIBRARY ARCHIVE
//
// LIBRARY is the finished library, which finds its data in the application-data folder: ten
// thousand bars of eleven bodies drawn twice. ARCHIVE is the folder of the same data, for the rooms
// of the library linked into this program, where a call can be made with the memory and without.
// Processor time of the threads; the median of the turns, and of the ratios within a turn.

#define ZENITHOR_LOADER
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "ephemeris/loader.h"
#include "host/process_state.h"
#include "host/thread_state.h"
#include "positions/position.h"
#include "timing.h"
#include "zenithor/zenithor.h"

#ifndef _WIN32
#include <pthread.h>
#endif

namespace zenithor::bench {
namespace {

constexpr int kBodies = ZENITHOR_MOON + 1;
constexpr int kBars = 10000;
constexpr int kRandomCalls = 40000;
constexpr int kTurns = 9;
constexpr int kThreads = 8;

volatile double sink;

using Call = std::function<void(double julian_day, BodyCode code)>;

// The C++ library of the DLL's compiler has no threads.
class Thread {
 public:
  explicit Thread(std::function<void()> work) : work_(std::move(work)) {
#ifdef _WIN32
    handle_ = CreateThread(nullptr, 0, Run, &work_, 0, nullptr);
#else
    pthread_create(&handle_, nullptr, Run, &work_);
#endif
  }
  ~Thread() {
#ifdef _WIN32
    WaitForSingleObject(handle_, INFINITE);
    CloseHandle(handle_);
#else
    pthread_join(handle_, nullptr);
#endif
  }
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

 private:
#ifdef _WIN32
  static DWORD WINAPI Run(void* work) {
    (*static_cast<std::function<void()>*>(work))();
    return 0;
  }
  HANDLE handle_;
#else
  static void* Run(void* work) {
    (*static_cast<std::function<void()>*>(work))();
    return nullptr;
  }
  pthread_t handle_;
#endif
  std::function<void()> work_;
};

void RunOnAThread(const std::function<void()>& work) { const Thread thread(work); }

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
  return values[values.size() / 2];
}

// Microseconds of processor time that `work` takes this thread.
double TimeOf(const std::function<void()>& work) {
  const double start = ProcessorNow();
  work();
  return ProcessorNow() - start;
}

double TimeOnAThread(const std::function<void()>& work) {
  double time = 0.0;
  RunOnAThread([&] { time = TimeOf(work); });
  return time;
}

void Draw(const Call& call, int bars) {
  for (int bar = 0; bar < bars; ++bar) {
    for (BodyCode code = 0; code < kBodies; ++code) {
      call(2451545.25 + bar, code);
    }
  }
}

// Any of a million days and eleven bodies.
void CallAtRandom(const Call& call, unsigned seed) {
  std::uint64_t state = 0x9E3779B97F4A7C15 * (seed + 1);
  for (int k = 0; k < kRandomCalls; ++k) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    call(2000000.5 + static_cast<double>(state % 1000000),
         static_cast<BodyCode>((state >> 40) % kBodies));
  }
}

void Compute(double julian_day, BodyCode code, PositionState& state) {
  BodyPositionRecord record;
  sink = ComputePosition(process_state.store, state, julian_day, 0.0, 0.0, code, &record);
}

void With(double julian_day, BodyCode code) {
  CallState state;
  Compute(julian_day, code, state.WithAnswers());
}

void Without(double julian_day, BodyCode code) {
  CallState state;
  Compute(julian_day, code, state.Get());
}

void TimeLibrary(const ZenithorLibrary& library) {
  const Call call = [&library](double julian_day, BodyCode code) {
    BodyPositionRecord record;
    sink = library.ZENITHOR(julian_day, 0.0, 0.0, 0.0, 0.0, 0.0, code, &record);
  };
  std::vector<double> first;
  std::vector<double> second;
  std::vector<double> ratios;
  for (int turn = 0; turn < kTurns; ++turn) {
    const auto draw = [&] {
      first.push_back(TimeOf([&] { Draw(call, kBars); }));
      // Ten times: processor time counts in coarse steps on some systems.
      second.push_back(TimeOf([&] {
                         for (int k = 0; k < 10; ++k) {
                           Draw(call, kBars);
                         }
                       }) /
                       10);
    };
    RunOnAThread(draw);
    ratios.push_back(first.back() / second.back());
  }
  const double calls = static_cast<double>(kBars) * kBodies;
  std::printf(
      "ZENITHOR, %d bars of %d bodies: first drawing %.2f, further ones %.3f microseconds a "
      "call, %.0f times faster (goal 50)\n",
      kBars, kBodies, Median(first) / calls, Median(second) / calls, Median(ratios));
}

void Compare(const char* what, const std::function<void(const Call&, unsigned)>& work) {
  std::vector<double> ratios;
  for (unsigned turn = 0; turn < kTurns; ++turn) {
    double with = 0.0;
    double without = 0.0;
    for (int half = 0; half < 2; ++half) {  // each first in every other half
      const bool with_first = half == 0;
      (with_first ? with : without) +=
          TimeOnAThread([&] { work(with_first ? With : Without, turn); });
      (with_first ? without : with) +=
          TimeOnAThread([&] { work(with_first ? Without : With, turn); });
    }
    ratios.push_back(with / without);
  }
  std::printf("%s with the memory beside without: %+.1f %% (at most 3)\n", what,
              100.0 * (Median(ratios) - 1.0));
}

// The processor time of a place on eight threads at once beside that on one.
void TimeThreads(const char* what, const Call& call, int repeats) {
  constexpr int kShare = 1000;  // bars
  const auto time_of = [&call, repeats] {
    Draw(call, repeats == 1 ? 1 : kShare);
    return TimeOf([&call, repeats] {
      for (int k = 0; k < repeats; ++k) {
        Draw(call, kShare);
      }
    });
  };
  std::vector<double> ratios;
  for (int turn = 0; turn < kTurns; ++turn) {
    double alone = 0.0;
    RunOnAThread([&] { alone = time_of(); });
    std::vector<double> times(kThreads);
    {
      std::vector<std::unique_ptr<Thread>> threads;
      for (double& time : times) {
        threads.push_back(std::make_unique<Thread>([&time, &time_of] { time = time_of(); }));
      }
    }
    ratios.push_back(std::accumulate(times.begin(), times.end(), 0.0) / kThreads / alone);
  }
  std::printf("%s on %d threads at once: %.2f of the processor time on one\n", what, kThreads,
              Median(ratios));
}

int Run(const char* path, const std::string& folder) {
  ZenithorLibrary library;
  std::vector<ZenithorPathCharacter> wide(path, path + std::string(path).size() + 1);
  if (!ZenithorOpen(&library, wide.data())) {
    std::fprintf(stderr, "bench_redraw: cannot load %s\n", path);
    return 1;
  }
  for (int slot = 0; slot < kSlotCount; ++slot) {
    if (LoadBodySeries(process_state.store, slot, (folder + "/karvo.ndx").c_str(),
                       (folder + "/karvo.dat").c_str()) != LoadStatus::kLoaded) {
      std::fprintf(stderr, "bench_redraw: no data in %s; make data builds it\n", folder.c_str());
      return 1;
    }
  }
  TimeLibrary(library);
  Compare("first drawing", [](const Call& call, unsigned) { Draw(call, kBars); });
  Compare("random days", CallAtRandom);
  TimeThreads("a place computed without the memory", Without, 1);
  TimeThreads("a first place with the memory", With, 1);
  TimeThreads("a remembered place", With, 20);
  return 0;
}

}  // namespace
}  // namespace zenithor::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: bench_redraw LIBRARY ARCHIVE\n");
    return 1;
  }
  return zenithor::bench::Run(argv[1], argv[2]);
}
