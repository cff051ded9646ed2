// Times the exports of the finished library, each beside its baseline in the same run:
//
//   bench_exports LIBRARY ARCHIVE [COMPACT_ARCHIVE]
//
// LIBRARY is the shared library, which finds its data in the application-data folder; ARCHIVE is
// the folder of the same index and data file, COMPACT_ARCHIVE that of a smaller data set. The
// baseline is the same code with the terms walked plainly, one cosine of the C library each, and
// with nothing kept from call to call; it is linked into this program and compiled with the
// library's flags. On Linux, libnova's apparent place of Mars from the full VSOP87 is another.

#define ZENITHOR_LOADER
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "ephemeris/loader.h"
#include "ephemeris/series.h"
#include "host/thread_state.h"
#include "positions/position.h"
#include "rising/rising.h"
#include "timing.h"
#include "zenithor/zenithor.h"

#ifdef ZENITHOR_HAS_LIBNOVA
#include <libnova/mars.h>
#endif

namespace zenithor::bench {
namespace {

constexpr const char* kNames[] = {"Sun",    "Mercury", "Venus",   "Earth", "Mars", "Jupiter",
                                  "Saturn", "Uranus",  "Neptune", "Pluto", "Moon"};

double JulianDay(int call) { return 2451545.0 + 0.37 * (call % 100000); }
double Centuries(int call) { return (JulianDay(call) - 2451545.0) / 36525.0; }

// Where the optimizer must believe that somebody looks.
volatile double sink;

bool Load(EphemerisStore& store, const std::string& folder) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    if (LoadBodySeries(store, slot, (folder + "/karvo.ndx").c_str(),
                       (folder + "/karvo.dat").c_str()) != LoadStatus::kLoaded) {
      std::fprintf(stderr, "bench_exports: no data in %s; make data builds it\n", folder.c_str());
      return false;
    }
  }
  return true;
}

// The same terms, walked plainly.
EphemerisStore Plain(EphemerisStore store) {
  for (BodySeries& body : store.bodies) {
    body.tracks = {};
  }
  return store;
}

// The state of a thread that has kept nothing of a moment.
PositionState& NothingKept() {
  static PositionState state;
  state.moment = MomentCache{};
  return state;
}

struct Bench {
  ZenithorLibrary library;
  EphemerisStore store;
  EphemerisStore plain;

  Contestant Library(BodyCode code) const {
    return [this, code](int call) {
      BodyPositionRecord record;
      library.ZENITHOR(JulianDay(call), 0.0, 0.0, 10.0, 50.0, 0.0, code, &record);
      sink = record.RightAscension;
    };
  }
  Contestant Baseline(BodyCode code) const {
    return [this, code](int call) {
      BodyPositionRecord record;
      ComputePosition(plain, NothingKept(), JulianDay(call), 10.0, 50.0, code, &record);
      sink = record.RightAscension;
    };
  }
};

void PrintRow(const char* name, double plain, double library) {
  std::printf("%-28s %10.2f %10.2f %8.1f\n", name, plain, library, plain / library);
}

// What a ratio must reach.
void PrintGoal(const char* what, double ratio, double goal) {
  std::printf("%s: %.1f times faster, goal %.0f, %s\n", what, ratio, goal,
              ratio >= goal ? "reached" : "MISSED");
}

