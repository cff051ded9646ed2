#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "support/text_files.h"
#include "zenithor/zenithor.h"

namespace zenithor::testing {

// Comparing rising calls with tests/golden/rising.tsv.

struct RisingCall {
  double day_number, minutes, zone_hours;
  double longitude_west, latitude;
  BodyCode code;
  std::int32_t selector;
};

struct RisingSummary {
  int cases = 0;
  int failures = 0;
  double largest_difference = 0.0;  // [min]
  std::string first_failure;
};

// [min] The answers agree to 3.3e-7, which is half the last bit of a Julian day: the expected ones
// take the sidereal time from one. The signals 16 and 32 must be met exactly.
constexpr double kRisingTolerance = 1e-6;

// Runs golden cases through call(RisingCall) -> double.
template <class Call>
RisingSummary CheckRisings(const std::vector<GoldenCase>& cases, Call call) {
  RisingSummary summary;
  for (const GoldenCase& golden : cases) {
    const auto& words = golden.call;
    const RisingCall arguments{std::stod(words.at(1)), std::stod(words.at(2)),
                               std::stod(words.at(3)), std::stod(words.at(4)),
                               std::stod(words.at(5)), std::stoi(words.at(6)),
                               std::stoi(words.at(7))};
    const double expected = std::stod(golden.answer.at(0));
    const double actual = call(arguments);
    ++summary.cases;

    const bool signal = expected == ZENITHOR_ALWAYS_UP || expected == ZENITHOR_NEVER_UP;
    const double difference = std::fabs(actual - expected);
    const bool met = difference <= (signal ? 0.0 : kRisingTolerance);
    if (met) {
      summary.largest_difference = std::fmax(summary.largest_difference, difference);
      continue;
    }
    ++summary.failures;
    if (summary.first_failure.empty()) {
      for (const std::string& word : words) {
        summary.first_failure += word + " ";
      }
      summary.first_failure +=
          ": " + std::to_string(actual) + " instead of " + std::to_string(expected);
    }
  }
  return summary;
}

// The same for every case of tests/golden/rising.tsv.
template <class Call>
RisingSummary CheckGoldenRisings(Call call) {
  return CheckRisings(GoldenCases("rising.tsv"), call);
}

}  // namespace zenithor::testing
