#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "support/text_files.h"
#include "zenithor/zenithor.h"

namespace zenithor::testing {

// Comparing position calls with tests/golden/positions.tsv.

struct PositionCall {
  double julian_day;
  double ignored1, ignored2;
  double observer_longitude, observer_latitude;
  double ignored3;
  BodyCode code;
};

struct GoldenSummary {
  int cases = 0;
  int failures = 0;
  std::string first_failure;
};

constexpr double kUntouchedDouble = -777.25;
constexpr std::int32_t kUntouchedInteger = -777;
constexpr int kDoubleCount = 17;

// The doubles of a record, field 1 first.
inline const double* Doubles(const BodyPositionRecord& record) { return &record.HelioLongitude; }
inline const std::int32_t* Integers(const BodyPositionRecord& record) { return &record.Year; }

inline BodyPositionRecord UntouchedRecord() {
  BodyPositionRecord record;
  auto* const doubles = reinterpret_cast<double*>(&record);
  for (int k = 0; k < kDoubleCount; ++k) {
    doubles[k] = kUntouchedDouble;
  }
  record.Year = record.Month = record.Day = kUntouchedInteger;
  record.Hour = record.Minute = record.Second = kUntouchedInteger;
  return record;
}

// What a field may differ by. Angles 5e-9 degree (5e-10 hour) within 500 years of J2000.0 and ten
// times that beyond; distances 1e-10 au and 1e-9 au, or 1e-11 of the value.
inline double GoldenTolerance(int field, double julian_day, double expected) {
  const double era = std::fabs(julian_day - 2451545.0) <= 500.0 * 365.25 ? 1.0 : 10.0;
  switch (field) {
    case 3:
    case 6:
      return std::fmax(1e-10 * era, 1e-11 * std::fabs(expected));
    case 7:
      return 5e-10 * era;
    case 9:
    case 10:
      return 5e-9 * era * 0.017453292519943295;  // radians
    case 15:
    case 16:
      return 5e-9 * era * 0.017453292519943295;
    case 17:
      return 1e-15 * std::fmax(1.0, std::fabs(expected));
    default:
      return 5e-9 * era;
  }
}

// Runs the golden cases of the codes that chosen(BodyCode) accepts through
// call(PositionCall, BodyPositionRecord*) -> double.
template <class Call, class Chosen>
GoldenSummary CheckPositions(const std::vector<GoldenCase>& cases, Call call, Chosen chosen) {
  GoldenSummary summary;
  for (const GoldenCase& golden : cases) {
    const auto& words = golden.call;
    const PositionCall arguments{std::stod(words.at(1)), std::stod(words.at(2)),
                                 std::stod(words.at(3)), std::stod(words.at(4)),
                                 std::stod(words.at(5)), std::stod(words.at(6)),
                                 std::stoi(words.at(7))};
    if (!chosen(arguments.code)) {
      continue;
    }
    BodyPositionRecord record = UntouchedRecord();
    const double result = call(arguments, &record);
    ++summary.cases;

    std::string failure;
    if (result != std::stod(golden.answer.at(0))) {
      failure = "result " + std::to_string(result);
    }
    for (int field = 1; field <= kDoubleCount; ++field) {
      const double expected = std::stod(golden.answer.at(static_cast<std::size_t>(field)));
      const double actual = Doubles(record)[field - 1];
      const bool untouched = expected == kUntouchedDouble;
      const double tolerance =
          untouched ? 0.0 : GoldenTolerance(field, arguments.julian_day, expected);
      if (!(std::fabs(actual - expected) <= tolerance)) {
        failure += " field " + std::to_string(field) + " is off by " +
                   std::to_string((actual - expected) * 1e12) + "e-12";
      }
    }
    for (int k = 0; k < 6; ++k) {
      if (Integers(record)[k] != std::stoi(golden.answer.at(static_cast<std::size_t>(18 + k)))) {
        failure += " field " + std::to_string(18 + k);
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

// The same for tests/golden/positions.tsv.
template <class Call, class Chosen>
GoldenSummary CheckGoldenPositions(Call call, Chosen chosen) {
  return CheckPositions(GoldenCases("positions.tsv"), call, chosen);
}

}  // namespace zenithor::testing