void TimePositions(const Bench& bench) {
  std::printf("%-28s %10s %10s %8s   [microseconds per call, lower quartiles]\n", "ZENITHOR",
              "plain", "library", "ratio");
  double mars = 0.0;
  double moon = 0.0;
  double eight_plain = 0.0;
  for (const BodyCode code : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10}) {
    const std::vector<double> times = TimeInTurn({bench.Baseline(code), bench.Library(code)});
    PrintRow(kNames[code], times[0], times[1]);
    eight_plain += code == ZENITHOR_EARTH || code == ZENITHOR_MOON ? 0.0 : times[0];
    mars = code == ZENITHOR_MARS ? times[0] / times[1] : mars;
    moon = code == ZENITHOR_MOON ? times[0] / times[1] : moon;
  }
  // Nothing is kept in the baseline, so there eight bodies cost what they cost one by one.
  const Contestant eight_bodies = [&bench](int call) {
    for (const BodyCode code : {0, 1, 2, 4, 5, 6, 7, 8}) {
      bench.Library(code)(call);
    }
  };
  const double eight = TimeInTurn({eight_bodies})[0];
  PrintRow("Sun and 7 planets, 1 moment", eight_plain, eight);
  const std::vector<double> pluto = TimeInTurn({bench.Library(ZENITHOR_PLUTO)});
  std::printf("%-28s %10s %10.2f\n\n", "Pluto", "", pluto[0]);

  const bool is_32_bit = sizeof(void*) == 4;
  PrintGoal("Mars", mars, is_32_bit ? 20.0 : 12.0);
  PrintGoal("Sun and 7 planets of one moment", eight_plain / eight, is_32_bit ? 25.0 : 12.0);
  PrintGoal("Moon", moon, 8.0);
#ifdef ZENITHOR_HAS_LIBNOVA
  const std::vector<double> nova = TimeInTurn({[](int call) {
                                                 ln_equ_posn place;
                                                 ln_get_mars_equ_coords(JulianDay(call), &place);
                                                 sink = place.ra;
                                               },
                                               bench.Library(ZENITHOR_MARS)});
  std::printf("libnova, apparent place of Mars: %.1f microseconds, library %.1f\n", nova[0],
              nova[1]);
  PrintGoal("Mars against libnova", nova[0] / nova[1], 12.0);
#endif
}

// What every export pays once for the set that its thread keeps.
void TimePositionState() {
  constexpr int kLookups = 100;
  const std::vector<double> times = TimeInTurn({[](int) {
    for (int k = 0; k < kLookups; ++k) {
      CallState state;
      sink = state.Get().moment.oldest_place;
    }
  }});
  std::printf("the thread's own set: %.1f nanoseconds a lookup, one for each export\n\n",
              times[0] * 1e3 / kLookups);
}

void TimeEvents(const Bench& bench) {
  std::printf("\n%-28s %10s\n", "event exports", "library");
  const ZenithorLibrary& z = bench.library;
  EventRecord record{};
  const auto row = [](const char* name, const Contestant& contestant) {
    std::printf("%-28s %10.2f\n", name, TimeInTurn({contestant})[0]);
  };
  const auto step = [](int call) { return 2451545.0 + 13.7 * (call % 10000); };
  row("SPR_EQUX", [&](int k) { sink = z.SPR_EQUX(step(k), 0.0, 0.0, 0, &record); });
  row("NEW_MOON", [&](int k) { sink = z.NEW_MOON(step(k), 0.0, 0.0, 0, &record); });
  row("ALL_SE", [&](int k) { sink = z.ALL_SE(step(k), 0.0, 0.0, &record); });
  row("TOTAL_SE", [&](int k) { sink = z.TOTAL_SE(step(k), &record); });
  row("ANNULAR_TSE (the rarest)", [&](int k) { sink = z.ANNULAR_TSE(step(k), &record); });
  row("ALL_LE", [&](int k) { sink = z.ALL_LE(step(k), 0.0, 0.0, &record); });
  row("TOTAL_LE", [&](int k) { sink = z.TOTAL_LE(step(k), &record); });
}

// Searches for an eclipse of the Sun from days that are no days, of which none is found: from Unix
// milliseconds, from Unix microseconds, and from where the longest are.
void TimeHopelessSearches(const Bench& bench) {
  constexpr int kSearches = 20;
  EventRecord record{};
  double longest = 0.0;  // [microseconds]
  for (const double day : {1.7637696e12, 1.7637696e15, 1e11, 6.94e11, 1e13, 1.23e15}) {
    const double start = ProcessorNow();
    for (int k = 0; k < kSearches; ++k) {
      sink = bench.library.ALL_SE(day + k, 0.0, 0.0, &record);
    }
    longest = std::max(longest, (ProcessorNow() - start) / kSearches);
  }
  constexpr double kMostMilliseconds = sizeof(void*) == 4 ? 20.0 : 5.0;
  std::printf("%-28s %10.0f  of processor time, goal %.0f milliseconds, %s\n",
              "ALL_SE, longest without end", longest, kMostMilliseconds,
              longest < 1000.0 * kMostMilliseconds ? "reached" : "MISSED");
}

