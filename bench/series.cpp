// The kernels alone, under Google Benchmark (native only): what a series, the nutation and a block
// of cosines and sines cost, beside the plain way.

#include "ephemeris/series.h"

#include <benchmark/benchmark.h>

#include <cmath>

#include "ephemeris/cosine_sum.h"
#include "ephemeris/moments_walk.h"
#include "ephemeris/track_walk.h"
#include "numerics/sincos.h"
#include "support/full_store.h"
#include "support/plain_series.h"
#include "time/nutation.h"

namespace zenithor {
namespace {

using testing::FullStore;

constexpr int kMars = 4;

SumRoom room;

void BM_MarsPlain(benchmark::State& state) {
  double centuries = 0.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(testing::SumSeriesPlainly(FullStore(), kMars, centuries += 1e-5));
  }
}
BENCHMARK(BM_MarsPlain);

void BM_MarsSse2(benchmark::State& state) {
  double sums[kSeriesCount];
  double millennia = 0.0;
  for (auto _ : state) {
    SumTracksSse2(FullStore().bodies[kMars].tracks, millennia += 1e-6, room, sums);
    benchmark::DoNotOptimize(sums);
  }
}
BENCHMARK(BM_MarsSse2);

#ifdef __x86_64__
void BM_MarsAvx2(benchmark::State& state) {
  if (!__builtin_cpu_supports("avx2")) {
    state.SkipWithError("this processor has no AVX2");
    return;
  }
  double sums[kSeriesCount];
  double millennia = 0.0;
  for (auto _ : state) {
    SumTracksAvx2(FullStore().bodies[kMars].tracks, millennia += 1e-6, room, sums);
    benchmark::DoNotOptimize(sums);
  }
}
BENCHMARK(BM_MarsAvx2);
#endif

MomentsRoom moments_room;
template <void (*walk)(const TermTracks&, const double*, MomentsRoom&, double (*)[kMostEnds])>
void BM_FourMars(benchmark::State& state) {
  double sums[4][kSeriesCount];
  double millennia[4] = {0.0, 1e-6, 2e-6, 3e-6};
  for (auto _ : state) {
    for (double& t : millennia) {
      t += 4e-6;
    }
    walk(FullStore().bodies[kMars].tracks, millennia, moments_room, sums);
    benchmark::DoNotOptimize(sums);
  }
}
BENCHMARK_TEMPLATE(BM_FourMars, SumMomentsSse2);
BENCHMARK_TEMPLATE(BM_FourMars, SumMomentsAvx2);

void BM_MarsWithoutRoom(benchmark::State& state) {
  double sums[kSeriesCount];
  double millennia = 0.0;
  for (auto _ : state) {
    SumTracks(FullStore().bodies[kMars].tracks, millennia += 1e-6, nullptr, sums);
    benchmark::DoNotOptimize(sums);
  }
}
BENCHMARK(BM_MarsWithoutRoom);

void BM_Nutation(benchmark::State& state) {
  double centuries = 0.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Nutation(centuries += 1e-5));
  }
}
BENCHMARK(BM_Nutation);

constexpr int kAngles = 64;

void BM_64CosinesAndSinesOfTheCLibrary(benchmark::State& state) {
  double angles[kAngles], results[2 * kAngles];
  for (int k = 0; k < kAngles; ++k) {
    angles[k] = 0.1 * k;
  }
  for (auto _ : state) {
    for (int k = 0; k < kAngles; ++k) {
      results[2 * k] = std::cos(angles[k]);
      results[2 * k + 1] = std::sin(angles[k]);
    }
    benchmark::DoNotOptimize(results);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_64CosinesAndSinesOfTheCLibrary);

void BM_64CosinesAndSines(benchmark::State& state) {
  double angles[kAngles], results[2 * kAngles];
  for (int k = 0; k < kAngles; ++k) {
    angles[k] = 0.1 * k;
  }
  for (auto _ : state) {
    CosinesAndSines(angles, kAngles, results);
    benchmark::DoNotOptimize(results);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_64CosinesAndSines);

}  // namespace
}  // namespace zenithor
