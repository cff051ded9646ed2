// Values as a host asks for them, from the finished library: arrays beside single calls, and
// further fields of a place beside the first. What is compared runs in turns of a fraction of a
// millisecond; the lower quartiles stand in the counters, [ns] for one place or value.

#include "zenithor/values.h"

#include <benchmark/benchmark.h>

#include <cstdint>

#include "timing.h"

namespace {

constexpr double kFrom = 2458849.5;  // 2020 January 1
constexpr int kDays = 16;
constexpr int kTableDays = 8;

// Other days with every call, so that none is kept from the call before.
const double* DaysOf(int call) {
  static double days[kDays];
  for (int k = 0; k < kDays; ++k) {
    days[k] = kFrom + 0.5 * kDays * (call % 1000) + 0.5 * k;
  }
  return days;
}

void AskSingly(int call, std::int32_t body, std::int32_t field) {
  const double* const days = DaysOf(call);
  for (int k = 0; k < kDays; ++k) {
    benchmark::DoNotOptimize(ZenithorValue(body, field, days[k]));
  }
}

void AskArray(int call, std::int32_t body, std::int32_t field) {
  static double values[kDays];
  ZenithorValues(body, field, DaysOf(call), kDays, values);
  benchmark::DoNotOptimize(values);
}

// An array of a field beside as many single calls.
void BM_Array(benchmark::State& state) {
  const auto body = static_cast<std::int32_t>(state.range(0));
  const auto field = static_cast<std::int32_t>(state.range(1));
  for (auto _ : state) {
    const auto times =
        zenithor::bench::TimeInTurn({[=](int call) { AskSingly(call, body, field); },
                                     [=](int call) { AskArray(call, body, field); }});
    state.counters["single"] = times[0] * 1000.0 / kDays;
    state.counters["array"] = times[1] * 1000.0 / kDays;
    state.counters["ratio"] = times[0] / times[1];
  }
}
BENCHMARK(BM_Array)
    ->ArgNames({"body", "field"})
    ->Args({ZENITHOR_BODY_SUN, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_MERCURY, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_VENUS, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_EARTH, ZENITHOR_FIELD_HELIO_LONGITUDE})
    ->Args({ZENITHOR_BODY_MARS, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_JUPITER, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_SATURN, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_URANUS, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_NEPTUNE, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_PLUTO, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_MOON, ZENITHOR_FIELD_DECLINATION})
    ->Args({ZENITHOR_BODY_MARS, ZENITHOR_FIELD_APPARENT_LONGITUDE})
    ->Args({ZENITHOR_BODY_MARS, ZENITHOR_FIELD_LONGITUDE_MOTION})
    ->Args({ZENITHOR_BODY_MARS, ZENITHOR_FIELD_ELONGATION})
    ->Iterations(1);

// Ten bodies of each day, three fields, as one table and cell by cell.
constexpr std::int32_t kBodies[] = {0, 1, 2, 4, 5, 6, 7, 8, 9, 10};
constexpr std::int32_t kFields[] = {ZENITHOR_FIELD_GEO_LONGITUDE, ZENITHOR_FIELD_DECLINATION,
                                    ZENITHOR_FIELD_APPARENT_LONGITUDE};
constexpr int kBodyCount = 10;
constexpr int kFieldCount = 3;

void AskCells(int call) {
  const double* const days = DaysOf(call);
  for (int d = 0; d < kTableDays; ++d) {
    for (const std::int32_t body : kBodies) {
      for (const std::int32_t field : kFields) {
        benchmark::DoNotOptimize(ZenithorValue(body, field, days[d]));
      }
    }
  }
}

void AskTable(int call) {
  static double values[kTableDays * kBodyCount * kFieldCount];
  ZenithorTable(kBodies, kBodyCount, kFields, kFieldCount, DaysOf(call), kTableDays, values, 0, 0,
                0);
  benchmark::DoNotOptimize(values);
}

void BM_TableOfTenBodies(benchmark::State& state) {
  for (auto _ : state) {
    const auto times = zenithor::bench::TimeInTurn({AskCells, AskTable});
    state.counters["single"] = times[0] * 1000.0 / (kTableDays * kBodyCount);
    state.counters["table"] = times[1] * 1000.0 / (kTableDays * kBodyCount);
    state.counters["ratio"] = times[0] / times[1];
  }
}
BENCHMARK(BM_TableOfTenBodies)->Iterations(1);

// Further fields of a body and moment beside the first.
void AskFirstField(int call) {
  benchmark::DoNotOptimize(ZenithorValue(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_LONGITUDE,
                                         kFrom + 0.5 * (call % 100000)));
}

void AskFurtherFields(int /*call*/) {
  constexpr int kRecordFields = 8;
  for (int k = 0; k < kDays; ++k) {
    benchmark::DoNotOptimize(ZenithorValue(ZENITHOR_BODY_MARS, 1 + k % kRecordFields, kFrom));
  }
}

void AskApparentAgain(int /*call*/) {
  for (int k = 0; k < kDays; ++k) {
    benchmark::DoNotOptimize(
        ZenithorValue(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_APPARENT_LONGITUDE + k % 4, kFrom));
  }
}

void BM_FurtherFieldsOfAMoment(benchmark::State& state) {
  for (auto _ : state) {
    const auto times =
        zenithor::bench::TimeInTurn({AskFirstField, AskFurtherFields, AskApparentAgain});
    state.counters["first"] = times[0] * 1000.0;
    state.counters["further_1_to_8"] = times[1] * 1000.0 / kDays;
    state.counters["further_101_to_104"] = times[2] * 1000.0 / kDays;
  }
}
BENCHMARK(BM_FurtherFieldsOfAMoment)->Iterations(1);

}  // namespace
