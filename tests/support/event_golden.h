#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/position_golden.h"
#include "support/text_files.h"
#include "zenithor/zenithor.h"

namespace zenithor::testing {

// Comparing event calls with tests/golden/events.tsv. Usable with the routines themselves and with
// the functions of a loaded library.

struct EventCall {
  std::string name;  // of the export, without underscore
  double julian_day;
  std::int32_t selector;
  bool takes_selector;  // seasons and phases; eclipses have none
};

// [day] 0.2 ms: the last bit of a day number is 5e-10 day, and the sums depend on the last bits of
// sines.
constexpr double kEventTolerance = 2e-9;

inline EventTimeBlock UntouchedBlock() {
  return {kUntouchedDouble,  kUntouchedInteger, kUntouchedInteger, kUntouchedInteger,
          kUntouchedInteger, kUntouchedInteger, kUntouchedInteger};
}

inline EventRecord UntouchedEvents() {
  EventRecord record;
  for (EventTimeBlock& block : record.Blocks) {
    block = UntouchedBlock();
  }
  return record;
}

inline bool SameBits(const EventTimeBlock& a, const EventTimeBlock& b) {
  return std::memcmp(&a, &b, sizeof(EventTimeBlock)) == 0;
}

inline bool IsZeroBits(const EventTimeBlock& block) {
  const unsigned char zeros[sizeof(EventTimeBlock)] = {};
  return std::memcmp(&block, zeros, sizeof(EventTimeBlock)) == 0;
}

// Whether a block is what the words "JulianDay:Year:Month:Day:Hour:Minute:Second" say: the day
// within the tolerance, the fields equal, and a zeroed block zero in every bit.
inline bool MeetsGoldenBlock(const EventTimeBlock& block, const std::vector<std::string>& words) {
  const double expected = std::stod(words.at(1));
  if (expected == 0.0) {
    return IsZeroBits(block);
  }
  const std::int32_t fields[] = {block.Year, block.Month,  block.Day,
                                 block.Hour, block.Minute, block.Second};
  for (std::size_t k = 0; k < 6; ++k) {
    if (fields[k] != std::stoi(words.at(2 + k))) {
      return false;
    }
  }
  return std::fabs(block.JulianDay - expected) <= kEventTolerance;
}

// Runs golden cases through call(EventCall, EventRecord*) -> double. Blocks that an answer
// does not list must be untouched.
template <class Call>
GoldenSummary CheckEvents(const std::vector<GoldenCase>& cases, Call call) {
  GoldenSummary summary;
  for (const GoldenCase& golden : cases) {
    const auto& words = golden.call;
    const bool takes_selector = words.at(0) == "S";
    const EventCall arguments{words.at(1), std::stod(words.at(2)),
                              takes_selector ? std::stoi(words.at(3)) : 0, takes_selector};
    EventRecord record = UntouchedEvents();
    const double result = call(arguments, &record);
    ++summary.cases;

    std::string failure;
    if (!(std::fabs(result - std::stod(golden.answer.at(0))) <= kEventTolerance)) {
      failure = " result " + std::to_string(result);
    }
    bool listed[ZENITHOR_BLOCK_COUNT] = {};
    for (std::size_t k = 1; k < golden.answer.size(); ++k) {
      const std::vector<std::string> block = Split(golden.answer[k], ':');
      const auto number = static_cast<std::size_t>(std::stoi(block.at(0)));
      listed[number] = true;
      if (!MeetsGoldenBlock(record.Blocks[number], block)) {
        failure += " block " + block.at(0) + ", JulianDay " +
                   std::to_string(record.Blocks[number].JulianDay);
      }
    }
    for (std::size_t number = 0; number < ZENITHOR_BLOCK_COUNT; ++number) {
      if (!listed[number] && !SameBits(record.Blocks[number], UntouchedBlock())) {
        failure += " block " + std::to_string(number) + " was touched";
      }
    }
    if (!failure.empty()) {
      ++summary.failures;
      if (summary.first_failure.empty()) {
        for (const std::string& word : words) {
          summary.first_failure += word + " ";
        }
        summary.first_failure += ":" + failure;
      }
    }
  }
  return summary;
}

// The same for tests/golden/events.tsv.
template <class Call>
GoldenSummary CheckGoldenEvents(Call call) {
  return CheckEvents(GoldenCases("events.tsv"), call);
}

}  // namespace zenithor::testing
