// Searches under Google Benchmark (native only), each beside the same without the guide. Every
// round begins with nothing kept from the one before.

#include <benchmark/benchmark.h>

#include <cstdint>

#include "support/full_store.h"
#include "values/aspects.h"
#include "values/crossings.h"
#include "values/guide_store.h"
#include "values/stations.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

constexpr double kFrom = 2458849.5;  // 2020 January 1
constexpr double kYear = 366.0;

PositionState position_state;
NodeMemory nodes;

// With the guide when the benchmark's argument is 1.
SearchStores StoresOf(const benchmark::State& state) {
  static EphemerisStore guide;
  static GuideRooms rooms;
  static SumRoom room;
  position_state.moment.room = &room;
  position_state.nodes = &nodes;
  if (!IsLoaded(guide, kEarthSlot)) {
    MakeGuide(testing::FullStore(), guide, rooms);
  }
  return {&testing::FullStore(), state.range(0) == 1 ? &guide : nullptr};
}

void FindCentury(const SearchStores& stores) {
  benchmark::DoNotOptimize(FindStations(stores, position_state, ZENITHOR_BODY_MERCURY,
                                        ZENITHOR_FIELD_APPARENT_LONGITUDE, kFrom - 36525.0, kFrom,
                                        nullptr, nullptr, 0));
}

// Ten bodies into twelve signs.
void FindIngresses(const SearchStores& stores) {
  for (std::int32_t body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    for (int sign = 0; sign < 12 && body != ZENITHOR_BODY_EARTH; ++sign) {
      benchmark::DoNotOptimize(FindCrossings(stores, position_state, body,
                                             ZENITHOR_FIELD_APPARENT_LONGITUDE, 30.0 * sign, kFrom,
                                             kFrom + kYear, nullptr, nullptr, 0));
    }
  }
}

// 45 pairs at 0, 60, 90, 120 and 180 degrees.
void FindAllAspects(const SearchStores& stores) {
  for (std::int32_t body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    for (std::int32_t other = body + 1; other < ZENITHOR_BODY_COUNT; ++other) {
      if (body == ZENITHOR_BODY_EARTH || other == ZENITHOR_BODY_EARTH) {
        continue;
      }
      for (const double angle : {0.0, 60.0, 90.0, 120.0, 180.0}) {
        benchmark::DoNotOptimize(FindAspects(stores, position_state, body, other,
                                             ZENITHOR_FIELD_APPARENT_LONGITUDE, angle, kFrom,
                                             kFrom + kYear, nullptr, nullptr, 0));
      }
    }
  }
}

template <class Find>
void Time(benchmark::State& state, Find find) {
  const SearchStores stores = StoresOf(state);
  for (auto _ : state) {
    nodes.cleared = false;
    find(stores);
  }
}

void BM_CenturyOfMercurysStations(benchmark::State& state) { Time(state, FindCentury); }
void BM_YearOfIngresses(benchmark::State& state) { Time(state, FindIngresses); }
void BM_YearOfAspects(benchmark::State& state) { Time(state, FindAllAspects); }
void BM_YearOfIngressesAndAspects(benchmark::State& state) {
  Time(state, [](const SearchStores& stores) {
    FindIngresses(stores);
    FindAllAspects(stores);
  });
}

#define ZENITHOR_BOTH_WAYS(name) \
  BENCHMARK(name)->ArgName("guide")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)
ZENITHOR_BOTH_WAYS(BM_CenturyOfMercurysStations);
ZENITHOR_BOTH_WAYS(BM_YearOfIngresses);
ZENITHOR_BOTH_WAYS(BM_YearOfAspects);
ZENITHOR_BOTH_WAYS(BM_YearOfIngressesAndAspects);

}  // namespace
}  // namespace zenithor
