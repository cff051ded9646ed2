// The golden answers through the library itself, by the loader of the C header.
//   golden_host LIBRARY positions|events|risings
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

#include "host.h"
#include "support/event_golden.h"
#include "support/position_golden.h"
#include "support/rising_golden.h"

using zenithor::testing::EventCall;
using zenithor::testing::PositionCall;
using zenithor::testing::RisingCall;

namespace {

ZenithorLibrary library;
const char* library_path;

double CallPosition(const PositionCall& call, BodyPositionRecord* record) {
  // Answers for Pluto were each computed in a freshly loaded library.
  if (call.code == ZENITHOR_PLUTO) {
    ZenithorClose(&library);
    if (OpenLibrary(&library, library_path) == 0) {
      return 0.0;
    }
  }
  return library.ZENITHOR(call.julian_day, call.ignored1, call.ignored2, call.observer_longitude,
                          call.observer_latitude, call.ignored3, call.code, record);
}

double CallEvent(const EventCall& call, EventRecord* record) {
  struct Selected {
    const char* name;
    ZenithorSeasonOrPhase function;
  };
  const Selected selected[] = {
      {"SPR_EQUX", library.SPR_EQUX},   {"SUM_SOL", library.SUM_SOL},
      {"FALL_EQUX", library.FALL_EQUX}, {"WIN_SOL", library.WIN_SOL},
      {"NEW_MOON", library.NEW_MOON},   {"FIRST_QTR", library.FIRST_QTR},
      {"FULL_MOON", library.FULL_MOON}, {"LAST_QTR", library.LAST_QTR},
  };
  for (const Selected& entry : selected) {
    if (call.name == entry.name && entry.function != nullptr) {
      return entry.function(call.julian_day, 0.25, -1.5, call.selector, record);
    }
  }
  if (call.name == "ALL_SE" && library.ALL_SE != nullptr) {
    return library.ALL_SE(call.julian_day, 0.25, -1.5, record);
  }
  if (call.name == "ALL_LE" && library.ALL_LE != nullptr) {
    return library.ALL_LE(call.julian_day, 0.25, -1.5, record);
  }
  struct OfKind {
    const char* name;
    ZenithorEclipseOfKind function;
  };
  const OfKind of_kind[] = {
      {"TOTAL_SE", library.TOTAL_SE},         {"ANNULAR_SE", library.ANNULAR_SE},
      {"ANNULAR_TSE", library.ANNULAR_TSE},   {"TOTAL_NCSE", library.TOTAL_NCSE},
      {"ANNULAR_NCSE", library.ANNULAR_NCSE}, {"PARTIAL_SE", library.PARTIAL_SE},
      {"TOTAL_LE", library.TOTAL_LE},         {"PARTIAL_LE", library.PARTIAL_LE},
      {"PENUM_LE", library.PENUM_LE},
  };
  for (const OfKind& entry : of_kind) {
    if (call.name == entry.name && entry.function != nullptr) {
      return entry.function(call.julian_day, record);
    }
  }
  std::fprintf(stderr, "golden_host: no function %s\n", call.name.c_str());
  std::exit(EXIT_FAILURE);
}

double CallRising(const RisingCall& call) {
  return library.GEO_RISE == nullptr
             ? -1.0
             : library.GEO_RISE(call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                                call.latitude, call.code, call.selector);
}

template <class Summary>
bool Report(const char* what, const Summary& summary) {
  std::printf("%s: %d cases, %d failures %s\n", what, summary.cases, summary.failures,
              summary.first_failure.c_str());
  return summary.cases > 0 && summary.failures == 0;
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) {
    std::fprintf(stderr, "usage: golden_host LIBRARY positions|events|risings\n");
    return EXIT_FAILURE;
  }
  library_path = words[1];
  if (OpenLibrary(&library, library_path) == 0) {
    std::fprintf(stderr, "golden_host: cannot load %s\n", library_path);
    return EXIT_FAILURE;
  }
  bool met = false;
  try {
    if (std::strcmp(words[2], "positions") == 0) {
      met = Report("positions", zenithor::testing::CheckGoldenPositions(
                                    CallPosition, [](BodyCode) { return true; }));
    } else if (std::strcmp(words[2], "events") == 0) {
      met = Report("events", zenithor::testing::CheckGoldenEvents(CallEvent));
    } else if (std::strcmp(words[2], "risings") == 0) {
      met = Report("risings", zenithor::testing::CheckGoldenRisings(CallRising));
    }
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "golden_host: %s\n", problem.what());
  }
  CHECK(met);
  return HOST_RESULT;
}