void TimeRising(const Bench& bench) {
  std::printf("\n%-28s %10s %10s %8s\n", "GEO_RISE, one time", "plain", "library", "ratio");
  const auto day = [](int call) { return 14000.0 + call % 10000; };
  for (const BodyCode code : {0, 4, 5, 9, 10}) {
    const std::vector<double> times = TimeInTurn(
        {[&](int call) {
           sink = ComputeRising(bench.plain, NothingKept().moment,
                                {day(call), 0.0, 0.0, -10.0, 45.0, code}, ZENITHOR_RISE);
         },
         [&](int call) {
           sink = bench.library.GEO_RISE(day(call), 0.0, 0.0, -10.0, 45.0, code, ZENITHOR_RISE);
         }});
    PrintRow(kNames[code], times[0], times[1]);
  }
}

void TimeTerms(const EphemerisStore& store, const char* data_set) {
  std::printf("\n%-28s %10s %10s %8s %8s %8s   [nanoseconds per term]\n", data_set, "plain",
              "library", "ratio", "terms", "freq.");
  const EphemerisStore plain = Plain(store);
  static SumRoom room;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto s = static_cast<std::size_t>(slot);
    const int terms = store.bodies[s].term_count;
    const std::vector<double> times = TimeInTurn(
        {[&](int call) { sink = SumStoredSeries(plain, slot, Centuries(call)).radius; },
         [&](int call) { sink = SumStoredSeries(store, slot, Centuries(call), &room).radius; }});
    const double scale = 1000.0 / terms;
    std::printf("%-28s %10.2f %10.2f %8.1f %8d %8d\n", slot == 0 ? "Earth J2000.0" : kNames[slot],
                times[0] * scale, times[1] * scale, times[0] / times[1], terms,
                store.bodies[s].tracks.frequency_count);
  }
}

void TimeLoad(const std::string& folder) {
  std::vector<double> times;
  for (int round = 0; round < 21; ++round) {
    EphemerisStore store;  // what it loads stays, as in the library
    const double start = Now();
    Load(store, folder);
    times.push_back((Now() - start) / 1000.0);
  }
  std::printf("\nloading nine slots: %.2f milliseconds, goal 15, %s\n", LowerQuartile(times),
              LowerQuartile(times) <= 15.0 ? "reached" : "MISSED");
}

int Main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: bench_exports LIBRARY ARCHIVE [COMPACT_ARCHIVE]\n");
    return 2;
  }
  Bench bench;
  const std::string name = argv[1];
  const std::basic_string<ZenithorPathCharacter> path(name.begin(), name.end());
  if (ZenithorOpen(&bench.library, path.c_str()) == 0) {
    std::fprintf(stderr, "bench_exports: %s cannot be loaded\n", argv[1]);
    return 1;
  }
  if (!Load(bench.store, argv[2])) {
    return 1;
  }
  BodyPositionRecord record;
  if (bench.library.ZENITHOR(JulianDay(0), 0, 0, 0, 0, 0, ZENITHOR_MARS, &record) !=
      ZENITHOR_DONE) {
    std::fprintf(stderr, "bench_exports: the library found no data\n");
    return 1;
  }
  bench.plain = Plain(bench.store);
  std::printf("%d-bit, %s\n\n", static_cast<int>(8 * sizeof(void*)), argv[1]);
  TimePositions(bench);
  TimePositionState();
  TimeEvents(bench);
  TimeHopelessSearches(bench);
  TimeRising(bench);
  TimeTerms(bench.store, "series sums, full data");
  if (argc > 3) {
    EphemerisStore compact;
    if (!Load(compact, argv[3])) {
      return 1;
    }
    TimeTerms(compact, "series sums, compact data");
  }
  TimeLoad(argv[2]);
  return 0;
}

}  // namespace
}  // namespace zenithor::bench

int main(int argc, char** argv) { return zenithor::bench::Main(argc, argv); }
