#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <stdexcept>

#include "commands.h"
#include "failure.h"
#include "support/event_golden.h"
#include "support/position_golden.h"
#include "support/rising_golden.h"

namespace zenithor::almanac {

namespace {

using testing::GoldenCase;
using testing::GoldenSummary;

std::vector<GoldenCase> CasesOfKind(const std::vector<GoldenCase>& cases, const char* kinds) {
  std::vector<GoldenCase> chosen;
  for (const GoldenCase& golden : cases) {
    const std::string& kind = golden.call.at(0);
    if (kind.size() == 1 && std::string(kinds).find(kind) != std::string::npos) {
      chosen.push_back(golden);
    }
  }
  return chosen;
}

// A function that the library does not export leaves its cases unanswered, and so failed.
constexpr double kNoAnswer = 0.0;

GoldenSummary CheckPositions(const ZenithorLibrary& library, const std::vector<GoldenCase>& cases) {
  return testing::CheckPositions(
      cases,
      [&library](const testing::PositionCall& call, BodyPositionRecord* record) {
        return library.ZENITHOR(call.julian_day, call.ignored1, call.ignored2,
                                call.observer_longitude, call.observer_latitude, call.ignored3,
                                call.code, record);
      },
      [](BodyCode) { return true; });
}

template <class Function>
struct Named {
  const char* name;
  Function ZenithorLibrary::*member;
};

#define ZENITHOR_NAMED(name) \
  { #name, &ZenithorLibrary::name }
constexpr Named<ZenithorSeasonOrPhase> kSeasonsAndPhases[] = {
    ZENITHOR_NAMED(SPR_EQUX),  ZENITHOR_NAMED(SUM_SOL),  ZENITHOR_NAMED(FALL_EQUX),
    ZENITHOR_NAMED(WIN_SOL),   ZENITHOR_NAMED(NEW_MOON), ZENITHOR_NAMED(FIRST_QTR),
    ZENITHOR_NAMED(FULL_MOON), ZENITHOR_NAMED(LAST_QTR)};
constexpr Named<ZenithorAnyEclipse> kAnyEclipse[] = {ZENITHOR_NAMED(ALL_SE),
                                                     ZENITHOR_NAMED(ALL_LE)};
constexpr Named<ZenithorEclipseOfKind> kEclipsesOfKind[] = {
    ZENITHOR_NAMED(TOTAL_SE),   ZENITHOR_NAMED(ANNULAR_SE),   ZENITHOR_NAMED(ANNULAR_TSE),
    ZENITHOR_NAMED(TOTAL_NCSE), ZENITHOR_NAMED(ANNULAR_NCSE), ZENITHOR_NAMED(PARTIAL_SE),
    ZENITHOR_NAMED(TOTAL_LE),   ZENITHOR_NAMED(PARTIAL_LE),   ZENITHOR_NAMED(PENUM_LE)};
#undef ZENITHOR_NAMED

// Calls the function of `table` that has that name; false where none has.
template <class Table, class Use>
bool CallNamed(const Table& table, const ZenithorLibrary& library, const std::string& name,
               Use use) {
  for (const auto& entry : table) {
    if (name == entry.name && library.*entry.member != nullptr) {
      use(library.*entry.member);
      return true;
    }
  }
  return false;
}

GoldenSummary CheckEvents(const ZenithorLibrary& library, const std::vector<GoldenCase>& cases) {
  return testing::CheckEvents(
      cases, [&library](const testing::EventCall& call, EventRecord* record) {
        double result = kNoAnswer;
        CallNamed(kSeasonsAndPhases, library, call.name,
                  [&](auto function) {
                    result = function(call.julian_day, 0, 0, call.selector, record);
                  }) ||
            CallNamed(kAnyEclipse, library, call.name,
                      [&](auto function) { result = function(call.julian_day, 0, 0, record); }) ||
            CallNamed(kEclipsesOfKind, library, call.name,
                      [&](auto function) { result = function(call.julian_day, record); });
        return result;
      });
}

GoldenSummary CheckRising(const ZenithorLibrary& library, const std::vector<GoldenCase>& cases) {
  const testing::RisingSummary summary =
      testing::CheckRisings(cases, [&library](const testing::RisingCall& call) {
        return library.GEO_RISE == nullptr
                   ? kNoAnswer
                   : library.GEO_RISE(call.day_number, call.minutes, call.zone_hours,
                                      call.longitude_west, call.latitude, call.code, call.selector);
      });
  return {summary.cases, summary.failures, summary.first_failure};
}

void Add(const GoldenSummary& part, GoldenSummary& whole) {
  whole.cases += part.cases;
  whole.failures += part.failures;
  if (whole.first_failure.empty()) {
    whole.first_failure = part.first_failure;
  }
}

// One case after the other, so that one that cannot be read as a call and its answer is named.
template <class CheckKind>
void AddEach(CheckKind check, const ZenithorLibrary& library, const std::string& path,
             const std::vector<GoldenCase>& cases, GoldenSummary& whole) {
  for (const GoldenCase& golden : cases) {
    try {
      Add(check(library, {golden}), whole);
    } catch (const std::logic_error&) {  // words that are missing or no numbers
      throw Failure("{}: not a call and its answer: {}", path, CLI::detail::join(golden.call, " "));
    }
  }
}

int Check(const ZenithorLibrary& library, const std::string& path) {
  if (path.empty()) {
    throw Failure("check \"\": not a path; write one such as tests/golden/positions.tsv");
  }
  const std::vector<GoldenCase> cases = testing::GoldenCasesAt(path);
  GoldenSummary summary;
  AddEach(CheckPositions, library, path, CasesOfKind(cases, "P"), summary);
  AddEach(CheckEvents, library, path, CasesOfKind(cases, "SE"), summary);
  AddEach(CheckRising, library, path, CasesOfKind(cases, "R"), summary);
  const std::size_t others = cases.size() - static_cast<std::size_t>(summary.cases);
  if (others > 0) {
    throw Failure("{}: {} of {} lines are of a kind that cannot be checked", path, others,
                  cases.size());
  }
  if (cases.empty()) {
    throw Failure("{}: holds no case", path);
  }
  fmt::print("{}: {} cases, {} failed\n", path, summary.cases, summary.failures);
  if (summary.failures > 0) {
    fmt::print("first failure: {}\n", summary.first_failure);
  }
  return summary.failures > 0 ? 1 : 0;
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "check", "Compares the library's answers with a file of expected ones");
  const auto path = std::make_shared<std::string>();
  command->add_option("FILE", *path, "Such as tests/golden/positions.tsv")
      ->required()
      ->type_name("");
  command->callback([&session, path] { session.exit_status = Check(session.Library(), *path); });
}

}  // namespace zenithor::almanac
